// Code page 932 and UTF-8.
#include "platform/core/CodePage.h"

#include <gtest/gtest.h>

namespace suisui::test {

namespace {

struct Pair
{
    std::string_view bytes; ///< code page 932
    std::string_view text;  ///< UTF-8
};

constexpr Pair pairs[] = {
    {"", ""},
    {"4901001000017", "4901001000017"},
    {"\\~|^`", "\\~|^`"},
    {"\x93\xFC\x89\xD7", "入荷"},
    {"\x81\x40", "　"},
    {"\x81\x60", "～"},
    {"\x81\x7C", "－"},
    {"\x81\x5C", "―"}, // its second byte is a backslash
    {"\x87\x40", "①"},
    {"\x87\x54", "Ⅰ"},
    {"\x87\x8A", "㈱"},
    {"\xFB\xFC", "髙"},
    {"\xB1\xB2\xDE\xDF", "ｱｲﾞﾟ"},
    {"\xA2\xA3\xA1\xA5", "｢｣｡･"},
    {"\x95\x5C\x83\x5C\x8F\x5C", "表ソ十"},
    {"A\x82\xA0\xB1"
     "1",
     "Aあｱ1"},
};

// The same sign as two characters of Unicode; the page has one place for both.
constexpr Pair otherSpellings[] = {
    {"\x81\x60", "\u301C"}, // wave dash
    {"\x81\x7C", "\u2212"}, // minus sign
};

constexpr Pair notText[] = {
    {"\xFF", "\uFFFD"},
    {"\x81", "\uFFFD"}, // the first half of a character
    {"A\xFF\xFF"
     "B",
     "A\uFFFD\uFFFD"
     "B"}, // each byte for itself
    {"\x93\xFC\x89", "入\uFFFD"},
    {"\x81\x20"
     "5",
     "\uFFFD 5"}, // the second half is none
    {"\xFF\x82\xA0", "\uFFFDあ"},
    {"\x82\xA0\x81\xFF\xB1", "あ\uFFFD\uFFFDｱ"},
};

} // namespace

TEST(CodePage932, readsAndWritesTheShopsTexts)
{
    for (const Pair& pair : pairs) {
        EXPECT_EQ(fromCp932(pair.bytes), pair.text);
        EXPECT_EQ(toCp932(pair.text), std::string(pair.bytes)) << pair.text;
    }
}

TEST(CodePage932, writesBothSpellingsOfASignAlike)
{
    for (const Pair& pair : otherSpellings)
        EXPECT_EQ(toCp932(pair.text), std::string(pair.bytes)) << pair.text;
}

TEST(CodePage932, asciiIsTheSameInBoth_alsoControlSigns)
{
    std::string ascii;
    for (int byte = 0; byte < 0x80; ++byte)
        ascii += static_cast<char>(byte);
    EXPECT_EQ(fromCp932(ascii), ascii);
    EXPECT_EQ(toCp932(ascii), ascii);
    EXPECT_EQ(fromCp932("\xB1" + ascii), "ｱ" + ascii); // and beside other characters
    EXPECT_EQ(toCp932("ｱ" + ascii), "\xB1" + ascii);
}

TEST(CodePage932, everyByteThatIsNotText_becomesOneReplacementCharacter)
{
    for (const Pair& pair : notText)
        EXPECT_EQ(fromCp932(pair.bytes), pair.text);
}

TEST(CodePage932, charactersWithoutAPlace_areRefused)
{
    for (const char* text : {"😀", "𠮷", "\u00A0", "か\u3099", "A😀B", "\uFFFD"})
        EXPECT_EQ(toCp932(text), std::nullopt) << text;
}

TEST(CodePage932, textThatIsNotUtf8_isRefused)
{
    for (const char* text : {"\xFF", "\xE3\x81", "A\x80"})
        EXPECT_EQ(toCp932(text), std::nullopt);
}

TEST(CodePage932, charactersWithoutAPlace_canBeReplacedOneForOne)
{
    EXPECT_EQ(toCp932("a\U00020BB7b", '?'), "a?b");
    EXPECT_EQ(toCp932("𠮷野家", '?'), "?" + *toCp932("野家"));
    EXPECT_EQ(toCp932("入荷😀😀", '?'), *toCp932("入荷") + "??");
    EXPECT_EQ(toCp932("～－①", '?'), toCp932("～－①"));
    EXPECT_EQ(toCp932("abc", '?'), "abc");
    EXPECT_EQ(toCp932("", '?'), "");
    EXPECT_EQ(toCp932("入\xE3\x81", '?'), *toCp932("入") + "?") << "a character cut short";
    EXPECT_EQ(toCp932("\xFF入", '?'), "?" + *toCp932("入"));
}

TEST(CodePage932, textsLongerThanAnyBufferComeThroughWhole)
{
    std::string bytes;
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        bytes += i % 3 == 0 ? "\xB1" : "\x93\xFC";
        text += i % 3 == 0 ? "ｱ" : "入";
    }
    EXPECT_EQ(fromCp932(bytes), text);
    EXPECT_EQ(toCp932(text), bytes);
}

TEST(CodePage932, everyCharacterOfThePageComesBackFromUtf8)
{
    int characters = 0;
    for (int lead = 0x81; lead <= 0xFC; ++lead)
        for (int trail = 0x40; trail <= 0xFC; ++trail) {
            const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
            const std::string text = fromCp932(std::string_view(bytes, 2));
            const auto back = toCp932(text);
            if (text.find("\uFFFD") != std::string::npos || !back)
                continue;
            ++characters;
            EXPECT_EQ(fromCp932(*back), text) << std::hex << lead << ' ' << trail;
        }
    EXPECT_GT(characters, 7000);
}

} // namespace suisui::test
