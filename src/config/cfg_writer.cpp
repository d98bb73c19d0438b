#include "config/cfg_writer.hpp"

#include <utility>

#include "config/config_tree_walk.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/types/radix.hpp"

namespace VELDRIN_2_18::config::_private {

using strings::ustring8;

namespace {

constexpr char const* line_end = "\r\n";

bool counts_as_element(ustring8 const& last_segment) {
    return generic::convert::str_to_int(last_segment.c_str(), last_segment.size(), types::radix_t::detect,
                                        false) != 0;
}

} // namespace

cfg_writer::cfg_writer(config_tree const& tree) {
    std::vector<std::size_t> path = {none};
    config_tree::walk(
        tree,
        [&](ustring8 const& name, config_tree const& node) {
            path.push_back(m_entries.size());
            add_entry(path[path.size() - 2], name, node.entry);
            return true;
        },
        [&] { path.pop_back(); });
}

ustring8 cfg_writer::text() {
    for (entry_type const& entry : m_entries) {
        if (entry.content->first == 0) {
            write_section(entry);
        }
    }
    return std::exchange(m_text, ustring8());
}

// The last segment is that of the full name with one dot at its end dropped: behind an empty own name it is
// that of the parent. Where it is not what the name ends in, the entry is in no section.
void cfg_writer::add_entry(std::size_t parent, ustring8 const& own_name,
                           config_tree::entry_type const& content) {
    bool const has_parent = parent != none;
    std::size_t const section_length = has_parent ? m_entries[parent].name_length : 0;
    ustring8 const& last_segment = has_parent && own_name.empty() ? *m_entries[parent].own_name : own_name;
    bool const has_section = section_length != 0;
    if (has_section && content.first != 0 && last_segment == own_name) {
        m_members[section_length].push_back(m_entries.size());
    }
    m_entries.push_back({has_section ? parent : none, &own_name, &last_segment, &content,
                         has_section ? section_length + 1 + own_name.size() : own_name.size()});
}

ustring8 cfg_writer::name_of(entry_type const& entry) const {
    ustring8 name(entry.name_length, '.');
    std::size_t end = entry.name_length;
    for (entry_type const* part = &entry;; part = &m_entries[part->parent]) {
        end -= part->own_name->size();
        name.replace(end, part->own_name->size(), *part->own_name);
        if (part->parent == none) {
            return name;
        }
        --end;
    }
}

void cfg_writer::write_section(entry_type const& section) {
    m_text += '[';
    write_quoted(name_of(section));
    m_text += ']';
    m_text += line_end;
    std::size_t next = 0;
    for (std::size_t const member : m_members[section.name_length]) {
        if (member >= next) {
            next = write_member(member);
        }
    }
    m_text += line_end;
}

// Returns the index of the next entry that may be written in the section.
std::size_t cfg_writer::write_member(std::size_t index) {
    constexpr unsigned int array_head = config_tree::flag_set | config_tree::flag_array;
    entry_type const& member = m_entries[index];
    write_quoted(*member.last_segment);
    if (member.content->first == array_head) {
        m_text += "[]=";
        index = write_elements(index + 1);
    } else {
        m_text += '=';
        write_value(member);
    }
    m_text += line_end;
    return index + 1;
}

// Returns the index of the entry at which the elements end: the caller passes over that one.
std::size_t cfg_writer::write_elements(std::size_t index) {
    if (index == m_entries.size() || *m_entries[index].last_segment != "0") {
        return index;
    }
    write_value(m_entries[index]);
    while (++index != m_entries.size() && counts_as_element(*m_entries[index].last_segment)) {
        m_text += ',';
        write_value(m_entries[index]);
    }
    return index;
}

void cfg_writer::write_value(entry_type const& entry) { write_quoted(entry.content->second.as_utf8()); }

void cfg_writer::write_quoted(ustring8 const& text) {
    bool const needs_quotes = text.find_first_of(" \r\t\n") != ustring8::npos;
    if (needs_quotes) {
        m_text += '"';
    }
    m_text += text;
    if (needs_quotes) {
        m_text += '"';
    }
}

} // namespace VELDRIN_2_18::config::_private
