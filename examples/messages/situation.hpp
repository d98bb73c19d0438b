// One situation of the file-synchronising tool, told in whatever language is asked for.

#pragma once

#include <iosfwd>
#include <vector>

#include "veldrin/strings/ustring.hpp"

using veldrin::strings::ustring8;

// The catalogue files below a directory, in byte order. What lies in a folder named "shared" comes in by
// `include`.
std::vector<ustring8> catalog_files(ustring8 const& directory);

// Every message of the catalogues in one language, falling back by weight. False, with the reason on the
// standard error stream, if a catalogue cannot be loaded.
bool print_situation(std::ostream& out, std::vector<ustring8> const& files, ustring8 const& language);

// The same situation in every language that the catalogues hold, message by message.
bool print_table(std::ostream& out, std::vector<ustring8> const& files);
