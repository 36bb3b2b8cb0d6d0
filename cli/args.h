// A small parser for "--name VALUE" options and "--switch" flags, shared by the CLI's commands.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace quillet::cli {

class Args {
 public:
  // `valued` names options that take a value; `switches` names flags that do not. Anything else, or a
  // valued option without its value, or a stray word, makes error() non-empty.
  Args(const std::vector<std::string>& words, const std::set<std::string>& valued,
       const std::set<std::string>& switches);

  bool has(const std::string& name) const { return values_.count(name) > 0 || flags_.count(name) > 0; }
  std::optional<std::string> value(const std::string& name) const;
  std::string valueOr(const std::string& name, const std::string& fallback) const;
  // Positional words (those not starting with "--"), in order; only for commands that accept them.
  const std::vector<std::string>& positional() const { return positional_; }
  const std::string& error() const { return error_; }

 private:
  std::map<std::string, std::string> values_;
  std::set<std::string> flags_;
  std::vector<std::string> positional_;
  std::string error_;
};

// Writes `text` as a JSON string literal, quotes included.
std::string JsonString(const std::string& text);

}  // namespace quillet::cli
