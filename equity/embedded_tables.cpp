#include "equity/embedded_tables.h"

#include <cstddef>

// The build names the table files in QUILLET_PREFLOP_TABLE_FILE and QUILLET_PREFLOP_CLASS_FILE; the
// assembler copies each into read-only data.
#ifdef QUILLET_PREFLOP_TABLE_FILE
asm(".section .rodata\n"
    ".global quillet_preflop_table_data\n"
    ".balign 16\n"
    "quillet_preflop_table_data:\n"
    ".incbin \"" QUILLET_PREFLOP_TABLE_FILE
    "\"\n"
    "quillet_preflop_table_end:\n"
    ".global quillet_preflop_table_size\n"
    ".balign 8\n"
    "quillet_preflop_table_size:\n"
    ".quad quillet_preflop_table_end - quillet_preflop_table_data\n"
    ".previous");

extern "C" const unsigned char quillet_preflop_table_data[];
extern "C" const std::size_t quillet_preflop_table_size;
#endif

#ifdef QUILLET_PREFLOP_CLASS_FILE
asm(".section .rodata\n"
    ".global quillet_preflop_class_data\n"
    ".balign 16\n"
    "quillet_preflop_class_data:\n"
    ".incbin \"" QUILLET_PREFLOP_CLASS_FILE
    "\"\n"
    "quillet_preflop_class_end:\n"
    ".global quillet_preflop_class_size\n"
    ".balign 8\n"
    "quillet_preflop_class_size:\n"
    ".quad quillet_preflop_class_end - quillet_preflop_class_data\n"
    ".previous");

extern "C" const unsigned char quillet_preflop_class_data[];
extern "C" const std::size_t quillet_preflop_class_size;
#endif

// The standard evaluator's tables, made by the build (tools/evaluator_table_generator.cpp): always there.
asm(".section .rodata\n"
    ".global quillet_evaluator_table_data\n"
    ".balign 64\n"
    "quillet_evaluator_table_data:\n"
    ".incbin \"" QUILLET_EVALUATOR_TABLE_FILE
    "\"\n"
    "quillet_evaluator_table_end:\n"
    ".global quillet_evaluator_table_size\n"
    ".balign 8\n"
    "quillet_evaluator_table_size:\n"
    ".quad quillet_evaluator_table_end - quillet_evaluator_table_data\n"
    ".previous");

extern "C" const unsigned char quillet_evaluator_table_data[];
extern "C" const std::size_t quillet_evaluator_table_size;

namespace quillet {

std::span<const unsigned char> EmbeddedEvaluatorTableBytes() {
  return {quillet_evaluator_table_data, quillet_evaluator_table_size};
}

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

}  // namespace quillet
