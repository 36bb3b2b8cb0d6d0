#include "range/range_notation.h"

#include <algorithm>
#include <vector>

#include "cards/ascii_case.h"
#include "cards/hand_class.h"
#include "cards/preflop_order.h"
#include "cards/terminal_text.h"
#include "range/range_text.h"
#include "range/top_of_order.h"

namespace quillet {
namespace {

// ---- Reading ----

struct Token {
  std::string text;
  int column = 0;
};

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool IsSeparator(char c) {
  return c == ',' || IsBlank(c);
}

std::string Lowered(std::string_view text) {
  std::string s(text);
  for (char& c : s) c = AsciiLower(c);
  return s;
}

// Splits the text at commas and blanks. A token that ends in "-", or one followed (across blanks only, not
// a comma) by a token that starts with "-", is joined with the next one: "22 - 77" is the token "22-77".
std::vector<Token> Tokenise(std::string_view text) {
  std::vector<Token> tokens;
  int column = 1;
  bool commaSinceLast = true;
  size_t i = 0;
  while (i < text.size()) {
    const char c = text[i];
    if (IsSeparator(c)) {
      commaSinceLast = commaSinceLast || c == ',';
      ++column;
      ++i;
      continue;
    }
    Token token{{}, column};
    while (i < text.size() && !IsSeparator(text[i])) {
      token.text += text[i];
      // A column is a character: UTF-8 continuation bytes do not start one.
      if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) ++column;
      ++i;
    }
    const bool joins =
        !tokens.empty() && !commaSinceLast && (tokens.back().text.back() == '-' || token.text.front() == '-');
    if (joins) {
      tokens.back().text += token.text;
    } else {
      tokens.push_back(std::move(token));
    }
    commaSinceLast = false;
  }
  return tokens;
}

// One end of a token: a class (with its "+") or a single holding.
struct Term {
  enum class Kind { Pair, Suited, Offsuit, Both, Holding } kind = Kind::Pair;
  int32_t high = 0;  // the higher rank (a pair: its rank)
  int32_t low = 0;   // the lower rank
  bool plus = false;
  Card card1, card2;  // a single holding
};

int32_t RankOf(char c) {
  const char upper = AsciiUpper(c);
  return RankFromChar(std::string_view(&upper, 1));
}

std::optional<Term> ReadTerm(std::string_view text) {
  Term term;
  if (text.size() == 4 && text.back() != '+') {
    term.kind = Term::Kind::Holding;
    term.card1 = {RankOf(text[0]), SuitFromChar(text.substr(1, 1))};
    term.card2 = {RankOf(text[2]), SuitFromChar(text.substr(3, 1))};
    if (term.card1.rank < 0 || term.card1.suit < 0 || term.card2.rank < 0 || term.card2.suit < 0) return {};
    return term;
  }
  if (!text.empty() && text.back() == '+') {
    term.plus = true;
    text.remove_suffix(1);
  }
  if (text.size() != 2 && text.size() != 3) return {};
  const int32_t a = RankOf(text[0]);
  const int32_t b = RankOf(text[1]);
  if (a < 0 || b < 0) return {};
  term.high = std::max(a, b);
  term.low = std::min(a, b);
  if (text.size() == 2) {
    term.kind = a == b ? Term::Kind::Pair : Term::Kind::Both;
    return term;
  }
  if (a == b) return {};  // a pair has no suited or offsuit form
  const char suffix = AsciiLower(text[2]);
  if (suffix == 's') {
    term.kind = Term::Kind::Suited;
  } else if (suffix == 'o') {
    term.kind = Term::Kind::Offsuit;
  } else {
    return {};
  }
  return term;
}

void AddClass(HoldingSet& set, int classNumber) {
  const ClassHoldings& own = HoldingsOfClass(classNumber);
  for (int i = 0; i < own.count; ++i) set.insert(own.holdings[i].number);
}

// A class of the term's kind with the given ranks (high > low, or equal for a pair).
void AddClassOfKind(HoldingSet& set, Term::Kind kind, int32_t high, int32_t low) {
  if (kind == Term::Kind::Pair) {
    AddClass(set, ClassIndex(high, high));
    return;
  }
  if (kind == Term::Kind::Suited || kind == Term::Kind::Both) AddClass(set, ClassIndex(high, low));
  if (kind == Term::Kind::Offsuit || kind == Term::Kind::Both) AddClass(set, ClassIndex(low, high));
}

void AddTerm(HoldingSet& set, const Term& t) {
  if (t.kind == Term::Kind::Holding) {
    set.insert(t.card1, t.card2);
  } else if (t.kind == Term::Kind::Pair) {
    for (int32_t r = t.high; r <= (t.plus ? 14 : t.high); ++r) AddClassOfKind(set, t.kind, r, r);
  } else {
    for (int32_t k = t.low; k <= (t.plus ? t.high - 1 : t.low); ++k) AddClassOfKind(set, t.kind, t.high, k);
  }
}

std::string Quoted(const Token& token) {
  // Built by appending: GCC 12 warns falsely (-Wrestrict) on chains of operator+ here.
  std::string quoted = "'";
  quoted += QuotedExcerpt(token.text);
  quoted += "' at column ";
  quoted += std::to_string(token.column);
  return quoted;
}

// Whether the token is written as weights are ("AKs:0.5", "[50]AKs[/50]"). Text with control characters
// in it (an escape sequence such as "\x1B[31m") is no attempt at weights, whatever brackets it holds.
bool LooksLikeWeights(const std::string& text) {
  return text.find_first_of(":[]") != std::string::npos && EscapeControlCharacters(text) == text;
}

RangeNotationError MakeError(RangeNotationError::Kind kind, const Token& token, const std::string& message) {
  return {kind, token.text, token.column, message};
}

RangeNotationError Unknown(const Token& token) {
  return MakeError(RangeNotationError::Kind::UnknownToken, token, "unknown token " + Quoted(token));
}

// What one reading has put in so far.
struct Reading {
  HoldingSet holdings;
  // The entries 0..percentWalked of the preflop order are in `holdings` (a percentage token put them
  // there): a later percentage walks on from there rather than from the start.
  int percentWalked = -1;
};

// "15%": the step of the preflop order the range box snaps the value to, and every step before it.
std::optional<RangeNotationError> AddPercent(Reading& reading, const Token& token) {
  const std::string_view number = std::string_view(token.text).substr(0, token.text.size() - 1);
  const bool hasDigit =
      std::any_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; });
  if (!hasDigit || number.front() == '-') return Unknown(token);
  const auto step = TopOfOrderStep(number);
  if (!step) return Unknown(token);
  if (NumberTextToTenThousandths(number) > 100 * 10'000) {
    return MakeError(RangeNotationError::Kind::PercentAbove100, token,
                     "percentage " + Quoted(token) + " is above 100");
  }
  // At or above the last step the box leaves the grid alone; as notation that value means every class.
  const std::vector<PreflopRow>& order = PreflopOrder();
  for (int k = reading.percentWalked + 1; k <= step->entry; ++k) {
    for (const std::string& name : SplitClassList(order[k].classes)) {
      for (const HandCombo& h : ExpandClassName(name)) reading.holdings.insert(h.card1(), h.card2());
    }
  }
  reading.percentWalked = std::max(reading.percentWalked, step->entry);
  return {};
}

