#include "veldrin/strings/unicode.hpp"

#include <cstdlib>
#include <string>

#include "strings/decoding.hpp"
#include "strings/kernels/transcoding_kernels.hpp"
#include "strings/work_text.hpp"
#include "veldrin/debug/assert.hpp"

namespace VELDRIN_2_18::strings {

// Ahead of every other static object, in the static library too.
[[gnu::init_priority(101)]] ustring8 const utf8_byte_order_mark{'\xEF', '\xBB', '\xBF'};
[[gnu::init_priority(101)]] ustring16 const utf16_byte_order_mark{utf16_unit{0xFEFF}};
[[gnu::init_priority(101)]] ustring32 const utf32_byte_order_mark{utf32_unit{0xFEFF}};

namespace {

using namespace _private;

constexpr auto failure = static_cast<std::size_t>(-1);

template <class Unit>
basic_ustring<Unit> text_of(work_text<Unit>& output, transcoding_result result) {
    if (!result.is_well_formed) {
        return {Unit('-'), Unit('1')};
    }
    return {output.data(), result.units_written};
}

template <class To, class From>
basic_ustring<To> convert(basic_ustring<From> const& text, transcoding_kernel<From, To> kernel,
                          std::size_t output_units_per_unit) {
    work_text<To> output(text.size() * output_units_per_unit);
    return text_of(output, kernel(text.data(), text.size(), output.data()));
}

bool has_swapped_mark(wide_string const& text) {
    return !text.empty() && text.front() == swapped_byte_order_mark;
}

// A converter that gave such text a meaning would hide that its bytes are in the wrong order.
void trap_swapped_mark(ustring16 const& text) {
    if (has_swapped_mark(text)) {
        std::abort();
    }
}

} // namespace

ustring16 utf8_to_utf16(ustring8 const& text) {
    std::size_t const length = text.size();
    work_text<utf16_unit> output(length);
    auto const result = selected_transcoding_kernels().utf8_to_utf16(text.data(), length, output.data());
    std::size_t const k = result.units_written;
    VELDRIN_ASSERT(k <= length, "VELDRIN_2_18::strings::utf8_to_utf16");
    return text_of(output, result);
}

ustring8 utf16_to_utf8(ustring16 const& text) {
    trap_swapped_mark(text);
    work_text<char> output(text.size() * 4);
    auto const result = selected_transcoding_kernels().utf16_to_utf8(text.data(), text.size(), output.data());
    std::size_t const k = result.units_written;
    VELDRIN_ASSERT(k <= output.size(), "VELDRIN_2_18::strings::utf16_to_utf8");
    return text_of(output, result);
}

ustring32 utf8_to_utf32(ustring8 const& text) {
    return convert(text, selected_transcoding_kernels().utf8_to_utf32, 1);
}

ustring8 utf32_to_utf8(ustring32 const& text) {
    return convert(text, selected_transcoding_kernels().utf32_to_utf8, 4);
}

ustring32 utf16_to_utf32(ustring16 const& text) {
    trap_swapped_mark(text);
    return convert(text, selected_transcoding_kernels().utf16_to_utf32, 1);
}

ustring16 utf32_to_utf16(ustring32 const& text) {
    return convert(text, selected_transcoding_kernels().utf32_to_utf16, 2);
}

namespace {

utf32_unit unichar_of(decoded_character character, std::size_t& units) {
    bool const failed = character.units == 0;
    units = failed ? failure : character.units;
    return failed ? utf32_unit{'?'} : utf32_unit{character.code_point};
}

} // namespace

utf32_unit unichar(char const* text, std::size_t length, std::size_t index, std::size_t& units) {
    return unichar_of(index < length ? decode_utf8(text + index, length - index) : decoded_character{},
                      units);
}

utf32_unit unichar(utf16_unit const* text, std::size_t length, std::size_t index, std::size_t& units) {
    return unichar_of(index < length ? decode_utf16(text + index, length - index) : decoded_character{},
                      units);
}

utf32_unit unichar(utf32_unit const* text, std::size_t length, std::size_t index, std::size_t& units) {
    return unichar_of(index < length ? decoded_character{text[index], 1} : decoded_character{}, units);
}

namespace {

// `units_at(position)` gives the length of the character there, or 0 for a malformed one.
template <class Text, class Measure>
std::size_t walk(Text const& text, std::size_t n, Measure units_at) {
    if (n >= text.size()) {
        return failure;
    }
    std::size_t position = 0;
    for (; n > 0; --n) {
        std::size_t const units = position < text.size() ? units_at(position) : 1;
        if (units == 0) {
            return failure;
        }
        position += units;
    }
    return position;
}

} // namespace

std::size_t character_index(ustring8 const& text, std::size_t n) {
    return walk(text, n, [&text](std::size_t position) {
        return decode_utf8(text.data() + position, text.size() - position).units;
    });
}

std::size_t character_index(ustring16 const& text, std::size_t n) {
    // Unit 0, not the unit at the position: a lone low surrogate further on goes unnoticed.
    bool const starts_malformed = is_low_surrogate(text[0]);
    return walk(text, n, [&text, starts_malformed](std::size_t position) -> std::size_t {
        if (is_high_surrogate(text[position])) {
            return is_low_surrogate(text[position + 1]) ? 2 : 0;
        }
        return starts_malformed ? 0 : 1;
    });
}

std::size_t string_length(char const* text) { return std::char_traits<char>::length(text); }

std::size_t string_length(utf16_unit const* text) { return std::char_traits<utf16_unit>::length(text); }

std::size_t string_length(utf32_unit const* text) { return std::char_traits<utf32_unit>::length(text); }

std::size_t string_length(ustring8 const& text) { return text.size(); }

std::size_t string_length(ustring16 const& text) { return text.size(); }

std::size_t string_length(ustring32 const& text) { return text.size(); }

namespace gh2 {

std::size_t get_utf8_length(char const* text, std::size_t length) {
    if (text == nullptr || length == 0) {
        return 0;
    }
    return utf8_sequence_length(static_cast<unsigned char>(*text));
}

std::size_t get_utf8_length(unsigned char const* text, std::size_t length) {
    return get_utf8_length(reinterpret_cast<char const*>(text), length);
}

bool validate_utf8(char const* text, std::size_t length) {
    return text != nullptr && length != 0 && decode_utf8(text, length).units != 0;
}

bool validate_utf8(unsigned char const* text, std::size_t length) {
    return validate_utf8(reinterpret_cast<char const*>(text), length);
}

} // namespace gh2

namespace {

template <class Text>
Text without_mark(Text const& text, Text const& mark) {
    bool const is_marked = text.compare(0, mark.size(), mark) == 0;
    return is_marked ? Text(text, mark.size()) : text;
}

void swap_bytes_of_units(wide_string& text) {
    for (utf16_unit& unit : text) {
        unit = static_cast<utf16_unit>((unit << 8) | (unit >> 8));
    }
}

void swap_if_marked(wide_string& text) {
    if (has_swapped_mark(text)) {
        swap_bytes_of_units(text);
    }
}

} // namespace

ustring8 remove_BOM(ustring8 const& text) { return without_mark(text, utf8_byte_order_mark); }

ustring16 remove_BOM(ustring16 const& text) { return without_mark(text, utf16_byte_order_mark); }

ustring32 remove_BOM(ustring32 const& text) { return without_mark(text, utf32_byte_order_mark); }

void modify_swap_string_bytes_order(ustring16& text) { swap_bytes_of_units(text); }

// The swapped copy has always been dropped here and below: callers rely on getting their text back.
ustring16 swap_string_bytes_order(ustring16 const& text) { return text; }

void check_BOM_and_modify_swap(ustring16& text) { swap_if_marked(text); }

void check_BOM_and_modify_swap(wide_string& text) { swap_if_marked(text); }

ustring16 check_BOM_and_swap(ustring16 const& text) { return text; }

wide_string check_BOM_and_swap(wide_string const& text) { return text; }

} // namespace VELDRIN_2_18::strings
