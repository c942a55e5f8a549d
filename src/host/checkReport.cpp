#include "host/checkReport.h"

#include "platform/text.h"

namespace tavisk {
namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

std::string_view nameOf(Severity severity) {
    return severity == Severity::error ? "error" : "warning";
}

/// Texts come from documents: nothing in them may start a new line or move a terminal's cursor.
void appendPlain(std::string& line, std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if (byte < 0x20 || byte == 0x7F) {
            line += ' ';
        } else if (byte == 0xC2 && i + 1 < text.size() &&
                   static_cast<unsigned char>(text[i + 1]) < 0xA0) {
            line += ' ';
            ++i;
        } else {
            line += text[i];
        }
    }
}

void appendEscaped(std::string& json, unsigned char byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (byte) {
        case '"': json += "\\\""; break;
        case '\\': json += "\\\\"; break;
        case '\n': json += "\\n"; break;
        case '\r': json += "\\r"; break;
        case '\t': json += "\\t"; break;
        default:
            if (byte >= 0x20) {
                json += static_cast<char>(byte);
            } else {
                json += "\\u00";
                json += digits[byte >> 4];
                json += digits[byte & 15];
            }
    }
}

/// File names need not be UTF-8; JSON is.
void appendString(std::string& json, std::string_view text) {
    json += '"';
    while (!text.empty()) {
        const std::size_t valid = std::min(findInvalidUtf8(text), text.size());
        for (const char c : text.substr(0, valid))
            appendEscaped(json, static_cast<unsigned char>(c));
        text.remove_prefix(valid);
        if (text.empty()) break;
        json += replacementCharacter;
        text.remove_prefix(1);
    }
    json += '"';
}

void appendStringOrNull(std::string& json, std::string_view text) {
    if (text.empty()) {
        json += "null";
    } else {
        appendString(json, text);
    }
}

void appendFinding(std::string& json, const Finding& finding) {
    json += "{\"severity\": ";
    appendString(json, nameOf(finding.severity));
    json += ", \"code\": ";
    appendString(json, finding.code);
    json += ", \"key\": ";
    appendStringOrNull(json, finding.key);
    json += ", \"attribute\": ";
    appendStringOrNull(json, finding.attribute);
    json += ", \"position\": ";
    json += finding.position ? std::to_string(*finding.position) : "null";
    json += ", \"message\": ";
    appendString(json, finding.message);
    json += '}';
}

}  // namespace

std::string textReport(std::string_view file, const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        appendPlain(text, file);
        text += ": ";
        text += nameOf(finding.severity);
        text += ": ";
        if (!finding.key.empty()) {
            appendPlain(text, finding.key);
            text += ": ";
        }
        if (!finding.attribute.empty()) {
            text += finding.attribute;
            if (finding.position) text += ", position " + std::to_string(*finding.position);
            text += ": ";
        }
        appendPlain(text, finding.message);
        text += " [";
        text += finding.code;
        text += "]\n";
    }
    switch (findings.size()) {
        case 0: text += "no findings\n"; break;
        case 1: text += "1 finding\n"; break;
        default: text += std::to_string(findings.size()) + " findings\n";
    }
    return text;
}

std::string jsonReport(std::string_view file, const Findings& findings) {
    std::string json = "{\"file\": ";
    appendString(json, file);
    json += ", \"findings\": [";
    for (std::size_t i = 0; i < findings.size(); ++i) {
        json += i == 0 ? "\n" : ",\n";
        appendFinding(json, findings[i]);
    }
    json += findings.empty() ? "]}\n" : "\n]}\n";
    return json;
}

}  // namespace tavisk
