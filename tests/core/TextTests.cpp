#include "TambaCore/Base/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <thread>

namespace tamba::Text {
namespace {

using testing::ElementsAre;

/// Text of several scripts with broken bytes between: what a foreign file may hold.
rc::Gen<std::string> anyBytes() {
    const std::vector<std::string> pieces = {
        "a",    "Z",    "7",        " ",    "\r\n", "\n",     "é", "e\u0301", "हिन्दी", "₹", "👩‍👩‍👧",
        "\xC3", "\x80", "\xF0\x9F", "\xFF", "İ",    "\u00A0", "ß", ",",       "東京"};
    return rc::gen::map(rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces)),
                        [](const std::vector<std::string>& chosen) { return join(chosen, ""); });
}

TEST(Text, trimsAnySpace) {
    EXPECT_EQ(trim(" \t\r\n\u00A0\u2003a b\u3000\u2028 "), "a b");
    EXPECT_EQ(trim("\u00A0"), "");
    EXPECT_EQ(trim(""), "");
    EXPECT_EQ(trim(" \x80"), "\x80");
    EXPECT_EQ(trim("\xE2\x80"), "\xE2\x80");
    EXPECT_EQ(trim("-.a.-", ".-"), "a");
    EXPECT_EQ(trim("---", "-"), "");
}

TEST(Text, changesCaseInEveryScriptAndNoLocale) {
    EXPECT_EQ(lower("ÀÉÎ GROSS ΣΑΣ"), "àéî gross σας");
    EXPECT_EQ(upper("straße i"), "STRASSE I");
    EXPECT_EQ(lower("I"), "i");
    EXPECT_EQ(lower("İ"), "i̇");
    EXPECT_EQ(lower("A\xFF"), "a\uFFFD");
    EXPECT_EQ(capitalised("RELIANCE  retail\tltd. o'BRIEN (ñANDÚ) 7up हिन्दी"),
              "Reliance  Retail\tLtd. O'brien (Ñandú) 7Up हिन्दी");
    EXPECT_EQ(capitalised(" a"), " A");
}

TEST(Text, countsCharactersAsPeopleDo) {
    EXPECT_EQ(length("e\u0301é👩‍👩‍👧\r\n"), 4u);
    EXPECT_EQ(length("a\r\nb"), 3u);
    EXPECT_THAT(characters("क्षि₹"), ElementsAre("क्षि", "₹"));
    EXPECT_EQ(prefix("नमस्ते दुनिया", 2), "नम");
    EXPECT_EQ(prefix("e\u0301a", 1), "e\u0301");
    EXPECT_EQ(prefix("abc", 0), "");
    EXPECT_EQ(prefix("abc", 9), "abc");
    EXPECT_EQ(prefixBytes("ae\u0301", 3), "a");
    EXPECT_EQ(prefixBytes("ae\u0301", 4), "ae\u0301");
    EXPECT_EQ(lettersAndDigits("Café №7 – ५0½ हिन्दी_x"), "Café7५0½हिन्दीx");
    EXPECT_TRUE(isLetter("é") && isLetter("हि") && !isLetter("7") && !isLetter("$") && !isLetter(""));
    EXPECT_TRUE(isLetterOrDigit("५") && !isLetterOrDigit("_"));
}

RC_GTEST_PROP(Text, characterCutsLoseNothing, ()) {
    const std::string text = *anyBytes();
    std::string joined;
    for (const std::string_view character : characters(text)) joined += character;
    RC_ASSERT(joined == text);
    const auto count = *rc::gen::inRange<std::size_t>(0, 12);
    RC_ASSERT(text.starts_with(prefix(text, count)));
    RC_ASSERT(length(prefix(text, count)) == std::min(count, length(text)));
    RC_ASSERT(prefixBytes(text, count).size() <= count);
    const std::string_view rest = trim(text);
    RC_ASSERT(trim(rest) == rest);
    RC_ASSERT(contains(text, rest));
}

RC_GTEST_PROP(Text, repairsForeignBytes, ()) {
    const std::string text = *anyBytes();
    const std::string repaired = repairedUTF8(text);
    RC_ASSERT(isUTF8(repaired));
    RC_ASSERT(isUTF8(text) == (repaired == text));
    RC_ASSERT(isUTF8(lower(text)) && isUTF8(upper(text)) && isUTF8(capitalised(text)));
}

TEST(Text, repairsOnlyWhatIsBroken) {
    EXPECT_EQ(repairedUTF8("₹\xE2\x82 a\xFF\xFE"), "₹\uFFFD a\uFFFD\uFFFD");
    EXPECT_EQ(repairedUTF8("\uFFFD"), "\uFFFD");
    EXPECT_TRUE(isUTF8("\uFFFD👩"));
    EXPECT_FALSE(isUTF8("\xC0\x80"));
    EXPECT_FALSE(isUTF8("\xED\xA0\x80"));
}

