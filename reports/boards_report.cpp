#include "reports/boards_report.h"

#include <algorithm>
#include <atomic>
#include <thread>
#include <unordered_map>

#include "cards/holding.h"
#include "equity/deck.h"
#include "equity/engine.h"
#include "equity/enumeration.h"
#include "equity/range_equity.h"
#include "equity/standard_equity.h"
#include "equity/worker_threads.h"
#include "reports/flop_sweep.h"

namespace quillet {
namespace {

using SuitPermutation = SuitChange;

std::vector<SuitPermutation> EverySuitPermutation() {
  std::vector<SuitPermutation> all;
  SuitPermutation p = {0, 1, 2, 3};
  do {
    all.push_back(p);
  } while (std::next_permutation(p.begin(), p.end()));
  return all;
}

Card PermutedCard(Card card, const SuitPermutation& p) {
  return {card.rank, p[card.suit]};
}

// The weight of every holding of a list (a holding listed twice weighs twice), 0 where it is not listed.
using HoldingWeights = std::array<int64_t, kHoldingCount>;

HoldingWeights WeightsOfList(std::span<const HandCombo> combos) {
  HoldingWeights weights{};
  for (const HandCombo& combo : combos) {
    if (combo.flag && IsHolding(combo.card1(), combo.card2()))
      weights[HoldingNumber(combo.card1(), combo.card2())] += combo.weight;
  }
  return weights;
}

bool KeepsWeights(const HoldingWeights& weights, const SuitPermutation& p) {
  for (int32_t number = 0; number < kHoldingCount; ++number) {
    if (weights[number] == 0) continue;
    const auto cards = CardsOfHolding(number);
    if (weights[HoldingNumber(PermutedCard(cards[0], p), PermutedCard(cards[1], p))] != weights[number])
      return false;
  }
  return true;
}

// Cards in the order the report writes them: rank high to low, then spades, hearts, diamonds, clubs.
// The code (0..51) orders them; a board's key is its new cards' codes in that order, six bits each.
int32_t ReportCardCode(Card card) {
  return (14 - card.rank) * 4 + (3 - card.suit);
}
Card CardOfReportCode(int32_t code) {
  return {14 - code / 4, 3 - code % 4};
}
int32_t KeyOfCodes(std::array<int32_t, 3> codes, int count) {
  for (int i = 1; i < count; ++i) {
    for (int j = i; j > 0 && codes[j - 1] > codes[j]; --j) std::swap(codes[j - 1], codes[j]);
  }
  int32_t key = 0;
  for (int i = 0; i < count; ++i) key = key * 64 + codes[i];
  return key;
}

// The smallest key of the board's new cards under the permutations: one key per family of boards.
int32_t FamilyKey(std::span<const Card> newCards, const std::vector<SuitPermutation>& symmetries) {
  int32_t best = -1;
  const int count = static_cast<int>(newCards.size());
  for (const SuitPermutation& p : symmetries) {
    std::array<int32_t, 3> codes{};
    for (int i = 0; i < count; ++i) codes[i] = ReportCardCode(PermutedCard(newCards[i], p));
    const int32_t key = KeyOfCodes(codes, count);
    if (best < 0 || key < best) best = key;
  }
  return best;
}

// The program's own rules count showdowns (ShowdownCounts) at the scale the count says: whole showdowns, or
// thousandths of one where some holding's weight is below whole.
ShowdownTally TallyOfCounts(const ShowdownCounts& counts) {
  ShowdownTally tally;
  tally.wins = static_cast<uint64_t>(counts.myWins);
  tally.ties = static_cast<uint64_t>(counts.ties);
  tally.losses = static_cast<uint64_t>(counts.oppWins);
  tally.scale = static_cast<uint64_t>(std::max<int64_t>(counts.scale, 1));
  return tally;
}

// One board to count and what it gives.
struct BoardJob {
  BoardCards board;
  ShowdownTally tally;
  int64_t oppCombos = 0;
  std::array<int64_t, kRangeGroupCount> groups{};
};

// What each worker thread keeps between boards.
class BoardCounter {
 public:
  BoardCounter(const BoardsReportRequest& request, Street rowStreet, const std::vector<ShowdownTally>& flops)
      : request_(request),
        rowStreet_(rowStreet),
        flops_(flops),
        live_(request.oppRange),
        byHolding_(request.oppRange.size()) {}

