// What stands in one catalogue file, read through the token stream.

#pragma once

#include <cstddef>
#include <iosfwd>
#include <set>
#include <vector>

#include "veldrin/strings/ustring.hpp"

struct catalog_summary {
    veldrin::strings::ustring8 name;
    veldrin::strings::ustring8 language;
    std::size_t messages = 0;
};

// The catalogues of the text in their order, as far as its XML is well formed.
std::vector<catalog_summary> summarise(veldrin::strings::ustring8 const& text);

// The languages of the file's `lang` attributes, includes not followed.
std::set<veldrin::strings::ustring8> languages_of(veldrin::strings::ustring8 const& path);

// Loads the file once for each of its languages, so that every catalogue in it is looked at. Prints its
// catalogues, languages and message counts and returns 0, or prints the whole error chain and returns 1.
int check(std::ostream& out, std::ostream& error, veldrin::strings::ustring8 const& path);
