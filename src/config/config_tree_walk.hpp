// The walk through a tree that all operations on whole trees are made of.

#pragma once

#include <utility>
#include <vector>

#include "veldrin/config/config_tree.hpp"

namespace VELDRIN_2_18::config {

// Goes through the nodes below `top` in pre-order, siblings in byte order, without recursion. `enter(name,
// node)` tells whether to go below the node; `leave()` follows the last child of each node that was gone
// below, and of `top`.
template <class Enter, class Leave>
void config_tree::walk(config_tree const& top, Enter enter, Leave leave) {
    using position = child_map::const_iterator;
    std::vector<std::pair<position, position>> levels = {{top.children.begin(), top.children.end()}};
    while (!levels.empty()) {
        auto& [next, end] = levels.back();
        if (next == end) {
            levels.pop_back();
            leave();
            continue;
        }
        auto const& [name, node] = *next++;
        if (enter(name, *node)) {
            levels.emplace_back(node->children.begin(), node->children.end());
        }
    }
}

} // namespace VELDRIN_2_18::config
