#include "veldrin/config/file_item.hpp"

#include "config/cfg_writer.hpp"
#include "platform/file_stream.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/system/file_utility.hpp"

namespace VELDRIN_2_18::config {

using generic::varg_list;
using strings::ustring8;
using types::variant;

namespace {

constexpr char const* own_id = "standard file";

bool can_be_opened(ustring8 const& name) {
    return platform::open_for_reading(platform::path(name)) != nullptr;
}

// The first name that the key gives in an item, with the extension behind it, if it can be opened; an empty
// text if there is none.
ustring8 find_file(item_list const& items, ustring8 const& key, char const* extension) {
    for (auto const& item : items) {
        config_tree::entry_type const* const entry = item->get_value(key);
        if (entry == nullptr) {
            continue;
        }
        ustring8 name = entry->second.as_string() + extension;
        if (can_be_opened(name)) {
            return name;
        }
    }
    return ustring8();
}

bool is_blank(config_token::tok_types type) {
    return type == config_token::T_SPACE || type == config_token::T_TABCHAR;
}

bool starts_comment(config_token::tok_types type) {
    return type == config_token::T_POUND || type == config_token::T_FSFS;
}

} // namespace

// One function a production. The token in hand is the last one read; at the end of the text it is `T_END`.
class file_item::reader {
public:
    reader(file_item& item, ustring8 const& text) : m_item(item), m_text(text) {}

    // file: {statement}
    void read() {
        while (m_position < m_text.size()) {
            read_statement();
        }
    }

private:
    bool has(config_token::tok_types type) const { return m_token.type == type; }
    bool has_comma() const { return has(config_token::T_NON_ALPHA_NUM) && m_token.text == ","; }

    void next_word() {
        do {
            get_token(m_text, m_position, m_token);
        } while (is_blank(m_token.type));
    }

    // In names, line ends are blanks.
    void next_in_name() {
        do {
            next_word();
        } while (has(config_token::T_NEWLINE));
    }

    // In values there are comments.
    void next_in_value() {
        for (next_word(); starts_comment(m_token.type); next_word()) {
            m_item.parse_comment(m_text, m_position);
        }
    }

    // statement: section | key value | key "[]" array
    void read_statement() {
        do {
            next_in_value();
        } while (has(config_token::T_NEWLINE));
        if (has(config_token::T_SBRACKET)) {
            read_section();
            return;
        }
        ustring8 key = read_key();
        if (key.ends_with("[]")) {
            key.resize(key.size() - 2);
            read_array(key);
        } else if (!key.empty()) {
            read_value(key);
        }
    }

    // section: "[" name "]"
    void read_section() {
        m_section.clear();
        m_section_node = nullptr;
        for (next_in_name(); !has(config_token::T_EBRACKET) && !has(config_token::T_END); next_in_name()) {
            m_section += m_token.text;
        }
        if (!m_section.empty()) {
            m_section += '.';
        }
    }

    // key: name "=", the name's first token being in hand
    ustring8 read_key() {
        ustring8 key;
        for (; !has(config_token::T_EQ) && !has(config_token::T_END); next_in_name()) {
            key += m_token.text;
        }
        return key;
    }

    // value: text line-end
    void read_value(ustring8 const& key) {
        ustring8 value;
        for (next_in_value(); !has(config_token::T_NEWLINE) && !has(config_token::T_END); next_in_value()) {
            value += m_token.text;
        }
        if (!value.empty()) {
            section_node().set_node(key, variant(value), 0);
        }
    }

    // array: text {"," text} line-end, with line ends allowed behind a comma. Where the last text is empty,
    // the others wait for the next array.
    void read_array(ustring8 const& key) {
        ustring8 value;
        bool closed = true;
        for (next_in_value(); !has(config_token::T_END); next_in_value()) {
            if (has(config_token::T_NEWLINE)) {
                if (closed) {
                    break;
                }
            } else if (has_comma()) {
                m_elements.push_back(variant(value));
                value.clear();
                closed = false;
            } else {
                value += m_token.text;
                closed = true;
            }
        }
        if (!value.empty()) {
            m_elements.push_back(variant(value));
            set_array(key);
            m_elements.clear();
        }
    }

    // Behind the dot of a section an empty key adds nothing: the head is the section's own node.
    void set_array(ustring8 const& key) {
        config_tree& top = section_node();
        config_tree& head = key.empty() && !m_section.empty() ? top : top.node_at(key);
        head.entry = {config_tree::flag_set | config_tree::flag_array, types::nil};
        set_elements(top.node_at(key + '.'), m_elements, varg_list());
    }

    // The node that keys are below, made by the first of them: a long name is not looked up again for each.
    config_tree& section_node() {
        if (m_section_node == nullptr) {
            m_section_node = m_section.empty() ? &m_item.tree : &m_item.tree.node_at(m_section);
        }
        return *m_section_node;
    }

    file_item& m_item;
    ustring8 const& m_text;
    unsigned int m_position = 0;
    config_token m_token;
    ustring8 m_section;
    config_tree* m_section_node = nullptr;
    varg_list m_elements;
};

file_item::file_item(ustring8 const& filename) : m_filename(filename) { id = own_id; }

file_item::file_item(file_item const& other) : base_config_item(other), m_filename(other.m_filename) {
    id = own_id;
}

file_item& file_item::operator=(file_item const& other) = default;

file_item::~file_item() = default;

ustring8 file_item::get_filename() const { return m_filename; }

bool file_item::load(item_list const& items) {
    ustring8 const named = find_file(items, "cfg_file", "");
    if (!named.empty()) {
        m_filename = named;
    }
    if (m_filename.empty()) {
        m_filename = find_file(items, "application.name.raw", ".cfg");
    }
    load_file();
    return true;
}

bool file_item::load() {
    load_file();
    return true;
}

bool file_item::save() {
    system::store_file(m_filename, _private::cfg_writer(tree).text());
    return true;
}

bool file_item::save(item_list const&) { return true; }

void file_item::unload() { tree.erase(); }

base_config_item* file_item::clone() const { return generic::abilities::make_dynamic<file_item>(*this); }

void file_item::load_file() {
    ustring8 text;
    if (!m_filename.empty() && system::load_file(m_filename, text) == 0) {
        reader(*this, text).read();
    }
}

void file_item::parse_comment(ustring8 const& text, unsigned int& pos) {
    config_token token;
    unsigned int next = pos;
    do {
        pos = next;
        get_token(text, next, token);
    } while (token.type != config_token::T_NEWLINE && token.type != config_token::T_END);
}

} // namespace VELDRIN_2_18::config
