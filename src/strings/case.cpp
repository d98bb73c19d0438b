#include "veldrin/strings/case.hpp"

#include <algorithm>
#include <cctype>
#include <type_traits>

namespace VELDRIN_2_18::strings {

namespace {

using change_function = int(int);

// A byte above 127 is part of a multi-byte character, whatever letter the locale sees in it.
template <class Unit>
constexpr std::uint32_t last_value_to_change = sizeof(Unit) == 1 ? 127 : 255;

template <class Text>
Text changed(Text text, std::uint64_t first, std::uint64_t last, change_function* change) {
    using unit = typename Text::value_type;
    std::uint64_t const end = std::min<std::uint64_t>(last, text.size());
    for (std::uint64_t index = first; index < end; ++index) {
        auto const value = static_cast<std::make_unsigned_t<unit>>(text[index]);
        if (value <= last_value_to_change<unit>) {
            text[index] = static_cast<unit>(change(static_cast<int>(value)));
        }
    }
    return text;
}

template <class Text>
Text in_lower_case(Text const& text) {
    return changed(text, 0, Text::npos, &std::tolower);
}

template <class Text>
Text in_upper_case(Text const& text) {
    return changed(text, 0, Text::npos, &std::toupper);
}

} // namespace

ustring8 to_lower(ustring8 const& text) { return in_lower_case(text); }

ustring16 to_lower(ustring16 const& text) { return in_lower_case(text); }

ustring32 to_lower(ustring32 const& text) { return in_lower_case(text); }

ustring8 to_upper(ustring8 const& text) { return in_upper_case(text); }

ustring16 to_upper(ustring16 const& text) { return in_upper_case(text); }

ustring32 to_upper(ustring32 const& text) { return in_upper_case(text); }

ustring8 lower_case(ustring8 const& text, std::uint64_t first, std::uint64_t last) {
    return changed(text, first, last, &std::tolower);
}

ustring16 lower_case(ustring16 const& text, std::uint64_t first, std::uint64_t last) {
    return changed(text, first, last, &std::tolower);
}

ustring32 lower_case(ustring32 const& text, std::uint64_t first, std::uint64_t last) {
    return changed(text, first, last, &std::tolower);
}

wide_string gh2::tolower(wide_string const& text) { return in_lower_case(text); }

wide_string gh2::toupper(wide_string const& text) { return in_upper_case(text); }

} // namespace VELDRIN_2_18::strings
