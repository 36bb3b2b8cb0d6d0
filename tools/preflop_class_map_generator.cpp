// Run by the build: reads the preflop class table (data/preflop_classes.bin), checks it in full, and writes
// its matchup map (equity/preflop_class_map.h), which the library then carries in its read-only data, so no
// program makes the map when it starts. A class table that fails the check stops the build with the reason.
//
//   preflop_class_map_generator CLASS_TABLE_FILE MAP_FILE
#include <cstdio>
#include <fstream>
#include <iterator>
#include <vector>

#include "equity/preflop_class_file.h"
#include "equity/preflop_class_map.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: preflop_class_map_generator CLASS_TABLE_FILE MAP_FILE\n");
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(in),
                                         std::istreambuf_iterator<char>()};
  if (!in.eof() && !in) {
    std::fprintf(stderr, "preflop_class_map_generator: cannot read %s\n", argv[1]);
    return 1;
  }
  const quillet::PreflopClassTableOrError table = quillet::ParseClassTable(bytes);
  if (!table.ok()) {
    std::fprintf(stderr, "preflop_class_map_generator: %s: %s\n", argv[1], table.error.c_str());
    return 1;
  }
  const std::vector<uint32_t> words = quillet::ClassMapImage(*table.table);
  std::FILE* file = std::fopen(argv[2], "wb");
  if (file == nullptr || std::fwrite(words.data(), 4, words.size(), file) != words.size() ||
      std::fclose(file) != 0) {
    std::fprintf(stderr, "preflop_class_map_generator: cannot write %s\n", argv[2]);
    return 1;
  }
  return 0;
}
