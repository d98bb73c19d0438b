#include "platform/code_page.hpp"

#include <cstdint>

#include "platform/bounded_output.hpp"
#include "platform/posix/code_pages/tables.hpp"
#include "platform/utf8.hpp"

namespace VELDRIN_2_18::platform {

namespace {

using strings::utf16_unit;

constexpr int system_ansi_number = 0;
constexpr int system_oem_number = 1;
constexpr int utf8_number = 65001;

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
