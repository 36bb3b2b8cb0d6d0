// The "Multiway Equity" window: its rows, the checks before a run, the run on a worker thread, the
// results table and its text, and the window's preference records.
#include "app/model/multiway_model.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <random>
#include <stop_token>
#include <thread>

#include "app/model/form1_model.h"
#include "cards/ascii_case.h"
#include "cards/card.h"
#include "cards/holding.h"
#include "equity/multiway_equity.h"
#include "range/card_text_colour.h"
#include "range/my_hand_range.h"
#include "range/player_profile.h"
#include "range/range_notation.h"
#include "storage/code_page.h"
#include "storage/preferences_file.h"

namespace quillet {

// What the worker thread and the window share: the progress so far and, once `done`, the result.
struct MultiwayShared {
  std::atomic<uint64_t> deals{0};
  std::atomic<double> standardError{0};
  std::atomic<bool> finished{false};
  MultiwayResult result;  // written by the worker before `finished`, read by the window after it
};

struct MultiwayModel::Run {
  std::shared_ptr<MultiwayShared> shared = std::make_shared<MultiwayShared>();
  bool exactExpected = false;
  double dealsExpected = 0;  // about how many deals an exact count walks (0: not known)
  double targetError = 0;
  double seconds = 0;
  std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
  std::vector<std::string> texts;       // each player's text as it was calculated
  std::vector<std::string> liveCombos;  // each player's live combos, as the table shows them
  std::string board;
  std::jthread thread;  // last: it starts once everything above is in place, and is joined first
};

namespace {

constexpr std::string_view kMultiwayWindowKey = "MultiwayWindow";
constexpr std::string_view kMultiwayPlayerKey = "MultiwayPlayer";  // followed by 1..10
constexpr std::string_view kMultiwayBoardKey = "MultiwayBoard";
constexpr std::string_view kMultiwayLineEnd = "\r\n";
// Deals drawn to guess how many an exact count walks (for the progress bar only).
constexpr int kMultiwayGuessSamples = 4000;
constexpr int kMultiwayDeckSize = 52;

std::string MultiwayFixed(double value, int places) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", places, value);
  return text;
}

std::string MultiwayPercent(double value) {
  return MultiwayFixed(value, 2) + "%";
}

bool IsMultiwayBlank(char c) {
  return c == ' ' || c == '\t';
}

// A text of two cards with its blanks taken out, ranks in upper case and suits in lower case ("ah kd" is
// "AhKd"), as My Hand writes two cards.
std::string MultiwayTwoCards(std::string_view text) {
  std::string cards;
  for (const char c : text) {
    if (IsMultiwayBlank(c)) continue;
    cards.push_back(cards.size() % 2 == 0 ? AsciiUpper(c) : AsciiLower(c));
  }
  return cards;
}

// Colours cards written one after another (blanks between them passed over) by suit, as the card boxes
// colour them; characters that are no card keep the window-text colour.
std::vector<Colour> MultiwayCardColours(std::string_view text) {
  std::vector<Colour> colours(text.size(), kWindowTextColour);
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!IsMultiwayBlank(text[i]) && text[i] != ',') places.push_back(i);
  }
  for (std::size_t k = 0; k + 1 < places.size(); k += 2) {
    const char suitChar = AsciiLower(text[places[k + 1]]);
    const int32_t suit = SuitFromChar(std::string_view(&suitChar, 1));
    if (suit == kNoCard) continue;
    colours[places[k]] = colours[places[k + 1]] = SuitTextColour(suit);
  }
  return colours;
}

// A player's text read: two cards as a hand, anything else as a range in notation.
ParsedWeightedRange ReadMultiwayPlayer(std::string_view text) {
  if (IsTwoCardText(text)) return ParseWeightedRangeNotation(MultiwayTwoCards(text));
  return ParseWeightedRangeNotation(text);
}

// The board's cards, or why they are not a board: "" when they are.
std::string ReadMultiwayBoard(std::string_view text, std::vector<Card>& cards) {
  std::string packed;
  for (const char c : text) {
    if (!IsMultiwayBlank(c) && c != ',') packed.push_back(c);
  }
  if (packed.size() % 2 != 0 ||
      (packed.size() != 0 && packed.size() != 6 && packed.size() != 8 && packed.size() != 10)) {
    return "Board invalid: it holds none, 3, 4 or 5 cards. Valid Eg: ThKc4d";
  }
  for (std::size_t i = 0; i < packed.size(); i += 2) {
    const char rankChar = AsciiUpper(packed[i]);
    const char suitChar = AsciiLower(packed[i + 1]);
    const Card card{RankFromChar(std::string_view(&rankChar, 1)),
                    SuitFromChar(std::string_view(&suitChar, 1))};
    if (!IsDeckCard(card)) {
      return "Board invalid: '" + packed.substr(i, 2) + "' is not a card. Valid Eg: ThKc4d";
    }
    if (std::find(cards.begin(), cards.end(), card) != cards.end()) {
      return "Board invalid: " + CardToText(card) + " is there twice";
    }
    cards.push_back(card);
  }
  return {};
}

