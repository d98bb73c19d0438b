#include "platform/utf8.hpp"

#include "strings/decoding.hpp"

namespace VELDRIN_2_18::platform {

using strings::utf16_unit;

namespace {

constexpr char32_t replacement_character = 0xFFFD;

// Reads one character, or one maximal ill-formed part, which gives U+FFFD. The terminator continues no
// character, so nothing behind it is read.
char32_t read_utf8(unsigned char const*& position) {
    char32_t const lead = *position++;
    if (lead < 0x80) {
        return lead;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return replacement_character;
    }
    int const trail_count = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    unsigned int lowest_trail = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned int highest_trail = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    char32_t character = lead & (0x3Fu >> trail_count);
    for (int index = 0; index < trail_count; ++index) {
        if (*position < lowest_trail || *position > highest_trail) {
            return replacement_character;
        }
        character = (character << 6) | (*position++ & 0x3Fu);
        lowest_trail = 0x80;
        highest_trail = 0xBF;
    }
    return character;
}

// Reads one character; a lone surrogate gives U+FFFD. Behind a unit there is at least the terminator.
char32_t read_utf16(utf16_unit const*& position) {
    auto const character = strings::_private::decode_utf16(position, 2);
    if (character.units == 0) {
        ++position;
        return replacement_character;
    }
    position += character.units;
    return character.code_point;
}

} // namespace

void decode_utf8(char const* bytes, bounded_output<utf16_unit>& output) {
    auto const* position = reinterpret_cast<unsigned char const*>(bytes);
    while (*position != 0) {
        char32_t const character = read_utf8(position);
        if (character < 0x10000) {
            output.append(character);
        } else {
            output.append(0xD7C0 + (character >> 10));
            output.append(0xDC00 + (character & 0x3FF));
        }
    }
}

void encode_utf8(utf16_unit const* text, bounded_output<char>& output) {
    while (*text != 0) {
        char32_t const character = read_utf16(text);
        if (character < 0x80) {
            output.append(character);
            continue;
        }
        int trail_count = character < 0x800 ? 1 : character < 0x10000 ? 2 : 3;
        output.append((0xFF80u >> trail_count & 0xFF) | (character >> 6 * trail_count));
        while (trail_count-- > 0) {
            output.append(0x80 | (character >> 6 * trail_count & 0x3F));
        }
    }
}

} // namespace VELDRIN_2_18::platform
