#include "foundation/text.h"

#include <cstdint>

#include <gtest/gtest.h>

#include "foundation/path.h"
#include "foundation/random.h"

namespace zelkova {
namespace {

TEST(Text, WideTextHasAUnitForEachCharacter) {
    EXPECT_EQ(sjisToWide("a表ﾀ髙"), L"a\u8868\uFF80\u9AD9");
    EXPECT_EQ(sjisToWide("\x85\x40"), L"\u3013") << "an empty place of the code page";
    EXPECT_EQ(sjisToWide(""), L"");
}

// "表" ends in the byte of the backslash, "ポ" in that of the bar.
TEST(Text, TellsCharactersFromBytes) {
    const std::string text = "a表b";
    const int kinds[] = {0, 1, 2, 0, -1};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(byteKind(text, i), kinds[i]) << i;
    EXPECT_EQ(byteKind("\x95", 0), 1) << "a lead byte with nothing behind it";
}

TEST(Text, FindsOnCharacterBoundariesOnly) {
    EXPECT_EQ(findText("表\\x", "\\"), 2u);
    EXPECT_EQ(findText("表", "\\"), npos);
    EXPECT_EQ(findText("a|b|c", "|", 2), 3u);
    EXPECT_EQ(findText("abc", ""), npos);
    EXPECT_EQ(findText("ab", "abc"), npos);
    EXPECT_EQ(findTextReverse("a\\表\\表", "\\"), 4u);
    EXPECT_EQ(findTextReverse("a|b|c", "|", 2), 1u);
    EXPECT_EQ(findTextReverse("表", "\\"), npos);
}

TEST(Text, SplitsAndReplacesOnBoundaries) {
    EXPECT_EQ(split("ポ|ソ|", "|"), (std::vector<std::string>{"ポ", "ソ", ""}));
    EXPECT_EQ(split("", ","), std::vector<std::string>{""});
    EXPECT_EQ(split("a", ""), std::vector<std::string>{"a"});
    EXPECT_EQ(replaceAll("aa表a", "a", "aa"), "aaaa表aa");
    EXPECT_EQ(replaceAll("表\\", "\\", "/"), "表/");

    EXPECT_EQ(splitNumbers("3, 12,x,,-5"), (std::vector<std::int32_t>{3, 12, 0, 0, -5}));
    EXPECT_EQ(splitNumbers(""), std::vector<std::int32_t>{});
    EXPECT_EQ(joinNumbers({3, 0, -5}), "3,0,-5");
    EXPECT_EQ(joinNumbers({}), "");

    std::string piece = "kept";
    EXPECT_TRUE(firstToken("待機中|選んで", "|", 1, piece));
    EXPECT_EQ(piece, "選んで");
    EXPECT_FALSE(firstToken("待機中|選んで", "|", 2, piece));
    EXPECT_FALSE(firstToken("待機中|選んで", "|", -1, piece));
}

TEST(Text, FoldsAndTrims) {
    EXPECT_EQ(toUpperSjis("aあb"), "AあB");
    // The trail byte of "ア" is the letter "A", that of "ヂ" is "a": neither may change.
    EXPECT_EQ(toLowerSjis("ABアヂ"), "abアヂ");
    EXPECT_EQ(toUpperSjis("ﾀ"), "ﾀ");
    EXPECT_EQ(trim(" \t\r\n a b \n"), "a b");
    EXPECT_EQ(trim("　a　"), "　a　");
    EXPECT_EQ(trim(" \n"), "");
}

TEST(Text, ReadsNumbersWithoutOverflow) {
    for (const char* none : {"", "-", "abc", "- 5", "+-5", "１２"})
        EXPECT_EQ(stringToInt(none), 0) << none;
    for (const char* twelve : {"12", "+12", " 12 ", "12abc", "12,000", "0012"})
        EXPECT_EQ(stringToInt(twelve), 12) << twelve;
    EXPECT_EQ(stringToInt("-5"), -5);
    for (const char* large : {"2147483647", "2147483648", "99999999999999999999999999"})
        EXPECT_EQ(stringToInt(large), INT32_MAX) << large;
    for (const char* small : {"-2147483648", "-2147483649"})
        EXPECT_EQ(stringToInt(small), INT32_MIN) << small;
}

TEST(Text, WritesNumbers) {
    EXPECT_EQ(numberToText(0, 1), "0");
    EXPECT_EQ(numberToText(-5, 1), "-5");
    EXPECT_EQ(numberToText(5, 1), "+5");
    EXPECT_EQ(numberToText(5), "5");
    EXPECT_EQ(numberWithCommas(1234567), "1,234,567");
    EXPECT_EQ(numberWithCommas(-123), "-123");
    EXPECT_EQ(numberWithCommas(-123456), "-123,456");
    EXPECT_EQ(formatSize(1024), "(1,024Byte)");
}

TEST(Text, MatchesWildcards) {
    const auto matches = [](const std::string& textAndPattern) {
        const std::size_t blank = textAndPattern.find(' ');
        return wildcardMatch(textAndPattern.substr(0, blank), textAndPattern.substr(blank + 1));
    };
    for (const char* pair :
         {"abc a*c", "a* a#*", "a? a#?", "a#b a#b", "a# a#", " *", " ", "abcabd a*bd", "aXbXc a*b*c",
          "aab *ab", "abab *ab", "a*b a*#*b", "mississippi m*iss*pi", "さくらさくら さ*ら"})
        EXPECT_TRUE(matches(pair)) << pair;
    for (const char* pair :
         {"abc a?", "ab a#*", "a*b a#*", " ?", "abc ABC", "mississippi m*iss*x", "さくら さくら?"})
        EXPECT_FALSE(matches(pair)) << pair;
    // Many stars against a long text end quickly.
    EXPECT_FALSE(wildcardMatch(std::string(20000, 'a'), "*a*a*a*a*a*a*a*b"));
}

TEST(Text, GoesThroughUnicodeAndBack) {
    for (const char* text : {"－～①Ⅲ㈱ﾊﾝｶｸ", "表ポソ能", "髙﨑", "abc\\~"})
        EXPECT_EQ(utf16ToSjis(sjisToUtf16(text)), text);
    EXPECT_EQ(sjisToUtf16("－～"), u"\uFF0D\uFF5E");
    EXPECT_EQ(utf16ToSjis(u"\u2212\u301C"), "－～") << "what an input method may give";
    EXPECT_EQ(utf16ToSjis(u"a\U0001F600b\u0E01"), "a??b?");
    EXPECT_EQ(platform::utf8ToSjis(platform::sjisToUtf8("①表")), "①表");
    EXPECT_EQ(platform::utf8ToSjis("a\xFF\xC0\x80"
                                   "b\xE3\x81"),
              "a???b??");
    EXPECT_EQ(sjisToUtf16("a\x82"), u"a\u3013") << "half a character at the end";
}

// Every place of the code page leads to a character that leads back to the same character.
TEST(Text, MapsTheWholeCodePage) {
    EXPECT_EQ(sjisToUnicode(0x41), u'A');
    EXPECT_EQ(sjisToUnicode(0xB1), u'\uFF71');
    EXPECT_EQ(sjisToUnicode(0x80), 0);
    EXPECT_EQ(sjisToUnicode(0x817F), 0);
    EXPECT_EQ(sjisToUnicode(0x3040), 0);
    EXPECT_EQ(sjisToUnicode(0x8540), u'\u3013');
    EXPECT_EQ(unicodeToSjis(u'\u0E01'), 0);
    int characters = 0;
    for (unsigned code = 0x8140; code <= 0xFCFC; ++code) {
        const char16_t unit = sjisToUnicode(static_cast<std::uint16_t>(code));
        if (unit == 0 || (unit == u'\u3013' && code != 0x81AC)) continue;
        ++characters;
        EXPECT_EQ(sjisToUnicode(unicodeToSjis(unit)), unit) << std::hex << code;
    }
    // JIS X 0208, the rows of NEC and IBM, and 1880 places for a user's own characters.
    EXPECT_EQ(characters, 6879 + 83 + 374 + 388 + 1880);
}

TEST(Path, TakesBothSeparatorsAndNoTrailByte) {
    EXPECT_EQ(getFolder("C:\\表\\a.mp3"), "C:\\表");
    EXPECT_EQ(getFileName("C:\\表\\a.mp3"), "a.mp3");
    EXPECT_EQ(getFileName("x/y\\表.mp3"), "表.mp3");
    EXPECT_EQ(getFolder("表.mp3"), "");
    EXPECT_EQ(getExtension("a.b/c.tar.GZ"), "GZ");
    EXPECT_EQ(getExtension("a.b/c"), "");
    EXPECT_EQ(removeBackslash("a\\"), "a");
    EXPECT_EQ(removeBackslash("表"), "表");
    EXPECT_EQ(normalizePath("/a\\表/../b/./c"), "/a/b/c");
    EXPECT_EQ(normalizePath("../cnf/x.xml"), getFolder(getFolder(getModuleFileName())) + "/cnf/x.xml");
    EXPECT_EQ(getModuleFolder() + getFileName(getModuleFileName()), getModuleFileName());
}

TEST(Random, StaysBetweenItsEnds) {
    bool seen[3] = {};
    for (int i = 0; i < 300; ++i) {
        const int drawn = randomBetween(-1, 1);
        ASSERT_TRUE(drawn >= -1 && drawn <= 1);
        seen[drawn + 1] = true;
    }
    EXPECT_TRUE(seen[0] && seen[1] && seen[2]);
    EXPECT_EQ(randomBetween(5, 4), -1);
    EXPECT_EQ(randomBetween(7, 7), 7);
    EXPECT_LE(randomBetween(INT32_MIN, INT32_MAX), INT32_MAX);
}

} // namespace
} // namespace zelkova
