// Line ends are printed as they are, so that an example prints the same bytes on every platform.

#include <cstdio>

#include <fcntl.h>
#include <io.h>

namespace {

[[maybe_unused]] int const previous_modes[] = {
    ::_setmode(::_fileno(stdout), _O_BINARY),
    ::_setmode(::_fileno(stderr), _O_BINARY),
};

} // namespace
