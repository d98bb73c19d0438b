#include <cstddef>
#include <cstdint>

#include "strings/decoding.hpp"
#include "strings/kernels/transcoding_kernels.hpp"

namespace VELDRIN_2_18::strings::_private {

namespace {

constexpr std::uint32_t code_point_limit = 0x110000;

constexpr decoded_character decode_utf8_or_question_mark(char const* text, std::size_t available) {
    decoded_character const character = decode_utf8(text, available);
    return character.units == 0 ? decoded_character{'?', 1} : character;
}

constexpr decoded_character decode_utf32(utf32_unit const* text, std::size_t) {
    auto const unit = static_cast<std::uint32_t>(*text);
    return is_surrogate(unit) ? decoded_character{} : decoded_character{unit, 1};
}

constexpr decoded_character decode_utf32_below_limit(utf32_unit const* text, std::size_t available) {
    return *text < code_point_limit ? decode_utf32(text, available) : decoded_character{};
}

// The encoders write one character and return the end of what they wrote.

// A code point beyond the limit has no spelling and writes nothing.
constexpr char* encode_utf8(decoded_character character, char* output) {
    std::uint32_t const code_point = character.code_point;
    auto const write = [&output](std::uint32_t byte) { *output++ = static_cast<char>(byte); };
    auto const write_continuation = [&write](std::uint32_t bits) { write(0x80 | (bits & 0x3F)); };
    if (code_point < 0x80) {
        write(code_point);
    } else if (code_point < 0x800) {
        write(0xC0 | (code_point >> 6));
        write_continuation(code_point);
    } else if (code_point < 0x10000) {
        write(0xE0 | (code_point >> 12));
        write_continuation(code_point >> 6);
        write_continuation(code_point);
    } else if (code_point < code_point_limit) {
        write(0xF0 | (code_point >> 18));
        write_continuation(code_point >> 12);
        write_continuation(code_point >> 6);
        write_continuation(code_point);
    }
    return output;
}

constexpr utf16_unit* encode_pair(std::uint32_t first, std::uint32_t second, utf16_unit* output) {
    output[0] = static_cast<utf16_unit>(first);
    output[1] = static_cast<utf16_unit>(second);
    return output + 2;
}

// The length of the sequence decides, not the value: four bytes become two units even where they spell a code
// point below U+10000, and the first unit wraps then.
constexpr utf16_unit* encode_utf16(decoded_character character, utf16_unit* output) {
    std::uint32_t const code_point = character.code_point;
    if (character.units == 4) {
        return encode_pair(0xD7C0 + (code_point >> 10), 0xDC00 + (code_point & 0x3FF), output);
    }
    *output = static_cast<utf16_unit>(code_point);
    return output + 1;
}

// Readers of this form expect it: two units from U+FFFF on, and no 0x10000 is taken off.
constexpr utf16_unit* encode_utf16_unreduced(decoded_character character, utf16_unit* output) {
    std::uint32_t const code_point = character.code_point;
    if (code_point >= 0xFFFF) {
        return encode_pair(0xD800 + (code_point >> 10), 0xDC00 + (code_point & 0x3FF), output);
    }
    *output = static_cast<utf16_unit>(code_point);
    return output + 1;
}

constexpr utf32_unit* encode_utf32(decoded_character character, utf32_unit* output) {
    *output = character.code_point;
    return output + 1;
}

template <class From, class To, decoded_character (*decode)(From const*, std::size_t),
          To* (*encode)(decoded_character, To*)>
transcoding_result transcode(From const* text, std::size_t length, To* output) {
    To* end = output;
    for (std::size_t position = 0; position < length;) {
        decoded_character const character = decode(text + position, length - position);
        if (character.units == 0) {
            return {0, false};
        }
        end = encode(character, end);
        position += character.units;
    }
    return {static_cast<std::size_t>(end - output), true};
}

} // namespace

constinit transcoding_kernels const scalar_transcoding_kernels = {
    .utf8_to_utf16 = transcode<char, utf16_unit, decode_utf8, encode_utf16>,
    .utf16_to_utf8 = transcode<utf16_unit, char, decode_utf16, encode_utf8>,
    .utf8_to_utf32 = transcode<char, utf32_unit, decode_utf8_or_question_mark, encode_utf32>,
    .utf32_to_utf8 = transcode<utf32_unit, char, decode_utf32, encode_utf8>,
    .utf16_to_utf32 = transcode<utf16_unit, utf32_unit, decode_utf16, encode_utf32>,
    .utf32_to_utf16 = transcode<utf32_unit, utf16_unit, decode_utf32_below_limit, encode_utf16_unreduced>,
};

} // namespace VELDRIN_2_18::strings::_private
