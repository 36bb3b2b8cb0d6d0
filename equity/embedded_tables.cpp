#include "equity/embedded_tables.h"

#include <cstddef>

// The build names the table file in QUILLET_PREFLOP_TABLE_FILE; the assembler copies it into read-only data.
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

namespace quillet {

std::span<const unsigned char> EmbeddedTableBytes() {
#ifdef QUILLET_PREFLOP_TABLE_FILE
  return {quillet_preflop_table_data, quillet_preflop_table_size};
#else
  return {};
#endif
}

}  // namespace quillet
