#include "terminal.hpp"

#include <unistd.h>

bool error_stream_is_terminal() { return ::isatty(STDERR_FILENO) == 1; }
