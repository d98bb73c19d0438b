// A path in the form that the operating system takes, and the way back to the text classes.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::platform {

#ifdef _WIN32
using path_text = strings::wide_string;
inline constexpr strings::utf16_unit path_separator = L'\\';
#else
using path_text = std::string;
inline constexpr char path_separator = '/';
#endif

class path {
public:
    // A text that cannot be converted, or that holds a zero unit, gives a path that names nothing.
    explicit path(strings::ustring8 const& text);
    explicit path(strings::ustring16 const& text);
    explicit path(strings::ustring32 const& text);

    bool names_something() const { return m_names_something; }

    // Empty for a path that names nothing: the system's calls for one entry fail on that.
    path_text const& text() const { return m_text; }

    path prefix(std::size_t length) const { return path(m_text.substr(0, length), m_names_something); }
    path child(path_text const& name) const {
        return path(m_text + path_separator + name, m_names_something);
    }

    // The path as `ustring8`, `ustring16` or `ustring32`; nothing if that would not lead back to this path.
    // Only a `ustring32` may be one that does not: with question marks where the system takes UTF-8, with a
    // character beyond U+FFFF where it takes UTF-16.
    template <class Text>
    std::optional<Text> as() const;

private:
    path(path_text text, bool names_something)
        : m_text(std::move(text)), m_names_something(names_something) {}

    explicit path(std::optional<path_text> text);

    path_text m_text;
    bool m_names_something = false;
};

template <>
std::optional<strings::ustring8> path::as() const;
template <>
std::optional<strings::ustring16> path::as() const;
template <>
std::optional<strings::ustring32> path::as() const;

} // namespace VELDRIN_2_18::platform
