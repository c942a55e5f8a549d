#include "reference/randomDocument.h"

#include "reference/random.h"
#include "reference/randomText.h"

namespace tavisk::reference {
namespace {

using Texts = std::vector<std::u16string>;

class DocumentMaker {
public:
    explicit DocumentMaker(std::uint64_t seed) : random_(seed), words_(randomVocabulary(random_)) {}

    RandomDocument make() {
        RandomDocument result;
        result.document.kind = Kind::document;
        addProlog(result.document);

        PlainNode base = element(u"cabinetinfo");
        base.attributes = {{u"xmlns:x", u"urn:example"},
                           {u"xmlns:dt", u"urn:schemas-microsoft-com:datatypes"}};
        if (random_.chance(5)) base.attributes.push_back({u"xml:space", u"preserve"});
        if (random_.below(300) == 0) {
            base.children.push_back(formula());
            base.children.back().children.push_back(cabinet());
        } else {
            base.children.push_back(cabinet());
        }
        addAround(base, random_.below(random_.chance(5) ? 30 : 6), [this] { return formula(); });
        addAround(base, random_.below(random_.chance(5) ? 12 : 4), [this] { return image(); });
        addAround(base, random_.below(2), [this] { return oddment(); });
        result.document.children.push_back(std::move(base));

        result.style.declaration = random_.chance(40);
        result.style.indented = random_.chance(40);
        result.style.singleQuotes = random_.chance(10);
        result.style.emptyPairs = random_.chance(10);
        return result;
    }

private:
    static PlainNode element(std::u16string name) {
        PlainNode node;
        node.name = std::move(name);
        return node;
    }

    static PlainNode data(Kind kind, std::u16string text, std::u16string name = u"") {
        PlainNode node;
        node.kind = kind;
        node.name = std::move(name);
        node.data = std::move(text);
        return node;
    }

    template <class Make>
    void addAround(PlainNode& base, std::size_t count, Make make) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t at = random_.below(base.children.size() + 1);
            base.children.insert(base.children.begin() + static_cast<std::ptrdiff_t>(at), make());
        }
    }

    void addProlog(PlainNode& document) {
        if (random_.chance(5)) document.children.push_back(data(Kind::comment, u" before "));
        if (random_.chance(5)) {
            document.children.push_back(data(Kind::instruction, u"a=\"b\"", u"style"));
        }
    }

    // Attributes in any order; each name once.
    void add(PlainNode& node, std::size_t percent, const std::u16string& name,
             std::u16string text) {
        if (random_.chance(percent)) node.attributes.push_back({name, std::move(text)});
    }

    PlainNode cabinet() {
        PlainNode node = element(u"cabinet");
        addHelpAttributes(node, 20);
        const std::size_t count = random_.below(random_.chance(5) ? 40 : 7);
        for (std::size_t i = 0; i < count; ++i) {
            // A path of random choices from the top keeps pointers out of growing vectors.
            PlainNode* parent = &node;
            while (random_.chance(50)) {
                PlainNode* deeper = randomElementBelow(*parent);
                if (deeper == nullptr) break;
                parent = deeper;
            }
            parent->children.push_back(random_.chance(8) ? oddment() : helpNode());
        }
        return node;
    }

    PlainNode* randomElementBelow(PlainNode& parent) {
        if (parent.children.empty()) return nullptr;
        PlainNode& child = parent.children[random_.below(parent.children.size())];
        return child.kind == Kind::element ? &child : nullptr;
    }

    PlainNode helpNode() {
        static const Texts names{u"Node",  u"How_to_order", u"code",        u"Code",
                                 u"CODE",  u"my_code",      u"type",        u"TYPE",
                                 u"Type_", u"_a",           u"a__b",        u"x:code",
                                 u"A-b",   u"n\u00F6de",    u"cabinetdata", u"cod\u00E9",
                                 u"_code", u"x:Order_form", u"N1",          u"location"};
        PlainNode node = element(random_.pick(names));
        addHelpAttributes(node, 75);
        return node;
    }

    std::u16string answer() {
        return words_.longTexts && random_.chance(40) ? randomLongText(random_, words_)
                                                      : randomText(random_, words_);
    }

