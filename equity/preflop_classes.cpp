#include "equity/preflop_classes.h"

#include <algorithm>

#include "equity/deck.h"
#include "equity/embedded_tables.h"
#include "equity/preflop_class_file.h"

namespace quillet {
namespace {

constexpr int32_t kSuitRenamings = 24;

// Each holding written as high << 6 | low of its deck places under each renaming of the suits, the
// renamings in lexicographic order of (new name of suit 0, of suit 1, ...).
using RenamedHoldings = std::array<std::array<uint16_t, kHoldingCount>, kSuitRenamings>;

RenamedHoldings BuildRenamedHoldings() {
  RenamedHoldings renamed{};
  std::array<int32_t, 4> perm = {0, 1, 2, 3};
  int n = 0;
  do {
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      const auto cards = HoldingCards(h);
      const int32_t x = perm[cards[0].suit] * 13 + cards[0].rank - 2;
      const int32_t y = perm[cards[1].suit] * 13 + cards[1].rank - 2;
      renamed[n][h] = static_cast<uint16_t>(x > y ? x << 6 | y : y << 6 | x);
    }
    ++n;
  } while (std::next_permutation(perm.begin(), perm.end()));
  return renamed;
}

const RenamedHoldings& Renamed() {
  static const RenamedHoldings renamed = BuildRenamedHoldings();
  return renamed;
}

bool RealCard(Card c) {
  return c.rank >= 2 && c.rank <= 14 && c.suit >= 0 && c.suit <= 3;
}

bool RealHolding(Card c1, Card c2) {
  return RealCard(c1) && RealCard(c2) && !(c1 == c2);
}

std::string MatchupText(int32_t a, int32_t b) {
  const auto ca = HoldingCards(a);
  const auto cb = HoldingCards(b);
  return CardToText(ca[0]) + CardToText(ca[1]) + " v " + CardToText(cb[0]) + CardToText(cb[1]);
}

}  // namespace

std::array<Card, 2> HoldingCards(int32_t holding) {
  // high x (high - 1) / 2 <= holding: the largest such high.
  int32_t high = 1;
  while ((high + 1) * high / 2 <= holding) ++high;
  return {DeckCard(high), DeckCard(holding - high * (high - 1) / 2)};
}

bool HoldingsOverlap(int32_t a, int32_t b) {
  const auto ca = HoldingCards(a);
  const auto cb = HoldingCards(b);
  return ca[0] == cb[0] || ca[0] == cb[1] || ca[1] == cb[0] || ca[1] == cb[1];
}

MatchupClassCode ClassCodeOf(int32_t holding, int32_t opponent) {
  MatchupClassCode best{UINT32_MAX, false};
  for (const auto& renamed : Renamed()) {
    const uint32_t a = renamed[holding];
    const uint32_t b = renamed[opponent];
    if ((a << 12 | b) < best.code) best = {a << 12 | b, false};
    if ((b << 12 | a) < best.code) best = {b << 12 | a, true};
  }
  return best;
}

std::array<int32_t, 2> ClassCodeHoldings(uint32_t code) {
  const auto holding = [](uint32_t h) {
    return HoldingIndex(DeckCard(static_cast<int32_t>(h >> 6 & 63)), DeckCard(static_cast<int32_t>(h & 63)));
  };
  return {holding(code >> 12 & 0xFFF), holding(code & 0xFFF)};
}

std::vector<uint32_t> AllMatchupClassCodes() {
  std::vector<uint32_t> codes;
  codes.reserve(kHoldingCount * (kHoldingCount - 1) / 2);
  for (int32_t a = 0; a < kHoldingCount; ++a) {
    for (int32_t b = a + 1; b < kHoldingCount; ++b) {
      if (!HoldingsOverlap(a, b)) codes.push_back(ClassCodeOf(a, b).code);
    }
  }
  std::sort(codes.begin(), codes.end());
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  return codes;
}