uint64_t MultiwayCardBit(Card card) {
  return uint64_t{1} << DeckIndex(card);
}

// About how many deals an exact count walks: the boards (of the cards left once the board and the cards a
// player cannot do without are out) times the product of the players' live holdings, times the share of
// such deals whose cards all differ, drawn at random with a fixed seed.
double GuessMultiwayExactDeals(const std::vector<std::vector<int>>& live, uint64_t knownBits,
                               uint64_t outBits, int coming, double boardsTimesProduct) {
  std::vector<int> deck;
  for (int index = 0; index < kMultiwayDeckSize; ++index) {
    if ((outBits >> index & 1) == 0) deck.push_back(index);
  }
  if (static_cast<int>(deck.size()) < coming) return 0;
  const uint64_t boardBits = knownBits;
  std::mt19937_64 generator(20231);
  int kept = 0;
  for (int sample = 0; sample < kMultiwayGuessSamples; ++sample) {
    uint64_t used = boardBits;
    for (int i = 0; i < coming; ++i) {
      std::uniform_int_distribution<std::size_t> pick(i, deck.size() - 1);
      std::swap(deck[i], deck[pick(generator)]);
      used |= uint64_t{1} << deck[i];
    }
    bool clash = false;
    for (const std::vector<int>& holdings : live) {
      std::uniform_int_distribution<std::size_t> pick(0, holdings.size() - 1);
      const auto cards = CardsOfHolding(holdings[pick(generator)]);
      const uint64_t bits = MultiwayCardBit(cards[0]) | MultiwayCardBit(cards[1]);
      if ((bits & used) != 0) {
        clash = true;
        break;
      }
      used |= bits;
    }
    if (!clash) ++kept;
  }
  return boardsTimesProduct * kept / kMultiwayGuessSamples;
}

std::string MultiwayFirstUpper(std::string text) {
  if (!text.empty()) text[0] = AsciiUpper(text[0]);
  return text;
}

}  // namespace

MultiwayModel::MultiwayModel(Form1Model* ownerForm, WindowServices& windowServices)
    : owner(ownerForm), services(&windowServices) {}

MultiwayModel::~MultiwayModel() = default;

void MultiwayModel::Form_Open() {
  visible = true;
  used = true;
  if (openedBefore) return;
  openedBefore = true;
  const bool kept = std::any_of(savedPlayers.begin(), savedPlayers.end(),
                                [](const std::optional<std::string>& p) { return p.has_value(); });
  if (kept) {
    const int rows =
        std::clamp(static_cast<int>(savedPlayers.size()), kMultiwayFewestRows, kMultiwayMostRows);
    txtPlayer.assign(static_cast<std::size_t>(rows), {});
    for (int r = 0; r < rows && r < static_cast<int>(savedPlayers.size()); ++r) {
      txtPlayer[r].text = savedPlayers[r].value_or("");
    }
    txtBoard.text = savedBoard.value_or("");
    for (int r = 0; r < rows; ++r) ColourPlayer(r);
    ColourBoard();
  } else {
    txtPlayer.assign(kMultiwayStartPlayers, {});
    cmdFromMainWindow_Click();
  }
  savedPlayers.clear();
  savedBoard.reset();
}

void MultiwayModel::Form_Unload() {
  if (Running()) cmdStop_Click();
  visible = false;
}

void MultiwayModel::Form_KeyDown(int keyCode) {
  if (keyCode == kKeyEnter) {
    cmdCalculate_Click();
  } else if (keyCode == kKeyEscape) {
    Form_Unload();
  }
}

void MultiwayModel::Form_Moved(const MultiwayPlace& where) {
  place = where;
}

