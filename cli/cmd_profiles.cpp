// quillet-cli profiles: list, show and add player profiles in the profile file.
#include <CLI/CLI.hpp>
#include <ostream>

#include "cards/hand_class.h"
#include "cards/terminal_text.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "cli/range_option.h"
#include "range/holding_set.h"
#include "range/range_notation.h"
#include "range/range_text.h"
#include "storage/code_page.h"
#include "storage/data_folder.h"
#include "storage/file_io.h"
#include "storage/file_lock.h"
#include "storage/profile_file.h"
#include "storage/profile_list.h"
#include "storage/profile_weights_file.h"

namespace quillet::cli {
namespace {

// The command's words as read: the action and its name, and the options.
struct Args {
  const CLI::App& app;
  std::vector<std::string> positionalWords;
  std::string file;
  std::string range;
  std::string seen;
  std::string rangeText;
  bool notation = false;
  bool classes = false;

  bool has(const std::string& name) const { return Given(app, name); }
  const std::vector<std::string>& positional() const { return positionalWords; }
};

constexpr const char* kProfilesUsage =
    "list [--file F] | show NAME [--file F] [--json] [--notation] | add NAME --range LIST [--seen LIST] "
    "[--range-text TEXT] [--file F]";
constexpr const char* kProfilesSummary =
    "list, show or add player profiles (F: the profile file, by default the one the window uses; TEXT: the "
    "range box's text, by default the share of the holdings as a grid click shows it, \"~0.8\")";

// A name or a text from the file or the command line as the terminal is to print it (see
// EscapeControlCharacters); JSON output escapes on its own.
std::string Shown(const std::string& text) {
  return EscapeControlCharacters(text);
}

std::filesystem::path DefaultProfileFile() {
  return ChooseDataFolder(WindowProgramFolder(RunningProgramFolder())) / kProfileFileName;
}

// A weights file that cannot be used: its fault on `err`, and the profiles go on without their weights.
// Before a change is written back (`keepAside`) the file is kept as ".bad", as the window keeps it, since
// the save replaces it.
void ReportWeightsFault(const std::filesystem::path& file, const ProfileFileContents& contents,
                        bool keepAside, std::ostream& err) {
  err << contents.weightsError->message;
  if (keepAside) {
    const SetAside aside = KeepFileAside(ProfileWeightsPath(file),
                                         contents.weightsBytes.empty() ? nullptr : &contents.weightsBytes);
    if (aside.copy.empty()) {
      err << " It could not be kept aside (" << aside.reason << ").";
    } else {
      err << " It was kept as \"" << aside.copy.string() << "\".";
    }
  }
  err << " The profiles were read without their weights.\n";
}

// Loads the file into `profiles` (a missing file is an empty list). On a file that cannot be used, says why
// on `err` in one line and returns false. A weights file beside it that cannot be used is reported on `err`
// (see ReportWeightsFault) and the profiles are loaded without their weights.
bool LoadProfileList(const std::filesystem::path& file, std::vector<PlayerProfile>& profiles,
                     std::ostream& err, bool keepWeightsAside = false) {
  ProfileFileContents contents = ReadProfileFile(file);
  if (contents.weightsError) ReportWeightsFault(file, contents, keepWeightsAside, err);
  switch (contents.status) {
    case ProfileFileContents::Status::Missing:
      profiles.clear();
      return true;
    case ProfileFileContents::Status::Read:
      profiles = std::move(contents.profiles);
      return true;
    case ProfileFileContents::Status::OtherVersion:
      err << "The player profile file \"" << file.string() << "\" is version " << contents.version << ", "
          << (contents.version < 1 ? "an old " : "a newer ") << "format; this program reads version "
          << kProfileFileVersion << ".\n";
      return false;
    case ProfileFileContents::Status::Faulty:
      err << contents.error->message << "\n";
      return false;
  }
  return false;
}

struct LayerEntry {
  const HandClass* handClass;
  int32_t count;
  bool whole;
  int64_t weight;  // the class's holdings' weights in thousandths, when one is below 1; else -1
};

// The classes the layer holds; with `weights` (the On layer's), the combinations of each class that has a
// holding of weight below 1.
std::vector<LayerEntry> ClassesHeld(const RangeLayer& layer, const WeightedHoldingSet* weights = nullptr) {
  std::vector<LayerEntry> held;
  for (int c = 0; c < kClassCount; ++c) {
    if (layer[c].count <= 0) continue;
    int64_t weight = -1;
    if (weights != nullptr) {
      const ClassHoldings& holdings = HoldingsOfClass(c);
      int64_t sum = 0;
      bool partial = false;
      for (int k = 0; k < holdings.count; ++k) {
        const int w = weights->Weight(holdings.holdings[k].number);
        sum += w;
        partial = partial || (w > 0 && w < kFullWeight);
      }
      if (partial) weight = sum;
    }
    held.push_back({&HandClasses()[c], layer[c].count, layer[c].whole != kFalse16, weight});
  }
  return held;
}

void PrintLayer(std::ostream& out, const char* title, const std::vector<LayerEntry>& held) {
  out << title << " layer (" << held.size() << (held.size() == 1 ? " class" : " classes") << ")\n";
  for (const LayerEntry& e : held) {
    out << "  " << e.handClass->caption << "  " << e.count << (e.count == 1 ? " holding" : " holdings")
        << (e.whole ? ", whole" : "");
    if (e.weight >= 0) out << ", " << CombosText(e.weight) << " combos";
    out << "\n";
  }
}

Json LayerJson(const std::vector<LayerEntry>& held) {
  Json json = Json::array();
  for (const LayerEntry& e : held) {
    Json entry{{"class", e.handClass->caption}, {"count", e.count}, {"whole", e.whole}};
    if (e.weight >= 0) entry["weightedCount"] = JsonNumber(static_cast<double>(e.weight) / kFullWeight);
    json.push_back(std::move(entry));
  }
  return json;
}

// The layer's holdings as range notation ("QQ+, AK").
std::string LayerNotation(const RangeLayer& layer) {
  return PrintRangeNotation(HoldingsOfLayer(layer));
}

int List(const Args& args, std::ostream& out, std::ostream& err) {
  if (args.positional().size() != 1) {
    err << "quillet-cli profiles list: unexpected word \"" << Shown(args.positional()[1]) << "\"\n";
    return kExitBadInput;
  }
  std::vector<PlayerProfile> profiles;
  if (!LoadProfileList(args.has("--file") ? args.file : DefaultProfileFile().string(), profiles, err))
    return kExitBadInput;
  for (const PlayerProfile& p : profiles) {
    if (!p.isFree()) out << Shown(p.name) << "\n";
  }
  return kExitOk;
}

int Show(const Args& args, std::ostream& out, std::ostream& err) {
  if (args.positional().size() != 2) {
    err << "quillet-cli profiles show: give exactly one profile name\n";
    return kExitBadInput;
  }
  const std::string file = args.has("--file") ? args.file : DefaultProfileFile().string();
  std::vector<PlayerProfile> profiles;
  if (!LoadProfileList(file, profiles, err)) return kExitBadInput;
  const std::string& name = args.positional()[1];
  const int index = FindProfileByName(profiles, name);
  if (index < 0) {
    err << "quillet-cli profiles show: there is no profile named \"" << Shown(name) << "\" in \"" << file
        << "\"\n";
    return kExitBadInput;
  }
  const PlayerProfile& p = profiles[index];
  // A profile whose On layer has a weight below 1 says so: each class with such a holding gets its
  // combinations, and the layer its weighted notation and its combinations. Without one the output is
  // the unweighted one.
  const bool weighted = HasPartialWeights(p);
  const WeightedHoldingSet onWeights = OnLayerWeights(p);
  const std::vector<LayerEntry> on = ClassesHeld(p.rangeLayer, weighted ? &onWeights : nullptr);
  const std::vector<LayerEntry> seen = ClassesHeld(p.seenLayer);
  // With whole weights the weighted notation is the plain one.
  const std::string onNotation = PrintWeightedRangeNotation(onWeights);
  if (args.has("--json")) {
    Json json{{"name", p.name}, {"rangeText", p.rangeText}, {"on", LayerJson(on)}, {"seen", LayerJson(seen)}};
    if (weighted) {
      json["onWeights"] = onNotation;
      json["onCombos"] = JsonNumber(static_cast<double>(onWeights.WeightSum()) / kFullWeight);
    }
    if (args.notation) {
      json["onNotation"] = onNotation;
      json["seenNotation"] = LayerNotation(p.seenLayer);
    }
    out << JsonText(json) << "\n";
    return kExitOk;
  }
  out << "Profile: " << Shown(p.name) << "\nRange text: " << Shown(p.rangeText) << "\n";
  PrintLayer(out, "On", on);
  PrintLayer(out, "Seen", seen);
  if (weighted) {
    out << "On layer weights: " << onNotation << "\n";
    out << "On layer combos: " << CombosText(onWeights.WeightSum()) << "\n";
  }
  if (args.notation) {
    out << "On layer notation: " << onNotation << "\n";
    out << "Seen layer notation: " << LayerNotation(p.seenLayer) << "\n";
  }
  return kExitOk;
}

int Add(const Args& args, std::ostream& out, std::ostream& err) {
  if (args.positional().size() != 2) {
    err << "quillet-cli profiles add: give exactly one profile name\n";
    return kExitBadInput;
  }
  // The name as the Save label takes it: trimmed, 1 to 15 characters, new.
  std::string name = args.positional()[1];
  name.erase(0, name.find_first_not_of(' '));
  name.erase(name.find_last_not_of(' ') + 1);
  if (name.empty()) {
    err << "quillet-cli profiles add: the profile name is empty\n";
    return kExitBadInput;
  }
  if (Utf8Length(name) > kLongestProfileName) {
    err << "quillet-cli profiles add: \"" << Shown(name) << "\" is longer than " << kLongestProfileName
        << " characters\n";
    return kExitBadInput;
  }
  if (const std::string fault = ProfileNameCodePageFault(name); !fault.empty()) {
    err << "quillet-cli profiles add: " << fault << "\n";
    return kExitBadInput;
  }
  if (const std::size_t textBytes = Utf8ToCp1252(args.rangeText).size();
      textBytes > kLongestStoredRangeText) {
    err << "quillet-cli profiles add: the range text is " << textBytes << " bytes long, more than the "
        << kLongestStoredRangeText << " bytes a range text may have\n";
    return kExitBadInput;
  }
  if (!args.has("--range")) {
    err << "quillet-cli profiles add: --range LIST is needed (\"\" for an empty range)\n";
    return kExitBadInput;
  }
  // Both layers are read before the file is touched: a refused text changes nothing.
  PlayerProfile read;
  InitProfile(read);
  const RangeReading reading = args.classes ? RangeReading::Classes : RangeReading::Notation;
  for (const std::string& error : {PutWeightedRangeOption(args.range, read, reading),
                                   PutRangeOption(args.seen, read.seenLayer, reading)}) {
    if (!error.empty()) {
      err << "quillet-cli profiles add: " << error << "\n";
      return kExitBadInput;
    }
  }

  const bool defaultFile = !args.has("--file");
  const std::filesystem::path file = defaultFile ? DefaultProfileFile() : std::filesystem::path(args.file);
  if (defaultFile) {
    if (auto failure = CreateFolderFor(file)) {
      err << ProfileSaveFault(file, *failure, false) << "\n";
      return kExitFailure;
    }
  }
  // Read, change and write back under the folder's lock: another writer's profile is not lost.
  const WriteLock lock(file);
  if (lock.failure()) {
    err << ProfileSaveFault(file, *lock.failure(), SomethingAt(file)) << "\n";
    return kExitFailure;
  }
  std::vector<PlayerProfile> profiles;
  if (!LoadProfileList(file, profiles, err, true)) return kExitBadInput;
  if (FindProfileByName(profiles, name) >= 0) {
    err << "quillet-cli profiles add: a profile named \"" << Shown(name) << "\" already exists in \""
        << file.string() << "\"\n";
    return kExitBadInput;
  }
  const int index = TakeProfileSlot(profiles, name);
  PlayerProfile& profile = profiles[index];
  profile.rangeLayer = read.rangeLayer;
  profile.seenLayer = read.seenLayer;
  profile.onWeights = read.onWeights;
  // Without --range-text the profile gets the text a click on the grid would leave ("~0.8"): an empty text
  // would make the window replace the range with AA when the profile is picked.
  profile.rangeText = args.has("--range-text")
                          ? args.rangeText
                          : ComputedRangeText(UnionHoldingCount(profile.rangeLayer, profile.seenLayer));

  if (auto error = WriteProfileFile(file, profiles)) {
    err << error->message << "\n";
    return kExitFailure;
  }
  out << "Added the profile \"" << Shown(name) << "\" to \"" << file.string() << "\".\n";
  return kExitOk;
}

int RunProfiles(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kProfilesSummary, "quillet-cli profiles");
  SetUpCommandParser(app);
  Args args{app, {}, {}, {}, {}, {}, false, false};
  app.add_option("--file", args.file, "the profile file (by default the one the window uses)");
  app.add_option("--range", args.range,
                 "add: the On layer's range in range notation (\"\" for none; \"AA,AK\": AK is both halves; "
                 "weights \"AKs:0.5\")");
  app.add_option("--seen", args.seen,
                 "add: the Seen layer's range, written as for --range but without weights");
  app.add_flag("--classes", args.classes, std::string("add: ") + kClassesHelp);
  app.add_option("--range-text", args.rangeText,
                 "add: the range box's text (by default the share of the holdings, \"~0.8\")");
  bool jsonFlag = false;
  app.add_flag("--json", jsonFlag, "show: the profile as JSON");
  app.add_flag("--notation", args.notation, "show: each layer's range as notation too (\"QQ+, AK\")");
  int status = kExitOk;
  const auto positional = ParseCommandWords(app, words, "quillet-cli profiles", out, err, status);
  if (!positional) return status;
  args.positionalWords = *positional;
  const std::string sub = args.positional().empty() ? "" : args.positional()[0];
  const auto refuse = [&](const char* option) {
    err << "quillet-cli profiles " << sub << ": " << option << " does not apply here\n";
    return kExitBadInput;
  };
  const bool addOptions = args.has("--range") || args.has("--seen") || args.has("--range-text");
  if (sub != "show" && args.notation) return refuse("--notation");
  if (sub == "list") {
    if (addOptions || args.has("--json"))
      return refuse(args.has("--json") ? "--json" : "--range, --seen or --range-text");
    if (args.classes) return refuse("--classes");
    return List(args, out, err);
  }
  if (sub == "show") {
    if (addOptions) return refuse("--range, --seen or --range-text");
    if (args.classes) return refuse("--classes");
    return Show(args, out, err);
  }
  if (sub == "add") {
    if (args.has("--json")) return refuse("--json");
    return Add(args, out, err);
  }
  err << "quillet-cli profiles: say list, show NAME or add NAME (see quillet-cli --help)\n";
  return kExitBadInput;
}

const CommandRegistrar kRegisterProfiles({"profiles", kProfilesUsage, kProfilesSummary, 70, RunProfiles});

}  // namespace
}  // namespace quillet::cli
