// quillet-cli cook --category-equity: the window's export text with "Equity per Category" ticked, and an
// "equity" for each category in the JSON.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/model/form1_model.h"
#include "cards/card_input.h"
#include "categorise/cook.h"
#include "cli/options.h"
#include "range/block_record.h"
#include "range/player_profile.h"
#include "range/top_of_order.h"
#include "results/category_equity.h"
#include "tests/cli/cli_run.h"
#include "tests/support/generic_profile_window.h"

namespace quillet::cli {
namespace {

// The window with a 20 % range typed into the range box, cooked on AhKd and Tc8h3s with the options given.
std::string WindowExport(bool standardRules, bool winLoseIcons = false) {
  quillet::testing::GenericProfileWindow window;
  Form1Model& model = window.model;
  model.grid().txtRange.text = "20";
  model.txtRange_KeyUp(kKeyEnter);
  model.txtMyHand.text = "AhKd";
  model.txtBoard.text = "Tc8h3s";
  model.options.standardShowdownRules = standardRules;
  model.options.winLoseIcons = winLoseIcons;
  model.mnuEquityPerCategory_Click();
  EXPECT_TRUE(window.services.messages.empty());
  return model.results().exportText;
}

const std::vector<std::string> kTwentyPercent = {"cook",   "--hand", "AhKd", "--board",
                                                 "Tc8h3s", "--top",  "20"};

std::vector<std::string> With(std::vector<std::string> words, std::initializer_list<std::string> more) {
  words.insert(words.end(), more);
  return words;
}

TEST(CategoryEquityCli, PrintsTheWindowsExportTextWithTheOptionTicked) {
  const CliRun run = RunCommandLine(With(kTwentyPercent, {"--category-equity"}));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_NE(run.out.find(" eq "), std::string::npos);
  EXPECT_EQ(run.out, WindowExport(false));
}

TEST(CategoryEquityCli, StandardRulesCountTheEquitiesByTheStandardRules) {
  const CliRun run = RunCommandLine(With(kTwentyPercent, {"--category-equity", "--standard-rules"}));
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, WindowExport(true));
  EXPECT_NE(run.out, RunCommandLine(With(kTwentyPercent, {"--category-equity"})).out);
}

TEST(CategoryEquityCli, TheIconsComeAfterTheEquityOfAGroupLine) {
  const CliRun run = RunCommandLine(With(kTwentyPercent, {"--category-equity", "--win-lose-icons"}));
  EXPECT_EQ(run.status, 0) << run.err;
  // The window draws the icons as pictures; the command line writes them after the line's text.
  std::string window = WindowExport(false, true);
  std::string printed = run.out;
  for (const char* mark : {" [win]", " [tie]", " [lose]"}) {
    for (auto at = printed.find(mark); at != std::string::npos; at = printed.find(mark)) {
      printed.erase(at, std::string(mark).size());
    }
  }
  EXPECT_EQ(printed, window);
  EXPECT_NE(run.out.find("% ["), std::string::npos);  // a group line with its equity, then its icon
}

TEST(CategoryEquityCli, WithoutTheFlagTheOutputIsAsBefore) {
  const CliRun plain = RunCommandLine(kTwentyPercent);
  EXPECT_EQ(plain.out.find(" eq "), std::string::npos);
  const CliRun json = RunCommandLine(With(kTwentyPercent, {"--json"}));
  EXPECT_EQ(json.out.find("\"equity\""), std::string::npos);
  // The standard rules alone would change nothing without icons or equities: they are refused.
  const CliRun rulesAlone = RunCommandLine(With(kTwentyPercent, {"--standard-rules"}));
  EXPECT_EQ(rulesAlone.status, 2);
  EXPECT_TRUE(rulesAlone.out.empty());
}

TEST(CategoryEquityCli, JsonGivesEachCategoryItsEquityAndNullWhenEmpty) {
  for (const bool standard : {false, true}) {
    std::vector<std::string> words = With(kTwentyPercent, {"--category-equity", "--json", "--show-empty"});
    if (standard) words.push_back("--standard-rules");
    const CliRun run = RunCommandLine(words);
    ASSERT_EQ(run.status, 0) << run.err;
    const Json json = Json::parse(run.out);

    // The same cook counted apart from the command.
    const CardInputs cards = CheckCardInputs("AhKd", "Tc8h3s", CardsFor::Cook);
    RangeLayer on = MakeEmptyLayer();
    const auto step = TopOfOrderStep("20");
    ASSERT_TRUE(step);
    ApplyTopOfOrder(on, step->entry);
    const CookResult cooked = Cook(cards, CollectRangeCombos(on, MakeEmptyLayer()));
    const HoldingShowdowns showdowns(cards.hand, cards.board, cards.street,
                                     CategorisedHoldings(cooked.categories),
                                     standard ? ShowdownRules::Standard : ShowdownRules::Quillet);
    const auto equities = CategoryEquities(cooked.categories, showdowns);

    const Json& categories = json.at("categories");
    ASSERT_EQ(categories.size(), equities.size());
    int nulls = 0;
    int values = 0;
    for (std::size_t i = 0; i < categories.size(); ++i) {
      const Json& equity = categories[i].at("equity");
      if (!equities[i]) {
        EXPECT_TRUE(equity.is_null()) << categories[i].at("label");
        ++nulls;
      } else {
        EXPECT_DOUBLE_EQ(equity.get<double>(), *equities[i]) << categories[i].at("label");
        ++values;
      }
    }
    EXPECT_GT(nulls, 10);  // the spacers and the empty categories
    EXPECT_GT(values, 10);
    EXPECT_TRUE(categories[54].at("equity").is_null());  // "Royal Flush": nothing there
    // The tree and the export text in the JSON carry the equities too.
    EXPECT_NE(json.at("export").get<std::string>().find(" eq "), std::string::npos);
  }
}

}  // namespace
}  // namespace quillet::cli
