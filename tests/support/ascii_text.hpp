// Texts of any text class, written as ordinary literals, so that one test body serves them all.

#pragma once

#include <string_view>
#include <vector>

namespace support {

// One unit a byte, of the byte's value: a byte beyond ASCII is U+0080 to U+00FF in the wider units.
template <class Text>
Text text_of(std::string_view bytes) {
    Text text;
    for (char const byte : bytes) {
        text.push_back(static_cast<typename Text::value_type>(static_cast<unsigned char>(byte)));
    }
    return text;
}

template <class Text>
std::vector<Text> texts_of(std::vector<std::string_view> const& literals) {
    std::vector<Text> texts;
    for (std::string_view const literal : literals) {
        texts.push_back(text_of<Text>(literal));
    }
    return texts;
}

} // namespace support
