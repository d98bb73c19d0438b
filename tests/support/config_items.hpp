// What configuration items hold, as texts that tests compare.

#pragma once

#include <sstream>
#include <string>

#include "support/config_entries.hpp"
#include "veldrin/config/base_config_item.hpp"

namespace support {

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
