#include "makeDocument.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "prose.h"

namespace tavisk::bench {

namespace {

template <class List>
std::string_view anyOf(Random& random, const List& list) {
    return list[random.below(list.size())];
}

std::string fourDigits(std::size_t number) {
    std::string digits = std::to_string(number);
    return digits.size() < 4 ? std::string(4 - digits.size(), '0') + digits : digits;
}

void appendSentence(std::string& text, Random& random, std::string_view pattern,
                    const DocumentPlan& plan) {
    const std::size_t start = text.size();
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        if (pattern[at] != '%') {
            text += pattern[at];
            continue;
        }
        switch (pattern[++at]) {
            case 'n': text += anyOf(random, prose::nouns); break;
            case 'm': text += anyOf(random, prose::measures); break;
            case 'a': text += anyOf(random, prose::adjectives); break;
            default:
                // Reduced from a fixed range, so that the texts do not depend on the plan.
                text += '`' + formulaName(random.below(2000) % plan.formulas) + '`';
        }
    }
    if (text[start] >= 'a' && text[start] <= 'z') text[start] = static_cast<char>(text[start] - 32);
}

void appendEscaped(std::string& xml, std::string_view text) {
    for (const char c : text) {
        switch (c) {
            case '<': xml += "&lt;"; break;
            case '>': xml += "&gt;"; break;
            case '&': xml += "&amp;"; break;
            case '"': xml += "&quot;"; break;
            case '\n': xml += "&#10;"; break;
            default: xml += c;
        }
    }
}

void appendAttribute(std::string& xml, std::string_view name, std::string_view value) {
    xml.append(" ").append(name).append("=\"");
    appendEscaped(xml, value);
    xml += '"';
}

// Written out here, not by the library, so that the documents do not depend on what they measure.
void appendRandomBase64(std::string& xml, Random& random, std::size_t bytes) {
    constexpr std::string_view digits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    for (std::size_t left = bytes / 3; left > 0;) {
        std::uint64_t bits = random.next();
        for (const std::size_t end = left - std::min<std::size_t>(left, 2); left > end; --left) {
            for (int digit = 0; digit < 4; ++digit, bits >>= 6U)
                xml += digits[bits & 63U];
        }
    }
    if (bytes % 3 == 1) {
        xml += digits[random.below(64)];
        xml += digits[random.below(4) << 4U];
        xml += "==";
    } else if (bytes % 3 == 2) {
        xml += digits[random.below(64)];
        xml += digits[random.below(64)];
        xml += digits[random.below(16) << 2U];
        xml += '=';
    }
}

std::string nodeName(Random& random, std::size_t ordinal) {
    std::string name(anyOf(random, prose::titles));
    name.append(" ").append(anyOf(random, prose::adjectives)).append(" ");
    name.append(anyOf(random, prose::nouns)).append(" ").append(std::to_string(ordinal));
    std::replace(name.begin(), name.end(), ' ', '_');
    return name;
}

class Writer {
public:
    explicit Writer(const DocumentPlan& plan) : plan_(plan), random_(plan.seed) {}

    std::string write() {
        const std::size_t picture = plan_.pictureBytes / 3 * 4 + 260;
        xml_.reserve(plan_.nodes * 1000 + plan_.formulas * 300 + plan_.pictures * picture);
        xml_ += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<cabinetinfo>\n  <cabinet>\n";
        std::size_t left = plan_.nodes;
        const std::size_t chapters = std::clamp<std::size_t>(plan_.nodes / 300, 8, 200);
        if (left > 0) {
            xml_ += "    <code titlehidden=\"1\" answerhidden=\"1\" value=\"`";
            xml_ += formulaName(0) + "`\"/>\n";
            --left;
        }
        for (std::size_t chapter = 0; chapter < chapters && left > 0; ++chapter) {
            const std::size_t size = left / (chapters - chapter);
            if (size == 0) continue;
            group(size, 4, 1 + chapter % 4, chapter + 1);
            left -= size;
        }
        xml_ += "  </cabinet>\n";
        for (std::size_t index = 0; index < plan_.pictures; ++index)
            picture_(index);
        for (std::size_t index = 0; index < plan_.formulas; ++index)
            formula(index);
        xml_ += "</cabinetinfo>\n";
        return std::move(xml_);
    }

private:
    /// One element with `size` - 1 nodes below it on at most `depth` levels.
    void group(std::size_t size, std::size_t indent, std::size_t depth, std::size_t ordinal) {
        const std::string name = nodeName(random_, ordinal);
        xml_.append(indent, ' ').append("<").append(name);
        attributes();
        std::size_t left = size - 1;
        if (left == 0) {
            xml_ += "/>\n";
            return;
        }
        xml_ += ">\n";
        std::size_t children = left;
        if (depth > 1) {
            for (children = 4; power(children + 1, depth) <= left; ++children) {
            }
            children = std::min(left, children + random_.below(4));
        }
        for (std::size_t child = 0; child < children; ++child) {
            const std::size_t part = left / (children - child);
            group(part, indent + 2, depth - 1, child + 1);
            left -= part;
        }
        xml_.append(indent, ' ').append("</").append(name).append(">\n");
    }

    static std::size_t power(std::size_t base, std::size_t exponent) {
        std::size_t result = 1;
        for (; exponent > 0; --exponent)
            result *= base;
        return result;
    }

