#include "page/standalonePage.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "document/xmlParse.h"
#include "page/imageMarkup.h"
#include "page/nodeParse.h"
#include "page/pageLayout.h"
#include "page/pictureData.h"
#include "page/pictureTags.h"
#include "xml/domTyped.h"

namespace tavisk {
namespace {

/// Stands for the folder of the pictures until they are put in. No document can hold it.
constexpr char pictureMark = '\x01';

/// Where the page's own pictures are, seen from a page in a folder.
constexpr std::string_view pictureFolder = "temp_images/";

/// Nothing in a style sheet may end the element around it.
std::string styleElement(std::string_view css) {
    std::string element = "<style>";
    for (std::size_t i = 0; i < css.size(); ++i) {
        element += css[i];
        if (css[i] == '<' && css.substr(i + 1).starts_with('/')) element += '\\';
    }
    return element + "</style>";
}

class Pictures {
public:
    Pictures(const dom::Document& document, const StandaloneParts& parts) : parts_(parts) {
        // The later of two pictures with one file name is the one that the file holds.
        for (const dom::Node* image : document.elementsByTagName("image")) {
            std::string name(GetAttributeValue(image, "name", "default"));
            name.append(".").append(GetAttributeValue(image, "extension", "bmp"));
            longestName_ = std::max(longestName_, name.size());
            stored_[std::move(name)] = {image, {}};
        }
    }

    void putInto(std::string& html) {
        replacePictureAddresses(html, [this](const std::string& address) {
            // Those of the document come next, wherever they stand.
            return address.find(pictureMark) == std::string::npos ? named(address) : std::nullopt;
        });
        putStored(html);
    }

private:
    struct Stored {
        const dom::Node* image = nullptr;
        std::string address;  ///< made on first use
    };

    std::optional<std::string> named(const std::string& address) {
        const std::optional<std::string> file = localFile(address);
        if (!file) return std::nullopt;
        if (file->starts_with(pictureFolder)) {
            const std::string name = file->substr(pictureFolder.size());
            if (stored_.contains(name)) return std::string(addressOf(name));
        }
        const auto [found, isNew] = named_.try_emplace(*file);
        if (!isNew) return found->second;
        const std::optional<std::string> bytes =
            file->empty() ? std::nullopt : parts_.readPicture(*file);
        // Whatever else lies on this machine has no business in the page.
        if (const auto type = bytes ? pictureType(*bytes) : std::nullopt) {
            found->second = dataAddress(*type, *bytes);
        } else {
            found->second = emptyAddress;
            parts_.missing(address);
        }
        return found->second;
    }

    /// The mark, a slash or none, and the name of the file up to a quote.
    void putStored(std::string& html) {
        std::size_t mark = html.find(pictureMark);
        if (mark == std::string::npos) return;
        std::string out;
        std::size_t copied = 0;
        for (; mark != std::string::npos; mark = html.find(pictureMark, copied)) {
            out.append(html, copied, mark - copied);
            const std::size_t begin = mark + (html[mark + 1] == '/' ? 2 : 1);
            copied = endOfName(html, begin);
            out += addressOf(html.substr(begin, copied - begin));
        }
        out.append(html, copied);
        html = std::move(out);
    }

    /// A name may hold quotes itself.
    std::size_t endOfName(const std::string& html, std::size_t begin) const {
        const std::size_t first = std::min(html.find('\'', begin), html.size());
        for (std::size_t end = first; end < html.size(); end = html.find('\'', end + 1)) {
            if (end - begin > longestName_) break;
            if (stored_.contains(html.substr(begin, end - begin))) return end;
        }
        return first;
    }

    std::string_view addressOf(const std::string& name) {
        const auto found = stored_.find(name);
        if (found == stored_.end()) {
            parts_.missing(name);
            return emptyAddress;
        }
        Stored& stored = found->second;
        if (stored.address.empty()) {
            dom::base64Value(*stored.image, bytes_);
            const std::string_view extension = GetAttributeValue(stored.image, "extension", "bmp");
            if (bytes_.empty()) {
                stored.address = emptyAddress;
                parts_.missing(name);
            } else {
                stored.address = dataAddress(pictureType(bytes_, extension), bytes_);
            }
        }
        return stored.address;
    }

    const StandaloneParts& parts_;
    std::unordered_map<std::string, Stored> stored_;
    std::unordered_map<std::string, std::string> named_;  ///< by file
    std::size_t longestName_ = 0;
    std::string bytes_;
};

}  // namespace

void writeStandalonePage(const Files::Write& write, dom::Document& document,
                         const FormulaCatalogue& catalogue, const dom::Node& cabinet, bool evaluate,
                         const StandaloneParts& parts) {
    // No document type: the style is made for the page as it is without.
    write(
        "<html><head><meta charset=\"utf-8\"><meta http-equiv=\"Content-Security-Policy\" "
        "content=\"script-src 'none'; object-src 'none'\">");
    write(styleElement(parts.stylesheet));
    write("</head>");
    write(pageBegin);

    Pictures pictures(document, parts);
    std::optional<NodeParser> parser;
    if (evaluate) {
        parser.emplace(document, catalogue, std::string(1, pictureMark),
                       OverlayMarkup::picturesOnly);
    }
    std::size_t size = 0;
    layoutPage(cabinet, parser ? &*parser : nullptr, [&](std::string& html) {
        pictures.putInto(html);
        size += html.size();
        if (size > maxPageSize) raise(ErrorNumber::outOfMemory);
        write(html);
    });
    write(pageEnd);
}

}  // namespace tavisk
