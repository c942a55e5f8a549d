#include "reference/randomText.h"

namespace tavisk::reference {
namespace {

using Texts = std::vector<std::u16string>;

const Texts& plainNames() {
    static const Texts names{u"Rate",   u"Price",
                             u"a",      u"b",
                             u"ab",     u"x",
                             u"code",   u"type",
                             u"rate",   u"Missing",
                             u"pic",    u"logo",
                             u"a b",    u"Cabinet Width",
                             u"A",      u"Gr\u00F6\u00DFe",
                             u"\u20AC", u"n\u00BD"};
    return names;
}

// Names that no careful author chooses; several cannot be referred to at all.
const Texts& oddNames() {
    static const Texts names{u"",
                             u"~",
                             u"!",
                             u"@",
                             u"~logo",
                             u"!logo",
                             u"@logo",
                             u"a<br>b",
                             u"<br>",
                             u"`",
                             u"``",
                             u"a`b",
                             u"`a",
                             u"a`",
                             u"`a`",
                             u"~a`b",
                             u"Unknown",
                             u"Bad Image",
                             u" ",
                             u"'",
                             u"&",
                             u"a\nb",
                             u"\U0001F600",
                             u"\u03A9",
                             u"temp_images",
                             u"generated_cabinet_picture"};
    return names;
}

const Texts& words() {
    static const Texts list{u" ",
                            u"text",
                            u"The price is ",
                            u"<b>",
                            u"</b>",
                            u"\n",
                            u"\r\n",
                            u"\t",
                            u".",
                            u"\u00E9t\u00E9",
                            u"\u20AC\u0152\u2122",
                            u"&lt;",
                            u"\"",
                            u"'",
                            u"\u00A0",
                            u"~",
                            u"!",
                            u"@",
                            u"0",
                            u"C:\\a.jpg"};
    return list;
}

const Texts& foreignWords() {
    static const Texts list{u"\u03A9",     u"\u0081", u"\u009D",     u"\uFFFD", u"\U0001F600",
                            u"\U00010000", u"\u0100", u"\U0010FFFD", u"e\u0301"};
    return list;
}

std::u16string tokenOf(const std::u16string& body) { return u"`" + body + u"`"; }

std::u16string path(Random& random, const Vocabulary& words) {
    switch (random.below(4)) {
        case 0: return u"C:\\test.jpg";
        case 1: return u"";
        case 2: return u"http://x/" + std::u16string(random.below(30), u'p');
        default: return random.pick(words.names);
    }
}

// A token, or text that could be a part of one.
std::u16string piece(Random& random, const Vocabulary& vocabulary) {
    const std::u16string& name = random.pick(vocabulary.names);
    switch (random.below(16)) {
        case 0:
        case 1:
        case 2: return tokenOf(name);
        case 3:
        case 4: return tokenOf(u"~" + name);
        case 5: return tokenOf(u"!" + name);
        case 6: return tokenOf(u"@" + path(random, vocabulary));
        case 7: return u"`";
        case 8: return u"``";
        case 9: return u"`" + name;
        case 10: return name + u"`";
        case 11: return name;
        case 12: return std::u16string(random.below(12), u'w');
        default:
            if (vocabulary.foreign && random.chance(20)) return random.pick(foreignWords());
            return random.pick(words());
    }
}

std::u16string pieces(Random& random, const Vocabulary& vocabulary, std::size_t count) {
    std::u16string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece(random, vocabulary);
    return text;
}

const Texts& oddNumbers() {
    static const Texts list{u" 3",   u"3 4",   u"+4",  u"1e3",    u"2.7",    u"-2.5",     u"-0.5",
                            u"-0.0", u"abc",   u"",    u"1.",     u"\t5",    u"\n5",      u"\r 5",
                            u"-",    u"+",     u"e5",  u"1e",     u"1e+",    u"12abc",    u"0x10",
                            u"1e-3", u"-1e-3", u"007", u"\u0663", u"\u00BD", u"3\u00A04", u"1,5",
                            u"1.9",  u"- 3",   u"--3", u"1E1",    u"1e-999", u"2e0.5",    u"1.5.5",
                            u".",    u"&",     u"inf", u"nan",    u"3`",     u"`a`"};
    return list;
}

const Texts& limitNumbers() {
    static const Texts list{u"99999",
                            u"32767",
                            u"-32768",
                            u"32768",
                            u"-32769",
                            u"1e9",
                            u"1e999",
                            u"-1e999",
                            u"32767.9",
                            u"-32768.5",
                            u"1e400",
                            u"3276700e-2",
                            u"99999999999999999999"};
    return list;
}

}  // namespace

Vocabulary randomVocabulary(Random& random) {
    Vocabulary vocabulary;
    const std::size_t count = 1 + random.below(5);
    for (std::size_t i = 0; i < count; ++i) {
        vocabulary.names.push_back(random.pick(random.chance(25) ? oddNames() : plainNames()));
    }
    vocabulary.foreign = random.chance(4);
    vocabulary.huge = random.chance(3);
    vocabulary.longTexts = random.below(200) == 0;
    return vocabulary;
}

std::u16string randomText(Random& random, const Vocabulary& words) {
    return pieces(random, words, random.below(random.chance(10) ? 40 : 8));
}

std::u16string randomLongText(Random& random, const Vocabulary& words) {
    const std::u16string before = pieces(random, words, random.below(4));
    const std::u16string after = pieces(random, words, random.below(4));
    const std::size_t length = 32751 + random.below(33);
    const std::size_t used = before.size() + after.size();
    if (used >= length) return before;
    if (random.chance(30)) {
        std::u16string pairs;
        while (pairs.size() + 2 <= length - used)
            pairs += u"``";
        return before + pairs + std::u16string(length - used - pairs.size(), u'z') + after;
    }
    return before + std::u16string(length - used, random.chance(50) ? u'm' : u'\u00E4') + after;
}

std::u16string randomValue(Random& random, const Vocabulary& words) {
    if (words.longTexts && random.chance(15))
        return std::u16string(32000 + random.below(800), u'v');
    switch (random.below(8)) {
        case 0: return u"";
        case 1: return u"12.50";
        case 2: return u"a value longer than its name";
        case 3: return piece(random, words);
        case 4: return pieces(random, words, 1 + random.below(3));
        case 5: return u"`";
        default: return std::u16string(random.below(12), u'5');
    }
}

std::u16string randomNumber(Random& random, const Vocabulary& words) {
    if (words.huge && random.chance(15)) return random.pick(limitNumbers());
    if (random.chance(30)) return random.pick(oddNumbers());
    if (random.chance(2)) return randomText(random, words);
    static const Texts plain{u"0", u"1", u"2", u"3", u"9", u"63", u"-1", u"-3", u"8", u"255"};
    return random.pick(plain);
}

std::u16string randomGap(Random& random, const Vocabulary& words) {
    static const Texts beyond{u"1e999", u"1e12", u"99999999999", u"-1e999"};
    if (words.huge && random.chance(4)) return random.pick(beyond);
    static const Texts small{u"0",    u"1",  u"2",  u"3",   u"2.9", u"-1",  u"-0.5",
                             u"0.99", u" 2", u"+1", u"abc", u"",    u"1e0", u"2 9"};
    return random.pick(small);
}

std::u16string randomFlag(Random& random) {
    static const Texts flags{u"1",   u"1", u"1",  u"0",  u"0",  u"true",
                             u"yes", u"",  u" 1", u"01", u"1\n"};
    return random.pick(flags);
}

std::u16string randomColour(Random& random, const Vocabulary& words) {
    static const Texts colours{u"#FF0000", u"#00ff00", u"red", u"", u"#12345", u"\"><i>"};
    return random.chance(20) ? randomText(random, words) : random.pick(colours);
}

}  // namespace tavisk::reference
