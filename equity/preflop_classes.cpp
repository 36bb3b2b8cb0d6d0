#include "equity/preflop_classes.h"

#include <algorithm>
#include <type_traits>

#include "equity/deck.h"
#include "equity/enumeration.h"

namespace quillet {
namespace {

constexpr int32_t kSuitRenamings = 24;

// Each holding under each renaming of the suits (the renamings in lexicographic order of the new names
// of suits 0, 1, 2, 3): the holding it becomes, and that holding written as high << 6 | low.
struct Renaming {
  std::array<uint16_t, kHoldingCount> holding;
  std::array<uint16_t, kHoldingCount> code;
};
using Renamings = std::array<Renaming, kSuitRenamings>;

Renamings BuildRenamings() {
  Renamings renamings{};
  std::array<int32_t, 4> perm = {0, 1, 2, 3};
  int n = 0;
  do {
    for (int32_t h = 0; h < kHoldingCount; ++h) {
      const auto cards = CardsOfHolding(h);
      const Card c1{cards[0].rank, perm[cards[0].suit]};
      const Card c2{cards[1].rank, perm[cards[1].suit]};
      const int32_t renamed = HoldingNumber(c1, c2);
      const auto places = HoldingPlaces()[renamed];
      renamings[n].holding[h] = static_cast<uint16_t>(renamed);
      renamings[n].code[h] = static_cast<uint16_t>(places[0] << 6 | places[1]);
    }
    ++n;
  } while (std::next_permutation(perm.begin(), perm.end()));
  return renamings;
}

const Renamings& AllRenamings() {
  static const Renamings renamings = BuildRenamings();
  return renamings;
}

// The holding a 12-bit half of a class code names, or -1 when it names none.
int32_t HoldingOfCode(uint32_t code) {
  const uint32_t high = code >> 6 & 63;
  const uint32_t low = code & 63;
  if (high >= 52 || low >= high) return -1;
  return static_cast<int32_t>(high * (high - 1) / 2 + low);
}

std::string MatchupText(int32_t a, int32_t b) {
  const auto ca = CardsOfHolding(a);
  const auto cb = CardsOfHolding(b);
  return CardToText(ca[0]) + CardToText(ca[1]) + " v " + CardToText(cb[0]) + CardToText(cb[1]);
}

}  // namespace

bool HoldingsOverlap(int32_t a, int32_t b) {
  const auto& places = HoldingPlaces();
  const uint64_t ma = uint64_t{1} << places[a][0] | uint64_t{1} << places[a][1];
  const uint64_t mb = uint64_t{1} << places[b][0] | uint64_t{1} << places[b][1];
  return (ma & mb) != 0;
}

MatchupClassCode ClassCodeOf(int32_t holding, int32_t opponent) {
  MatchupClassCode best{UINT32_MAX, false};
  for (const Renaming& r : AllRenamings()) {
    const uint32_t a = r.code[holding];
    const uint32_t b = r.code[opponent];
    if ((a << 12 | b) < best.code) best = {a << 12 | b, false};
    if ((b << 12 | a) < best.code) best = {b << 12 | a, true};
  }
  return best;
}

std::array<int32_t, 2> ClassCodeHoldings(uint32_t code) {
  return {HoldingOfCode(code >> 12 & 0xFFF), HoldingOfCode(code & 0xFFF)};
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
  std::vector<Counts>& oriented = t.ownOriented_;
  std::vector<uint32_t>& refs = t.ownRefs_;
  oriented.reserve(2 * n + 1);
  for (const MatchupClassRecord& r : records) {
    oriented.push_back({r.wins, r.ties, r.losses});
    oriented.push_back({r.losses, r.ties, r.wins});
  }
  const uint32_t none = static_cast<uint32_t>(2 * n);
  oriented.push_back({0, 0, 0});
  refs.assign(kMatchupRefCount, none);

  // Each class claims every matchup its own one becomes under the renamings of the suits, either way round.
  for (std::size_t i = 0; i < n; ++i) {
    const uint32_t code = records[i].code;
    const auto [first, second] = ClassCodeHoldings(code);
    if (code > 0xFFFFFF || first < 0 || second < 0 || HoldingsOverlap(first, second)) {
      return {std::nullopt, "its class " + std::to_string(i) + " names no matchup"};
    }
    if (ClassCodeOf(first, second).code != code) {
      return {std::nullopt,
              "its class " + std::to_string(i) + " is not named by the smallest code of its matchups"};
    }
    for (const Renaming& r : AllRenamings()) {
      const std::size_t a = r.holding[first];
      const std::size_t b = r.holding[second];
      refs[a * kHoldingCount + b] = static_cast<uint32_t>(2 * i);
      refs[b * kHoldingCount + a] = static_cast<uint32_t>(2 * i + 1);
    }
  }
  // Codes that are ascending and each the smallest of its class name different classes; whether they name
  // them all shows in the matchups left over.
  for (int32_t a = 0; a < kHoldingCount; ++a) {
    for (int32_t b = a + 1; b < kHoldingCount; ++b) {
      if (refs[static_cast<std::size_t>(a) * kHoldingCount + b] == none && !HoldingsOverlap(a, b)) {
        return {std::nullopt, "it has no class for the matchup " + MatchupText(a, b)};
      }
    }
  }
  t.ownRecords_ = std::move(records);
  t.records_ = t.ownRecords_;
  t.oriented_ = oriented;
  t.refs_ = refs.data();
  return {std::move(t), {}};
}

PreflopClassTableOrError PreflopClassTable::InPlace(std::span<const MatchupClassRecord> records,
                                                    std::span<const Counts> oriented,
                                                    std::span<const uint32_t> refs) {
  if (oriented.size() != 2 * records.size() + 1) {
    return {std::nullopt, "its matchup map holds " + std::to_string(oriented.size()) + " counts for " +
                              std::to_string(records.size()) + " classes"};
  }
  if (refs.size() != kMatchupRefCount) {
    return {std::nullopt, "its matchup map names " + std::to_string(refs.size()) + " matchups, not " +
                              std::to_string(kMatchupRefCount)};
  }
  PreflopClassTable t;
  t.records_ = records;
  t.oriented_ = oriented;
  t.refs_ = refs.data();
  return {std::move(t), {}};
}

PreflopClassTable::ClassRef PreflopClassTable::ClassOf(int32_t holding, int32_t opponent) const {
  const uint32_t ref = refs_[static_cast<std::size_t>(holding) * kHoldingCount + opponent];
  if (ref == 2 * records_.size()) return {};
  return {static_cast<int32_t>(ref / 2), (ref & 1) != 0};
}

ShowdownTally PreflopClassTable::Matchup(Card h1, Card h2, Card o1, Card o2) const {
  if (!IsHolding(h1, h2) || !IsHolding(o1, o2)) return {};
  return Matchup(HoldingNumber(h1, h2), HoldingNumber(o1, o2));
}

ShowdownTally PreflopClassTable::TallyAgainst(Card h1, Card h2, std::span<const HandCombo> holdings) const {
  if (!IsHolding(h1, h2)) return {};
  // My Hand's row of the matchup table; a holding that shares a card with My Hand reads the all-zero entry.
  const uint32_t* row = refs_ + static_cast<std::size_t>(HoldingNumber(h1, h2)) * kHoldingCount;
  // A list without a weight below whole is counted plainly; else each matchup counts its holding's weight
  // in thousandths (WeightUnits).
  const auto count = [&](auto anyPartial) {
    WeightUnits units;
    int64_t wins = 0;
    int64_t ties = 0;
    int64_t losses = 0;
    for (const HandCombo& h : holdings) {
      if (!h.flag || !IsHolding(h.card1(), h.card2())) continue;
      const Counts& c = oriented_.data()[row[HoldingNumber(h.card1(), h.card2())]];
      if constexpr (decltype(anyPartial)::value) {
        const int64_t w = units.Take(h);
        wins += w * c[0];
        ties += w * c[1];
        losses += w * c[2];
      } else {
        wins += c[0];
        ties += c[1];
        losses += c[2];
      }
    }
    if constexpr (!decltype(anyPartial)::value) {
      return ShowdownTally{static_cast<uint64_t>(wins), static_cast<uint64_t>(ties),
                           static_cast<uint64_t>(losses)};
    } else {
      return ShowdownTally{static_cast<uint64_t>(units.Out(wins)), static_cast<uint64_t>(units.Out(ties)),
                           static_cast<uint64_t>(units.Out(losses)), units.Scale()};
    }
  };
  for (const HandCombo& h : holdings) {
    if (h.weight != kFullWeight) return count(std::true_type{});
  }
  return count(std::false_type{});
}

}  // namespace quillet
