// ASCII texts of any text class, so that one test body serves them all.

#pragma once

#include <string_view>
#include <vector>

namespace support {

template <class Text>
Text text_of(std::string_view ascii) {
    return Text(ascii.begin(), ascii.end());
}

template <class Text>
std::vector<Text> texts_of(std::vector<std::string_view> const& ascii) {
    std::vector<Text> texts;
    for (std::string_view const text : ascii) {
        texts.push_back(text_of<Text>(text));
    }
    return texts;
}

} // namespace support