    void attributes() {
        static constexpr std::array<std::string_view, 11> names = {
            "titlecolor",   "answercolor", "titlefontsize", "answerfontsize",
            "style",        "spacebefore", "spaceafter",    "titlehidden",
            "answerhidden", "columnbreak", "pagebreak"};
        const bool textFirst = random_.percent(60);
        if (textFirst) answer();
        if (random_.percent(70)) {
            const std::size_t wanted = random_.between(2, 5);
            std::size_t first = random_.below(names.size());
            for (std::size_t count = 0; count < wanted; ++count, first += 2) {
                appendAttribute(xml_, names[first % names.size()],
                                formatting(first % names.size()));
            }
        }
        if (!textFirst) answer();
    }

    std::string formatting(std::size_t which) {
        static constexpr std::array<std::string_view, 6> colours = {
            "#000000", "#800000", "#003366", "#1F4E79", "#336633", "#C00000"};
        switch (which) {
            case 0:
            case 1: return std::string(anyOf(random_, colours));
            case 2:
            case 3: return std::to_string(static_cast<int>(random_.below(6)) - 2);
            case 4: return std::to_string(random_.below(64));
            case 5:
            case 6: return std::to_string(random_.below(3));
            default: return random_.percent(5) ? "1" : "0";
        }
    }

    void answer() {
        const std::size_t length = random_.between(200, 485);
        const std::array<std::size_t, 8> tokens = {1, 1, 2, 2, 2, 2, 3, 3};
        const std::size_t count = tokens[random_.below(tokens.size())];
        appendAttribute(xml_, "value",
                        makeAnswer(random_, length, count, ++answers_ % 10 == 0, plan_));
    }

    void picture_(std::size_t index) {
        static constexpr std::array<std::string_view, 3> extensions = {"png", "jpg", "bmp"};
        xml_ += "  <image xmlns:dt=\"urn:schemas-microsoft-com:datatypes\" dt:dt=\"bin.base64\"";
        appendAttribute(xml_, "name", pictureName(index));
        appendAttribute(xml_, "extension", extensions[index % extensions.size()]);
        appendAttribute(xml_, "width", std::to_string(random_.between(80, 640)));
        appendAttribute(xml_, "height", std::to_string(random_.between(80, 480)));
        xml_ += '>';
        appendRandomBase64(xml_, random_, plan_.pictureBytes);
        xml_ += "</image>\n";
    }

    void formula(std::size_t index) {
        static constexpr std::array<std::string_view, 4> units = {" mm", "\xC2\xB0", " kg",
                                                                  "\xC2\xBD in"};
        xml_ += "  <formula";
        appendAttribute(xml_, "name", formulaName(index));
        appendAttribute(xml_, "standard", index % 3 == 0 ? "1" : "0");
        std::string description;
        appendSentence(description, random_, anyOf(random_, prose::sentences), plan_);
        appendAttribute(xml_, "description", description);
        appendAttribute(
            xml_, "value",
            std::to_string(100 + index % 900) + std::string(units[index % units.size()]));
        xml_ += "/>\n";
    }

    DocumentPlan plan_;
    Random random_;
    std::string xml_;
    std::size_t answers_ = 0;
};

}  // namespace

std::string makeDocument(const DocumentPlan& plan) { return Writer(plan).write(); }

std::string formulaName(std::size_t index) {
    // As many nouns as the smallest catalogue has formulas: equal remainders are equally long.
    std::string name(prose::nouns[index % prose::nouns.size()]);
    name.append(" ").append(prose::measures[index % 4]).append(" ").append(fourDigits(index));
    return name;
}

std::string pictureName(std::size_t index) {
    std::string name(prose::nouns[index % 5]);
    name.append("-").append(fourDigits(index));
    return name;
}

std::string makeAnswer(Random& random, std::size_t length, std::size_t tokens, bool picture,
                       const DocumentPlan& plan) {
    std::string text;
    text.reserve(length + 160);
    const std::size_t accented = random.below(20);
    const std::size_t every = length / (tokens + 1);
    std::size_t written = 0;
    while (text.size() < length || written < tokens) {
        if (written < tokens && (text.size() >= every * (written + 1) || text.size() >= length)) {
            appendSentence(text, random, anyOf(random, prose::formulaSentences), plan);
            ++written;
        } else if (accented == 0 && written == 0 && text.size() > length / 8) {
            appendSentence(text, random, anyOf(random, prose::accentedSentences), plan);
        } else {
            appendSentence(text, random, anyOf(random, prose::sentences), plan);
        }
        if (random.below(9) == 0) text.back() = '\n';
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\n'))
        text.pop_back();
    if (picture && plan.pictures > 0) {
        text += " `~" + pictureName(random.below(500) % plan.pictures) + '`';
    }
    return text;
}

std::string makeDeepDocument(std::size_t nodes, std::size_t depth) {
    std::string xml = "<cabinetinfo><cabinet>";
    std::vector<std::string> open;
    const std::size_t leaves = nodes > depth ? nodes - depth : 0;
    for (std::size_t level = 0; level < depth; ++level) {
        open.push_back("Level_" + std::to_string(level));
        xml += '<' + open.back() + '>';
        const std::size_t here = leaves / depth + (level < leaves % depth ? 1 : 0);
        for (std::size_t leaf = 0; leaf < here; ++leaf) {
            xml += "<Leaf_" + std::to_string(leaf) + "/>";
        }
    }
    for (; !open.empty(); open.pop_back())
        xml += "</" + open.back() + '>';
    return xml + "</cabinet></cabinetinfo>";
}

}  // namespace tavisk::bench
