// The boards report in MyPrefs.ini: its place is a record of its own, written only once the window has been
// opened, so that a user who never opens it keeps the file byte for byte.
#include <gtest/gtest.h>

#include <string>

#include "app/model/form1_model.h"
#include "tests/support/model_in_folder.h"

namespace quillet {
namespace {

using testing::kTwelveDefaultRecords;
using testing::ReadBytes;
using testing::WriteBytes;

class BoardsReportPreferences : public testing::ModelInFolderTest {};

TEST_F(BoardsReportPreferences, NeverOpenedTheWindowAddsNothingToTheFile) {
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(BoardsReportPreferences, OpenedItsPlaceFollowsTheTwelve) {
  model.mnuBoardsReport_Click();
  model.frmBoardsReport.Form_Moved({120, 80, 760, 600});
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()),
            std::string(kTwelveDefaultRecords) + "BoardsReportWindow|120,80,760,600\r\n");
}

TEST_F(BoardsReportPreferences, AKeptPlaceIsReadAndWrittenAgainBySessionsThatDoNotOpenTheWindow) {
  const std::string kept = std::string(kTwelveDefaultRecords) + "BoardsReportWindow|1,2,700,500\r\n";
  WriteBytes(PrefsFile(), kept);
  model.LoadPreferences();
  EXPECT_TRUE(services.messages.empty());
  ASSERT_TRUE(model.frmBoardsReport.place.has_value());
  EXPECT_EQ(model.frmBoardsReport.place->width, 700);
  EXPECT_EQ(model.frmBoardsReport.place->top, 2);
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kept);
}

}  // namespace
}  // namespace quillet
