#include "cli/args.h"

#include <cstdio>

namespace quillet::cli {

Args::Args(const std::vector<std::string>& words, const std::set<std::string>& valued,
           const std::set<std::string>& switches) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& w = words[i];
    if (w.rfind("--", 0) != 0) {
      positional_.push_back(w);
      continue;
    }
    if (switches.count(w)) {
      flags_.insert(w);
    } else if (valued.count(w)) {
      if (i + 1 >= words.size()) {
        error_ = "missing value after " + w;
        return;
      }
      values_[w] = words[++i];
    } else {
      error_ = "unknown option " + w;
      return;
    }
  }
}

std::optional<std::string> Args::value(const std::string& name) const {
  auto it = values_.find(name);
  if (it == values_.end()) return std::nullopt;
  return it->second;
}

std::string Args::valueOr(const std::string& name, const std::string& fallback) const {
  auto v = value(name);
  return v ? *v : fallback;
}

std::string JsonString(const std::string& text) {
  std::string out = "\"";
  for (unsigned char c : text) {
    switch (c) {
      case '"': out += "\\\""; break;
      case '\\': out += "\\\\"; break;
      case '\n': out += "\\n"; break;
      case '\r': out += "\\r"; break;
      case '\t': out += "\\t"; break;
      default:
        if (c < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", c);
          out += buf;
        } else {
          out.push_back(static_cast<char>(c));
        }
    }
  }
  out += "\"";
  return out;
}

}  // namespace quillet::cli
