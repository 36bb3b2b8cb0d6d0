#include "range/range_notation.h"

#include <algorithm>
#include <vector>

#include "cards/ascii_case.h"
#include "cards/blank_text.h"
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
    if (IsRangeSeparator(c)) {
      commaSinceLast = commaSinceLast || c == ',';
      ++column;
      ++i;
      continue;
    }
    Token token{{}, column};
    while (i < text.size() && !IsRangeSeparator(text[i])) {
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

// Where a token puts its holdings: the weighted set being read and the token's weight, which replaces
// whatever weight an earlier token gave the same holdings.
struct Marking {
  WeightedHoldingSet& set;
  int weight = kFullWeight;
  void Put(int number) const { set.SetWeight(number, weight); }
  void Put(Card a, Card b) const { set.SetWeight(a, b, weight); }
};

void AddClass(const Marking& set, int classNumber) {
  const ClassHoldings& own = HoldingsOfClass(classNumber);
  for (int i = 0; i < own.count; ++i) set.Put(own.holdings[i].number);
}

// A class of the term's kind with the given ranks (high > low, or equal for a pair).
void AddClassOfKind(const Marking& set, Term::Kind kind, int32_t high, int32_t low) {
  if (kind == Term::Kind::Pair) {
    AddClass(set, ClassIndex(high, high));
    return;
  }
  if (kind == Term::Kind::Suited || kind == Term::Kind::Both) AddClass(set, ClassIndex(high, low));
  if (kind == Term::Kind::Offsuit || kind == Term::Kind::Both) AddClass(set, ClassIndex(low, high));
}

void AddTerm(const Marking& set, const Term& t) {
  if (t.kind == Term::Kind::Holding) {
    set.Put(t.card1, t.card2);
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
  WeightedHoldingSet weights;
  // The entries 0..percentWalked of the preflop order are in `weights` at walkedWeight (a percentage token
  // put them there, and no token since has given any holding another weight): a later percentage of the
  // same weight walks on from there rather than from the start.
  int percentWalked = -1;
  int walkedWeight = kFullWeight;
};

// "15%": the step of the preflop order the range box snaps the value to, and every step before it.
std::optional<RangeNotationError> AddPercent(Reading& reading, const Token& token, std::string_view text,
                                             int weight) {
  const std::string_view number = text.substr(0, text.size() - 1);
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
  if (weight != reading.walkedWeight) reading.percentWalked = -1;
  const std::vector<PreflopRow>& order = PreflopOrder();
  for (int k = reading.percentWalked + 1; k <= step->entry; ++k) {
    for (const std::string& name : SplitClassList(order[k].classes)) {
      for (const HandCombo& h : ExpandClassName(name))
        reading.weights.SetWeight(h.card1(), h.card2(), weight);
    }
  }
  reading.percentWalked = std::max(reading.percentWalked, step->entry);
  reading.walkedWeight = weight;
  return {};
}

std::optional<RangeNotationError> AddRange(const Marking& set, const Token& token, const Term& a,
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

// Puts the holdings that `text` (the token without its weight and brackets, not empty) names at `weight`.
std::optional<RangeNotationError> AddToken(Reading& reading, const Token& token, std::string_view text,
                                           int weight) {
  // A token of another weight may overwrite holdings an earlier percentage walked.
  if (text.back() != '%' && weight != reading.walkedWeight) reading.percentWalked = -1;
  const Marking set{reading.weights, weight};
  const std::string lowered = Lowered(text);
  if (lowered == "random" || lowered == "any" || lowered == "all") {
    for (int h = 0; h < kHoldingCount; ++h) set.Put(h);
    return {};
  }
  if (text.back() == '%') return AddPercent(reading, token, text, weight);
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
  const auto a = ReadTerm(text.substr(0, dash));
  const auto b = ReadTerm(text.substr(dash + 1));
  if (!a || !b) return Unknown(token);
  return AddRange(set, token, *a, *b);
}

// ---- Weights ----

// A number written with at most `decimals` digits after its point that count (more are allowed when they are
// zeros), as a whole number of 10^-decimals: "0.25" with 3 decimals is 250, "12.5" with 1 is 125. No sign;
// none above kFullWeight.
std::optional<int> ReadSteps(std::string_view text, int decimals) {
  int64_t value = 0;
  int digits = 0;
  int after = -1;  // digits read after the point, or -1 before it
  for (char c : text) {
    if (c == '.' && after < 0) {
      after = 0;
      continue;
    }
    if (c < '0' || c > '9') return {};
    ++digits;
    if (after >= 0 && after >= decimals) {
      if (c != '0') return {};  // finer than a step
      continue;
    }
    if (after >= 0) ++after;
    value = value * 10 + (c - '0');
    if (value > 100'000'000) return {};
  }
  if (digits == 0) return {};
  for (int k = std::max(after, 0); k < decimals; ++k) value *= 10;
  if (value > kFullWeight) return {};  // above 1 (or 100%): no weight
  return static_cast<int>(value);
}

// A weight after a colon, in thousandths: a fraction ("0.5", "1") or a percentage ("50%", "12.5%").
std::optional<int> ReadColonWeight(std::string_view text) {
  if (!text.empty() && text.back() == '%') return ReadSteps(text.substr(0, text.size() - 1), 1);
  return ReadSteps(text, 3);
}

// The percentage of a block's bracket ("50" of "[50]"), in thousandths.
std::optional<int> ReadBracketWeight(std::string_view text) {
  return ReadSteps(text, 1);
}

// A token written with weights, taken apart: "[50]AQs" opens a block, "AJs[/50]" closes one, "AKs:0.5"
// has its own weight; what is left is the body ("AQs"), which may be empty beside a bracket ("[50]").
struct WeightedToken {
  std::string_view body;
  std::optional<int> own;
  std::optional<int> opens;
  std::optional<int> closes;
};

std::optional<WeightedToken> SplitWeights(std::string_view text) {
  WeightedToken t;
  if (text.size() > 1 && text[0] == '[' && text[1] != '/') {
    const size_t close = text.find(']');
    if (close == std::string_view::npos) return {};
    t.opens = ReadBracketWeight(text.substr(1, close - 1));
    if (!t.opens) return {};
    text.remove_prefix(close + 1);
  }
  if (!text.empty() && text.back() == ']') {
    const size_t open = text.rfind("[/");
    if (open == std::string_view::npos) return {};
    t.closes = ReadBracketWeight(text.substr(open + 2, text.size() - open - 3));
    if (!t.closes) return {};
    text.remove_suffix(text.size() - open);
  }
  if (const size_t colon = text.find(':'); colon != std::string_view::npos) {
    t.own = ReadColonWeight(text.substr(colon + 1));
    if (!t.own) return {};
    text.remove_suffix(text.size() - colon);
  }
  if (text.find_first_of(":[]") != std::string_view::npos) return {};
  t.body = text;
  return t;
}

RangeNotationError WeightsRefused(const Token& token) {
  return MakeError(RangeNotationError::Kind::Weights, token,
                   "weights are not supported yet: " + Quoted(token));
}

RangeNotationError BadWeight(const Token& token) {
  std::string message = "bad weight ";  // built by appending, as Quoted is
  message += Quoted(token);
  message +=
      " (a weight is 0 to 1 in steps of 0.001 after a colon, \"AKs:0.5\", or a percentage in steps of "
      "0.1, \"AKs:50%\", \"[50]AKs, AQs[/50]\")";
  return MakeError(RangeNotationError::Kind::BadWeight, token, message);
}

RangeNotationError BracketError(const Token& token, const char* what) {
  std::string message = "bracket ";
  message += Quoted(token);
  message += ' ';
  message += what;
  return MakeError(RangeNotationError::Kind::Bracket, token, message);
}

// Reads the whole text into `reading`. Without `weightsAllowed` a weight other than 1 is refused, as are
// weights written wrong, with the message of a notation that takes no weights.
std::optional<RangeNotationError> ReadTokens(std::string_view text, bool weightsAllowed, Reading& reading) {
  struct Block {
    int weight;
    Token opener;
  };
  std::optional<Block> block;
  for (const Token& token : Tokenise(text)) {
    const int outer = block ? block->weight : kFullWeight;
    if (!LooksLikeWeights(token.text)) {
      if (auto error = AddToken(reading, token, token.text, outer)) return error;
      continue;
    }
    const auto split = SplitWeights(token.text);
    if (!split) return weightsAllowed ? BadWeight(token) : WeightsRefused(token);
    const int weight = split->own.value_or(split->opens.value_or(outer));
    if (!weightsAllowed && (weight != kFullWeight || split->opens.value_or(kFullWeight) != kFullWeight ||
                            split->closes.value_or(kFullWeight) != kFullWeight)) {
      return WeightsRefused(token);
    }
    if (split->opens) {
      if (block)
        return weightsAllowed ? BracketError(token, "opens a block inside another") : WeightsRefused(token);
      block = Block{*split->opens, token};
    }
    if (!split->body.empty()) {
      if (auto error = AddToken(reading, token, split->body, weight)) return error;
    } else if (!split->opens && !split->closes) {
      return Unknown(token);
    }
    if (split->closes) {
      if (!block) return weightsAllowed ? BracketError(token, "closes no block") : WeightsRefused(token);
      if (block->weight != *split->closes) {
        return weightsAllowed ? BracketError(token, "closes a block of another weight")
                              : WeightsRefused(token);
      }
      block.reset();
    }
  }
  if (block)
    return weightsAllowed ? BracketError(block->opener, "is never closed") : WeightsRefused(block->opener);
  return {};
}

std::optional<RangeNotationError> TooLongError(std::string_view text) {
  if (text.size() <= kLongestRangeNotation) return {};
  std::string message = "the range is ";  // built by appending, as Quoted is
  message += std::to_string(text.size());
  message += " bytes long, more than the ";
  message += std::to_string(kLongestRangeNotation);
  message += " bytes a range may have";
  return RangeNotationError{RangeNotationError::Kind::TooLong, {}, 0, std::move(message)};
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

std::vector<std::string> NotationTokens(const HoldingSet& holdings) {
  if (holdings == HoldingSet::All()) return {"all"};
  std::vector<std::string> tokens;
  AppendPairs(holdings, tokens);
  std::array<HighCardRuns, 15> runs;
  for (int32_t high = 14; high >= 3; --high) runs[high] = RunsUnder(holdings, high);
  for (int32_t high = 14; high >= 3; --high) AppendHalf(holdings, high, runs[high], true, tokens);
  for (int32_t high = 14; high >= 3; --high) AppendHalf(holdings, high, runs[high], false, tokens);
  return tokens;
}

void AppendJoined(std::string& text, const std::string& part) {
  if (part.empty()) return;
  if (!text.empty()) text += ", ";
  text += part;
}

// "0.5", "0.125", "0.001": a weight below 1 as a fraction, without trailing zeros.
std::string FractionText(int thousandths) {
  std::string text = "0.";
  text += static_cast<char>('0' + thousandths / 100);
  text += static_cast<char>('0' + thousandths / 10 % 10);
  text += static_cast<char>('0' + thousandths % 10);
  while (text.back() == '0') text.pop_back();
  return text;
}

// "50", "12.5", "0.1": a weight as a percentage, as a block's bracket writes it.
std::string PercentText(int thousandths) {
  std::string text = std::to_string(thousandths / 10);
  if (thousandths % 10 != 0) {
    text += '.';
    text += static_cast<char>('0' + thousandths % 10);
  }
  return text;
}

}  // namespace

ParsedRange ParseRangeNotation(std::string_view text) {
  ParsedRange result;
  if ((result.error = TooLongError(text))) return result;
  Reading reading;
  if ((result.error = ReadTokens(text, false, reading))) return result;
  result.holdings = reading.weights.Holdings();
  return result;
}

ParsedWeightedRange ParseWeightedRangeNotation(std::string_view text) {
  ParsedWeightedRange result;
  if ((result.error = TooLongError(text))) return result;
  Reading reading;
  if ((result.error = ReadTokens(text, true, reading))) return result;
  result.weights = reading.weights;
  return result;
}

std::string PrintRangeNotation(const HoldingSet& holdings) {
  std::string text;
  for (const std::string& t : NotationTokens(holdings)) AppendJoined(text, t);
  return text;
}

std::string PrintWeightedRangeNotation(const WeightedHoldingSet& weights) {
  std::string text = PrintRangeNotation(weights.HoldingsOfWeight(kFullWeight));
  std::array<bool, kFullWeight> present{};
  for (int h = 0; h < kHoldingCount; ++h) {
    const int w = weights.Weight(h);
    if (w > 0 && w < kFullWeight) present[w] = true;
  }
  for (int w = kFullWeight - 1; w > 0; --w) {
    if (!present[w]) continue;
    const std::vector<std::string> tokens = NotationTokens(weights.HoldingsOfWeight(w));
    const std::string fraction = FractionText(w);
    const std::string percent = PercentText(w);
    std::string colons;
    std::string block = "[";
    block += percent;
    block += ']';
    for (size_t k = 0; k < tokens.size(); ++k) {
      if (k > 0) {
        colons += ", ";
        block += ", ";
      }
      colons += tokens[k];
      colons += ':';
      colons += fraction;
      block += tokens[k];
    }
    block += "[/";
    block += percent;
    block += ']';
    AppendJoined(text, block.size() < colons.size() ? block : colons);
  }
  return text;
}

std::string HoldingSharePercentText(int holdings) {
  return ComputedRangeText(holdings).substr(1);
}

std::string WeightSharePercentText(int64_t weightSum) {
  // The nearest tenth of weightSum / 1000 / 1326 * 100, halves rounded up.
  return FormatTenths((weightSum * 2 + kHoldingCount) / (2 * kHoldingCount));
}

std::string CombosText(int64_t weightSum) {
  std::string text = std::to_string(weightSum / kFullWeight);
  if (weightSum % kFullWeight != 0) text += FractionText(static_cast<int>(weightSum % kFullWeight)).substr(1);
  return text;
}

}  // namespace quillet
