#include "platform/code_page.hpp"

#include <cstddef>
#include <cstdint>
#include <limits>

#include "platform/posix/code_pages/tables.hpp"

namespace VELDRIN_2_18::platform {

namespace {

using strings::utf16_unit;

constexpr int system_ansi_number = 0;
constexpr int system_oem_number = 1;
constexpr int utf8_number = 65001;

constexpr char32_t replacement_character = 0xFFFD;

bool is_utf8(int code_page) {
    return code_page == utf8_number || code_page == system_ansi_number || code_page == system_oem_number;
}

code_pages::table const* find_table(int code_page) {
    for (code_pages::table const* const table : code_pages::tables) {
        if (table->code_page == code_page) {
            return table;
        }
    }
    return nullptr;
}

// Counts all units, keeps those that fit.
template <class Unit>
class bounded_output {
public:
    bounded_output(Unit* output, int output_size)
        : m_output(output), m_size(output_size > 0 ? static_cast<std::size_t>(output_size) : 0) {}

    void append(std::uint32_t unit) {
        if (m_count < m_size) {
            m_output[m_count] = static_cast<Unit>(unit);
        }
        ++m_count;
    }

    int result() const {
        bool const is_size_query = m_size == 0;
        std::size_t const limit = is_size_query ? std::numeric_limits<int>::max() : m_size;
        return m_count <= limit ? static_cast<int>(m_count) : 0;
    }

private:
    Unit* m_output;
    std::size_t m_size;
    std::size_t m_count = 0;
};

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

bool is_high_surrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }

bool is_low_surrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// Reads one character; a lone surrogate gives U+FFFD.
char32_t read_utf16(utf16_unit const*& position) {
    char32_t const unit = *position++;
    if (is_high_surrogate(unit) && is_low_surrogate(*position)) {
        return 0x10000 + ((unit - 0xD800) << 10) + (*position++ - 0xDC00u);
    }
    return is_high_surrogate(unit) || is_low_surrogate(unit) ? replacement_character : unit;
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

void decode(code_pages::table const& table, char const* bytes, bounded_output<utf16_unit>& output) {
    auto const* position = reinterpret_cast<unsigned char const*>(bytes);
    while (unsigned char const byte = *position++) {
        unsigned int const row = table.rows_of_leads[byte];
        if (row == 0 || *position == 0) {
            output.append(table.units_of_bytes[byte]);
        } else {
            output.append(table.units_of_pairs[row - 1][*position++]);
        }
    }
}

void encode(code_pages::table const& table, utf16_unit const* text, bounded_output<char>& output) {
    while (utf16_unit const unit = *text++) {
        std::uint16_t const bytes = table.bytes_of_units[table.rows_of_units[unit >> 8]][unit & 0xFF];
        if (bytes > 0xFF) {
            output.append(bytes >> 8);
        }
        output.append(bytes & 0xFF);
    }
}

} // namespace

int multi_byte_to_wide(int code_page, char const* bytes, strings::utf16_unit* output, int output_size) {
    bounded_output<utf16_unit> units(output, output_size);
    if (is_utf8(code_page)) {
        decode_utf8(bytes, units);
    } else if (code_pages::table const* const table = find_table(code_page)) {
        decode(*table, bytes, units);
    } else {
        return 0;
    }
    units.append(0);
    return units.result();
}

int wide_to_multi_byte(int code_page, strings::utf16_unit const* text, char* output, int output_size) {
    bounded_output<char> bytes(output, output_size);
    if (is_utf8(code_page)) {
        encode_utf8(text, bytes);
    } else if (code_pages::table const* const table = find_table(code_page)) {
        encode(*table, text, bytes);
    } else {
        return 0;
    }
    bytes.append(0);
    return bytes.result();
}

} // namespace VELDRIN_2_18::platform
