// The multiway window in MyPrefs.ini: its place and last inputs are records of their own, written only once
// the window has been used, so that a user who never opens it keeps the file byte for byte; and a record the
// program does not know is passed over when the file is read.
#include <gtest/gtest.h>

#include <string>

#include "app/model/form1_model.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

using testing::kTwelveDefaultRecords;
using testing::ReadBytes;
using testing::WriteBytes;

class MultiwayPreferences : public testing::ModelInFolderTest {
 protected:
  // A second session on the same folder: its model reads the file the first one wrote.
  void StartAgain(Form1Model& next) {
    next.ProfilePaths(dir.path());
    next.LoadPreferences();
  }
};

TEST_F(MultiwayPreferences, NeverOpenedTheWindowAddsNothingToTheFile) {
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(MultiwayPreferences, OpenedItsPlaceRowsAndBoardFollowTheTwelve) {
  model.mnuMultiwayEquity_Click();
  model.frmMultiway.Form_Moved({120, 80, 560, 420});
  model.frmMultiway.txtPlayer[0].text = "AhAd";
  model.frmMultiway.txtPlayer[1].text = "QQ+, AKs:0.5";
  model.frmMultiway.txtBoard.text = "Tc8h3s";
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), std::string(kTwelveDefaultRecords) +
                                        "MultiwayWindow|120,80,560,420\r\n"
                                        "MultiwayPlayer1|AhAd\r\n"
                                        "MultiwayPlayer2|QQ+, AKs:0.5\r\n"
                                        "MultiwayPlayer3|\r\n"
                                        "MultiwayBoard|Tc8h3s\r\n");
}

TEST_F(MultiwayPreferences, TheNextSessionOpensWithTheKeptInputsAndPlace) {
  model.mnuMultiwayEquity_Click();
  model.frmMultiway.Form_Moved({300, 40, 600, 500});
  model.frmMultiway.cmdAddPlayer_Click();
  model.frmMultiway.txtPlayer[0].text = "AhAd";
  model.frmMultiway.txtPlayer[3].text = "22+";
  model.frmMultiway.txtBoard.text = "Tc8h3s";
  model.SavePreferences();

  RecordingServices nextServices;
  Form1Model next(nextServices);
  StartAgain(next);
  ASSERT_TRUE(next.frmMultiway.place.has_value());
  EXPECT_EQ(next.frmMultiway.place->left, 300);
  EXPECT_EQ(next.frmMultiway.place->height, 500);
  next.txtMyHand.text = "2c2d";  // the kept inputs win over the main window's
  next.mnuMultiwayEquity_Click();
  ASSERT_EQ(next.frmMultiway.txtPlayer.size(), 4u);
  EXPECT_EQ(next.frmMultiway.txtPlayer[0].text, "AhAd");
  EXPECT_EQ(next.frmMultiway.txtPlayer[3].text, "22+");
  EXPECT_EQ(next.frmMultiway.txtBoard.text, "Tc8h3s");
}

TEST_F(MultiwayPreferences, KeptRecordsAreWrittenAgainBySessionsThatDoNotOpenTheWindow) {
  const std::string kept = std::string(kTwelveDefaultRecords) +
                           "MultiwayWindow|1,2,500,400\r\n"
                           "MultiwayPlayer1|AhAd\r\n"
                           "MultiwayPlayer2|KK\r\n"
                           "MultiwayBoard|\r\n";
  WriteBytes(PrefsFile(), kept);
  model.LoadPreferences();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kept);
}

TEST_F(MultiwayPreferences, ARecordTheProgramDoesNotKnowIsPassedOver) {
  WriteBytes(PrefsFile(), std::string(kTwelveDefaultRecords) +
                              "SomeLaterRecord|True\r\n"
                              "MultiwayPlayer11|AA\r\n"
                              "MultiwayPlayerX|AA\r\n");
  model.LoadPreferences();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_FALSE(model.frmMultiway.used);
  const MenuOptions defaults;
  EXPECT_EQ(model.options.hideEmptyCats, defaults.hideEmptyCats);
  EXPECT_EQ(model.options.simplifyFurther, defaults.simplifyFurther);
  EXPECT_EQ(model.txtMyHand.text, "");
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(MultiwayPreferences, TheTwelveStillApplyBesideTheWindowsRecords) {
  // The window's records between the twelve change nothing of what the twelve say.
  WriteBytes(PrefsFile(),
             "mnuHideEmptyCats|False\r\n"
             "MultiwayWindow|1,2,500,400\r\n"
             "MultiwayPlayer1|AhAd\r\n"
             "txtMyHand|KsKd\r\n"
             "MultiwayBoard|Tc8h3s\r\n");
  model.LoadPreferences();
  EXPECT_TRUE(services.messages.empty());
  EXPECT_FALSE(model.options.hideEmptyCats);
  EXPECT_EQ(model.txtMyHand.text, "KsKd");
  EXPECT_EQ(model.txtBoard.text, "");
}

}  // namespace
}  // namespace quillet