  void Count(BoardJob& job) {
    const BoardCards& board = job.board;
    const int known = BoardCardCount(rowStreet_);
    uint64_t dead = 0;
    for (int i = 0; i < known; ++i) dead |= uint64_t{1} << DeckIndex(board[i]);
    if (request_.hand) {
      dead |= uint64_t{1} << DeckIndex(request_.hand->card1());
      dead |= uint64_t{1} << DeckIndex(request_.hand->card2());
    }
    if (!flops_.empty()) {
      std::array<int32_t, 3> d = {DeckIndex(board[0]), DeckIndex(board[1]), DeckIndex(board[2])};
      std::sort(d.begin(), d.end());
      job.tally = flops_[FlopNumber(d[0], d[1], d[2])];
    } else if (!request_.hand) {
      job.tally = StandardRangeEquity(request_.myRange, request_.oppRange, board, rowStreet_).tally;
    } else if (request_.rules == ShowdownRules::Standard) {
      job.tally = StandardShowdownTally(*request_.hand, board, rowStreet_, request_.oppRange);
    } else {
      live_ = request_.oppRange;
      RemoveDeadCombos(live_, *request_.hand, board, rowStreet_);
      if (rowStreet_ == kRiver) {
        CountShowdownsByHolding(*request_.hand, board, rowStreet_, live_, byHolding_);
        ShowdownCounts sum;
        for (const ShowdownCounts& c : byHolding_) {
          sum.total += c.total;
          sum.myWins += c.myWins;
          sum.oppWins += c.oppWins;
          sum.ties += c.ties;
          sum.scale = std::max(sum.scale, c.scale);  // every holding's count is at the list's one scale
        }
        job.tally = TallyOfCounts(sum);
      } else {
        job.tally = TallyOfCounts(CountShowdowns(*request_.hand, board, rowStreet_, live_));
      }
    }
    // The groups by rank pair depend on the board's ranks in their places: worked out once for each.
    int32_t rankKey = 0;
    for (int i = 0; i < known; ++i) rankKey = rankKey * 16 + board[i].rank;
    auto found = byRanks_.find(rankKey);
    if (found == byRanks_.end()) found = byRanks_.emplace(rankKey, GroupsByRanks(board, rowStreet_)).first;
    const RangeGroupReader groups(board, rowStreet_, found->second);
    for (const HandCombo& combo : request_.oppRange) {
      if (!combo.flag || !IsHolding(combo.card1(), combo.card2())) continue;
      const uint64_t cards =
          (uint64_t{1} << DeckIndex(combo.card1())) | (uint64_t{1} << DeckIndex(combo.card2()));
      if ((cards & dead) != 0) continue;
      job.oppCombos += combo.weight;
      job.groups[groups.GroupOf(combo.card1(), combo.card2())] += combo.weight;
    }
  }

