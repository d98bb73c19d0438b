// The platform's line-oriented channel for diagnostics.

#pragma once

#include <string_view>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::platform {

// Writes the text and a line break behind it. A channel that takes nothing loses the line; one that takes no
// zero byte loses what is behind the first one.
void write_debug_line(std::string_view text);

} // namespace VELDRIN_2_18::platform
