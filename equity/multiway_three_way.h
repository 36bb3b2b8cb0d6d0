// Three players' showdowns on one complete board, counted without walking pairs of holdings.
//
// On a board every live holding has one value. For player i's holding h of value v the other two players
// j and k hold pairs (a, b) of holdings that share no card with h nor with each other; player i wins alone
// when both are worth less than v, ties two ways when one is worth less and one the same, three ways when
// both are worth the same. For sets A (of j) and B (of k), the weighted count of such pairs is
//   |A'| |B'| - sum over cards c of A'_c B'_c + sum over holdings x in both of w_A(x) w_B(x)
// where A' is A less its holdings that share a card with h, A'_c the weight of A' holding card c, and the
// last sum also runs over the holdings free of h only. Each is read from running totals (per player: all,
// per card, per holding) kept while the holdings of all three players are swept in value order, a group
// of equal value at a time: the totals before a group give the pairs below v, the group's own totals the
// pairs equal to v, and the two together the pairs of one below and one equal. A side with few holdings is
// walked instead (each of its holdings against the other side's totals less the holdings sharing one of four
// cards).
//
// Players with the same weighted set share the work: the counts of one are those of the other. A board
// alike to one counted before (the same cards held by some holding, the other cards' ranks, no flush
// suit among them), or one that puts the live holdings in the same order, level where they are level,
// takes that board's sums.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "cards/card.h"
#include "cards/holding.h"
#include "equity/deck.h"
#include "equity/hand_evaluator.h"

namespace quillet {

// A holding with its weight (thousandths) for one player.
struct ThreeWayHolding {
  int32_t number = 0;  // cards/holding.h's number
  int32_t weight = 0;  // thousandths, above 0
};

// What one board gives: per player, pots won (ties split), deals won alone and deals tied, all weighted
// by the product of the three holdings' weights in thousandths (so a deal of whole holdings counts 1e9);
// `weight` is the sum of every deal's weight and `deals` the number of deals.
struct ThreeWayBoardSums {
  std::array<double, 3> equity{};
  std::array<double, 3> win{};
  std::array<double, 3> tie{};
  double weight = 0;
  uint64_t deals = 0;
};

class ThreeWayCounter {
 public:
  // Each player's live holdings (none holding a board or dead card), every weight above 0. `boards`: about
  // how many boards this counter will count, which sizes the memory of boards counted (none below 64).
  ThreeWayCounter(std::span<const std::vector<ThreeWayHolding>, 3> players, std::size_t boards);

  // Counts the deals on the complete board `boardBits` (deck bits of its five cards); the sums are
  // replaced, not added to.
  void CountBoard(uint64_t boardBits, ThreeWayBoardSums& sums);

  // Boards counted, and of them those answered from boards alike counted before.
  uint64_t BoardsCounted() const { return boardsCounted_; }
  uint64_t BoardsRecalled() const { return boardsRecalled_; }
  uint64_t OrdersRecalled() const { return ordersRecalled_; }

 private:
  // The running totals of one player's holdings taken so far. The weights are whole numbers, kept as
  // doubles (exact far beyond these sums) so that a row of 52 reads in one sweep. A side may hold only
  // its list of holdings (`full` false) while it is small: it is then walked, never read from totals.
  struct Member {
    uint64_t bits;
    uint8_t c1;
    uint8_t c2;
    double weight;
  };
  struct Side {
    double total = 0;
    int32_t count = 0;
    bool full = false;
    std::array<double, kDeckSize> card{};
    // [c1][c2]: the weight of the holding of the cards at deck places c1 and c2 when taken, else 0 (0 on
    // the diagonal).
    std::array<std::array<double, kDeckSize>, kDeckSize> holding{};
    std::vector<Member> members;  // the holdings taken
    // Lists a holding only.
    void Note(uint64_t bits, int c1, int c2, int32_t weight) {
      total += weight;
      ++count;
      members.push_back(
          {bits, static_cast<uint8_t>(c1), static_cast<uint8_t>(c2), static_cast<double>(weight)});
    }
    void Take(uint64_t bits, int c1, int c2, int32_t weight) {
      Note(bits, c1, c2, weight);
      card[c1] += weight;
      card[c2] += weight;
      holding[c1][c2] = weight;
      holding[c2][c1] = weight;
      full = true;
    }
    // The totals of the holdings listed.
    void Fill();
    void Clear();
  };
  // What two players' totals hold in common: the products of the weights of the holdings both have taken.
  struct Common {
    int64_t total = 0;
    std::array<int64_t, kDeckSize> card{};
    std::vector<uint8_t> touched;
    void Take(int c1, int c2, int64_t product) {
      total += product;
      card[c1] += product;
      card[c2] += product;
      touched.push_back(static_cast<uint8_t>(c1));
      touched.push_back(static_cast<uint8_t>(c2));
    }
    void Clear();
  };
  struct Entry {
    uint64_t bits;
    Card a;
    Card b;
    int32_t number;
    uint8_t place1;  // deck places of the two cards
    uint8_t place2;
    std::array<int32_t, 3> weight;
    uint8_t sides = 0;  // bit p: taken into representative p's totals
    uint8_t pairs = 0;  // bit q: taken into the totals in common of pair q
  };
  // The entries of one pair of ranks (high, low): without a flush they are worth the same on any board.
  struct RankSlot {
    int32_t high;
    int32_t low;
    std::vector<int32_t> entries;
  };

