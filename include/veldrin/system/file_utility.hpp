// File: veldrin/system/file_utility.hpp
//
// Whole files in and out, chains of directories, and what a directory holds. For paths and for what a failure
// of the file system does see veldrin/system/io.hpp: nothing here throws for one. The separator is the
// platform's own: "/" or, on Windows, the backslash alone.
//
//     strings::ustring8 text;
//     if (system::load_file(strings::ustring8("settings.cfg"), text) == 0) {
//         system::store_file(strings::ustring8("settings.bak"), text);   // the same bytes
//     }

#pragma once

#include <string>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::system {

// True if the path names an entry whose owner may read it, whoever asks.
VELDRIN_EXPORT bool have_read_access(strings::ustring8 const& path);
VELDRIN_EXPORT bool have_read_access(strings::ustring16 const& path);
VELDRIN_EXPORT bool have_read_access(strings::ustring32 const& path);

// Makes every missing directory of the path. True if the path is a directory already or its last level could
// be made, whatever happened on the levels above; false for an empty path. One trailing separator is allowed.
// With two, a directory that is missing is made as well, but the answer is false; whether such a path names a
// directory that is there is for the system to say, and Windows denies it.
VELDRIN_EXPORT bool create_directory(strings::ustring8 const& path);
VELDRIN_EXPORT bool create_directory(strings::ustring16 const& path);
VELDRIN_EXPORT bool create_directory(strings::ustring32 const& path);

// Replaces `contents` by the bytes of the file, unchecked and unchanged, and returns 0; returns 1, with
// `contents` untouched, if the file cannot be opened, as is the case for a directory. Bytes that the file has
// lost between the look at its size and the reading are zero.
// The size is kept in an `int`: a file from 2 GiB to below 4 GiB, and one whose size cannot be told, such as
// a pipe, end in the standard library's failure to make so long a string. For longer files nothing is
// promised.
VELDRIN_EXPORT int load_file(strings::ustring8 const& path, strings::ustring8& contents);
VELDRIN_EXPORT int load_file(strings::ustring16 const& path, strings::ustring8& contents);
VELDRIN_EXPORT int load_file(strings::ustring32 const& path, strings::ustring8& contents);
VELDRIN_EXPORT int load_file(strings::ustring8 const& path, std::string& contents);
VELDRIN_EXPORT int load_file(strings::ustring16 const& path, std::string& contents);
VELDRIN_EXPORT int load_file(strings::ustring32 const& path, std::string& contents);

// Creates or empties the file, writes exactly the bytes of `contents` and returns 0; returns 1 if the file
// cannot be opened. It makes no directories. A failing write is not reported.
VELDRIN_EXPORT int store_file(strings::ustring8 const& path, strings::ustring8 const& contents);
VELDRIN_EXPORT int store_file(strings::ustring16 const& path, strings::ustring8 const& contents);
VELDRIN_EXPORT int store_file(strings::ustring32 const& path, strings::ustring8 const& contents);

// Appends the paths of all readable files in and below `directory`: `directory`, a separator and the name.
// What counts as readable is `have_read_access`. Files come in the system's own order, those of a
// subdirectory where it was met; directories are not listed, and one that cannot be read, or does not exist,
// counts as empty. A link that leads back to a directory which the walk is inside of is not followed. An
// empty `directory` is the root. A name that has no UTF-16 form is left out of a `ustring16` list; in a
// `ustring32` list question marks stand for its odd bytes.
VELDRIN_EXPORT void get_directory_files(strings::ustring8 const& directory,
                                        std::vector<strings::ustring8>& files);
VELDRIN_EXPORT void get_directory_files(strings::ustring16 const& directory,
                                        std::vector<strings::ustring16>& files);
VELDRIN_EXPORT void get_directory_files(strings::ustring32 const& directory,
                                        std::vector<strings::ustring32>& files);

// The first entry that the system delivers is dropped, whatever it is: mostly that is ".", but on Linux it
// can be any file, which is then missing from the list. Where every file counts, use `get_directory_files`
// and filter its paths; a list of messages to load, say, in C++20:
//
//     std::vector<strings::ustring8> paths;
//     system::get_directory_files(strings::ustring8("catalogs"), paths);
//     std::erase_if(paths, [](strings::ustring8 const& path) { return !path.ends_with(".xmc"); });
//     catalogs.load(paths, "en");
//
// Otherwise: the paths of all entries of this one level, files, directories and others alike, readable or
// not, but without "." and ".."; `directory`, a separator and the name, in the system's own order. Empty if
// the directory cannot be read. An empty `directory`, and names without a form in the list's encoding, are as
// above.
VELDRIN_EXPORT std::vector<strings::ustring8> list_directory(strings::ustring8 const& directory);
VELDRIN_EXPORT std::vector<strings::ustring16> list_directory(strings::ustring16 const& directory);
VELDRIN_EXPORT std::vector<strings::ustring32> list_directory(strings::ustring32 const& directory);

} // namespace VELDRIN_2_18::system
