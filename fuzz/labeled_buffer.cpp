// The reading of labeled buffers, and their overlay, against a plain model. The first byte gives the place at
// which the rest is cut into two renderings: both are read, and the second is laid over the first.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "require.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/serialization/labeled_text_buffer.hpp"

namespace {

using namespace VELDRIN_2_18;
using serialization::labeled_text_buffer;

// ---- The model -----------------------------------------------------------------------------------------

struct model_entry;
using model = std::map<std::string, model_entry>;

struct model_entry {
    model group;
    std::optional<std::string> value;
};

// One string from `position` on, which moves behind it; nothing where the reading ends.
std::optional<std::string> next_string(std::string_view text, std::int64_t& position) {
    auto const size = static_cast<std::int64_t>(text.size());
    std::size_t const end = text.find('\1', static_cast<std::size_t>(position));
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    std::string const field(
        text.substr(static_cast<std::size_t>(position), end - static_cast<std::size_t>(position)));
    std::int64_t const length =
        generic::convert::str_to_int32(field.c_str(), 0, types::radix_t::detect, false);
    auto const start = static_cast<std::int64_t>(end) + 1;
    std::string string(text.substr(static_cast<std::size_t>(start),
                                   length < 0 ? std::string_view::npos : static_cast<std::size_t>(length)));
    std::int64_t const behind = start + length + 1;
    if (behind >= 0 && behind <= position) {
        return std::nullopt;
    }
    // The bytes of a negative length are not read again.
    position = length < 0 ? size : std::min(behind, size);
    return string;
}

std::string trimmed(std::string label) {
    label.erase(0, std::min(label.find_first_not_of(" \n\r\t"), label.size()));
    label.erase(label.find_last_not_of(" \n\r\t") + 1);
    return label;
}

void read(model& target, std::string_view text, int depth) {
    auto const size = static_cast<std::int64_t>(text.size());
    for (std::int64_t position = 0; position < size;) {
        auto const label = next_string(text, position);
        if (!label || label->empty()) {
            return;
        }
        auto const content = position < size ? next_string(text, position) : std::string();
        if (label->back() == ' ') {
            model& group = target[trimmed(*label)].group;
            group.clear();
            if (content && depth < 1000) {
                read(group, *content, depth + 1);
            }
        } else if (content) {
            target[trimmed(*label)].value = content;
        }
        if (!content) {
            return;
        }
    }
}

std::string framed(std::string const& text) { return std::to_string(text.size()) + '\1' + text + '\1'; }

std::string rendered(model const& source) {
    std::string text;
    for (auto const& [label, entry] : source) {
        if (entry.group.empty() || entry.value) {
            text += framed(label) + framed(entry.value.value_or(""));
        }
        if (!entry.group.empty()) {
            text += framed(label + ' ') + framed(rendered(entry.group));
        }
    }
    return text;
}

void overlay(model& target, model const& other) {
    for (auto const& [label, source] : other) {
        auto const [found, is_new] = target.emplace(label, source);
        if (!is_new) {
            if (source.group.empty() || source.value) {
                found->second.value = source.value;
            }
            overlay(found->second.group, source.group);
        }
    }
}

bool has_empty_label(model const& tested) {
    return std::any_of(tested.begin(), tested.end(), [](auto const& member) {
        return member.first.empty() || has_empty_label(member.second.group);
    });
}

// ---- The buffers ---------------------------------------------------------------------------------------

void check_members(labeled_text_buffer& buffer, model const& expected) {
    require(buffer.is_empty() == expected.empty());
    for (auto const& [label, entry] : expected) {
        require(buffer.has_label(label) && buffer.has_value(label) == entry.value.has_value());
        require(buffer.retrieve_value(label).as_string() == entry.value.value_or(""));
        require(buffer.has_group(label) == !entry.group.empty());
        check_members(dynamic_cast<labeled_text_buffer&>(*buffer.retrieve_group(label)), entry.group);
    }
}

void check(labeled_text_buffer& buffer, model const& expected) {
    std::string const text = buffer.as_str();
    require(text == rendered(expected));
    check_members(buffer, expected);
    require(labeled_text_buffer(buffer).as_str() == text);
    if (!has_empty_label(expected)) {
        require(labeled_text_buffer(text).as_str() == text);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    std::size_t const cut = 1 + data[0] % size;
    std::string const first_text(data + 1, data + cut);
    std::string const second_text(data + cut, data + size);

    labeled_text_buffer first(first_text);
    model first_model;
    read(first_model, first_text, 0);
    check(first, first_model);

    labeled_text_buffer second(second_text);
    model second_model;
    read(second_model, second_text, 0);
    check(second, second_model);

    first.overlay(second);
    overlay(first_model, second_model);
    check(first, first_model);
    return 0;
}
