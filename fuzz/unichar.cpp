// Decoding one character at a time: `unichar`, `character_index`, `get_utf8_length`, `validate_utf8`.

#include <cstddef>
#include <cstdint>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/strings/unicode.hpp"

namespace {

using namespace VELDRIN_2_18::strings;

constexpr auto failed = static_cast<std::size_t>(-1);

// Steps as `utf8_to_utf32` does, straight over the input: a read beyond its end is seen.
void check_bytes(std::uint8_t const* data, std::size_t size) {
    auto const* const text = reinterpret_cast<char const*>(data);
    ustring32 const converted = utf8_to_utf32(ustring8(text, size));
    std::size_t characters = 0;
    for (std::size_t index = 0; index < size; ++characters) {
        std::size_t units = 0;
        utf32_unit const code_point = unichar(text, size, index, units);
        require(characters < converted.size() && code_point == converted[characters]);
        require(gh2::validate_utf8(data + index, size - index) == (units != failed));
        require(units == failed || units == gh2::get_utf8_length(text + index, size - index));
        index += units == failed ? 1 : units;
    }
    require(characters == converted.size());
}

template <class Text>
void check_every_index(Text const& text) {
    for (std::size_t index = 0; index <= text.size(); ++index) {
        std::size_t units = 0;
        utf32_unit const code_point = unichar(text.data(), text.size(), index, units);
        require(units == failed ? code_point == '?' : index + units <= text.size());
    }
}

// Each character number gives the position behind the character before it, until one fails.
template <class Text>
void check_character_index(Text const& text) {
    require(character_index(text, text.size()) == failed);
    constexpr std::size_t most_units = sizeof(typename Text::value_type) == 1 ? 4 : 2;
    std::size_t previous = 0;
    for (std::size_t n = 0; n < text.size() && n < 64; ++n) {
        std::size_t const position = character_index(text, n);
        if (previous == failed) {
            require(position == failed);
        } else if (position != failed) {
            require(n == 0 ? position == 0 : position > previous && position <= previous + most_units);
        }
        previous = position;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    auto const as_utf8 = text_of_bytes<ustring8>(data, size);
    auto const as_utf16 = text_of_bytes<ustring16>(data, size);
    check_bytes(data, size);
    check_every_index(as_utf8);
    check_every_index(as_utf16);
    check_every_index(text_of_bytes<ustring32>(data, size));
    check_character_index(as_utf8);
    check_character_index(as_utf16);
    return 0;
}
