// The names of a directory's entries, as the system lists them.

#pragma once

#include <vector>

#include "platform/path.hpp"

namespace VELDRIN_2_18::platform {

// In the system's order, "." and ".." included; empty if there is nothing to list. All names are read at
// once, so nothing of the system's is held when the call returns. A separator stands at the end of
// `directory`.
std::vector<path_text> names_in(path_text const& directory);

} // namespace VELDRIN_2_18::platform
