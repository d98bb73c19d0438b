// File: veldrin/config/config_dispatch.hpp
//
// The policy of a manager: which items there are, in which order, and how they are loaded, unloaded and
// saved. A manager makes a clone of the dispatch that it is given.

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::config {

class VELDRIN_EXPORT config_dispatch : public generic::abilities::clone_ability {
public:
    ~config_dispatch() override;

    // Appends the items.
    virtual void setup(item_list& items) const = 0;

    virtual void load(item_list& items) const = 0;
    virtual void unload(item_list& items) const = 0;
    virtual void save(item_list& items) const = 0;

    // A copy on the heap; the caller owns it.
    virtual config_dispatch* clone() const = 0;

protected:
    config_dispatch();
    config_dispatch(config_dispatch const& other);
    config_dispatch& operator=(config_dispatch const& other);
};

} // namespace VELDRIN_2_18::config
