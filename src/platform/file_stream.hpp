// File streams opened by path, in binary mode, with no sharing restriction.

#pragma once

#include <istream>
#include <memory>
#include <ostream>

#include "platform/path.hpp"

namespace VELDRIN_2_18::platform {

// Null if the file cannot be opened; a directory cannot.
std::unique_ptr<std::istream> open_for_reading(path const& path);

// Creates or empties the file. Null if it cannot be opened.
std::unique_ptr<std::ostream> open_for_writing(path const& path);

} // namespace VELDRIN_2_18::platform
