#include "platform/debug_channel.hpp"

#include <cerrno>
#include <string>

#include <unistd.h>

namespace VELDRIN_2_18::platform {

// One `write` a line, so that the lines of several threads do not mix.
void write_debug_line(std::string_view text) {
    std::string line(text);
    line += '\n';

    std::string_view rest = line;
    while (!rest.empty()) {
        ssize_t const written = ::write(STDERR_FILENO, rest.data(), rest.size());
        if (written > 0) {
            rest.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            return;
        }
    }
}

} // namespace VELDRIN_2_18::platform