void MultiwayModel::cmdFromMainWindow_Click() {
  if (txtPlayer.size() < static_cast<std::size_t>(kMultiwayFewestRows)) {
    txtPlayer.resize(static_cast<std::size_t>(kMultiwayFewestRows));
  }
  std::string myHand;
  std::string range;
  std::string board;
  if (owner != nullptr) {
    myHand = owner->txtMyHand.text;
    if (IsTwoCardText(myHand)) myHand = MultiwayTwoCards(myHand);
    if (const PlayerProfile* profile = owner->profiles().currentProfile()) {
      range = PrintWeightedRangeNotation(OnLayerWeights(*profile));
    }
    board = owner->txtBoard.text;
  }
  txtPlayer[0].text = myHand;
  txtPlayer[1].text = range;
  txtBoard.text = board;
  ColourPlayer(0);
  ColourPlayer(1);
  ColourBoard();
}

void MultiwayModel::cmdAddPlayer_Click() {
  if (txtPlayer.size() >= static_cast<std::size_t>(kMultiwayMostRows)) return;
  txtPlayer.emplace_back();
}

void MultiwayModel::cmdRemovePlayer_Click(int row) {
  if (txtPlayer.size() <= static_cast<std::size_t>(kMultiwayFewestRows)) return;
  if (row < 0 || row >= static_cast<int>(txtPlayer.size())) return;
  txtPlayer.erase(txtPlayer.begin() + row);
}

void MultiwayModel::txtPlayer_Change(int row) {
  if (row < 0 || row >= static_cast<int>(txtPlayer.size())) return;
  ColourPlayer(row);
}

void MultiwayModel::txtBoard_Change() {
  ColourBoard();
}

void MultiwayModel::ColourPlayer(int row) {
  MultiwayBox& box = txtPlayer[row];
  if (IsTwoCardText(box.text)) {
    box.charColours = MultiwayCardColours(box.text);
    return;
  }
  const ParsedWeightedRange parsed = ParseWeightedRangeNotation(box.text);
  box.charColours = RangeTextColours(box.text, parsed.error ? &*parsed.error : nullptr);
}

void MultiwayModel::ColourBoard() {
  txtBoard.charColours = MultiwayCardColours(txtBoard.text);
}

void MultiwayModel::cmdCalculate_Click() {
  if (Running()) return;
  const int count = static_cast<int>(txtPlayer.size());
  std::vector<WeightedHoldingSet> players;
  for (int r = 0; r < count; ++r) {
    MultiwayBox& box = txtPlayer[r];
    const std::string name = "Player " + std::to_string(r + 1);
    if (IsTwoCardText(box.text) && !box.text.empty()) {
      box.text = MultiwayTwoCards(box.text);  // written as My Hand writes two cards
      ColourPlayer(r);
    }
    if (box.text.find_first_not_of(" \t") == std::string::npos) {
      services->MsgBox(name + " is empty. Valid Eg: AhAd or QQ+, AKs");
      return;
    }
    const ParsedWeightedRange parsed = ReadMultiwayPlayer(box.text);
    if (!parsed.ok()) {
      ColourPlayer(r);
      services->MsgBox(name + " is invalid: " + parsed.error->message + ". Valid Eg: AhAd or QQ+, AKs");
      return;
    }
    if (parsed.weights.Empty()) {
      services->MsgBox(name + " holds no hand: every weight is 0");
      return;
    }
    players.push_back(parsed.weights);
  }
  std::vector<Card> board;
  if (std::string fault = ReadMultiwayBoard(txtBoard.text, board); !fault.empty()) {
    services->MsgBox(fault);
    return;
  }
  uint64_t boardBits = 0;
  for (const Card& card : board) boardBits |= MultiwayCardBit(card);

  auto run = std::make_unique<Run>();
  run->board = txtBoard.text;
  std::vector<std::vector<int>> live(players.size());
  double product = 1;
  uint64_t needed = 0;  // cards some player holds in each of its live holdings
  for (int p = 0; p < count; ++p) {
    int64_t weightSum = 0;
    uint64_t common = ~uint64_t{0};
    for (int number = 0; number < kHoldingCount; ++number) {
      const int weight = players[p].Weight(number);
      if (weight == 0) continue;
      const auto cards = CardsOfHolding(number);
      const uint64_t bits = MultiwayCardBit(cards[0]) | MultiwayCardBit(cards[1]);
      if ((bits & boardBits) != 0) continue;
      live[p].push_back(number);
      weightSum += weight;
      common &= bits;
    }
    if (live[p].empty()) {
      services->MsgBox("Player " + std::to_string(p + 1) +
                       " has no hand left: each of its hands holds a card of the board");
      return;
    }
    needed |= common;
    product *= static_cast<double>(live[p].size());
    run->texts.push_back(txtPlayer[p].text);
    run->liveCombos.push_back(CombosText(weightSum));
  }
  // The boards as the core counts them, to guess its choice and the length of an exact count.
  const int coming = 5 - static_cast<int>(board.size());
  double boards = 1;
  const int left = kMultiwayDeckSize - std::popcount(boardBits | needed);
  for (int i = 0; i < coming; ++i) boards = boards * (left - i) / (i + 1);
  run->exactExpected =
      options.method == MultiwayMethod::Exact ||
      (options.method == MultiwayMethod::Automatic && boards * product <= kMultiwayExactBudget);
  if (run->exactExpected) {
    run->dealsExpected =
        GuessMultiwayExactDeals(live, boardBits, boardBits | needed, coming, boards * product);
  }
  run->targetError = options.targetError;
  run->seconds = options.seconds;

  results.clear();
  resultsBoard.clear();
  resultsMethod.clear();
  progressValue = 0;
  lblStatus = run->exactExpected ? "Counting every deal..." : "Sampling deals...";
  run->thread = std::jthread([shared = run->shared, players = std::move(players), board = std::move(board),
                              options = options](std::stop_token stop) {
    MultiwayCallbacks callbacks;
    callbacks.progress = [&shared](uint64_t deals, double standardError) {
      shared->deals.store(deals);
      shared->standardError.store(standardError);
    };
    callbacks.cancel = [&stop] { return stop.stop_requested(); };
    shared->result = MultiwayEquity(players, board, {}, options, callbacks);
    shared->finished.store(true, std::memory_order_release);
  });
  runs_.Start(std::move(run));
}

