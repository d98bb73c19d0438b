#include "veldrin/config/config_manager.hpp"

#include <algorithm>
#include <ostream>
#include <set>

namespace VELDRIN_2_18::config {

using memory::pointers::rc_pointer;
using strings::ustring8;
using types::variant;

namespace {

bool is_array_head(config_tree::entry_type const& entry) {
    constexpr unsigned int head = config_tree::flag_set | config_tree::flag_array;
    return (entry.first & head) == head;
}

bool is_alias(config_tree::entry_type const& entry) { return (entry.first & config_tree::flag_alias) != 0; }

struct answer {
    base_config_item* item = nullptr;
    config_tree::entry_type const* entry = nullptr;
};

// Of the first item whose entry at the key meets the condition; nulls if there is none.
template <class Condition>
answer find_answer(item_list const& items, ustring8 const& key, Condition condition) {
    for (rc_pointer<base_config_item> const& item : items) {
        config_tree::entry_type const* const entry = item->get_value(key);
        if (entry != nullptr && condition(*entry)) {
            return {item.get(), entry};
        }
    }
    return {};
}

answer find_answer(item_list const& items, ustring8 const& key) {
    return find_answer(items, key, [](config_tree::entry_type const&) { return true; });
}

variant first_element(base_config_item const& item, ustring8 const& key) {
    config_tree::entry_type const* const element = item.get_value(key + ".0");
    return element != nullptr ? element->second : variant();
}

} // namespace

config_manager::config_manager() = default;

config_manager::config_manager(config_manager const& other) = default;

config_manager& config_manager::operator=(config_manager const& other) = default;

config_manager::~config_manager() = default;

void config_manager::init(config_dispatch const& dispatch) {
    m_dispatch.reset();
    m_items.clear();
    m_dispatch.reset(dispatch.clone());
    m_dispatch->setup(m_items);
}

bool config_manager::load() { return dispatched(&config_dispatch::load); }

bool config_manager::unload() { return dispatched(&config_dispatch::unload); }

bool config_manager::save() { return dispatched(&config_dispatch::save); }

bool config_manager::dispatched(void (config_dispatch::*operation)(item_list&) const) {
    if (m_dispatch == nullptr) {
        return false;
    }
    ((*m_dispatch).*operation)(m_items);
    return true;
}

variant config_manager::get_value(ustring8 const& key, variant default_value) const {
    // Byte for byte as they were written: a circle whose keys change their case takes a turn more.
    std::set<ustring8> visited;
    ustring8 current = key;
    for (;;) {
        auto const [item, entry] = find_answer(m_items, current);
        if (item == nullptr) {
            return default_value;
        }
        if (is_array_head(*entry)) {
            return first_element(*item, current);
        }
        if (!is_alias(*entry)) {
            return entry->second;
        }
        visited.insert(current);
        current = entry->second.as_string();
        if (visited.count(current) != 0) {
            return entry->second;
        }
    }
}

bool config_manager::value_exist(ustring8 const& key) const {
    return get_value(key, types::nil) != types::nil;
}

bool config_manager::is_array(ustring8 const& key) const {
    return find_answer(m_items, key, is_array_head).item != nullptr;
}

void config_manager::get_array(ustring8 const& key, std::vector<variant>& out) const {
    base_config_item* const item = find_answer(m_items, key, is_array_head).item;
    if (item == nullptr) {
        return;
    }
    config_tree::entry_list elements;
    item->get_array(key, elements);
    for (auto const& [name, element] : elements) {
        out.push_back(element.second);
    }
}

void config_manager::get_key_value_array(ustring8 const& key, std::vector<std::pair<ustring8, variant>>& out,
                                         bool recursive) const {
    base_config_item* const item = find_answer(m_items, key).item;
    if (item == nullptr) {
        return;
    }
    config_tree::entry_list entries;
    item->get_value_pair_array(key, entries, recursive);
    for (auto const& [name, entry] : entries) {
        out.emplace_back(name, entry.second);
    }
}

rc_pointer<base_config_item> config_manager::get_config_item(ustring8 const& id) const {
    auto const found =
        std::find_if(m_items.begin(), m_items.end(),
                     [&](rc_pointer<base_config_item> const& item) { return item->get_id() == id; });
    return found == m_items.end() ? rc_pointer<base_config_item>() : *found;
}

void config_manager::dump(std::ostream& os) const {
    os.width(0);
    os << "config_manager:\n";
    for (rc_pointer<base_config_item> const& item : m_items) {
        os << "\nconfig_item:\n";
        item->dump(os);
    }
    os << "\nno more config_items!\n\nending output\n";
}

std::ostream& operator<<(std::ostream& os, config_manager const& manager) {
    manager.dump(os);
    return os;
}

} // namespace VELDRIN_2_18::config
