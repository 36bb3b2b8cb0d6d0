#include "storage/code_page.h"

#include <gtest/gtest.h>

namespace quillet {
namespace {

TEST(CodePage, PlainAsciiPassesUnchangedBothWays) {
  EXPECT_EQ(Utf8ToCp1252("Villain ~12.5|AhKd"), "Villain ~12.5|AhKd");
  EXPECT_EQ(Cp1252ToUtf8("Villain ~12.5|AhKd"), "Villain ~12.5|AhKd");
}

TEST(CodePage, LatinLettersBecomeTheirSingleByte) {
  EXPECT_EQ(Utf8ToCp1252("\xC3\xA9\xC3\x9F\xC3\xBF\xC2\xA0"),
            "\xE9\xDF\xFF\xA0");  // é ß ÿ and no-break space
  EXPECT_EQ(Cp1252ToUtf8("\xE9\xDF\xFF\xA0"), "\xC3\xA9\xC3\x9F\xC3\xBF\xC2\xA0");
}

TEST(CodePage, TheCharactersOfBytes80To9FMapBothWays) {
  // € ‚ ƒ „ … † ‡ ˆ ‰ Š ‹ Œ Ž ‘ ’ “ ” • – — ˜ ™ š › œ ž Ÿ, byte by byte.
  const std::pair<const char*, char> table[] = {
      {"\xE2\x82\xAC", '\x80'}, {"\xE2\x80\x9A", '\x82'}, {"\xC6\x92", '\x83'},     {"\xE2\x80\x9E", '\x84'},
      {"\xE2\x80\xA6", '\x85'}, {"\xE2\x80\xA0", '\x86'}, {"\xE2\x80\xA1", '\x87'}, {"\xCB\x86", '\x88'},
      {"\xE2\x80\xB0", '\x89'}, {"\xC5\xA0", '\x8A'},     {"\xE2\x80\xB9", '\x8B'}, {"\xC5\x92", '\x8C'},
      {"\xC5\xBD", '\x8E'},     {"\xE2\x80\x98", '\x91'}, {"\xE2\x80\x99", '\x92'}, {"\xE2\x80\x9C", '\x93'},
      {"\xE2\x80\x9D", '\x94'}, {"\xE2\x80\xA2", '\x95'}, {"\xE2\x80\x93", '\x96'}, {"\xE2\x80\x94", '\x97'},
      {"\xCB\x9C", '\x98'},     {"\xE2\x84\xA2", '\x99'}, {"\xC5\xA1", '\x9A'},     {"\xE2\x80\xBA", '\x9B'},
      {"\xC5\x93", '\x9C'},     {"\xC5\xBE", '\x9E'},     {"\xC5\xB8", '\x9F'}};
  for (const auto& [utf8, byte] : table) {
    EXPECT_EQ(Utf8ToCp1252(utf8), std::string(1, byte)) << utf8;
    EXPECT_EQ(Cp1252ToUtf8(std::string(1, byte)), utf8);
  }
}

TEST(CodePage, EveryByteComesBackUnchangedThroughUtf8) {
  std::string all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
}

TEST(CodePage, ACharacterOutsideTheCodePageIsOneQuestionMark) {
  EXPECT_EQ(Utf8ToCp1252("\xD0\x96"), "?");              // Cyrillic zhe
  EXPECT_EQ(Utf8ToCp1252("\xE4\xB8\xAD!"), "?!");        // a CJK character
  EXPECT_EQ(Utf8ToCp1252("a\xF0\x9F\x98\x80z"), "a?z");  // an emoji outside the basic plane
}

TEST(CodePage, MalformedUtf8BecomesAQuestionMarkPerByte) {
  EXPECT_EQ(Utf8ToCp1252("\xFF"), "?");
  EXPECT_EQ(Utf8ToCp1252("\xC3"), "?");            // cut short
  EXPECT_EQ(Utf8ToCp1252("\xC0\xAF"), "??");       // an overlong form
  EXPECT_EQ(Utf8ToCp1252("\xED\xA0\x80"), "???");  // a surrogate
  EXPECT_EQ(Utf8ToCp1252("\xE2\x82"), "??");
}

TEST(CodePage, Utf8LengthCountsCharacters) {
  EXPECT_EQ(Utf8Length(""), 0u);
  EXPECT_EQ(Utf8Length("Jos\xC3\xA9"), 4u);
  EXPECT_EQ(Utf8Length("\xF0\x9F\x98\x80\xFF"), 2u);
}

TEST(CodePage, Utf8PrefixTakesWholeCharacters) {
  EXPECT_EQ(Utf8Prefix("Jos\xC3\xA9 Bob", 4), "Jos\xC3\xA9");
  EXPECT_EQ(Utf8Prefix("Jos\xC3\xA9", 3), "Jos");
  EXPECT_EQ(Utf8Prefix("\xF0\x9F\x98\x80\xFFx", 2), "\xF0\x9F\x98\x80\xFF");
  EXPECT_EQ(Utf8Prefix("AhKd", 10), "AhKd");
  EXPECT_EQ(Utf8Prefix("AhKd", 0), "");
}

}  // namespace
}  // namespace quillet
