#include "platform/debug_channel.hpp"

#include <string>

#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

// The system's function takes the text up to its first zero byte: what is behind that would cost the line
// break too.
void write_debug_line(std::string_view text) {
    std::string line(text.substr(0, text.find('\0')));
    line += '\n';
    ::OutputDebugStringA(line.c_str());
}

} // namespace VELDRIN_2_18::platform
