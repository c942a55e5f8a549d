#include "check/storeChecks.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "check/attributeChecks.h"
#include "document/xmlParse.h"
#include "page/imageStore.h"
#include "xml/domTyped.h"

namespace tavisk {
namespace {

constexpr std::size_t longestFileName = 255;

bool hasAttribute(const dom::Node& element, std::string_view name) {
    return std::ranges::find(element.attributes(), name, &dom::Attribute::baseName) !=
           element.attributes().end();
}

/// One formula or picture, and where its findings go.
class StoredElement {
public:
    StoredElement(const dom::Node& element, std::size_t number, FindingList& findings)
        : element_(element), number_(number), findings_(findings) {}

    bool hasTooManyAttributes() {
        if (element_.attributes().size() <= maxCount) return false;
        add("", {Severity::error, "too-many-attributes",
                 "The element has more than " + std::to_string(maxCount) + " attributes."});
        return true;
    }

    std::string_view read(std::string_view attribute, std::string_view missing) const {
        return GetAttributeValue(&element_, attribute, missing);
    }

    void add(std::string_view attribute, Problem problem) {
        findings_.add(&element_, {problem.severity, problem.code, locator(), std::string(attribute),
                                  problem.position, std::move(problem.message)});
    }

    void addIf(std::string_view attribute, std::optional<Problem> problem) {
        if (problem) add(attribute, std::move(*problem));
    }

    void checkBackquote(std::string_view name) {
        const std::size_t at = name.find('`');
        if (at == std::string_view::npos) return;
        add("name", {Severity::warning, "name-with-backquote",
                     "A name with a backquote cannot be written in a token.",
                     utf16Length(name.substr(0, at))});
    }

private:
    std::string locator() const {
        const bool named = element_.attributes().size() <= maxCount && !read("name", "").empty();
        return std::string(element_.nodeName()) + ' ' +
               (named ? inQuotes(read("name", "")) : '#' + std::to_string(number_));
    }

    const dom::Node& element_;
    std::size_t number_;
    FindingList& findings_;
};

/// The picture file's name, with the defaults that writing it has.
std::string fileName(const StoredElement& picture) {
    return std::string(picture.read("name", "default")) + '.' +
           std::string(picture.read("extension", "bmp"));
}

class PictureChecks {
public:
    PictureChecks(const TokenNames& names, FindingList& findings)
        : names_(names), findings_(findings) {}

    void check(const dom::Node& element, std::size_t number) {
        StoredElement picture(element, number, findings_);
        if (picture.hasTooManyAttributes()) return;
        const std::string_view name = picture.read("name", "");
        checkName(picture, name);
        checkFileName(picture);
        if (!hasAttribute(element, "extension")) {
            picture.add("extension",
                        {Severity::warning, "picture-without-extension",
                         "The picture has no extension; its file ends in \".bmp\", but texts refer "
                         "to one in \".png\"."});
        }
        const bool generated = name == generatedPictureName;
        for (const std::string_view size : {"width", "height"}) {
            const AttributeCheck check = generated ? checkOverlaySize : checkPixels;
            picture.addIf(size, check(picture.read(size, generated ? "256" : "")));
        }
        checkData(picture, element);
    }

private:
    void checkName(StoredElement& picture, std::string_view name) {
        const std::string file = fileName(picture);
        const bool firstFile = fileNames_.insert(file).second;
        const bool firstName = pictureNames_.insert(name).second;
        picture.checkBackquote(name);
        if (name.empty()) {
            picture.add("name", {Severity::warning, "picture-without-name",
                                 "The picture has no name; texts cannot refer to it."});
        } else if (!firstFile) {
            picture.add("name", {Severity::warning, "picture-file-clash",
                                 "An earlier picture has the same file, " + inQuotes(file) +
                                     "; this one overwrites it."});
        } else if (!firstName) {
            picture.add("name", {Severity::warning, "duplicate-picture",
                                 "An earlier picture has the same name; texts show that one."});
        } else if (!names_.isUsed(name) && name != generatedPictureName) {
            picture.add("name",
                        {Severity::warning, "picture-unused", "No text refers to this picture."});
        }
    }

    static void checkFileName(StoredElement& picture) {
        const std::string file = fileName(picture);
        if (file.find('/') != std::string::npos || file == "." || file == "..") {
            picture.add("name", {Severity::error, "picture-name-unsafe",
                                 "The file name " + inQuotes(file) +
                                     " leads out of the picture folder; nothing is written."});
        } else if (file.size() > longestFileName) {
            picture.add("name", {Severity::error, "picture-name-unsafe",
                                 "The file name is longer than " + std::to_string(longestFileName) +
                                     " bytes; the file cannot be written."});
        } else if (file.find_first_of("\\:*?\"<>|'#%") != std::string::npos) {
            picture.add("name", {Severity::warning, "picture-name-special",
                                 "The file name " + inQuotes(file) +
                                     " has one of \\ : * ? \" < > | ' # %, which file systems "
                                     "refuse or links in the page do not survive."});
        }
    }

    void checkData(StoredElement& picture, const dom::Node& element) {
        try {
            dom::base64Value(element, bytes_);
        } catch (const RunTimeError&) {
            picture.add("", {Severity::error, "picture-bad-data",
                             "The content is no base64; no picture can be written."});
            return;
        }
        if (bytes_.empty()) {
            picture.add("", {Severity::error, "picture-without-data", "The picture is empty."});
        }
    }

    const TokenNames& names_;
    FindingList& findings_;
    std::unordered_set<std::string_view> pictureNames_;
    std::unordered_set<std::string> fileNames_;
    std::string bytes_;
};

}  // namespace

void checkFormulas(const TokenNames& names, FindingList& findings) {
    std::unordered_set<std::string_view> seen;
    std::size_t number = 0;
    for (const dom::Node* element : names.formulas()) {
        StoredElement formula(*element, ++number, findings);
        if (formula.hasTooManyAttributes()) continue;
        const std::string_view name = formula.read("name", "");
        if (name.empty()) {
            formula.add("name",
                        {Severity::warning, "formula-without-name", "The formula has no name."});
        } else if (!seen.insert(name).second) {
            formula.add("name", {Severity::warning, "duplicate-formula",
                                 "An earlier formula has the same name; its value is used."});
        }
        formula.checkBackquote(name);
        formula.addIf("standard", checkFlag(formula.read("standard", "0")));
    }
}

void checkPictures(const TokenNames& names, FindingList& findings) {
    PictureChecks checks(names, findings);
    std::size_t number = 0;
    for (const dom::Node* element : names.pictures())
        checks.check(*element, ++number);
}

}  // namespace tavisk
