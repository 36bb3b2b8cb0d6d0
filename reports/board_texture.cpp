#include "reports/board_texture.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <vector>

namespace quillet {
namespace {

// Bit rank - 2 for each rank; the ace's bit is also read as a one below the two for the wheel.
constexpr uint32_t TextureRankBit(int32_t rank) {
  return uint32_t{1} << (rank - 2);
}

// Whether five ranks in a row hold three or more of `ranks` (bit rank - 2).
bool StraightPossible(uint32_t ranks) {
  // Shifted up by one so that bit 0 is the ace played low.
  const uint32_t withLowAce = (ranks << 1) | ((ranks >> 12) & 1);
  for (int low = 0; low + 5 <= 14; ++low) {
    if (std::popcount(withLowAce & (0x1Fu << low)) >= 3) return true;
  }
  return false;
}

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

int32_t FilterRank(char c) {
  const char upper = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return RankFromChar(std::string_view(&upper, 1));
}

// "A", "T-K", "k-t": the bits of the ranks named; 0 when the text is no rank or range of ranks.
uint16_t HighRanksOf(std::string_view text) {
  if (text.size() == 1) {
    const int32_t rank = FilterRank(text[0]);
    return rank == kNoCard ? 0 : static_cast<uint16_t>(TextureRankBit(rank));
  }
  if (text.size() == 3 && text[1] == '-') {
    int32_t low = FilterRank(text[0]);
    int32_t high = FilterRank(text[2]);
    if (low == kNoCard || high == kNoCard) return 0;
    if (low > high) std::swap(low, high);
    uint16_t bits = 0;
    for (int32_t rank = low; rank <= high; ++rank) bits |= static_cast<uint16_t>(TextureRankBit(rank));
    return bits;
  }
  return 0;
}

}  // namespace

BoardTexture TextureOf(std::span<const Card> board) {
  BoardTexture texture;
  std::array<int, 4> suitCounts{};
  std::array<int, 15> rankCounts{};
  uint32_t ranks = 0;
  for (const Card& card : board) {
    ++suitCounts[card.suit];
    ++rankCounts[card.rank];
    ranks |= TextureRankBit(card.rank);
    if (card.rank > texture.highRank) texture.highRank = card.rank;
  }
  int suits = 0;
  for (int count : suitCounts) suits += count > 0;
  texture.suits = suits == 1   ? SuitPattern::Monotone
                  : suits == 2 ? SuitPattern::TwoTone
                               : SuitPattern::Rainbow;
  int most = 0;
  for (int count : rankCounts) most = std::max(most, count);
  texture.pairing = most >= 3 ? Pairing::Trips : most == 2 ? Pairing::Paired : Pairing::Unpaired;
  texture.connected = StraightPossible(ranks);
  return texture;
}

std::string_view SuitPatternName(SuitPattern pattern) {
  switch (pattern) {
    case SuitPattern::Monotone:
      return "monotone";
    case SuitPattern::TwoTone:
      return "two-tone";
    case SuitPattern::Rainbow:
      return "rainbow";
  }
  return "rainbow";
}

std::string_view PairingName(Pairing pairing) {
  switch (pairing) {
    case Pairing::Unpaired:
      return "unpaired";
    case Pairing::Paired:
      return "paired";
    case Pairing::Trips:
      return "trips";
  }
  return "unpaired";
}

bool BoardFilter::Keeps(const BoardTexture& texture) const {
  return (suitPatterns >> static_cast<int>(texture.suits) & 1) != 0 &&
         (pairings >> static_cast<int>(texture.pairing) & 1) != 0 &&
         (connections >> (texture.connected ? 1 : 0) & 1) != 0 &&
         (highRanks == kAllHighRanks ||
          (texture.highRank >= 2 && (highRanks >> (texture.highRank - 2) & 1) != 0));
}

bool BoardFilter::KeepsAll() const {
  return *this == BoardFilter{};
}

ParsedBoardFilter ParseBoardFilter(std::string_view text) {
  ParsedBoardFilter parsed;
  uint8_t suitPatterns = 0;
  uint8_t pairings = 0;
  uint8_t connections = 0;
  uint16_t highRanks = 0;
  int place = 0;
  std::size_t start = 0;
  if (TrimBlanks(text).empty()) return parsed;
  while (start <= text.size()) {
    const std::size_t comma = text.find(',', start);
    const std::size_t end = comma == std::string_view::npos ? text.size() : comma;
    const std::string_view word = TrimBlanks(text.substr(start, end - start));
    ++place;
    if (word == "monotone") {
      suitPatterns |= 1 << static_cast<int>(SuitPattern::Monotone);
    } else if (word == "two-tone") {
      suitPatterns |= 1 << static_cast<int>(SuitPattern::TwoTone);
    } else if (word == "rainbow") {
      suitPatterns |= 1 << static_cast<int>(SuitPattern::Rainbow);
    } else if (word == "unpaired") {
      pairings |= 1 << static_cast<int>(Pairing::Unpaired);
    } else if (word == "paired") {
      pairings |= 1 << static_cast<int>(Pairing::Paired);
    } else if (word == "trips") {
      pairings |= 1 << static_cast<int>(Pairing::Trips);
    } else if (word == "connected") {
      connections |= 0b10;
    } else if (word == "unconnected") {
      connections |= 0b01;
    } else if (word.substr(0, 5) == "high=" && HighRanksOf(word.substr(5)) != 0) {
      highRanks |= HighRanksOf(word.substr(5));
    } else {
      parsed.error = "unknown filter '" + std::string(word) + "' (word " + std::to_string(place) +
                     "): use monotone, two-tone, rainbow, unpaired, paired, trips, connected, unconnected, "
                     "high=A or high=T-K";
      return parsed;
    }
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  if (suitPatterns != 0) parsed.filter.suitPatterns = suitPatterns;
  if (pairings != 0) parsed.filter.pairings = pairings;
  if (connections != 0) parsed.filter.connections = connections;
  if (highRanks != 0) parsed.filter.highRanks = highRanks;
  return parsed;
}

std::string BoardFilterText(const BoardFilter& filter) {
  std::vector<std::string> words;
  if (filter.suitPatterns != BoardFilter::kAllSuitPatterns) {
    for (SuitPattern p : {SuitPattern::Monotone, SuitPattern::TwoTone, SuitPattern::Rainbow}) {
      if (filter.suitPatterns >> static_cast<int>(p) & 1) words.emplace_back(SuitPatternName(p));
    }
  }
  if (filter.pairings != BoardFilter::kAllPairings) {
    for (Pairing p : {Pairing::Unpaired, Pairing::Paired, Pairing::Trips}) {
      if (filter.pairings >> static_cast<int>(p) & 1) words.emplace_back(PairingName(p));
    }
  }
  if (filter.connections != BoardFilter::kAllConnections) {
    if (filter.connections & 0b10) words.emplace_back("connected");
    if (filter.connections & 0b01) words.emplace_back("unconnected");
  }
  if (filter.highRanks != BoardFilter::kAllHighRanks) {
    // Runs of ranks, highest first: "high=A", "high=T-Q".
    for (int32_t rank = 14; rank >= 2;) {
      if ((filter.highRanks >> (rank - 2) & 1) == 0) {
        --rank;
        continue;
      }
      int32_t low = rank;
      while (low > 2 && (filter.highRanks >> (low - 3) & 1) != 0) --low;
      std::string word = "high=";
      if (low == rank) {
        word += kRankText[rank - 1];
      } else {
        word += kRankText[low - 1];
        word += '-';
        word += kRankText[rank - 1];
      }
      words.push_back(word);
      rank = low - 1;
    }
  }
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += ',';
    text += word;
  }
  return text;
}

}  // namespace quillet
