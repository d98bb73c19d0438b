// Entries of a configuration tree as text, so that a test compares many at once.

#pragma once

#include <string>

#include "veldrin/config/config_tree.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"

namespace support {

// Flag word and value: "1:text", "3:nil".
inline std::string shown(VELDRIN_2_18::config::config_tree::entry_type const& entry) {
    auto const& [flags, value] = entry;
    return std::to_string(flags) + ":" +
           (value == VELDRIN_2_18::types::nil ? "nil" : std::string(value.as_string()));
}

// What `get_node` gives, or "none".
inline std::string shown(VELDRIN_2_18::config::config_tree::entry_type const* entry) {
    return entry != nullptr ? shown(*entry) : "none";
}

// "name=1:text name=..."
inline std::string shown(VELDRIN_2_18::config::config_tree::entry_list const& entries) {
    std::string text;
    for (auto const& [name, entry] : entries) {
        text += (text.empty() ? "" : " ") + name + "=" + shown(entry);
    }
    return text;
}

} // namespace support
