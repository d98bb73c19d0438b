// What the targets of configuration sources look at.

#pragma once

#include <algorithm>

#include "require.hpp"
#include "veldrin/config/base_config_item.hpp"

using config_nodes = VELDRIN_2_18::config::config_tree::entry_list;

inline config_nodes nodes_of(VELDRIN_2_18::config::base_config_item& item) {
    config_nodes nodes;
    item.get_value_pair_array("", nodes, true);
    return nodes;
}

inline bool same_nodes(config_nodes const& left, config_nodes const& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](auto const& one, auto const& other) {
                          return one.first == other.first && one.second.first == other.second.first &&
                                 one.second.second.as_string() == other.second.second.as_string();
                      });
}

// Whatever the source: names are lowered, values are texts, heads of arrays nil, nodes passed through true;
// and loading once more changes nothing.
inline config_nodes loaded_nodes(VELDRIN_2_18::config::base_config_item& item) {
    require(item.load());
    config_nodes const nodes = nodes_of(item);
    for (auto const& [name, entry] : nodes) {
        require(std::none_of(name.begin(), name.end(), [](char byte) { return byte >= 'A' && byte <= 'Z'; }));
        require(entry.first == 0 || entry.first == 1 || entry.first == 3);
        require((entry.second == VELDRIN_2_18::types::nil) == (entry.first == 3));
        require((entry.second.type() == typeid(bool)) == (entry.first == 0));
    }
    require(item.load());
    require(same_nodes(nodes_of(item), nodes));
    return nodes;
}
