// File: veldrin/system/io.hpp
//
// Tests and changes of one entry of the file system, each a thin wrapper around one call of the operating
// system. Nothing here throws for a failure of the file system: tests answer false, and the actions report
// nothing; ask with `exists` if it matters.
//
//     if (system::io::is_file(strings::ustring8("old.cfg"))) {
//         system::io::move(strings::ustring8("new.cfg"), strings::ustring8("old.cfg"));   // new name first
//     }
//
// Paths, here and in veldrin/system/file_utility.hpp, go to the operating system as they are, with no
// normalisation. Where the system takes bytes, a `ustring8` path is passed as its bytes and the others are
// turned into UTF-8; where it takes UTF-16, a `ustring16` path is passed as its units and the others are
// turned into UTF-16. A path that cannot be converted, or that holds a zero unit, names nothing.

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::system::io {

// True if the path names an entry. Links are followed, here and in the next two.
VELDRIN_EXPORT bool exists(strings::ustring8 const& path);
VELDRIN_EXPORT bool exists(strings::ustring16 const& path);
VELDRIN_EXPORT bool exists(strings::ustring32 const& path);

VELDRIN_EXPORT bool is_directory(strings::ustring8 const& path);
VELDRIN_EXPORT bool is_directory(strings::ustring16 const& path);
VELDRIN_EXPORT bool is_directory(strings::ustring32 const& path);

// True for a regular file only: not for a directory, a device, a pipe or a socket.
VELDRIN_EXPORT bool is_file(strings::ustring8 const& path);
VELDRIN_EXPORT bool is_file(strings::ustring16 const& path);
VELDRIN_EXPORT bool is_file(strings::ustring32 const& path);

// Makes one directory whose parent exists; `system::create_directory` makes a whole chain.
VELDRIN_EXPORT void mkdir(strings::ustring8 const& path);
VELDRIN_EXPORT void mkdir(strings::ustring16 const& path);
VELDRIN_EXPORT void mkdir(strings::ustring32 const& path);

// Gives the entry `old_path` the name `new_path`. The new name comes first. An existing entry of that name is
// never replaced: nothing happens then.
VELDRIN_EXPORT void move(strings::ustring8 const& new_path, strings::ustring8 const& old_path);
VELDRIN_EXPORT void move(strings::ustring16 const& new_path, strings::ustring16 const& old_path);
VELDRIN_EXPORT void move(strings::ustring32 const& new_path, strings::ustring32 const& old_path);

// Never removes a directory. Of a link the link itself goes.
VELDRIN_EXPORT void remove_file(strings::ustring8 const& path);
VELDRIN_EXPORT void remove_file(strings::ustring16 const& path);
VELDRIN_EXPORT void remove_file(strings::ustring32 const& path);

// Removes an empty directory, and nothing else.
VELDRIN_EXPORT void remove_dir(strings::ustring8 const& path);
VELDRIN_EXPORT void remove_dir(strings::ustring16 const& path);
VELDRIN_EXPORT void remove_dir(strings::ustring32 const& path);

} // namespace VELDRIN_2_18::system::io
