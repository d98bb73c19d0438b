#include "platform/path.hpp"

#include "platform/path_conversion.hpp"

namespace VELDRIN_2_18::platform {

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

path::path(ustring8 const& text) : path(std::optional<path_text>(converted(text, strings::utf8_to_utf16))) {}

path::path(ustring16 const& text) : path(std::optional<path_text>(text)) {}

path::path(ustring32 const& text)
    : path(std::optional<path_text>(converted(text, strings::utf32_to_utf16))) {}

template <>
std::optional<ustring8> path::as() const {
    std::optional<ustring8> text = converted(ustring16(m_text), strings::utf16_to_utf8);
    if (!text || path(*text).text() != m_text) {
        return std::nullopt;
    }
    return text;
}

template <>
std::optional<ustring16> path::as() const {
    return m_text;
}

template <>
std::optional<ustring32> path::as() const {
    return converted(ustring16(m_text), strings::utf16_to_utf32);
}

} // namespace VELDRIN_2_18::platform
