// The "Standard Showdown Rules" tick in MyPrefs.ini: a record of its own after the twelve, written only when
// ticked, so a user who never ticks it keeps the file byte for byte.
#include <gtest/gtest.h>

#include "app/model/form1_model.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"
#include "tests/support/recording_services.h"

namespace quillet {
namespace {

using testing::kTwelveDefaultRecords;
using testing::ReadBytes;
using testing::WriteBytes;

using StandardRulesPreferences = testing::ModelInFolderTest;

TEST_F(StandardRulesPreferences, AreUntickedAtFirstStart) {
  EXPECT_FALSE(model.options.standardShowdownRules);
}

TEST_F(StandardRulesPreferences, UntickedTheyAddNothingToTheFile) {
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(StandardRulesPreferences, TickedAndUntickedAgainTheyAddNothingToTheFile) {
  model.mnuStandardShowdownRules_Click();
  model.mnuStandardShowdownRules_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(StandardRulesPreferences, TickedTheyAreWrittenAsOneRecordAfterTheTwelve) {
  model.mnuStandardShowdownRules_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), std::string(kTwelveDefaultRecords) + "mnuStandardShowdownRules|True\r\n");
}

TEST_F(StandardRulesPreferences, TheTickSurvivesASaveAndALoad) {
  model.mnuStandardShowdownRules_Click();
  model.SavePreferences();
  RecordingServices otherServices;
  Form1Model restarted(otherServices);
  restarted.ProfilePaths(dir.path());
  restarted.LoadPreferences();
  EXPECT_TRUE(restarted.options.standardShowdownRules);
  EXPECT_TRUE(otherServices.messages.empty());
}

TEST_F(StandardRulesPreferences, ARecordFalseOrAFileWithoutTheRecordLeavesThemUnticked) {
  WriteBytes(PrefsFile(), std::string(kTwelveDefaultRecords) + "mnuStandardShowdownRules|False\r\n");
  model.options.standardShowdownRules = true;
  model.LoadPreferences();
  EXPECT_FALSE(model.options.standardShowdownRules);
  WriteBytes(PrefsFile(), std::string(kTwelveDefaultRecords));
  model.LoadPreferences();
  EXPECT_FALSE(model.options.standardShowdownRules);
}

TEST_F(StandardRulesPreferences, TheMenuItemFlipsItsTickAndBlanksTheReadOuts) {
  model.results().lblMyEquity.caption = "57.3%";
  model.results().lblMyEquity.opaque = true;
  model.results().lbloppEquity.caption = "42.7%";
  model.results().lblMyEquity.toolTip = "Win 57.00%, tie 0.60%, 990 showdowns";
  model.mnuStandardShowdownRules_Click();
  EXPECT_TRUE(model.options.standardShowdownRules);
  EXPECT_EQ(model.results().lblMyEquity.caption, "");
  EXPECT_FALSE(model.results().lblMyEquity.opaque);
  EXPECT_EQ(model.results().lbloppEquity.caption, "");
  EXPECT_EQ(model.results().lblMyEquity.toolTip, "");
  model.mnuStandardShowdownRules_Click();
  EXPECT_FALSE(model.options.standardShowdownRules);
}

}  // namespace
}  // namespace quillet
