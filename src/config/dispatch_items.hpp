// What the dispatches of this library do with their items: each in turn, from the front.

#pragma once

#include "veldrin/config/base_config_item.hpp"

namespace VELDRIN_2_18::config::_private {

inline void load_items(item_list const& items) {
    for (auto const& item : items) {
        item->load(items);
    }
}

inline void unload_items(item_list const& items) {
    for (auto const& item : items) {
        item->unload();
    }
}

inline void save_items(item_list const& items) {
    for (auto const& item : items) {
        item->save(items);
    }
}

} // namespace VELDRIN_2_18::config::_private
