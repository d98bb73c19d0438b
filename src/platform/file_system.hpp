// Status and changes of single entries of the file system. A failure is an answer here, never an exception.

#pragma once

#include <cstdint>
#include <optional>

#include "platform/path.hpp"

namespace VELDRIN_2_18::platform {

// All false if the path names nothing. Links are followed.
struct entry_status {
    bool exists = false;
    bool is_directory = false;
    bool is_file = false;
    bool owner_may_read = false;
};

entry_status status_of(path const& path);

// What two paths to one directory have in common.
struct directory_identity {
    std::uint64_t device = 0;
    std::uint64_t file = 0;

    friend bool operator==(directory_identity const&, directory_identity const&) = default;
};

// Of the directory that an enumeration of the path lists: that of the path with a separator behind it, so an
// empty path is the root, and on Windows a drive alone is its root too.
std::optional<directory_identity> identity_of(path const& directory);

// Makes one level. True if it was made by this call.
bool create_directory(path const& path);

// Makes one level, by the C runtime where the platform's own call is another one. The outcome is not told.
void make_directory(path const& path);

// An existing entry `new_path` is never replaced.
void rename_entry(path const& new_path, path const& old_path);

// Never removes a directory.
void remove_file(path const& path);

// Removes nothing but an empty directory.
void remove_directory(path const& path);

} // namespace VELDRIN_2_18::platform
