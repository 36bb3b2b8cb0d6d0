// "Equity Heat Map" in the window model: the tick in the Display Options, the blocks' colours and
// tooltips after Calc Equity, what clears them, and its record in MyPrefs.ini (written only while ticked).
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "cards/hand_class.h"
#include "categorise/cook.h"
#include "equity/calc_equity.h"
#include "range/heat_colours.h"
#include "range/player_profile.h"
#include "tests/storage/temp_folder.h"
#include "tests/support/model_in_folder.h"

namespace quillet {
namespace {

using testing::kTwelveDefaultRecords;
using testing::ReadBytes;

class EquityHeatMap : public testing::ModelInFolderTest {
 protected:
  EquityHeatMap() {
    PlayerProfile& p = model.profiles().list.emplace_back();
    InitProfile(p);
    p.name = "Generic";
    model.profiles().currentIndex = 0;
    model.grid().InitHandGrid();
    // The range box takes 20 and Enter, as a user types it.
    model.grid().txtRange.text = "20";
    model.txtRange_KeyUp(kKeyEnter);
  }

  void Calc(const std::string& hand, const std::string& board) {
    model.txtMyHand.text = hand;
    model.txtBoard.text = board;
    model.cmdCalcEquity_Click();
  }

  // Calc Equity against the block's holdings in the range alone, counted apart from the heat map.
  double EquityAgainstBlockAlone(const char* name) const {
    const int index = FindClassByName(name);
    EquityRequest request;
    request.cards = CheckCardInputs(model.txtMyHand.text, model.txtBoard.text, CardsFor::Equity);
    for (const HandCombo& combo :
         CollectRangeCombos(model.profiles().list[0].rangeLayer, model.profiles().list[0].seenLayer)) {
      if (ClassOfCombo(combo) == index) request.range.push_back(combo);
    }
    request.rules = model.options.standardShowdownRules ? ShowdownRules::Standard : ShowdownRules::Quillet;
    return CalcEquity(request).values.my;
  }

  std::array<Colour, kClassCount> ShownColours() const {
    std::array<Colour, kClassCount> colours{};
    for (int i = 0; i < kClassCount; ++i) colours[i] = model.grid().ShownBlockColour(i);
    return colours;
  }