std::optional<RangeNotationError> AddRange(HoldingSet& set, const Token& token, const Term& a,
                                           const Term& b) {
  if (a.kind == Term::Kind::Holding || b.kind == Term::Kind::Holding || a.plus || b.plus)
    return Unknown(token);
  if (a.kind != b.kind) {
    return MakeError(RangeNotationError::Kind::RangeEnds, token,
                     "range " + Quoted(token) + " has ends of different kinds");
  }
  if (a.kind == Term::Kind::Pair) {
    for (int32_t r = std::min(a.high, b.high); r <= std::max(a.high, b.high); ++r) {
      AddClassOfKind(set, a.kind, r, r);
    }
    return {};
  }
  if (a.high == b.high) {
    for (int32_t k = std::min(a.low, b.low); k <= std::max(a.low, b.low); ++k) {
      AddClassOfKind(set, a.kind, a.high, k);
    }
    return {};
  }
  if (a.high - a.low == b.high - b.low) {
    const Term& bottom = a.high < b.high ? a : b;
    for (int32_t d = 0; d <= std::abs(a.high - b.high); ++d) {
      AddClassOfKind(set, a.kind, bottom.high + d, bottom.low + d);
    }
    return {};
  }
  return MakeError(
      RangeNotationError::Kind::RangeEnds, token,
      "range " + Quoted(token) + " needs ends with the same first rank or the same gap between the ranks");
}

