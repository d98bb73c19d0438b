// What a tree looks like in a `.cfg` file: see `file_item::save`.
//
//     [window]            the node "window", of flag word 0
//     colors[]=red,blue   the array "window.colors"
//     width=640           would be "window.width", but the entry behind an array is left out
//
// Names are put together where they are written, not before: a tree of long keys can be small and the list of
// its keys huge.

#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "veldrin/config/config_tree.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::config::_private {

class cfg_writer {
public:
    // The tree must outlive the writer and stay as it is.
    explicit cfg_writer(config_tree const& tree);

    strings::ustring8 text();

private:
    // One node, without its full name: that is the name of `parent`, a dot and `own_name`.
    struct entry_type {
        std::size_t parent; // `none` if the parent's full name is empty: then there is no dot either
        strings::ustring8 const* own_name;
        strings::ustring8 const* last_segment;
        config_tree::entry_type const* content;
        std::size_t name_length;
    };

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    void add_entry(std::size_t parent, strings::ustring8 const& own_name,
                   config_tree::entry_type const& content);
    strings::ustring8 name_of(entry_type const& entry) const;

    void write_section(entry_type const& section);
    std::size_t write_member(std::size_t index);
    std::size_t write_elements(std::size_t index);
    void write_value(entry_type const& entry);
    void write_quoted(strings::ustring8 const& text);

    // In pre-order.
    std::vector<entry_type> m_entries;

    // By the length of a section's name, whatever the name: the entries that are written in it.
    std::unordered_map<std::size_t, std::vector<std::size_t>> m_members;

    strings::ustring8 m_text;
};

} // namespace VELDRIN_2_18::config::_private
