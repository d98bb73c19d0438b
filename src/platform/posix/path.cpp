#include "platform/path.hpp"

#include <algorithm>

#include "platform/path_conversion.hpp"

namespace VELDRIN_2_18::platform {

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

namespace {

// The converter leaves such units out, and what is left names another entry.
bool is_beyond_unicode(strings::utf32_unit unit) { return unit > 0x10FFFF; }

std::optional<ustring8> to_bytes(ustring32 const& text) {
    if (std::any_of(text.begin(), text.end(), is_beyond_unicode)) {
        return std::nullopt;
    }
    return converted(text, strings::utf32_to_utf8);
}

} // namespace

path::path(ustring8 const& text) : path(std::optional<path_text>(text)) {}

path::path(ustring16 const& text) : path(std::optional<path_text>(converted(text, strings::utf16_to_utf8))) {}

path::path(ustring32 const& text) : path(std::optional<path_text>(to_bytes(text))) {}

path::path(std::optional<path_text> text)
    : m_names_something(text.has_value() && text->find('\0') == path_text::npos) {
    if (m_names_something) {
        m_text = std::move(*text);
    }
}

template <>
std::optional<ustring8> path::as() const {
    return m_text;
}

template <>
std::optional<ustring16> path::as() const {
    ustring16 text = strings::utf8_to_utf16(m_text);
    if (path(text).text() != m_text) {
        return std::nullopt;
    }
    return text;
}

template <>
std::optional<ustring32> path::as() const {
    return strings::utf8_to_utf32(m_text);
}

} // namespace VELDRIN_2_18::platform
