#include "veldrin/strings/replace.hpp"

#include <cstddef>
#include <utility>

namespace VELDRIN_2_18::strings {

namespace {

// Built aside, so that each unit moves once however many replacements there are.
template <class Text>
std::int32_t replace(Text& text, Text const& from, Text const& to) {
    if (from.empty()) {
        return 0;
    }
    Text result;
    std::size_t count = 0;
    std::size_t position = 0;
    for (std::size_t found = text.find(from); found != Text::npos; found = text.find(from, position)) {
        result.append(text, position, found - position).append(to);
        position = found + from.size();
        ++count;
    }
    if (count != 0) {
        result.append(text, position, Text::npos);
        text = std::move(result);
    }
    return static_cast<std::int32_t>(count);
}

} // namespace

std::int32_t replace_all(std::string& text, std::string const& from, std::string const& to) {
    return replace(text, from, to);
}

std::int32_t replace_all(wide_string& text, wide_string const& from, wide_string const& to) {
    return replace(text, from, to);
}

std::int32_t replace_all(ustring8& text, ustring8 const& from, ustring8 const& to) {
    return replace(text, from, to);
}

std::int32_t replace_all(ustring16& text, ustring16 const& from, ustring16 const& to) {
    return replace(text, from, to);
}

std::int32_t replace_all(ustring32& text, ustring32 const& from, ustring32 const& to) {
    return replace(text, from, to);
}

std::int32_t gh2::replace_all(wide_string& text, wide_string const& from, wide_string const& to) {
    return replace(text, from, to);
}

} // namespace VELDRIN_2_18::strings