PreflopClassTableOrError PreflopClassTable::Build(std::vector<MatchupClassRecord> records) {
  const std::size_t n = records.size();
  for (std::size_t i = 0; i < n; ++i) {
    const MatchupClassRecord& r = records[i];
    if (i > 0 && r.code <= records[i - 1].code) {
      return {std::nullopt, "its class codes are not in ascending order at class " + std::to_string(i)};
    }
    if (uint64_t{r.wins} + r.ties + r.losses != kPreflopBoardCount) {
      return {std::nullopt, "class " + std::to_string(i) + " counts " +
                                std::to_string(uint64_t{r.wins} + r.ties + r.losses) +
                                " showdowns, not one for each of the " + std::to_string(kPreflopBoardCount) +
                                " boards"};
    }
  }

  PreflopClassTable t;
  t.oriented_.reserve(2 * n + 1);
  for (const MatchupClassRecord& r : records) {
    t.oriented_.push_back({r.wins, r.ties, r.losses});
    t.oriented_.push_back({r.losses, r.ties, r.wins});
  }
  const uint32_t none = static_cast<uint32_t>(2 * n);
  t.oriented_.push_back({0, 0, 0});
  t.refs_.assign(static_cast<std::size_t>(kHoldingCount) * kHoldingCount, none);

  // Codes sorted, so those of one first holding lie together: where each first holding's run starts.
  std::vector<uint32_t> codes(n);
  for (std::size_t i = 0; i < n; ++i) codes[i] = records[i].code;
  std::vector<uint32_t> runStart(4097, 0);
  for (uint32_t first = 0, i = 0; first <= 4096; ++first) {
    while (i < n && (codes[i] >> 12) < first) ++i;
    runStart[first] = i;
  }

  std::vector<bool> used(n, false);
  for (int32_t a = 0; a < kHoldingCount; ++a) {
    for (int32_t b = a + 1; b < kHoldingCount; ++b) {
      if (HoldingsOverlap(a, b)) continue;
      const MatchupClassCode c = ClassCodeOf(a, b);
      const auto begin = codes.begin() + runStart[c.code >> 12];
      const auto end = codes.begin() + runStart[(c.code >> 12) + 1];
      const auto it = std::lower_bound(begin, end, c.code);
      if (it == end || *it != c.code) {
        return {std::nullopt, "it has no class for the matchup " + MatchupText(a, b)};
      }
      const uint32_t index = static_cast<uint32_t>(it - codes.begin());
      used[index] = true;
      t.refs_[static_cast<std::size_t>(a) * kHoldingCount + b] = 2 * index + (c.reversed ? 1 : 0);
      t.refs_[static_cast<std::size_t>(b) * kHoldingCount + a] = 2 * index + (c.reversed ? 0 : 1);
    }
  }
  for (std::size_t i = 0; i < n; ++i) {
    if (!used[i]) return {std::nullopt, "its class " + std::to_string(i) + " is no matchup's class"};
  }
  t.records_ = std::move(records);
  return {std::move(t), {}};
}

PreflopClassTable::ClassRef PreflopClassTable::ClassOf(int32_t holding, int32_t opponent) const {
  const uint32_t ref = refs_[static_cast<std::size_t>(holding) * kHoldingCount + opponent];
  if (ref == 2 * records_.size()) return {};
  return {static_cast<int32_t>(ref / 2), (ref & 1) != 0};
}

ShowdownTally PreflopClassTable::Matchup(Card h1, Card h2, Card o1, Card o2) const {
  if (!RealHolding(h1, h2) || !RealHolding(o1, o2)) return {};
  return Matchup(HoldingIndex(h1, h2), HoldingIndex(o1, o2));
}

ShowdownTally PreflopClassTable::TallyAgainst(Card h1, Card h2, std::span<const HandCombo> holdings) const {
  if (!RealHolding(h1, h2)) return {};
  // My Hand's row of the matchup table; a holding that shares a card with My Hand reads the all-zero entry.
  const uint32_t* row = refs_.data() + static_cast<std::size_t>(HoldingIndex(h1, h2)) * kHoldingCount;
  uint64_t wins = 0;
  uint64_t ties = 0;
  uint64_t losses = 0;
  for (const HandCombo& h : holdings) {
    if (!h.flag || !RealHolding(h.card1(), h.card2())) continue;
    const Counts& c = oriented_[row[HoldingIndex(h.card1(), h.card2())]];
    wins += c[0];
    ties += c[1];
    losses += c[2];
  }
  return {wins, ties, losses};
}

PreflopClassTableOrError LoadPreflopClassTable() {
  const std::span<const unsigned char> bytes = EmbeddedClassTableBytes();
  if (bytes.empty()) return {std::nullopt, "The preflop class table was not built into this program."};
  return ParseClassTable(bytes);
}

const PreflopClassTableOrError& ProgramPreflopClassTable() {
  static const PreflopClassTableOrError table = LoadPreflopClassTable();
  return table;
}

ShowdownTally StandardPreflopTally(const HandCards& hand, std::span<const HandCombo> holdings) {
  const PreflopClassTableOrError& loaded = ProgramPreflopClassTable();
  if (!loaded.ok()) return {};
  return loaded.table->TallyAgainst(hand.card1(), hand.card2(), holdings);
}

}  // namespace quillet
