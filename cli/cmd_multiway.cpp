// quillet-cli multiway: the equity of 2 to 10 players, each a hand or a range in notation (weights taken:
// "AA:0.5, KK"), under the standard rules: exact when it fits the budget, else Monte Carlo to a standard
// error.
#include <CLI/CLI.hpp>
#include <cctype>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/options.h"
#include "equity/multiway_equity.h"
#include "range/range_notation.h"

namespace quillet::cli {
namespace {

constexpr const char* kMultiwayUsage =
    "--player TEXT --player TEXT [--player TEXT ...] [--board B] [--dead D] [--exact | --monte-carlo] "
    "[--error E] [--seconds S] [--seed N] [--threads N] [--json]";
constexpr const char* kMultiwaySummary =
    "the equity, win and tie of 2 to 10 players, each a hand or a range in notation, under the standard "
    "rules: exact when boards x live holdings is at most 2e9, else Monte Carlo until the largest standard "
    "error is at most --error points (0.1) or --seconds (30) pass";

// Cards written one after another ("Tc8h3s", blanks and commas allowed). Returns false for anything else.
bool ReadMultiwayCards(const std::string& text, std::vector<Card>& cards) {
  std::string packed;
  for (char c : text) {
    if (c != ' ' && c != ',') packed.push_back(c);
  }
  if (packed.size() % 2 != 0) return false;
  for (std::size_t i = 0; i < packed.size(); i += 2) {
    const auto rank = kRankText.find(static_cast<char>(std::toupper(static_cast<unsigned char>(packed[i]))));
    const auto suit =
        kSuitText.find(static_cast<char>(std::tolower(static_cast<unsigned char>(packed[i + 1]))));
    if (rank == std::string_view::npos || rank == 0 || suit == std::string_view::npos) return false;
    // The rank text counts its places from 1: "2" is at place 2.
    cards.push_back({static_cast<int32_t>(rank) + 1, static_cast<int32_t>(suit)});
  }
  return true;
}

std::string Fixed(double value, int places) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(places) << value;
  return text.str();
}

int RunMultiway(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kMultiwaySummary, "quillet-cli multiway");
  SetUpCommandParser(app);
  std::vector<std::string> playerTexts;
  app.add_option("--player", playerTexts, "a player's hand (\"AhAd\") or range in notation (\"QQ+,AK\")")
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  std::string boardText;
  app.add_option("--board", boardText, "0, 3, 4 or 5 board cards (\"Tc8h3s\")");
  std::string deadText;
  app.add_option("--dead", deadText, "cards out of the deck");
  bool exact = false;
  app.add_flag("--exact", exact, "count every deal, however long it takes");
  bool monteCarlo = false;
  app.add_flag("--monte-carlo", monteCarlo, "sample deals, whatever the size");
  MultiwayOptions options;
  app.add_option("--error", options.targetError,
                 "Monte Carlo stops when each player's standard error is at most this, in points (0.1)");
  app.add_option("--seconds", options.seconds, "Monte Carlo stops after this many seconds (30; 0: no limit)");
  app.add_option("--seed", options.seed, "the Monte Carlo seed (1): the same seed and threads repeat a run");
  app.add_option("--threads", options.threads, "worker threads (0 or absent: every core)");
  bool json = false;
  app.add_flag("--json", json, "per player text, equity, win and tie; exact, standard_error, deals, threads");

  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "multiway", out, err, status);
  if (!positional) return status;
  if (!positional->empty()) {
    err << "multiway: unexpected argument \"" << positional->front() << "\"\n";
    return kExitBadInput;
  }
  if (exact && monteCarlo) {
    err << "multiway: give --exact or --monte-carlo, not both\n";
    return kExitBadInput;
  }
  if (playerTexts.size() < static_cast<std::size_t>(kMultiwayMinPlayers) ||
      playerTexts.size() > static_cast<std::size_t>(kMultiwayMaxPlayers)) {
    err << "multiway: give 2 to 10 players with --player, not " << playerTexts.size() << "\n";
    return kExitBadInput;
  }
  if (!(options.targetError > 0) || !(options.seconds >= 0) || options.threads < 0) {
    err << "multiway: --error must be above 0, --seconds and --threads 0 or more\n";
    return kExitBadInput;
  }
  std::vector<WeightedHoldingSet> ranges;
  for (std::size_t p = 0; p < playerTexts.size(); ++p) {
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(playerTexts[p]);
    if (!parsed.ok()) {
      err << "multiway: --player " << p + 1 << " \"" << playerTexts[p] << "\": " << parsed.error->message
          << "\n";
      return kExitBadInput;
    }
    if (parsed.weights.Empty()) {
      err << "multiway: --player " << p + 1 << " \"" << playerTexts[p] << "\" holds no holding\n";
      return kExitBadInput;
    }
    ranges.push_back(parsed.weights);
  }
  std::vector<Card> board;
  std::vector<Card> dead;
  if (!ReadMultiwayCards(boardText, board)) {
    err << "multiway: --board \"" << boardText << "\" is not a list of cards\n";
    return kExitBadInput;
  }
  if (!ReadMultiwayCards(deadText, dead)) {
    err << "multiway: --dead \"" << deadText << "\" is not a list of cards\n";
    return kExitBadInput;
  }
  options.method = exact        ? MultiwayMethod::Exact
                   : monteCarlo ? MultiwayMethod::MonteCarlo
                                : MultiwayMethod::Automatic;
  const MultiwayResult result = MultiwayEquity(ranges, board, dead, options);
  if (!result.error.empty()) {
    err << "multiway: " << result.error << "\n";
    return kExitBadInput;
  }
  if (json) {
    Json players = Json::array();
    for (std::size_t p = 0; p < playerTexts.size(); ++p) {
      players.push_back({{"text", playerTexts[p]},
                         {"equity", JsonNumber(result.players[p].equity)},
                         {"win", JsonNumber(result.players[p].win)},
                         {"tie", JsonNumber(result.players[p].tie)}});
    }
    out << JsonText(Json{{"players", players},
                         {"exact", result.exact},
                         {"standard_error", JsonNumber(result.standardError)},
                         {"deals", result.deals},
                         {"threads", result.threads}})
        << "\n";
  } else {
    for (std::size_t p = 0; p < playerTexts.size(); ++p) {
      out << "Player " << p + 1 << " (" << playerTexts[p] << "): equity "
          << Fixed(result.players[p].equity, 3) << "%, win " << Fixed(result.players[p].win, 3) << "%, tie "
          << Fixed(result.players[p].tie, 3) << "%\n";
    }
    out << (result.exact
                ? "Exact"
                : "Monte Carlo, largest standard error " + Fixed(result.standardError, 3) + " points")
        << ", " << result.deals << " deals, " << result.threads
        << (result.threads == 1 ? " thread\n" : " threads\n");
  }
  return kExitOk;
}

const CommandRegistrar kRegisterMultiway{
    Command{"multiway", kMultiwayUsage, kMultiwaySummary, 25, RunMultiway}};

}  // namespace
}  // namespace quillet::cli