  // Boards alike give the same sums: a board card that no holding holds, of a suit without three cards
  // on the board, counts only by its rank. The key of a board: its other cards as they are, and how many
  // of these it holds of each rank.
  struct BoardKey {
    uint64_t exact = 0;
    uint64_t ranks = 0;  // 3 bits a rank
    friend bool operator==(const BoardKey&, const BoardKey&) = default;
  };
  struct Remembered {
    BoardKey key;
    bool used = false;
    ThreeWayBoardSums sums;
  };
  static constexpr std::size_t kMostRemembered = std::size_t{1} << 16;
  BoardKey KeyOf(uint64_t boardBits) const;
  // A board's sums depend only on its live holdings in value order and where the value changes: boards
  // with the same order share their sums too. An order is kept as its entries (bit 15 set where a new
  // value starts) in `orders_`.
  struct RememberedOrder {
    uint64_t hash = 0;
    uint32_t start = 0;
    uint32_t length = 0;
    bool used = false;
    ThreeWayBoardSums sums;
  };
  // The sums of the board whose order is in order_, from a board of the same order or counted.
  void CountOrdered(ThreeWayBoardSums& sums);
  void Sweep(ThreeWayBoardSums& sums);

  // This board's live entries as value << 11 | entry, in rising value.
  void Order(uint64_t boardBits);
  // Takes the entry into the running totals of `sides` and `both` (the representatives' sides, the pairs
  // in use).
  void Take(const Entry& e, std::array<Side, 3>& sides, std::array<Common, 3>& both, bool list) const;

  // The weighted count of pairs (a of `x`, b of `y`), a and b sharing no card with each other nor with
  // the holding of cards c1 and c2 (deck places).
  // `both` null: x and y are one side whose holdings all weigh `selfWeight`, so what they hold in common
  // is that weight times the side.
  static int64_t Pairs(const Side& x, const Side& y, const Common* both, int64_t selfWeight, int c1, int c2);
  static int64_t WalkPairs(const Side& small, const Side& other, int c1, int c2);
  static int64_t ListPairs(const Side& x, const Side& y, int c1, int c2);

  std::vector<Entry> entries_;           // the union of the players' holdings
  std::array<int, 3> representative_{};  // the first player with the same set
  // Per pair of players: what they hold in common is kept as totals of its own (a pair some representative
  // counts against, unless both players are one side of one weight throughout); else the weight.
  std::array<bool, 3> pairKept_{};
  std::array<int64_t, 3> pairSelfWeight_{};
  std::vector<RankSlot> slots_;
  std::array<std::vector<int32_t>, 4> suited_;  // per suit, the entries with both cards of it
  std::array<std::vector<int32_t>, 4> ofSuit_;  // per suit, the entries with a card of it
  std::vector<uint32_t> flushMark_;             // [entry]: the board that makes it a flush
  uint32_t boardMark_ = 0;
  std::vector<uint64_t> slotOrder_;     // value << 8 | slot
  std::vector<uint64_t> flushOrder_;    // value << 11 | entry, the flushes
  uint64_t held_ = 0;                   // the cards some holding holds
  std::vector<Remembered> remembered_;  // open addressing by the key's hash; empty when not worth it
  std::size_t rememberedCount_ = 0;
  std::vector<RememberedOrder> rememberedOrders_;  // open addressing by the order's hash
  std::size_t rememberedOrderCount_ = 0;
  std::vector<uint16_t> orders_;     // the orders kept, one after another (no more once its capacity is used)
  std::vector<uint16_t> signature_;  // this board's order
  uint64_t boardsCounted_ = 0;
  uint64_t boardsRecalled_ = 0;
  uint64_t ordersRecalled_ = 0;
  uint64_t everyPairOf_ = 0;         // the cards every player holds every pair of, when so; else 0
  uint64_t boardBits_ = 0;           // the board ordered last
  bool sameHoldings12_ = false;      // the second and third players hold the same holdings, whatever weights
  bool whole_ = true;                // every weight whole: the deals are the weight / 1e9
  std::vector<uint64_t> order_;      // value << 11 | entry, this board's live entries
  std::array<Side, 3> below_;        // the holdings worth less than the group swept
  std::array<Side, 3> group_;        // the holdings of the group swept
  std::array<Common, 3> belowBoth_;  // [pair of players: 01, 02, 12]
  std::array<Common, 3> groupBoth_;
  Common none_;  // nothing in common
};

}  // namespace quillet