  bool AnyHeat() const {
    for (int i = 0; i < kClassCount; ++i) {
      if (model.grid().ShownBlockColour(i) != model.grid().blockColour[i]) return true;
    }
    return false;
  }
};

TEST_F(EquityHeatMap, IsUntickedAtFirstStartAndCalcEquityLeavesTheGridAsItWas) {
  EXPECT_FALSE(model.options.equityHeatMap);
  const auto before = ShownColours();
  Calc("AhKd", "Tc8h3s");
  EXPECT_FALSE(model.results().lblMyEquity.caption.empty());
  EXPECT_EQ(ShownColours(), before);
  EXPECT_EQ(model.grid().blockColour, before);
}

TEST_F(EquityHeatMap, TickedEachBlockOfTheRangeTakesTheColourOfMyEquityAgainstIt) {
  model.mnuEquityHeatMap_Click();
  EXPECT_TRUE(model.options.equityHeatMap);
  Calc("AhKd", "Tc8h3s");
  for (const char* name : {"QQ", "AA", "KK", "AQs", "JTs", "88"}) {
    const int index = FindClassByName(name);
    ASSERT_GT(model.profiles().list[0].rangeLayer[index].count, 0) << name;
    EXPECT_EQ(model.grid().ShownBlockColour(index), HeatMapColour(EquityAgainstBlockAlone(name))) << name;
  }
  // Far behind against aces, far ahead against queen-jack: red and green.
  EXPECT_GT(RedOf(model.grid().ShownBlockColour(FindClassByName("AA"))),
            GreenOf(model.grid().ShownBlockColour(FindClassByName("AA"))));
}

TEST_F(EquityHeatMap, BlocksOutOfTheRangeKeepTheirUsualColours) {
  model.mnuEquityHeatMap_Click();
  Calc("AhKd", "Tc8h3s");
  for (const char* name : {"72", "32s", "94"}) {
    const int index = FindClassByName(name);
    ASSERT_EQ(model.profiles().list[0].rangeLayer[index].count, 0) << name;
    EXPECT_EQ(model.grid().ShownBlockColour(index), model.grid().blockColour[index]) << name;
  }
}

TEST_F(EquityHeatMap, UnderTheStandardRulesTheTooltipGivesMyEquityAndTheLiveHoldings) {
  model.mnuStandardShowdownRules_Click();
  model.mnuEquityHeatMap_Click();
  Calc("AhKd", "Tc8h3s");
  char expected[96];
  std::snprintf(expected, sizeof expected, "; my equity %.1f %% against its 6 live holdings",
                EquityAgainstBlockAlone("QQ"));
  const std::string tip = model.grid().BlockToolTip(FindClassByName("QQ"));
  EXPECT_TRUE(tip.ends_with(expected)) << tip;
  // Three aces are left.
  EXPECT_NE(model.grid().BlockToolTip(FindClassByName("AA")).find("against its 3 live holdings"),
            std::string::npos);
  EXPECT_EQ(model.grid().ShownBlockColour(FindClassByName("QQ")),
            HeatMapColour(EquityAgainstBlockAlone("QQ")));
  // A block out of the range has no equity in its tooltip.
  EXPECT_EQ(model.grid().BlockToolTip(FindClassByName("72")).find("my equity"), std::string::npos);
}

TEST_F(EquityHeatMap, PreflopTheBlocksAreColouredToo) {
  model.mnuEquityHeatMap_Click();
  Calc("7h6h", "");
  const int index = FindClassByName("AA");
  EXPECT_EQ(model.grid().ShownBlockColour(index), HeatMapColour(EquityAgainstBlockAlone("AA")));
}

TEST_F(EquityHeatMap, OnTheRiverUnderTheProgramsRulesThereIsNoHeatMap) {
  model.mnuEquityHeatMap_Click();
  Calc("AhKd", "Tc8h3s2d9c");
  EXPECT_FALSE(AnyHeat());
}

TEST_F(EquityHeatMap, ARangeChangeOrABoardChangeClearsTheColours) {
  model.mnuEquityHeatMap_Click();
  Calc("AhKd", "Tc8h3s");
  ASSERT_TRUE(AnyHeat());
  model.PFHand_MouseUp(FindClassByName("72"), kLeftButton, 0);
  EXPECT_TRUE(model.results().lblMyEquity.caption.empty());
  EXPECT_FALSE(AnyHeat());

  Calc("AhKd", "Tc8h3s");
  ASSERT_TRUE(AnyHeat());
  // A key typed into the Board box clears the read-outs, and the colours with them.
  model.txtBoard_KeyDown('D');
  EXPECT_TRUE(model.results().lblMyEquity.caption.empty());
  EXPECT_FALSE(AnyHeat());
}

TEST_F(EquityHeatMap, WithAutoCalcPreflopARangeChangeColoursTheBlocksOfTheNewRangeOnly) {
  model.mnuEquityHeatMap_Click();
  model.mnuAutoPFEquityCalc_Click();
  Calc("AhKd", "");
  const int aces = FindClassByName("AA");
  ASSERT_NE(model.grid().ShownBlockColour(aces), model.grid().blockColour[aces]);
  // AA out of the range: until the delayed calculation runs, no block shows the old range's colours.
  model.PFHand_MouseUp(aces, kLeftButton, 0);
  ASSERT_EQ(model.profiles().list[0].rangeLayer[aces].count, 0);
  EXPECT_FALSE(AnyHeat());
  model.tmrCalcEquity_Timer();
  EXPECT_EQ(model.grid().ShownBlockColour(aces), model.grid().blockColour[aces]);
  EXPECT_TRUE(AnyHeat());
}

TEST_F(EquityHeatMap, SwitchingTheShowdownRulesClearsTheColours) {
  model.mnuEquityHeatMap_Click();
  Calc("AhKd", "Tc8h3s");
  ASSERT_TRUE(AnyHeat());
  model.mnuStandardShowdownRules_Click();
  EXPECT_FALSE(AnyHeat());
}

TEST_F(EquityHeatMap, UntickingRestoresEveryBlockExactly) {
  Calc("AhKd", "Tc8h3s");
  const auto before = ShownColours();
  const auto tips = [&] {
    std::array<std::string, kClassCount> all;
    for (int i = 0; i < kClassCount; ++i) all[i] = model.grid().BlockToolTip(i);
    return all;
  };
  const auto tipsBefore = tips();
  model.mnuEquityHeatMap_Click();
  model.cmdCalcEquity_Click();
  ASSERT_NE(ShownColours(), before);
  model.mnuEquityHeatMap_Click();
  EXPECT_FALSE(model.options.equityHeatMap);
  EXPECT_EQ(ShownColours(), before);
  EXPECT_EQ(tips(), tipsBefore);
}

TEST_F(EquityHeatMap, MyHandAsARangeColoursTheBlocksByMyRangesEquity) {
  model.mnuStandardShowdownRules_Click();
  model.mnuEquityHeatMap_Click();
  Calc("AK,QQ", "Tc8h3s");
  ASSERT_FALSE(model.results().lblMyEquity.caption.empty());
  EXPECT_TRUE(AnyHeat());
  EXPECT_NE(model.grid().BlockToolTip(FindClassByName("AA")).find("my equity"), std::string::npos);
}

TEST_F(EquityHeatMap, UntickedItAddsNothingToThePreferencesFile) {
  model.SavePreferences();
  const std::string plain = ReadBytes(PrefsFile());
  model.mnuEquityHeatMap_Click();
  model.mnuEquityHeatMap_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), plain);
  EXPECT_EQ(plain.find("mnuEquityHeatMap"), std::string::npos);
}

TEST_F(EquityHeatMap, TickedItIsWrittenAsOneRecordAndReadBack) {
  model.SavePreferences();
  const std::string plain = ReadBytes(PrefsFile());
  model.mnuEquityHeatMap_Click();
  model.SavePreferences();
  EXPECT_EQ(ReadBytes(PrefsFile()), plain + "mnuEquityHeatMap|True\r\n");

  RecordingServices otherServices;
  Form1Model other(otherServices);
  other.ProfilePaths(dir.path());
  other.LoadPreferences();
  EXPECT_TRUE(other.options.equityHeatMap);
}

}  // namespace
}  // namespace quillet
