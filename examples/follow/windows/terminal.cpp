#include "terminal.hpp"

#include <cstdio>

#include <io.h>

bool error_stream_is_terminal() { return ::_isatty(::_fileno(stderr)) != 0; }
