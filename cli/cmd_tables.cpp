// quillet-cli tables: generate the preflop tables (the matchup key table and the matchup class table, in one
// run), or describe the ones built into the program.
#include <CLI/CLI.hpp>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <optional>
#include <ostream>
#include <string>

#include "cards/terminal_text.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "equity/embedded_tables.h"
#include "equity/lookup_tables.h"
#include "equity/preflop_class_file.h"
#include "equity/preflop_class_map.h"
#include "equity/preflop_classes.h"
#include "equity/preflop_table_generator.h"
#include "equity/standard_evaluator.h"
#include "equity/table_file.h"

namespace quillet::cli {
namespace {

constexpr const char* kDefaultOut = "data/preflop_matchups.bin";
constexpr const char* kDefaultClassesOut = "data/preflop_classes.bin";
constexpr const char* kTablesSummary = "Generates the preflop tables, or describes the built-in ones";

struct TablesArgs {
  std::string out = kDefaultOut;
  std::string classesOut = kDefaultClassesOut;
  std::optional<std::string> threads;
};

bool WriteFile(const std::string& path, const std::vector<unsigned char>& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return static_cast<bool>(file);
}

int Generate(const TablesArgs& args, std::ostream& out, std::ostream& err) {
  const std::string path = args.out;
  const std::string classesPath = args.classesOut;
  int threads = 0;
  if (const auto& text = args.threads) {
    std::size_t used = 0;
    try {
      threads = std::stoi(*text, &used);
    } catch (const std::exception&) {
      used = 0;
    }
    if (used != text->size() || threads < 1 || threads > 1024) {
      err << "quillet-cli tables: --threads takes a whole number from 1 to 1024, not \""
          << EscapeControlCharacters(*text) << "\"\n";
      return kExitBadInput;
    }
  }
  // Try both outputs first so a bad path is reported before the work, without emptying the other file.
  for (const std::string& p : {path, classesPath}) {
    if (!std::ofstream(p, std::ios::binary | std::ios::app)) {
      err << "quillet-cli tables: cannot write " << p << "\n";
      return kExitFailure;
    }
  }

  const auto start = std::chrono::steady_clock::now();
  const auto seconds = [&] {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  };
  const auto progress = [&](int64_t done, int64_t total) {
    const double elapsed = seconds();
    err << "  " << done << " / " << total << " matchups (" << (100 * done / total) << "%), " << std::fixed
        << std::setprecision(0) << elapsed << " s";
    if (done > 0 && done < total) err << ", about " << elapsed * (total - done) / done << " s left";
    err << std::endl;
  };
  err << "Enumerating every matchup of two hands over all " << kBoardCount << " boards...\n";
  const GeneratedTables generated = GeneratePreflopTables(threads, progress);

  const std::vector<unsigned char> bytes = SerializeTables(generated.tables);
  if (!WriteFile(path, bytes)) {
    err << "quillet-cli tables: writing " << path << " failed\n";
    return kExitFailure;
  }
  const std::vector<unsigned char> classBytes = SerializeClassTable(generated.classes);
  if (!WriteFile(classesPath, classBytes)) {
    err << "quillet-cli tables: writing " << classesPath << " failed\n";
    return kExitFailure;
  }
  out << "Wrote " << path << ": " << generated.tables.size() << " keys from " << generated.orderedTuples
      << " ordered matchups (" << generated.matchupClasses << " enumerated), " << bytes.size() << " bytes, "
      << std::fixed << std::setprecision(1) << seconds() << " s\n";
  out << "Wrote " << classesPath << ": " << generated.classes.size() << " matchup classes, "
      << classBytes.size() << " bytes\n";
  return kExitOk;
}

int Info(std::ostream& out, std::ostream& err) {
  // The standard evaluator's tables are checked here and by the tests, not at every start; whole, they add
  // nothing to the description.
  if (!StandardEvaluator::TablesIntact()) {
    err << "quillet-cli tables: the standard evaluator's tables built into the program are damaged\n";
    return kExitFailure;
  }
  const TablesOrError loaded = LoadTables();
  if (!loaded.ok()) {
    err << "quillet-cli tables: " << loaded.error << "\n";
    return kExitFailure;
  }
  const auto bytes = EmbeddedTableBytes();
  char checksum[16];
  std::snprintf(checksum, sizeof checksum, "%08x", Crc32(bytes.subspan(kTableHeaderSize)));
  out << "Preflop table: format version " << kTableFormatVersion << ", " << loaded.tables->size() << " keys, "
      << bytes.size() << " bytes, CRC-32 " << checksum << " (checked)\n";

  const PreflopClassTableOrError classes = LoadPreflopClassTable();
  if (!classes.ok()) {
    err << "quillet-cli tables: " << classes.error << "\n";
    return kExitFailure;
  }
  // The class table's matchup map, which the build made, is checked like the evaluator's tables.
  if (!ProgramClassMapIntact()) {
    err << "quillet-cli tables: the preflop class table's matchup map built into the program is damaged\n";
    return kExitFailure;
  }
  const auto classBytes = EmbeddedClassTableBytes();
  std::snprintf(checksum, sizeof checksum, "%08x", Crc32(classBytes.subspan(kClassTableHeaderSize)));
  out << "Preflop class table: format version " << kClassTableFormatVersion << ", "
      << classes.table->Records().size() << " matchup classes, " << classBytes.size() << " bytes, CRC-32 "
      << checksum << " (checked)\n";
  return kExitOk;
}

int RunTables(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  CLI::App app(kTablesSummary, "quillet-cli tables");
  SetUpCommandParser(app);
  TablesArgs args;
  app.add_option("--out", args.out,
                 "generate: the key table to write (by default data/preflop_matchups.bin)");
  app.add_option("--classes-out", args.classesOut,
                 "generate: the class table to write (by default data/preflop_classes.bin)");
  app.add_option("--threads", args.threads, "generate: how many threads enumerate (1 to 1024)");
  int status = kExitOk;
  const auto positionalWords = ParseCommandWords(app, words, "quillet-cli tables", out, err, status);
  if (!positionalWords) return status;
  const std::vector<std::string>& positional = *positionalWords;
  const std::string action = positional.empty() ? "" : positional[0];
  if (positional.size() == 1 && action == "generate") return Generate(args, out, err);
  if (positional.size() == 1 && action == "info") {
    for (const char* option : {"--out", "--classes-out", "--threads"}) {
      if (Given(app, option)) {
        err << "quillet-cli tables info: " << option << " does not apply here (it is for generate)\n";
        return kExitBadInput;
      }
    }
    return Info(out, err);
  }
  err << "quillet-cli tables: say \"generate [--out FILE] [--classes-out FILE] [--threads N]\" or \"info\"\n";
  return kExitBadInput;
}

const CommandRegistrar kRegisterTables({"tables",
                                        "generate [--out FILE] [--classes-out FILE] [--threads N] | info",
                                        kTablesSummary, 90, RunTables});

}  // namespace
}  // namespace quillet::cli
