// The two maps of one code page as flat arrays: one look-up a character each way.

#pragma once

#include <cstdint>

namespace VELDRIN_2_18::platform::code_pages {

struct table {
    int code_page;

    // The unit of each byte that is read alone: a lead byte is where the text ends behind it.
    std::uint16_t const* units_of_bytes;

    // For each byte 0, or 1 more than the row of `units_of_pairs` for the pairs that it leads. A lead byte
    // takes any byte but the terminator with it.
    std::uint8_t const* rows_of_leads;
    std::uint16_t const (*units_of_pairs)[256];

    // For each upper half of a unit its row of `bytes_of_units`. An entry is one byte, or two with the lead
    // byte in the upper half.
    std::uint8_t const* rows_of_units;
    std::uint16_t const (*bytes_of_units)[256];
};

} // namespace VELDRIN_2_18::platform::code_pages
