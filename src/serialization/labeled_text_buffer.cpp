#include "veldrin/serialization/labeled_text_buffer.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <utility>

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::serialization {

namespace {

constexpr char group_mark = ' ';
constexpr int deepest_group = 1000;

std::string trimmed(std::string const& label) {
    constexpr char const* white_space = " \n\r\t";
    std::size_t const first = std::min(label.find_first_not_of(white_space), label.size());
    return label.substr(first, label.find_last_not_of(white_space) + 1 - first);
}

// The strings of a rendering, one by one.
class string_reader : public serialize_text_buf {
public:
    explicit string_reader(std::string&& text) { m_data = std::move(text); }

    // Nothing if the text makes no sense here. A negative length takes all bytes that are left and may leave
    // the cursor in front of them: to read them again, and groups within groups of them, would have no end in
    // sight, so nothing is left behind such a string.
    std::optional<std::string> next() const {
        std::uint64_t const start = m_read_pos;
        try {
            std::string string = read_string();
            if (m_read_pos <= start) {
                return std::nullopt;
            }
            if (m_length < 0) {
                m_read_pos = no_position;
            }
            return string;
        } catch (std::out_of_range const&) {
            return std::nullopt;
        }
    }

    // `read_string` reads its length by this.
    std::int32_t read_int32() const override { return m_length = serialize_text_buf::read_int32(); }

private:
    mutable std::int32_t m_length = 0;
};

} // namespace

struct labeled_text_buffer::entry {
    labeled_text_buffer group;
    types::variant value;
};

labeled_text_buffer::labeled_text_buffer() = default;

labeled_text_buffer::labeled_text_buffer(std::string const& text) { read(text, 0); }

labeled_text_buffer::labeled_text_buffer(labeled_text_buffer const& other) : labeled_serialize_buffer(other) {
    for (auto const& [label, source] : other.m_entries) {
        m_entries.emplace_hint(m_entries.end(), label, std::make_unique<entry>(*source));
    }
}

labeled_text_buffer::~labeled_text_buffer() = default;

labeled_serialize_buffer& labeled_text_buffer::assign(char const* data, int size) {
    return assign(std::string(data, static_cast<std::size_t>(std::max(size, 0))));
}

labeled_serialize_buffer& labeled_text_buffer::assign(std::string const& text) {
    read(text, 0);
    return *this;
}

labeled_serialize_buffer& labeled_text_buffer::assign(labeled_serialize_buffer const& other) {
    return assign(other.as_str());
}

// The copy is whole before anything here changes: the source may be a group of this buffer.
labeled_text_buffer& labeled_text_buffer::assign(labeled_text_buffer const& other) {
    if (this != &other) {
        labeled_text_buffer copy(other);
        m_entries.swap(copy.m_entries);
    }
    return *this;
}

std::string const& labeled_text_buffer::as_str() const {
    m_text.assign(std::string());
    render(m_text);
    return m_text.as_str();
}

labeled_serialize_buffer::result_type labeled_text_buffer::add_value(std::string const& label,
                                                                     types::variant const& value) {
    entry& target = entry_for(trimmed(label));
    result_type const result = target.value == types::nil ? value_added : value_replaced;
    target.value = value;
    return result;
}

labeled_serialize_buffer* labeled_text_buffer::create_group(std::string const& label) {
    return &emptied_group(label);
}

bool labeled_text_buffer::has_label(std::string const& label) const { return find(label) != nullptr; }

bool labeled_text_buffer::has_value(std::string const& label) const {
    entry* const found = find(label);
    return found != nullptr && found->value != types::nil;
}

bool labeled_text_buffer::has_group(std::string const& label) const {
    entry* const found = find(label);
    return found != nullptr && !found->group.is_empty();
}

bool labeled_text_buffer::is_empty() const { return m_entries.empty(); }

types::variant labeled_text_buffer::retrieve_value(std::string const& label) {
    entry* const found = find(label);
    return found != nullptr ? found->value : types::variant();
}

labeled_serialize_buffer* labeled_text_buffer::retrieve_group(std::string const& label) {
    entry* const found = find(label);
    return found != nullptr ? &found->group : nullptr;
}

labeled_serialize_buffer const* labeled_text_buffer::retrieve_group(std::string const& label) const {
    entry* const found = find(label);
    return found != nullptr ? &found->group : nullptr;
}

labeled_serialize_buffer* labeled_text_buffer::create() const {
    return generic::abilities::make_dynamic<labeled_text_buffer>();
}

labeled_serialize_buffer* labeled_text_buffer::clone() const {
    return generic::abilities::make_dynamic<labeled_text_buffer>(*this);
}

void labeled_text_buffer::overlay(labeled_text_buffer const& other) {
    labeled_text_buffer copy(other);
    merge(copy);
}

labeled_text_buffer::entry* labeled_text_buffer::find(std::string const& label) const {
    auto const found = m_entries.find(label);
    return found != m_entries.end() ? found->second.get() : nullptr;
}

labeled_text_buffer::entry& labeled_text_buffer::entry_for(std::string const& label) {
    entry* const found = find(label);
    return found != nullptr ? *found : *m_entries.emplace(label, std::make_unique<entry>()).first->second;
}

labeled_text_buffer& labeled_text_buffer::emptied_group(std::string const& label) {
    labeled_text_buffer& group = entry_for(trimmed(label)).group;
    group.m_entries.clear();
    return group;
}

void labeled_text_buffer::render(serialize_text_buf& text) const {
    for (auto const& [label, member] : m_entries) {
        bool const has_members = !member->group.is_empty();
        if (!has_members || member->value != types::nil) {
            text.append_string(label);
            text.append_string(member->value.as_string());
        }
        if (has_members) {
            serialize_text_buf group;
            member->group.render(group);
            text.append_string(label + group_mark);
            text.append_buffer(group);
        }
    }
}

// The groups wait until the text around them is gone: however deep they nest, all texts together take no more
// memory than the first.
void labeled_text_buffer::read(std::string text, int depth) {
    std::map<labeled_text_buffer*, std::string> groups = read_members(std::move(text));
    if (depth == deepest_group) {
        return;
    }
    for (auto& [group, group_text] : groups) {
        group->read(std::move(group_text), depth + 1);
    }
}

std::map<labeled_text_buffer*, std::string> labeled_text_buffer::read_members(std::string text) {
    std::map<labeled_text_buffer*, std::string> groups;
    m_entries.clear();
    string_reader const reader(std::move(text));
    while (!reader.at_end()) {
        std::optional<std::string> const label = reader.next();
        if (!label || label->empty()) {
            break;
        }
        // A read at the end would go back to the front.
        std::optional<std::string> content = reader.at_end() ? std::string() : reader.next();
        if (label->back() == group_mark) {
            groups[&emptied_group(*label)] = content.value_or(std::string());
        } else if (content) {
            add_value(*label, *content);
        }
        if (!content) {
            break;
        }
    }
    return groups;
}

void labeled_text_buffer::merge(labeled_text_buffer& other) {
    m_entries.merge(other.m_entries);
    // What is left there has a label that is here too.
    for (auto const& [label, source] : other.m_entries) {
        entry& target = entry_for(label);
        if (source->group.is_empty() || source->value != types::nil) {
            target.value = source->value;
        }
        target.group.merge(source->group);
    }
}

} // namespace VELDRIN_2_18::serialization
