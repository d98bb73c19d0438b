// The input as text of any unit: its whole units, in the machine's byte order.

#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

template <class Text>
Text text_of_bytes(std::uint8_t const* data, std::size_t size) {
    Text text(size / sizeof(typename Text::value_type), typename Text::value_type());
    if (!text.empty()) {
        std::memcpy(text.data(), data, text.size() * sizeof(typename Text::value_type));
    }
    return text;
}
