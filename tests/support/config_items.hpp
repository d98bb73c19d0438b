// What configuration items hold, as texts that tests compare.

#pragma once

#include <sstream>
#include <string>

#include "veldrin/config/base_config_item.hpp"

namespace support {

// "name=flags:text name=...", in the order of the list.
inline std::string shown(VELDRIN_2_18::config::config_tree::entry_list const& entries) {
    std::string text;
    for (auto const& [name, entry] : entries) {
        text += (text.empty() ? "" : " ") + name + '=' + std::to_string(entry.first) + ':';
        text += entry.second == VELDRIN_2_18::types::nil ? "nil" : entry.second.as_string();
    }
    return text;
}

// All nodes of the item.
inline std::string shown(VELDRIN_2_18::config::base_config_item& item) {
    VELDRIN_2_18::config::config_tree::entry_list entries;
    item.get_value_pair_array("", entries, true);
    return shown(entries);
}

// What the item, or a manager, dumps.
template <class Dumped>
std::string dump_of(Dumped& dumped) {
    std::ostringstream stream;
    dumped.dump(stream);
    return stream.str();
}

} // namespace support
