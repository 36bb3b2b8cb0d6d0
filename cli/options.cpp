#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdio>

namespace quillet::cli {

void SetUpCommandParser(CLI::App& app) {
  app.allow_extras();
  app.option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

namespace {

bool LooksLikeOption(const std::string& word) {
  return word.size() > 2 && word.rfind("--", 0) == 0;
}

std::optional<std::vector<std::string>> Refuse(const std::string& prefix, const std::string& why,
                                               std::ostream& err, int& status) {
  err << prefix << ": " << why << "\n";
  status = 2;
  return std::nullopt;
}

}  // namespace

std::optional<std::vector<std::string>> ParseCommandWords(CLI::App& app,
                                                          const std::vector<std::string>& words,
                                                          const std::string& prefix, std::ostream& out,
                                                          std::ostream& err, int& status) {
  // CLI11 takes the words last first.
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    status = 0;
    return std::nullopt;
  } catch (const CLI::ArgumentMismatch&) {
    // A valued option last on the line, with nothing after it; an unknown option before it is named first.
    for (const std::string& word : app.remaining()) {
      if (LooksLikeOption(word)) return Refuse(prefix, "unknown option " + word, err, status);
    }
    return Refuse(prefix, "missing value after " + (words.empty() ? std::string() : words.back()), err,
                  status);
  } catch (const CLI::ParseError& e) {
    return Refuse(prefix, e.what(), err, status);
  }
  std::vector<std::string> positional;
  for (const std::string& word : app.remaining()) {
    if (LooksLikeOption(word)) return Refuse(prefix, "unknown option " + word, err, status);
    positional.push_back(word);
  }
  return positional;
}

bool Given(const CLI::App& app, const std::string& option) {
  return app.count(option) > 0;
}

std::string JsonText(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::ignore);
}

std::string JsonString(const std::string& text) {
  return JsonText(Json(text));
}

Json JsonNumber(double value) {
  if (std::isfinite(value) && std::trunc(value) == value && std::fabs(value) < 9.0e15) {
    return Json(static_cast<int64_t>(value));
  }
  return Json(value);
}

std::string HexColour(Colour colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%02X%02X%02X", RedOf(colour), GreenOf(colour), BlueOf(colour));
  return text;
}

}  // namespace quillet::cli
