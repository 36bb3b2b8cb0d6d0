// EscapeControlCharacters moved to cards/terminal_text.h, below every library whose messages quote text
// from a user or a file; this header stays for the code that still includes it from here.
#pragma once

#include "cards/terminal_text.h"
