#include "platform/debug_channel.hpp"

#include <string>

#include "platform/windows/system.hpp"

namespace VELDRIN_2_18::platform {

void write_debug_line(std::string_view text) {
    std::string line(text);
    line += '\n';
    ::OutputDebugStringA(line.c_str());
}

} // namespace VELDRIN_2_18::platform