void MultiwayModel::cmdStop_Click() {
  if (!runs_.Stop()) return;
  progressValue = 0;
  lblStatus = "Stopped.";
}

void MultiwayModel::tmrProgress_Timer() {
  if (std::unique_ptr<Run> finished = runs_.TakeFinished()) {
    EndRun(*finished);
    return;
  }
  if (!Running()) return;
  const Run& current = runs_.Current();
  const MultiwayShared& shared = *current.shared;
  const uint64_t deals = shared.deals.load();
  const double error = shared.standardError.load();
  double share = 0;
  if (error > 0) {
    // The standard error falls as one over the square root of the deals: the share of the deals needed so
    // far, or of the time limit, whichever is further.
    share = std::min(1.0, (current.targetError / error) * (current.targetError / error));
    if (current.seconds > 0) {
      const double elapsed =
          std::chrono::duration<double>(std::chrono::steady_clock::now() - current.start).count();
      share = std::max(share, std::min(1.0, elapsed / current.seconds));
    }
    lblStatus = "Monte Carlo: " + std::to_string(deals) + " deals, largest standard error " +
                MultiwayFixed(error, 2) + " points...";
  } else {
    if (current.dealsExpected > 0) share = static_cast<double>(deals) / current.dealsExpected;
    lblStatus = "Exact: " + std::to_string(deals) + " deals counted...";
  }
  // The bar stays short of full until the results are in.
  progressValue = std::clamp(static_cast<int>(share * kMultiwayProgressMax), 0, kMultiwayProgressMax - 1);
}

void MultiwayModel::EndRun(const Run& run) {
  const MultiwayResult& result = run.shared->result;
  progressValue = 0;
  lblStatus.clear();
  if (result.cancelled) return;
  if (!result.error.empty()) {
    services->MsgBox(MultiwayFirstUpper(result.error));
    return;
  }
  const std::string beside = result.exact ? " exact" : " \u00B1 " + MultiwayFixed(result.standardError, 2);
  for (std::size_t p = 0; p < result.players.size(); ++p) {
    const MultiwayPlayerResult& player = result.players[p];
    results.push_back({"Player " + std::to_string(p + 1), run.texts[p],
                       MultiwayPercent(player.equity) + beside, MultiwayPercent(player.win),
                       MultiwayPercent(player.tie), run.liveCombos[p]});
  }
  resultsBoard = run.board;
  resultsMethod = result.exact
                      ? "Exact: " + std::to_string(result.deals) + " deals"
                      : "Monte Carlo: " + std::to_string(result.deals) + " deals, largest standard error " +
                            MultiwayFixed(result.standardError, 2) + " points";
  progressValue = kMultiwayProgressMax;
  lblStatus = resultsMethod;
}

void MultiwayModel::cmdCopy_Click() {
  if (results.empty()) return;
  services->SetClipboardText(CopyText());
}

