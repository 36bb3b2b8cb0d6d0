#include "storage/profile_weights_file.h"

#include <algorithm>
#include <map>
#include <system_error>

#include "range/holding_set.h"
#include "range/range_notation.h"
#include "storage/code_page.h"
#include "storage/file_io.h"
#include "storage/profile_file.h"

namespace quillet {
namespace {

// A name as its line writes it: "\\", "\t", "\r" and "\n" for the four characters that would break the line.
std::string EscapeWeightsName(std::string_view name) {
  std::string out;
  out.reserve(name.size());
  for (const char c : name) {
    switch (c) {
      case '\\':
        out += "\\\\";
        break;
      case '\t':
        out += "\\t";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\n':
        out += "\\n";
        break;
      default:
        out += c;
    }
  }
  return out;
}

// The name a line writes; nullopt for a backslash that starts none of the four escapes.
std::optional<std::string> UnescapeWeightsName(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      out += text[i];
      continue;
    }
    if (++i == text.size()) return std::nullopt;
    switch (text[i]) {
      case '\\':
        out += '\\';
        break;
      case 't':
        out += '\t';
        break;
      case 'r':
        out += '\r';
        break;
      case 'n':
        out += '\n';
        break;
      default:
        return std::nullopt;
    }
  }
  return out;
}

// Whether any On-layer weight is below 1 at all: most profiles have none, and are passed over at once.
bool AnyPartialWeight(const PlayerProfile& profile) {
  return std::any_of(profile.onWeights.begin(), profile.onWeights.end(), [](uint16_t w) { return w != 0; });
}

// The name as the profile file gives it back (its code page keeps what it can hold).
std::string StoredName(const std::string& name) {
  return Cp1252ToUtf8(Utf8ToCp1252(name));
}

struct WeightsLine {
  std::string name;
  WeightedHoldingSet weights;
};

std::string SaveFaultOfWeights(const std::filesystem::path& side, const std::string& why) {
  return "The profile weights could not be saved to \"" + side.string() + "\": " + why +
         ". The profiles were saved without the changes to their weights.";
}

}  // namespace

std::filesystem::path ProfileWeightsPath(const std::filesystem::path& profileFile) {
  std::filesystem::path side = FinalTarget(profileFile);
  side += kProfileWeightsSuffix;
  return side;
}

std::string ProfileWeightsFault(const std::string& fileLabel, const std::string& why) {
  return "The profile weights file \"" + fileLabel + "\" cannot be read: " + why + ".";
}

std::string EncodeProfileWeights(const std::vector<PlayerProfile>& profiles) {
  std::string out;
  for (const PlayerProfile& p : profiles) {
    if (p.isFree() || !AnyPartialWeight(p) || !HasPartialWeights(p)) continue;
    if (out.empty()) {
      out = kProfileWeightsHeader;
      out += '\n';
    }
    out += EscapeWeightsName(StoredName(p.name));
    out += '\t';
    out += PrintWeightedRangeNotation(OnLayerWeights(p));
    out += '\n';
  }
  return out;
}

std::optional<StorageError> DecodeProfileWeights(std::string_view bytes, const std::string& fileLabel,
                                                 std::vector<PlayerProfile>& profiles) {
  const auto fault = [&](const std::string& why) {
    return std::optional<StorageError>(StorageError{ProfileWeightsFault(fileLabel, why)});
  };
  if (bytes.empty()) return fault("it is empty");

  // Every line is read before any profile is given a weight: a faulty file gives none.
  std::vector<WeightsLine> lines;
  int number = 0;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\n');
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    ++number;
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (number == 1) {
      if (line != kProfileWeightsHeader) {
        return fault("its first line is not \"" + std::string(kProfileWeightsHeader) +
                     "\" (a file of another program, or of a newer Quillet)");
      }
      continue;
    }
    if (line.empty()) continue;
    const std::string at = "line " + std::to_string(number);
    const std::size_t tab = line.find('\t');
    if (tab == std::string_view::npos) return fault(at + " has no tab between the name and the weights");
    const std::optional<std::string> name = UnescapeWeightsName(line.substr(0, tab));
    if (!name) return fault(at + " has a backslash in its name that starts no escape");
    const ParsedWeightedRange parsed = ParseWeightedRangeNotation(line.substr(tab + 1));
    if (!parsed.ok()) return fault(at + ": " + parsed.error->message);
    lines.push_back({*name, parsed.weights});
  }

  std::map<std::string, std::size_t> searchFrom;  // per name, where the next line of that name looks
  for (const WeightsLine& line : lines) {
    std::size_t& from = searchFrom[line.name];
    while (from < profiles.size() && (profiles[from].isFree() || profiles[from].name != line.name)) ++from;
    if (from == profiles.size()) continue;  // the profile is no longer there
    PlayerProfile& profile = profiles[from++];
    // Weights of another range than the profile's are out of date: the profile keeps its range unweighted.
    if (line.weights.Holdings() != HoldingsOfLayer(profile.rangeLayer)) continue;
    for (int h = 0; h < kHoldingCount; ++h) {
      const int w = line.weights.Weight(h);
      profile.onWeights[h] = static_cast<uint16_t>(w > 0 && w < kFullWeight ? w : 0);
    }
  }
  return std::nullopt;
}

ProfileWeightsRead ReadProfileWeights(const std::filesystem::path& profileFile,
                                      std::vector<PlayerProfile>& profiles) {
  ProfileWeightsRead result;
  const std::filesystem::path side = ProfileWeightsPath(profileFile);
  FileRead file = ReadWholeFile(side, kLargestProfileFileBytes);
  switch (file.status) {
    case FileRead::Status::Missing:
      return result;
    case FileRead::Status::Failed:
    case FileRead::Status::Stopped:
      result.error = StorageError{ProfileWeightsFault(side.string(), file.reason)};
      return result;
    case FileRead::Status::Read:
      break;
  }
  result.error = DecodeProfileWeights(file.bytes, side.string(), profiles);
  if (result.error) result.bytes = std::move(file.bytes);
  return result;
}

std::optional<StorageError> WriteProfileWeights(const std::filesystem::path& profileFile,
                                                const std::vector<PlayerProfile>& profiles) {
  const std::filesystem::path side = ProfileWeightsPath(profileFile);
  const std::string bytes = EncodeProfileWeights(profiles);
  if (!bytes.empty()) {
    if (auto failure = WriteFileAtomically(side, bytes))
      return StorageError{SaveFaultOfWeights(side, *failure)};
    return std::nullopt;
  }
  std::error_code error;
  std::filesystem::remove(side, error);
  if (!error) return std::nullopt;
  // A file that cannot be removed is emptied of its lines instead: weights no profile has any longer must
  // not come back at the next start.
  std::string headerOnly(kProfileWeightsHeader);
  headerOnly += '\n';
  if (!WriteFileAtomically(side, headerOnly)) return std::nullopt;
  return StorageError{SaveFaultOfWeights(side, "it could not be removed (" + error.message() + ")")};
}

}  // namespace quillet
