#include "veldrin/config/base_config_item.hpp"

#include <cstdint>
#include <ostream>
#include <string>

namespace VELDRIN_2_18::config {

using strings::ustring8;

// The base is left alone: flag and count belong to the object.
base_config_item& base_config_item::operator=(base_config_item const& other) {
    id = other.id;
    tree = other.tree;
    return *this;
}

base_config_item::~base_config_item() = default;

bool base_config_item::load() { return true; }

bool base_config_item::load(item_list const&) { return load(); }

bool base_config_item::save() { return true; }

bool base_config_item::save(item_list const&) { return true; }

void base_config_item::unload() {}

ustring8 base_config_item::get_id() { return id; }

config_tree::entry_type const* base_config_item::get_value(ustring8 const& key) const {
    return tree.get_node(key);
}

void base_config_item::get_array(ustring8 const& key, config_tree::entry_list& out) {
    tree.get_array(key, out);
}

void base_config_item::get_value_pair_array(ustring8 const& key, config_tree::entry_list& out,
                                            bool recursive) {
    tree.get_value_pair_array(key, out, recursive, {});
}

std::pair<ustring8, types::variant> base_config_item::make_key_value(ustring8 const& text,
                                                                     config_token::tok_types delimiter) {
    unsigned int position = 0;
    config_token token;
    ustring8 key;
    while (get_token(text, position, token) != config_token::T_END && token.type != delimiter) {
        if (token.type != config_token::T_NEWLINE && token.type != config_token::T_SPACE &&
            token.type != config_token::T_TABCHAR) {
            key += token.text;
        }
    }
    ustring8 value;
    while (get_token(text, position, token) != config_token::T_END && token.type != config_token::T_NEWLINE) {
        if (token.type != config_token::T_SPACE && token.type != config_token::T_TABCHAR) {
            value += token.text;
        }
    }
    return {key, value};
}

void base_config_item::set(std::pair<ustring8, types::variant> const& key_value, unsigned int flags) {
    set(key_value.first, key_value.second, flags);
}

void base_config_item::set(ustring8 const& key, types::variant const& value, unsigned int flags) {
    tree.set_node(key, value, flags);
}

void base_config_item::set(ustring8 const& text, unsigned int flags) {
    set(make_key_value(text, config_token::T_EQ), flags);
}

void base_config_item::set_array(ustring8 const& key, generic::varg_list const& values,
                                 generic::varg_list const& element_flags) {
    set(key, types::nil, config_tree::flag_array);
    if (!values.empty()) {
        set_elements(tree.node_at(key + '.'), values, element_flags);
    }
}

// The elements are named below their parent: a long key is not looked up again for each of them.
void base_config_item::set_elements(config_tree& parent, generic::varg_list const& values,
                                    generic::varg_list const& element_flags) {
    for (std::uint64_t index = 0; index < values.count(); ++index) {
        ustring8 const name(std::to_string(index));
        types::variant const& value = values[index].value();
        if (element_flags.empty()) {
            parent.set_node(name, value, 0);
        } else if (index < element_flags.count()) {
            parent.set_node(name, value, element_flags[index].value().as_uint32());
        } else {
            // Behind the last flag it is the number that is stored, not the value.
            parent.set_node(name, value.as_uint32(), 0);
        }
    }
}

void base_config_item::dump(std::ostream& os) {
    os.width(0);
    os << "object : " << id << "\n|---------------\\\n";
    tree.dump(os, 1);
    os << "end\n";
}

std::ostream& operator<<(std::ostream& os, base_config_item& item) {
    item.dump(os);
    return os;
}

} // namespace VELDRIN_2_18::config
