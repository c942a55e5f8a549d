#include "command/reportText.h"

#include "base/text.h"
#include "check/check.h"
#include "check/finding.h"
#include "command/fileError.h"
#include "command/input.h"

namespace tavisk {
namespace {

std::string lineOf(const std::string& file, const std::string& what) {
    std::string line;
    appendPlain(line, file);
    line += ": ";
    appendPlain(line, what);
    line += '\n';
    return line;
}

}  // namespace

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

std::string describe(const RunTimeError& error) {
    return "Run-time error '" + std::to_string(error.number()) + "': " + error.what();
}

std::string inFull(const Refusal& refusal) {
    const Message message = refusal.message();
    return message.title + ": " + replaceAll(message.text, "\r\n", "\n") + '\n';
}

std::string complaint(const std::string& file, const Refusal& refusal) {
    return lineOf(file, "rejected: " + refusal.sentence());
}

std::string currentComplaint(const std::string& file) {
    try {
        throw;
    } catch (const Rejected& rejected) {
        return complaint(file, rejected.refusal());
    } catch (const FileError& error) {
        const bool own = error.file() == file || (file == "-" && error.file() == "standard input");
        return lineOf(file, describe(error) + (own ? "" : " (" + error.file() + ')'));
    } catch (...) {
        return lineOf(file, describe(currentRunTimeError()));
    }
}

std::string missingPictures(const std::string& file, const std::vector<std::string>& addresses) {
    std::string lines;
    for (const std::string& address : addresses)
        lines += lineOf(file, "warning: the picture " + inQuotes(address) + " is missing");
    return lines;
}

std::string counted(std::size_t count, std::string_view what) {
    std::string text = std::to_string(count);
    text.append(" ").append(what);
    if (count != 1) text += 's';
    return text;
}

void Summary::add(std::size_t count, std::string_view how) {
    if (count == 0) return;
    text_.append(isFirst_ ? ": " : ", ").append(std::to_string(count)).append(" ").append(how);
    isFirst_ = false;
}

}  // namespace tavisk
