#include "storage/preferences_file.h"

#include <gtest/gtest.h>

#include "tests/storage/temp_folder.h"

namespace quillet {
namespace {

TEST(PreferencesFormat, EachRecordIsKeyBarValueAndOneCrLf) {
  EXPECT_EQ(FormatPreferences({{"mnuHideEmptyCats", "True"}, {"txtMyHand", "AhKd"}, {"txtBoard", ""}}),
            "mnuHideEmptyCats|True\r\ntxtMyHand|AhKd\r\ntxtBoard|\r\n");
}

TEST(PreferencesFormat, TextIsWrittenInTheCodePage) {
  EXPECT_EQ(FormatPreferences({{"txtMyHand", "\xC3\xA9\xD0\x96"}}), "txtMyHand|\xE9?\r\n");
}

TEST(PreferencesFormat, LinesEndAtCrLfLfOrCrAndEmptyLinesAreSkipped) {
  const auto lines = ParsePreferences("a|1\r\n\r\nb|2\n\nc|3\rd|4");
  ASSERT_EQ(lines.size(), 4u);
  EXPECT_EQ(lines[0].key, "a");
  EXPECT_EQ(lines[0].value, "1");
  EXPECT_EQ(lines[1].key, "b");
  EXPECT_EQ(lines[2].key, "c");
  EXPECT_EQ(lines[3].key, "d");
  EXPECT_EQ(lines[3].value, "4");
}

TEST(PreferencesFormat, AValueIsCutAtASecondBar) {
  const auto lines = ParsePreferences("txtMyHand|Ah|Kd\r\n");
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].value, "Ah");
}

TEST(PreferencesFormat, ALineWithoutABarHasNoValue) {
  const auto lines = ParsePreferences("mnuWinLoseIcons\r\nx|\r\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].key, "mnuWinLoseIcons");
  EXPECT_FALSE(lines[0].value.has_value());
  EXPECT_EQ(lines[1].value, "");
}

TEST(PreferencesFormat, ValuesAreReadFromTheCodePage) {
  const auto lines = ParsePreferences("txtBoard|\xE9\x80\r\n");
  EXPECT_EQ(lines.at(0).value, "\xC3\xA9\xE2\x82\xAC");
}

TEST(PreferencesFormat, AByteOrderMarkAtTheStartIsSkippedAndTheFirstKeyIsRead) {
  const auto lines = ParsePreferences("\xEF\xBB\xBFmnuWinLoseIcons|True\r\ntxtBoard|\xEF\xBB\xBF\r\n");
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].key, "mnuWinLoseIcons");
  EXPECT_EQ(lines[0].value, "True");
  // Only the file's first bytes can be a mark; elsewhere they are text in the code page.
  EXPECT_EQ(lines[1].value, "\xC3\xAF\xC2\xBB\xC2\xBF");
}

TEST(PreferencesFormat, BooleansAreTheWordsTrueAndFalse) {
  EXPECT_EQ(ParseBooleanText("True"), true);
  EXPECT_EQ(ParseBooleanText("False"), false);
  EXPECT_EQ(ParseBooleanText("TRUE"), true);
  EXPECT_EQ(ParseBooleanText(" false "), false);
  EXPECT_EQ(ParseBooleanText("Yes"), std::nullopt);
  EXPECT_EQ(ParseBooleanText("-1"), std::nullopt);
  EXPECT_EQ(ParseBooleanText(""), std::nullopt);
  EXPECT_EQ(ParseBooleanText("Truey"), std::nullopt);
  EXPECT_STREQ(BooleanText(true), "True");
  EXPECT_STREQ(BooleanText(false), "False");
}

TEST(PreferencesFile, AMissingFileIsNoError) {
  testing::TempFolder dir;
  const auto read = ReadPreferencesFile(dir / kPreferencesFileName);
  EXPECT_EQ(read.status, PreferencesFileContents::Status::Missing);
}

TEST(PreferencesFile, WrittenRecordsReadBack) {
  testing::TempFolder dir;
  const auto path = dir / kPreferencesFileName;
  ASSERT_FALSE(WritePreferencesFile(path, {{"txtMyHand", "AhKd"}, {"SelCardsAutoOK", "True"}}).has_value());
  EXPECT_EQ(testing::ReadBytes(path), "txtMyHand|AhKd\r\nSelCardsAutoOK|True\r\n");
  const auto read = ReadPreferencesFile(path);
  ASSERT_EQ(read.status, PreferencesFileContents::Status::Read);
  ASSERT_EQ(read.lines.size(), 2u);
  EXPECT_EQ(read.lines[1].key, "SelCardsAutoOK");
}

TEST(PreferencesFile, AFileTooLargeToBePreferencesIsAFaultNamingIt) {
  testing::TempFolder dir;
  const auto path = dir / kPreferencesFileName;
  testing::WriteBytes(path, "");
  std::filesystem::resize_file(path, kLargestPreferencesFileBytes + 1);
  const auto read = ReadPreferencesFile(path);
  ASSERT_EQ(read.status, PreferencesFileContents::Status::Faulty);
  EXPECT_EQ(read.error->message.rfind(
                "The preferences file \"" + path.string() + "\" cannot be read: it is 1048577", 0),
            0u);
}

}  // namespace
}  // namespace quillet
