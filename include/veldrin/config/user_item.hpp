// File: veldrin/config/user_item.hpp
//
// The source of what the application itself sets. It has nothing to load from, and `unload` leaves it alone.
//
//     auto const defaults = manager.get_config_item("user_item");     // with the underscore: see below
//     defaults->set("window.width", 640, 0);

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::config {

class VELDRIN_EXPORT user_item : public base_config_item {
public:
    // The id is "user item".
    user_item();

    // The id of a copy is "user_item", whatever that of the source is. In the list of a manager there are
    // copies only.
    user_item(user_item const& other);

    // Takes the id over too.
    user_item& operator=(user_item const& other);

    ~user_item() override;

    base_config_item* clone() const override;
};

} // namespace VELDRIN_2_18::config
