// "Equity per Category" in the window model: the tick in the Display Options, the tree and export text it
// changes, and its record in MyPrefs.ini (written only while ticked).
#include <gtest/gtest.h>

#include <string>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "results/category_equity.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"

namespace quillet {
namespace {

using testing::kTwelveDefaultRecords;
using testing::ReadBytes;
using testing::WriteBytes;

class EquityPerCategory : public testing::ModelInFolderTest {
 protected:
  EquityPerCategory() {
    PlayerProfile& p = model.profiles().list.emplace_back();
    InitProfile(p);
    p.name = "Generic";
    model.profiles().currentIndex = 0;
  }

  // The range box takes 20 and Enter, as a user types it; then the cook.
  void CookTwentyPercent(const std::string& hand, const std::string& board) {
    model.grid().txtRange.text = "20";
    model.txtRange_KeyUp(kKeyEnter);
    model.txtMyHand.text = hand;
    model.txtBoard.text = board;
    model.cmdCheckPossibleHands_Click();
  }

  // What each category shows from the cook's own table, counted apart from the window model.
  std::vector<std::optional<double>> ExpectedEquities(ShowdownRules rules) const {
    const CardInputs cards = CheckCardInputs(model.txtMyHand.text, model.txtBoard.text, CardsFor::Cook);
    const HoldingShowdowns showdowns(cards.hand, cards.board, cards.street,
                                     CategorisedHoldings(model.results().categories), rules);
    return CategoryEquities(model.results().categories, showdowns);
  }

  // Category node texts: the nodes whose key has no "-".
  void ExpectCategoryNodesToEndWithTheirEquity(ShowdownRules rules) {
    const auto equities = ExpectedEquities(rules);
    int withEquity = 0;
    for (const ResultNode& node : model.results().TV.nodes) {
      if (node.key.find('-') != std::string::npos || node.text.empty()) continue;
      const auto& equity = equities[static_cast<std::size_t>(std::stoi(node.key))];
      ASSERT_TRUE(equity.has_value()) << node.text;
      EXPECT_TRUE(node.text.ends_with(EquitySuffix(equity))) << node.text;
      EXPECT_NE(model.results().exportText.find(node.text + "\r\n"), std::string::npos) << node.text;
      ++withEquity;
    }
    EXPECT_GE(withEquity, 10);
  }
};

TEST_F(EquityPerCategory, IsUntickedAtFirstStart) {
  EXPECT_FALSE(model.options.equityPerCategory);
}

TEST_F(EquityPerCategory, TickingItCooksAgainAndEveryCategoryEndsWithItsEquity) {
  CookTwentyPercent("AhKd", "Tc8h3s");
  const std::string before = model.results().exportText;
  EXPECT_EQ(before.find(" eq "), std::string::npos);
  model.mnuEquityPerCategory_Click();
  EXPECT_TRUE(model.options.equityPerCategory);
  EXPECT_NE(model.results().exportText, before);
  ExpectCategoryNodesToEndWithTheirEquity(ShowdownRules::Quillet);
  EXPECT_TRUE(services.messages.empty());
}

TEST_F(EquityPerCategory, UntickedAgainTheTreeAndExportAreByteForByteAsBefore) {
  CookTwentyPercent("AhKd", "Tc8h3s");
  const std::string before = model.results().exportText;
  std::vector<std::string> texts;
  for (const ResultNode& node : model.results().TV.nodes) texts.push_back(node.text);
  model.mnuEquityPerCategory_Click();
  model.mnuEquityPerCategory_Click();
  EXPECT_FALSE(model.options.equityPerCategory);
  EXPECT_EQ(model.results().exportText, before);
  ASSERT_EQ(model.results().TV.nodes.size(), texts.size());
  for (std::size_t k = 0; k < texts.size(); ++k) EXPECT_EQ(model.results().TV.nodes[k].text, texts[k]);
}

TEST_F(EquityPerCategory, TheStandardRulesTickCountsTheEquitiesByTheStandardRules) {
  CookTwentyPercent("AhKd", "Tc8h3s");
  model.mnuEquityPerCategory_Click();
  const std::string programsRules = model.results().exportText;
  model.mnuStandardShowdownRules_Click();
  model.cmdCheckPossibleHands_Click();
  EXPECT_NE(model.results().exportText, programsRules);
  ExpectCategoryNodesToEndWithTheirEquity(ShowdownRules::Standard);
}

TEST_F(EquityPerCategory, WithoutABoardOrMyHandNothingIsAdded) {
  CookTwentyPercent("AhKd", "");
  const std::string noBoard = model.results().exportText;
  model.mnuEquityPerCategory_Click();
  EXPECT_EQ(model.results().exportText, noBoard);
  CookTwentyPercent("", "Tc8h3s");
  EXPECT_EQ(model.results().exportText.find(" eq "), std::string::npos);
  EXPECT_FALSE(model.results().TV.empty());
}

TEST_F(EquityPerCategory, AddToRangeOnAGroupWithItsEquityTakesTheGroupsHoldings) {
  // Queens and jacks on a king-high board: the jacks' group ends with its equity, and "Add to Range" on it
  // still reads its six holdings.
  PlayerProfile& profile = *model.profiles().currentProfile();
  SetBlockWhole(profile.rangeLayer[static_cast<std::size_t>(FindClassByName("QQ"))], false);
  SetBlockWhole(profile.rangeLayer[static_cast<std::size_t>(FindClassByName("JJ"))], false);
  model.options.equityPerCategory = true;
  model.txtMyHand.text = "AhKd";
  model.txtBoard.text = "Kc8h3s";
  model.cmdCheckPossibleHands_Click();
  int group = -1;
  for (std::size_t k = 0; k < model.results().TV.nodes.size(); ++k) {
    if (model.results().TV.nodes[k].text.starts_with("\xE2\x80\xA2JJ  (6) eq ")) group = static_cast<int>(k);
  }
  ASSERT_GE(group, 0);
  model.results().TV.selected = group;
  model.mnuAdd2Range_Click();
  EXPECT_EQ(profile.rangeLayer[static_cast<std::size_t>(FindClassByName("JJ"))].count, 6);
  EXPECT_EQ(profile.rangeLayer[static_cast<std::size_t>(FindClassByName("QQ"))].count, 0);
  EXPECT_EQ(model.results().tvMousePointer, 0);  // no error signalled
}

TEST_F(EquityPerCategory, UntickedItAddsNothingToThePreferencesFile) {
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
  model.mnuEquityPerCategory_Click();
  model.mnuEquityPerCategory_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), kTwelveDefaultRecords);
}

TEST_F(EquityPerCategory, TickedItIsWrittenAsOneRecordAfterTheOthersAndReadBack) {
  model.mnuEquityPerCategory_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), std::string(kTwelveDefaultRecords) + "mnuEquityPerCategory|True\r\n");
  model.mnuStandardShowdownRules_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), std::string(kTwelveDefaultRecords) +
                                        "mnuStandardShowdownRules|True\r\nmnuEquityPerCategory|True\r\n");

  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  other.LoadPreferences();
  EXPECT_TRUE(other.options.equityPerCategory);
  EXPECT_TRUE(other.options.standardShowdownRules);
}

TEST_F(EquityPerCategory, AFalseRecordInTheFileLeavesItUnticked) {
  WriteBytes(PrefsFile(), std::string(kTwelveDefaultRecords) + "mnuEquityPerCategory|False\r\n");
  model.options.equityPerCategory = true;
  model.LoadPreferences();
  EXPECT_FALSE(model.options.equityPerCategory);
}

}  // namespace
}  // namespace quillet
