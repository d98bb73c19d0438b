// What the two forms of `platform::path` share: conversion that can tell its own failure.

#pragma once

#include <algorithm>
#include <optional>
#include <type_traits>

#include "veldrin/strings/unicode.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::platform {

template <class Text>
bool reads_minus_one(Text const& text) {
    return text.size() == 2 && text[0] == '-' && text[1] == '1';
}

// The converters of veldrin/strings/unicode.hpp answer bad text by the text "-1", which is a fine name for a
// file; those of UTF-16 do not return from a text that starts with the swapped mark; those of UTF-32 leave
// out units beyond Unicode, and what is left names another entry. Here all of these give nothing.
template <class To, class From>
std::optional<To> converted(From const& text, To (*convert)(From const&)) {
    if constexpr (std::is_same_v<From, strings::ustring16>) {
        if (!text.empty() && text.front() == strings::swapped_byte_order_mark) {
            return std::nullopt;
        }
    }
    if constexpr (std::is_same_v<From, strings::ustring32>) {
        auto const is_beyond_unicode = [](strings::utf32_unit unit) { return unit > 0x10FFFF; };
        if (std::any_of(text.begin(), text.end(), is_beyond_unicode)) {
            return std::nullopt;
        }
    }
    To result = convert(text);
    if (reads_minus_one(result) && !reads_minus_one(text)) {
        return std::nullopt;
    }
    return result;
}

} // namespace VELDRIN_2_18::platform
