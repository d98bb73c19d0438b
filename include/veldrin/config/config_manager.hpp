// File: veldrin/config/config_manager.hpp
//
// What an application holds: a list of sources, asked in their order.
//
//     config::config_manager manager;
//     manager.init(config::std_config_dispatch(argc, argv, envp, "sync.cfg", ""));
//     manager.load();
//     manager.get_value("window.width", 640).as_int();     // 800 with -window.width=800, or 640

#pragma once

#include <iosfwd>
#include <memory>
#include <utility>
#include <vector>

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/config/config_dispatch.hpp"
#include "veldrin/export.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::config {

// A question about one key is answered by the first item that has a node there, and by that one alone:
// neither subtrees nor arrays of several items are put together. A node that is only passed through counts,
// with the value true, so "a.b" in one item hides "a" in all items behind it.
class VELDRIN_EXPORT config_manager {
public:
    // No items: every question is answered as for an unknown key.
    config_manager();

    // Items and dispatch are shared with the source: what is set through one shows through the other.
    config_manager(config_manager const& other);
    config_manager& operator=(config_manager const& other);

    virtual ~config_manager();

    // Takes a clone of the dispatch, and the items that it sets up, in place of those that were there. Loads
    // nothing. What is there is given up first: if the cloning or the setup throws, the manager is left with
    // what it had come to, and the dispatch that the manager holds cannot be passed.
    void init(config_dispatch const& dispatch);

    // Hand the items to the dispatch. False, and nothing is done, before `init`; otherwise true. `save`
    // writes no file with the dispatches of this library: a file is written by the item,
    //     manager.get_config_item("standard file")->save();
    // What a dispatch or an item throws passes through. Neither may initialise, assign or destroy the manager
    // that calls it; an item may ask it.
    bool load();
    bool unload();
    bool save();

    // The value of the key, or `default_value` if no item has it. Of an array the value is that of its
    // element 0, or nil if there is none. An alias is replaced by the key that it names, for which the items
    // are asked from the first on; one that leads back to a key that was asked already has its own text as
    // the value.
    types::variant get_value(strings::ustring8 const& key, types::variant default_value) const;

    // Whether `get_value` with the default nil is anything else.
    bool value_exist(strings::ustring8 const& key) const;

    // Whether any item has an array at the key, even if an item in front of it has a plain value there.
    // Aliases are not followed, nor are they in the two below.
    bool is_array(strings::ustring8 const& key) const;

    // Appends the elements of the first array at the key.
    void get_array(strings::ustring8 const& key, std::vector<types::variant>& out) const;

    // Appends what the first item with a node at the key has below it, as
    // `base_config_item::get_value_pair_array` does, without the flags. Names are relative to the key. For
    // the empty key that is the whole tree of the first item with a node of the empty name, if there is one.
    void get_key_value_array(strings::ustring8 const& key,
                             std::vector<std::pair<strings::ustring8, types::variant>>& out,
                             bool recursive) const;

    // The first item of that id, or null. The file is "standard file", the user item "user_item", the others
    // "command line" and "enviroment".
    memory::pointers::rc_pointer<base_config_item> get_config_item(strings::ustring8 const& id) const;

    // Writes all items for a reader.
    void dump(std::ostream& os) const;

private:
    bool dispatched(void (config_dispatch::*operation)(item_list&) const);

    item_list m_items;
    std::shared_ptr<config_dispatch const> m_dispatch;
};

// `manager.dump(os)`.
VELDRIN_EXPORT std::ostream& operator<<(std::ostream& os, config_manager const& manager);

} // namespace VELDRIN_2_18::config