TEST(Text, decodesNamedCharacterSets) {
    EXPECT_EQ(decode("\x80 5", "windows-1252"), "€ 5");
    EXPECT_EQ(decode("caf\xE9", "ISO-8859-1"), "café");
    EXPECT_EQ(decode("caf\xE9", "us-ascii"), "café");
    EXPECT_EQ(decode("\xE3\x81", "UTF-8"), "\uFFFD");
    EXPECT_EQ(decode(std::string_view("\xB9\x20\x00\x31", 4), "utf-16le"), "₹\u3100");
    EXPECT_EQ(decode("\x93\x8C", "Shift_JIS"), "東");
    for (const char* name : {"", "klingon", "../../etc/passwd", "utf-8\n"}) EXPECT_EQ(decode("a", name), std::nullopt);
}

TEST(Text, splitsAndJoins) {
    EXPECT_THAT(split(",a,,b", ','), ElementsAre("", "a", "", "b"));
    EXPECT_THAT(split("", ','), ElementsAre(""));
    EXPECT_THAT(splitLines("a\r\nb\n\rc\n"), ElementsAre("a", "b", "", "c", ""));
    EXPECT_EQ(join({"a", "", "b"}, ", "), "a, , b");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
    EXPECT_EQ(replaceAll("abc", "c", "cc"), "abcc");
}

TEST(Text, ordersForPeople) {
    EXPECT_LT(compareForPeople("apple", "Banana"), 0);
    EXPECT_LT(compareForPeople("éclair", "Zebra"), 0);
    EXPECT_GT(compareForPeople("Zebra", "apple"), 0);
    EXPECT_NE(compareForPeople("a", "A"), 0);
    EXPECT_EQ(compareForPeople("₹", "₹"), 0);
    EXPECT_NE(compareForPeople("a\u0301", "\u00E1"), 0);  // the same to people, but never two records in any order
}

TEST(Pattern, findsWhatIsThereWithPositionsInBytes) {
    const Pattern amount("(?<!\\d)(\\d+)\\s*(₹)?");
    const std::string text = "हि 12 ₹ a34";
    const auto found = amount.all(text);
    ASSERT_EQ(found.size(), 2u);
    EXPECT_EQ(found[0].begin, 7u);
    EXPECT_EQ(found[0].end, 13u);
    EXPECT_EQ(found[0][1], "12");
    EXPECT_EQ(found[0][2], "₹");
    EXPECT_EQ(found[1].groups, (std::vector<std::optional<std::string>>{"34", "34", std::nullopt}));
    EXPECT_EQ(found[1][2], "");
    EXPECT_TRUE(amount.matches(text));
    EXPECT_FALSE(amount.matches("हि"));
    EXPECT_EQ(amount.first("none"), std::nullopt);
    EXPECT_EQ(Pattern("x*").all("ax").size(), 3u);
}

TEST(Pattern, replacesWithGroups) {
    const Pattern date("(\\d+)/(\\d+)");
    EXPECT_EQ(date.replaceAll("₹ 1/2, 3/4 €", "$2-$1$"), "₹ 2-1$, 4-3$ €");
    EXPECT_EQ(date.replaceAll("none", "$1"), "none");
    EXPECT_EQ(Pattern("\\s+").replaceAll("a  b\u00A0c", ""), "abc");
}

RC_GTEST_PROP(Pattern, positionsCutTheTextWhereItMatched, ()) {
    static const Pattern pattern("(\\p{L}\\p{M}*)+|(\\d)");
    const std::string text = *anyBytes();
    for (const auto& match : pattern.all(text)) {
        RC_ASSERT(text.substr(match.begin, match.end - match.begin) == match[0]);
        RC_ASSERT(isUTF8(match[0]));
    }
}

TEST(Pattern, givesUpOnAHostileText) {
    const std::string hostile(50, 'a');
    EXPECT_EQ(Pattern("(a+)+$").all(hostile + "b").size(), 0u);
    EXPECT_EQ(Pattern("(a+)+c").replaceAll(hostile, "x"), hostile);
    EXPECT_FALSE(Pattern("(?:a|b)*c").matches(std::string(3'000'000, 'a')));
    EXPECT_FALSE(Pattern("\\d+x").matches(std::string(1'000'000, '1')));
    // Giving up once leaves the pattern as good as before.
    const Pattern pattern("(a+)+c");
    EXPECT_FALSE(pattern.matches(hostile));
    EXPECT_TRUE(pattern.matches("aac"));
    for (int i = 0; i < 3000; ++i)
        EXPECT_EQ(pattern.first(std::to_string(i) + "aac")->end, std::to_string(i).size() + 3);
}

TEST(Pattern, servesSeveralThreads) {
    const Pattern pattern("(\\w+) no\\. (\\d+)");
    std::vector<std::thread> threads;
    for (int n = 0; n < 4; ++n)
        threads.emplace_back([&pattern, n] {
            for (int i = 0; i < 200; ++i) {
                const std::string number = std::to_string(n * 1000 + i);
                const auto match = pattern.first("₹ Bill no. " + number);
                ASSERT_TRUE(match);
                EXPECT_EQ((*match)[2], number);
            }
        });
    for (std::thread& thread : threads) thread.join();
}

TEST(PatternDeathTest, mustCompile) { EXPECT_DEATH(Pattern("(a"), "does not compile"); }

}  // namespace
}  // namespace tamba::Text