std::string MultiwayModel::CopyText() const {
  if (results.empty()) return {};
  std::string text = "Multiway equity, ";
  text += resultsBoard.empty() ? std::string("no board") : "board " + resultsBoard;
  text += kMultiwayLineEnd;
  text += "Player\tEquity\tWin\tTie\tLive combos\tHand or range";
  text += kMultiwayLineEnd;
  for (const MultiwayTableRow& row : results) {
    text += row.player + "\t" + row.equity + "\t" + row.win + "\t" + row.tie + "\t" + row.liveCombos + "\t" +
            row.text;
    text += kMultiwayLineEnd;
  }
  text += resultsMethod;
  text += kMultiwayLineEnd;
  return text;
}

std::string MultiwayModel::ToolTip(std::string_view control) {
  if (control == "txtPlayer") {
    return "A player's hand (AhAd) or range in notation (QQ+, AKs, AQs:0.5); Enter calculates";
  }
  if (control == "txtBoard") return "The board: none, or three to five cards typed as Tc8h3s";
  if (control == "cmdRemovePlayer") return "Take this player away (two players stay at least)";
  if (control == "cmdAddPlayer") return "Add a player with an empty box (up to ten players)";
  if (control == "cmdFromMainWindow") {
    return "Put My Hand in the first box, the opponent's range in the second and the main window's board "
           "in the board box";
  }
  if (control == "cmdCalculate") {
    return "Calculate every player's equity (Enter): exact when it is quick enough, else by sampling deals";
  }
  if (control == "cmdStop") return "Stop the calculation at once";
  if (control == "cmdCopy") return "Copy the results table to the clipboard as text";
  if (control == "prgProgress") return "How far the calculation has come";
  if (control == "grdResults") {
    return "Each player's equity (its share of the pots, ties split), wins alone, ties and live combos; "
           "'exact' when every deal was counted, else the standard error in points";
  }
  return {};
}

std::vector<PreferenceRecord> MultiwayModel::PreferenceRecords() const {
  std::vector<PreferenceRecord> records;
  if (!used) return records;
  if (place) {
    records.push_back({std::string(kMultiwayWindowKey),
                       std::to_string(place->left) + "," + std::to_string(place->top) + "," +
                           std::to_string(place->width) + "," + std::to_string(place->height)});
  }
  // A text is kept on one line, and as long as My Hand's.
  const auto kept = [](std::string text) {
    std::replace(text.begin(), text.end(), '\r', ' ');
    std::replace(text.begin(), text.end(), '\n', ' ');
    return Utf8Prefix(text, kLongestMyHandText);
  };
  if (openedBefore) {
    for (std::size_t r = 0; r < txtPlayer.size(); ++r) {
      records.push_back({std::string(kMultiwayPlayerKey) + std::to_string(r + 1), kept(txtPlayer[r].text)});
    }
    records.push_back({std::string(kMultiwayBoardKey), kept(txtBoard.text)});
  } else {
    for (std::size_t r = 0; r < savedPlayers.size(); ++r) {
      if (savedPlayers[r]) {
        records.push_back({std::string(kMultiwayPlayerKey) + std::to_string(r + 1), kept(*savedPlayers[r])});
      }
    }
    if (savedBoard) records.push_back({std::string(kMultiwayBoardKey), kept(*savedBoard)});
  }
  return records;
}

bool MultiwayModel::ApplyPreference(const std::string& key, const std::string& value) {
  if (key == kMultiwayWindowKey) {
    used = true;
    MultiwayPlace where;
    if (std::sscanf(value.c_str(), "%d,%d,%d,%d", &where.left, &where.top, &where.width, &where.height) ==
            4 &&
        where.width > 0 && where.height > 0) {
      place = where;
    }
    return true;
  }
  if (key == kMultiwayBoardKey) {
    used = true;
    savedBoard = Utf8Prefix(value, kLongestMyHandText);
    return true;
  }
  if (key.starts_with(kMultiwayPlayerKey)) {
    const std::string number = key.substr(kMultiwayPlayerKey.size());
    if (number.empty() || number.size() > 2 ||
        !std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; })) {
      return false;
    }
    const int row = std::stoi(number);
    if (row < 1 || row > kMultiwayMostRows) return false;
    used = true;
    if (savedPlayers.size() < static_cast<std::size_t>(row))
      savedPlayers.resize(static_cast<std::size_t>(row));
    savedPlayers[row - 1] = Utf8Prefix(value, kLongestMyHandText);
    return true;
  }
  return false;
}

}  // namespace quillet

namespace quillet {

void Form1Model::mnuMultiwayEquity_Click() {
  frmMultiway.Form_Open();
}

}  // namespace quillet
