// Enumeration of a directory, in the system's own order, "." and ".." included.

#pragma once

#include <cstdint>

#include "platform/path.hpp"

namespace VELDRIN_2_18::platform {

// A number that stands for an enumeration until that is read to its end or closed. One that is never closed
// costs nothing once it has been read to its end.
enum class directory_handle : std::uint64_t { none = 0 };

// Starts an enumeration and delivers its first entry; `none` if there is nothing to enumerate. The entries
// are those of the path with a separator behind it, so an empty path is the root.
directory_handle open_directory(path const& directory, path_text& entry);

// Delivers the next entry; false, with `entry` untouched, at the end and for a handle that stands for
// nothing.
bool next_entry(directory_handle handle, path_text& entry);

// Does nothing for a handle that stands for nothing.
void close_directory(directory_handle handle);

} // namespace VELDRIN_2_18::platform
