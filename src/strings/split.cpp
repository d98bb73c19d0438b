#include "veldrin/strings/split.hpp"

#include <cstdint>

namespace VELDRIN_2_18::strings {

namespace {

template <class Text>
std::vector<Text> split(Text const& text, Text const& delimiter, int limit) {
    if (delimiter.empty()) {
        return {text};
    }
    std::vector<Text> pieces;
    std::size_t position = 0;
    for (std::int64_t cuts = 0; position < text.size();) {
        std::size_t const found = text.find(delimiter, position);
        if (found == Text::npos) {
            break;
        }
        pieces.emplace_back(text, position, found - position);
        position = found + delimiter.size();
        if (++cuts == limit) {
            break;
        }
    }
    if (position < text.size()) {
        pieces.emplace_back(text, position, Text::npos);
    }
    return pieces;
}

} // namespace

std::vector<std::string> split_string(std::string const& text, std::string const& delimiter, int limit) {
    return split(text, delimiter, limit);
}

std::vector<wide_string> split_string(wide_string const& text, wide_string const& delimiter, int limit) {
    return split(text, delimiter, limit);
}

std::vector<ustring8> split_string(ustring8 const& text, ustring8 const& delimiter, int limit) {
    return split(text, delimiter, limit);
}

std::vector<ustring16> split_string(ustring16 const& text, ustring16 const& delimiter, int limit) {
    return split(text, delimiter, limit);
}

std::vector<ustring32> split_string(ustring32 const& text, ustring32 const& delimiter, int limit) {
    return split(text, delimiter, limit);
}

std::vector<std::string> split_string(std::string const& text, char const* delimiter, int limit) {
    return split(text, std::string(delimiter), limit);
}

std::vector<ustring8> split_string(ustring8 const& text, char const* delimiter, int limit) {
    return split(text, ustring8(delimiter), limit);
}

} // namespace VELDRIN_2_18::strings