std::optional<RangeNotationError> AddToken(Reading& reading, const Token& token) {
  HoldingSet& set = reading.holdings;
  const std::string& text = token.text;
  if (LooksLikeWeights(text)) {
    return MakeError(RangeNotationError::Kind::Weights, token,
                     "weights are not supported yet: " + Quoted(token));
  }
  const std::string lowered = Lowered(text);
  if (lowered == "random" || lowered == "any" || lowered == "all") {
    set |= HoldingSet::All();
    return {};
  }
  if (text.back() == '%') return AddPercent(reading, token);
  const size_t dash = text.find('-');
  if (dash == std::string::npos) {
    const auto term = ReadTerm(text);
    if (!term) return Unknown(token);
    if (term->kind == Term::Kind::Holding && !IsHolding(term->card1, term->card2)) {
      return MakeError(RangeNotationError::Kind::SameCardTwice, token,
                       "holding " + Quoted(token) + " has the same card twice");
    }
    AddTerm(set, *term);
    return {};
  }
  if (text.find('-', dash + 1) != std::string::npos) return Unknown(token);
  const auto a = ReadTerm(std::string_view(text).substr(0, dash));
  const auto b = ReadTerm(std::string_view(text).substr(dash + 1));
  if (!a || !b) return Unknown(token);
  return AddRange(set, token, *a, *b);
}

// ---- Printing ----

std::string RankChar(int32_t rank) {
  return std::string(1, kRankText[rank - 1]);  // the rank text counts its positions from 1
}

bool HoldsWhole(const HoldingSet& set, int classNumber) {
  const ClassHoldings& own = HoldingsOfClass(classNumber);
  for (int i = 0; i < own.count; ++i) {
    if (!set.contains(own.holdings[i].number)) return false;
  }
  return true;
}

// The class's holdings that the set holds, as single holdings ("AhKh"), or none when it holds them all.
void AppendPartOfClass(const HoldingSet& set, int classNumber, std::vector<std::string>& out) {
  if (HoldsWhole(set, classNumber)) return;
  const HandClass& hc = HandClasses()[classNumber];
  const ClassHoldings& own = HoldingsOfClass(classNumber);
  for (int i = 0; i < own.count; ++i) {
    const ClassHolding& h = own.holdings[i];
    if (set.contains(h.number)) {
      out.push_back(CardToText({hc.rank1, h.suit1}) + CardToText({hc.rank2, h.suit2}));
    }
  }
}

// A run of whole classes: ranks `top` down to `bottom` (pairs) or kickers `top` down to `bottom` under
// the first rank `high`.
struct Run {
  int32_t top = 0;
  int32_t bottom = 0;
  friend bool operator==(const Run&, const Run&) = default;
};

// The runs of consecutive true entries of whole[from] down to whole[to].
std::vector<Run> RunsOf(const std::array<bool, 15>& whole, int32_t from, int32_t to) {
  std::vector<Run> runs;
  for (int32_t r = from; r >= to; --r) {
    if (!whole[r]) continue;
    Run run{r, r};
    while (run.bottom - 1 >= to && whole[run.bottom - 1]) --run.bottom;
    runs.push_back(run);
    r = run.bottom;
  }
  return runs;
}

void AppendPairs(const HoldingSet& set, std::vector<std::string>& out) {
  std::array<bool, 15> whole{};
  for (int32_t r = 2; r <= 14; ++r) whole[r] = HoldsWhole(set, ClassIndex(r, r));
  const auto runs = RunsOf(whole, 14, 2);
  for (int32_t r = 14; r >= 2; --r) {
    const auto run = std::find_if(runs.begin(), runs.end(), [r](const Run& x) { return x.top == r; });
    if (run != runs.end()) {
      const std::string top = RankChar(run->top) + RankChar(run->top);
      const std::string bottom = RankChar(run->bottom) + RankChar(run->bottom);
      if (run->top == run->bottom) {
        out.push_back(top);
      } else if (run->top == 14) {
        out.push_back(bottom + "+");
      } else {
        out.push_back(top + "-" + bottom);
      }
    }
    AppendPartOfClass(set, ClassIndex(r, r), out);
  }
}