    void addHelpAttributes(PlainNode& node, std::size_t valuePercent) {
        add(node, valuePercent, u"value", answer());
        add(node, 10, u"titlecolor", randomColour(random_, words_));
        add(node, 10, u"answercolor", randomColour(random_, words_));
        add(node, 15, u"titlefontsize", randomNumber(random_, words_));
        add(node, 15, u"answerfontsize", randomNumber(random_, words_));
        add(node, 20, u"style", randomNumber(random_, words_));
        add(node, 10, u"titlehidden", randomFlag(random_));
        add(node, 10, u"answerhidden", randomFlag(random_));
        add(node, 12, u"spacebefore", randomGap(random_, words_));
        add(node, 12, u"spaceafter", randomGap(random_, words_));
        add(node, 10, u"columnbreak", randomFlag(random_));
        add(node, 10, u"pagebreak", randomFlag(random_));
        add(node, 2, u"x:value", randomText(random_, words_));
        add(node, 1, u"x:titlehidden", randomFlag(random_));
        add(node, 1, u"xmlns:value", u"urn:" + std::u16string(random_.below(3), u'`'));
        add(node, 2, u"Value", randomText(random_, words_));
        add(node, 1, u"xml:space", u"preserve");
        random_.shuffle(node.attributes);
    }

    PlainNode formula() {
        PlainNode node = element(u"formula");
        add(node, 95, u"name", random_.pick(words_.names));
        add(node, 90, u"value", randomValue(random_, words_));
        add(node, 50, u"description", randomText(random_, words_));
        add(node, 70, u"standard", randomFlag(random_));
        random_.shuffle(node.attributes);
        return node;
    }

    std::u16string pictureSize(bool odd) {
        static const Texts plain{u"256", u"300", u"0", u"1", u"42"};
        static const Texts exact{u" 300 ", u"1e2",     u"300.5",  u"299.5", u"-3",
                                 u"+7",    u"12.",     u"0.5",    u"1.5",   u"-0.4",
                                 u"-2.5",  u"32767.4", u"\t9\r\n"};
        static const Texts wrong{u"",         u"abc",   u"3 4",  u"40000", u"32767.5", u"1e999",
                                 u"-32768.6", u"256px", u"0x10", u"1e",    u"-1e999"};
        if (!odd) return random_.pick(plain);
        return random_.pick(random_.chance(80) ? exact : wrong);
    }

    PlainNode image() {
        static const Texts extensions{u"png", u"gif",     u"jpg",  u"",  u"p n g",
                                      u"~x`", u"`!logo`", u"pn'g", u"`", u"@x"};
        const bool generated = random_.chance(25);
        const bool odd = random_.chance(25);
        PlainNode node = element(u"image");
        add(node, 95, u"name",
            generated ? u"generated_cabinet_picture" : random_.pick(words_.names));
        if (random_.below(300) == 0) node.attributes = {{u"name", u"a/b"}};
        add(node, 80, u"extension",
            random_.chance(85) ? extensions[random_.below(3)] : random_.pick(extensions));
        add(node, 50, u"height", pictureSize(odd));
        add(node, 50, u"width", pictureSize(odd));
        addBytes(node);
        random_.shuffle(node.attributes);
        return node;
    }

    void addBytes(PlainNode& node) {
        static const Texts plain{u"QUJD", u"Q UI="};
        static const Texts good{u"QUJD",       u"QUI=",       u"QQ==",
                                u"QU\nJD\r\n", u" QUJDREVG ", u"AAEC/+8="};
        static const Texts bad{u"QUJ", u"Q", u"QUJD=", u"Q===", u"QU!D", u"=QUJ", u"QQ==QUJD"};
        if (random_.chance(70)) node.attributes.push_back({u"dt:dt", u"bin.base64"});
        if (random_.chance(20)) return;
        if (random_.chance(5)) {  // line breaks could not be written as references here
            node.children.push_back(data(Kind::cdata, random_.pick(plain)));
            return;
        }
        const std::u16string text =
            random_.below(150) == 0 ? random_.pick(bad) : random_.pick(good);
        node.children.push_back(data(Kind::text, text));
    }

    PlainNode oddment() {
        static const Texts texts{u"text",     u" ",      u"\n\t",      u"a & b < c",
                                 u" \u00E4 ", u"`Rate`", u"\U0001F600"};
        switch (random_.below(9)) {
            case 0:
            case 1: return data(Kind::text, random_.pick(texts));
            case 2: return data(Kind::comment, u" a comment ");
            case 3: return data(Kind::cdata, u"<raw> & `x`");
            case 4:
                return data(Kind::instruction, u"do `Rate`",
                            random_.chance(50) ? u"code" : u"Hint_it");
            case 5: return formula();
            case 6: return image();
            case 7: {
                PlainNode location = element(u"location");
                location.attributes = {{u"value", randomText(random_, words_)}};
                return location;
            }
            default: {
                PlainNode group = element(u"group");
                group.children.push_back(random_.chance(50) ? formula() : helpNode());
                group.children.push_back(data(Kind::text, u"tail"));
                return group;
            }
        }
    }

    Random random_;
    Vocabulary words_;
};

}  // namespace

RandomDocument randomDocument(std::uint64_t seed) { return DocumentMaker(seed).make(); }

}  // namespace tavisk::reference
