#include "equity/embedded_tables.h"

#include <cstddef>

// Assembles a file into read-only data: its bytes at NAME_data (64-byte aligned, so tables of words are
// read in place), its length at NAME_size.
#define QUILLET_EMBED_FILE(NAME, FILE)                                                                      \
  asm(".section .rodata\n.global " #NAME "_data\n.balign 64\n" #NAME "_data:\n.incbin \"" FILE "\"\n" #NAME \
      "_end:\n.global " #NAME "_size\n.balign 8\n" #NAME "_size:\n.quad " #NAME "_end - " #NAME             \
      "_data\n.previous");                                                                                  \
  extern "C" const unsigned char NAME##_data[];                                                             \
  extern "C" const std::size_t NAME##_size

// The build names the preflop table files in QUILLET_PREFLOP_TABLE_FILE and QUILLET_PREFLOP_CLASS_FILE
// (absent without the files), the class table's matchup map, which it makes from the class table
// (tools/preflop_class_map_generator.cpp), in QUILLET_PREFLOP_CLASS_MAP_FILE (absent without the class
// table), and the standard evaluator's tables, which it makes itself (tools/evaluator_table_generator.cpp),
// in QUILLET_EVALUATOR_TABLE_FILE.
#ifdef QUILLET_PREFLOP_TABLE_FILE
QUILLET_EMBED_FILE(quillet_preflop_table, QUILLET_PREFLOP_TABLE_FILE);
#endif
#ifdef QUILLET_PREFLOP_CLASS_FILE
QUILLET_EMBED_FILE(quillet_preflop_class, QUILLET_PREFLOP_CLASS_FILE);
#endif
#ifdef QUILLET_PREFLOP_CLASS_MAP_FILE
QUILLET_EMBED_FILE(quillet_preflop_class_map, QUILLET_PREFLOP_CLASS_MAP_FILE);
#endif
QUILLET_EMBED_FILE(quillet_evaluator_table, QUILLET_EVALUATOR_TABLE_FILE);

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes() {
#ifdef QUILLET_PREFLOP_TABLE_FILE
  return {quillet_preflop_table_data, quillet_preflop_table_size};
#else
  return {};
#endif
}

std::span<const unsigned char> EmbeddedClassTableBytes() {
#ifdef QUILLET_PREFLOP_CLASS_FILE
  return {quillet_preflop_class_data, quillet_preflop_class_size};
#else
  return {};
#endif
}

std::span<const unsigned char> EmbeddedClassMapBytes() {
#ifdef QUILLET_PREFLOP_CLASS_MAP_FILE
  return {quillet_preflop_class_map_data, quillet_preflop_class_map_size};
#else
  return {};
#endif
}

std::span<const unsigned char> EmbeddedEvaluatorTableBytes() {
  return {quillet_evaluator_table_data, quillet_evaluator_table_size};
}

}  // namespace quillet