std::string RunText(int32_t high, const Run& run, const std::string& suffix) {
  // Built by appending: GCC 12 warns falsely (-Wrestrict) on chains of operator+ here.
  std::string text = RankChar(high);
  if (run.top == run.bottom) {
    text += RankChar(run.top);
    text += suffix;
  } else if (run.top == high - 1) {
    text += RankChar(run.bottom);
    text += suffix;
    text += '+';
  } else {
    text += RankChar(run.top);
    text += suffix;
    text += '-';
    text += RankChar(high);
    text += RankChar(run.bottom);
    text += suffix;
  }
  return text;
}

struct HighCardRuns {
  std::vector<Run> suited;
  std::vector<Run> offsuit;
  bool inBoth(const Run& run) const {
    return std::find(suited.begin(), suited.end(), run) != suited.end() &&
           std::find(offsuit.begin(), offsuit.end(), run) != offsuit.end();
  }
};

HighCardRuns RunsUnder(const HoldingSet& set, int32_t high) {
  std::array<bool, 15> suited{};
  std::array<bool, 15> offsuit{};
  for (int32_t k = 2; k < high; ++k) {
    suited[k] = HoldsWhole(set, ClassIndex(high, k));
    offsuit[k] = HoldsWhole(set, ClassIndex(k, high));
  }
  return {RunsOf(suited, high - 1, 2), RunsOf(offsuit, high - 1, 2)};
}

// One half (suited or offsuit) of the classes under `high`, kicker by kicker; runs whole in both halves
// go with the suited half, without suffix.
void AppendHalf(const HoldingSet& set, int32_t high, const HighCardRuns& runs, bool suitedHalf,
                std::vector<std::string>& out) {
  const std::vector<Run>& half = suitedHalf ? runs.suited : runs.offsuit;
  for (int32_t k = high - 1; k >= 2; --k) {
    const auto run = std::find_if(half.begin(), half.end(), [k](const Run& x) { return x.top == k; });
    if (run != half.end()) {
      const bool both = runs.inBoth(*run);
      if (both && suitedHalf) out.push_back(RunText(high, *run, ""));
      if (!both) out.push_back(RunText(high, *run, suitedHalf ? "s" : "o"));
    }
    AppendPartOfClass(set, suitedHalf ? ClassIndex(high, k) : ClassIndex(k, high), out);
  }
}

}  // namespace

ParsedRange ParseRangeNotation(std::string_view text) {
  ParsedRange result;
  if (text.size() > kLongestRangeNotation) {
    std::string message = "the range is ";  // built by appending, as Quoted is
    message += std::to_string(text.size());
    message += " bytes long, more than the ";
    message += std::to_string(kLongestRangeNotation);
    message += " bytes a range may have";
    result.error = RangeNotationError{RangeNotationError::Kind::TooLong, {}, 0, std::move(message)};
    return result;
  }
  Reading reading;
  for (const Token& token : Tokenise(text)) {
    if (auto error = AddToken(reading, token)) {
      result.error = std::move(error);
      return result;
    }
  }
  result.holdings = reading.holdings;
  return result;
}

std::string PrintRangeNotation(const HoldingSet& holdings) {
  if (holdings == HoldingSet::All()) return "all";
  std::vector<std::string> tokens;
  AppendPairs(holdings, tokens);
  std::array<HighCardRuns, 15> runs;
  for (int32_t high = 14; high >= 3; --high) runs[high] = RunsUnder(holdings, high);
  for (int32_t high = 14; high >= 3; --high) AppendHalf(holdings, high, runs[high], true, tokens);
  for (int32_t high = 14; high >= 3; --high) AppendHalf(holdings, high, runs[high], false, tokens);
  std::string text;
  for (const std::string& t : tokens) {
    if (!text.empty()) text += ", ";
    text += t;
  }
  return text;
}

std::string HoldingSharePercentText(int holdings) {
  return ComputedRangeText(holdings).substr(1);
}

}  // namespace quillet