 private:
  const BoardsReportRequest& request_;
  Street rowStreet_;
  const std::vector<ShowdownTally>& flops_;  // every flop's tally counted at once, when it was
  std::vector<HandCombo> live_;
  std::vector<ShowdownCounts> byHolding_;
  std::unordered_map<int32_t, RankPairGroups> byRanks_;
};

std::string CheckRequest(const BoardsReportRequest& request) {
  if (request.street != kNoBoard && request.street != kFlop && request.street != kTurn)
    return "the board so far must be empty, a flop or a turn";
  uint64_t seen = 0;
  const auto add = [&seen](Card card) {
    if (!IsDeckCard(card)) return false;
    const uint64_t bit = uint64_t{1} << DeckIndex(card);
    if ((seen & bit) != 0) return false;
    seen |= bit;
    return true;
  };
  for (int i = 0; i < BoardCardCount(request.street); ++i) {
    if (!add(request.board[i])) return "the board has a card twice or a card outside the deck";
  }
  if (request.hand) {
    if (!add(request.hand->card1()) || !add(request.hand->card2()))
      return "my hand has a card twice, a card of the board or a card outside the deck";
  } else if (request.rules != ShowdownRules::Standard) {
    return "a range of mine is counted under the standard rules only";
  }
  return {};
}

std::optional<ShowdownTally> BoardSoFarTally(const BoardsReportRequest& request) {
  if (!request.hand) {
    const RangeEquityResult result =
        StandardRangeEquity(request.myRange, request.oppRange, request.board, request.street);
    if (!result.ok()) return std::nullopt;
    return result.tally;
  }
  std::vector<HandCombo> live = request.oppRange;
  RemoveDeadCombos(live, *request.hand, request.board, request.street);
  if (request.rules == ShowdownRules::Standard)
    return StandardEquityTally(*request.hand, request.board, request.street, live);
  if (request.street == kNoBoard) return std::nullopt;
  return TallyOfCounts(CountShowdowns(*request.hand, request.board, request.street, live));
}

}  // namespace

std::vector<FlopFamily> SuitDistinctFlops() {
  const std::vector<SuitPermutation> every = EverySuitPermutation();
  std::vector<FlopFamily> families;
  std::vector<int32_t> familyOfKey(64 * 64 * 64, -1);
  for (int32_t i = 0; i < kDeckSize; ++i) {
    for (int32_t j = i + 1; j < kDeckSize; ++j) {
      for (int32_t k = j + 1; k < kDeckSize; ++k) {
        const std::array<Card, 3> flop = {CardOfReportCode(i), CardOfReportCode(j), CardOfReportCode(k)};
        int32_t& family = familyOfKey[FamilyKey(flop, every)];
        if (family < 0) {
          family = static_cast<int32_t>(families.size());
          families.push_back({flop, 0});
        }
        ++families[family].weight;
      }
    }
  }
  return families;
}

std::optional<double> EquityOfShowdowns(double wins, double ties, double losses, ShowdownRules rules) {
  const double total = wins + ties + losses;
  if (total <= 0) return std::nullopt;
  if (rules == ShowdownRules::Standard) return 100.0 * (wins + 0.5 * ties) / total;
  if (wins + losses <= 0) return 50.0;
  return 100.0 * wins / (wins + losses);
}

std::string BoardText(std::span<const Card> board) {
  std::string text;
  for (const Card& card : board) text += CardToText(card);
  return text;
}

BoardsAggregate AggregateRows(std::span<const BoardsReportRow> rows, const BoardFilter& filter) {
  BoardsAggregate aggregate;
  // Rows counted in different units (whole showdowns on one board, thousandths on another) are added in
  // the finest of them.
  for (const BoardsReportRow& row : rows) {
    if (filter.Keeps(row.texture))
      aggregate.scale = std::max<uint64_t>({aggregate.scale, row.tally.scale, 1});
  }
  unsigned __int128 wins = 0;
  unsigned __int128 ties = 0;
  unsigned __int128 losses = 0;
  for (const BoardsReportRow& row : rows) {
    if (!filter.Keeps(row.texture)) continue;
    ++aggregate.rows;
    aggregate.boards += row.weight;
    const auto times = static_cast<unsigned __int128>(row.weight) *
                       (aggregate.scale / std::max<uint64_t>(row.tally.scale, 1));
    wins += times * row.tally.wins;
    ties += times * row.tally.ties;
    losses += times * row.tally.losses;
  }
  aggregate.wins = static_cast<double>(wins);
  aggregate.ties = static_cast<double>(ties);
  aggregate.losses = static_cast<double>(losses);
  return aggregate;
}

BoardsReport MakeBoardsReport(const BoardsReportRequest& request, const BoardsReportCallbacks& callbacks) {
  BoardsReport report;
  report.rules = request.hand ? request.rules : ShowdownRules::Standard;
  report.rowStreet = NextStreet(request.street);
  report.error = CheckRequest(request);
  if (!report.error.empty()) return report;

  // The changes of suits that leave my side, the opponent's range and the board so far as they are.
  const HoldingWeights opp = WeightsOfList(request.oppRange);
  HoldingWeights mine{};
  if (request.hand) {
    mine[HoldingNumber(request.hand->card1(), request.hand->card2())] = kFullWeight;
  } else {
    mine = WeightsOfList(request.myRange);
  }
  const int known = BoardCardCount(request.street);
  uint64_t boardBits = 0;
  for (int i = 0; i < known; ++i) boardBits |= uint64_t{1} << DeckIndex(request.board[i]);
  std::vector<SuitPermutation> symmetries;
  for (const SuitPermutation& p : EverySuitPermutation()) {
    uint64_t moved = 0;
    for (int i = 0; i < known; ++i) moved |= uint64_t{1} << DeckIndex(PermutedCard(request.board[i], p));
    if (moved == boardBits && KeepsWeights(opp, p) && KeepsWeights(mine, p)) symmetries.push_back(p);
  }
  if (!request.groupBySuits) symmetries.assign(1, SuitPermutation{0, 1, 2, 3});
  report.suitClasses = request.street == kNoBoard && !request.hand && symmetries.size() == 24;

  // The cards left for the rows' boards, in the order the report writes them.
  uint64_t dead = boardBits;
  if (request.hand) {
    dead |= uint64_t{1} << DeckIndex(request.hand->card1());
    dead |= uint64_t{1} << DeckIndex(request.hand->card2());
  }
  std::vector<Card> left;
  for (int32_t code = 0; code < kDeckSize; ++code) {
    const Card card = CardOfReportCode(code);
    if ((dead >> DeckIndex(card) & 1) == 0) left.push_back(card);
  }

  // Every board of the next street, each given to the job of its family.
  std::vector<BoardJob> jobs;
  std::vector<int32_t> jobOfKey(64 * 64 * 64, -1);
  std::vector<int32_t> rowJob;
  std::vector<int64_t> jobBoards;
  const auto addBoard = [&](std::span<const Card> newCards) {
    BoardsReportRow row;
    for (int i = 0; i < known; ++i) row.cards[i] = request.board[i];
    for (std::size_t i = 0; i < newCards.size(); ++i) row.cards[known + i] = newCards[i];
    row.cardCount = known + static_cast<int32_t>(newCards.size());
    row.texture = TextureOf(row.Board());
    if (!request.filter.Keeps(row.texture)) return;
    const int32_t key = FamilyKey(newCards, symmetries);
    int32_t& job = jobOfKey[key];
    if (job < 0) {
      job = static_cast<int32_t>(jobs.size());
      BoardJob fresh;
      for (int i = 0; i < row.cardCount; ++i) fresh.board[i] = row.cards[i];
      for (int i = row.cardCount; i < 5; ++i) fresh.board[i] = Card{row.cards[0].rank, kNoCard};
      jobs.push_back(fresh);
      jobBoards.push_back(0);
      if (report.suitClasses) report.rows.push_back(row);
    }
    ++jobBoards[job];
    if (!report.suitClasses) {
      report.rows.push_back(row);
      rowJob.push_back(job);
    }
  };
  const int count = static_cast<int>(left.size());
  if (request.street == kNoBoard) {
    for (int i = 0; i < count; ++i) {
      for (int j = i + 1; j < count; ++j) {
        for (int k = j + 1; k < count; ++k) {
          const std::array<Card, 3> flop = {left[i], left[j], left[k]};
          addBoard(flop);
        }
      }
    }
  } else {
    for (int i = 0; i < count; ++i) addBoard(std::span<const Card>(&left[i], 1));
  }
  report.countedBoards = static_cast<int32_t>(jobs.size());

  report.boardSoFar = BoardSoFarTally(request);

  // The jobs shared out to the workers; this thread reports progress and passes on a stop.
  const int total = static_cast<int>(jobs.size());
  int threads = request.threads > 0 ? request.threads
                                    : static_cast<int>(std::max(1u, std::thread::hardware_concurrency()));
  threads = std::max(1, std::min(threads, total));
  std::atomic<int> next{0};
  std::atomic<int> done{0};
  std::atomic<bool> stop{false};
  // My hand on every flop under the standard rules: every flop's tally in one sweep of the boards.
  // Progress counts the boards of the rows once, and the sweep, where there is one, as much again first.
  std::vector<ShowdownTally> flops;
  const bool sweep =
      total > 0 && request.hand && request.rules == ShowdownRules::Standard && request.street == kNoBoard;
  const int32_t steps = sweep ? 2 * total : total;
  const int32_t offset = sweep ? total : 0;
  if (sweep) {
    constexpr double kFiveCardBoards = 2118760.0;  // C(50, 5)
    const auto told = [&](int64_t boards) {
      if (callbacks.progress)
        callbacks.progress(static_cast<int32_t>(static_cast<double>(total) * boards / kFiveCardBoards),
                           steps);
    };
    flops = StandardTallyOfEveryFlop(*request.hand, request.oppRange, symmetries, threads, told,
                                     callbacks.cancel);
    if (flops.empty()) {
      report.cancelled = true;
      return report;
    }
  }
  if (total > 0) {
    RunOnWorkerThreads(
        threads,
        [&](int) {
          BoardCounter counter(request, report.rowStreet, flops);
          for (;;) {
            if (stop.load(std::memory_order_relaxed)) break;
            const int index = next.fetch_add(1);
            if (index >= total) break;
            counter.Count(jobs[index]);
            ++done;
          }
        },
        [&] {
          if (callbacks.progress) callbacks.progress(offset + done.load(), steps);
          if (!(callbacks.cancel && callbacks.cancel())) return true;
          stop = true;
          report.cancelled = true;
          return false;
        });
  }
  if (report.cancelled) return report;
  if (callbacks.progress) callbacks.progress(steps, steps);

  // Each row takes its family's counts.
  for (std::size_t r = 0; r < report.rows.size(); ++r) {
    const std::size_t j = report.suitClasses ? r : static_cast<std::size_t>(rowJob[r]);
    BoardsReportRow& row = report.rows[r];
    row.tally = jobs[j].tally;
    row.oppCombos = jobs[j].oppCombos;
    row.groups = jobs[j].groups;
    if (report.suitClasses) row.weight = jobBoards[j];
  }
  return report;
}

}  // namespace quillet
