// The inner loops of the six converters, as a table: one implementation a file, all with the same results.

#pragma once

#include <cstddef>

#include "veldrin/strings/unit_types.hpp"

namespace VELDRIN_2_18::strings::_private {

// What a kernel made of its input. Where the text is malformed, the units written are of no use.
struct transcoding_result {
    std::size_t units_written;
    bool is_well_formed;
};

// Reads `length` units and writes to `output`, which has room for the worst case, stated with each member.
template <class From, class To>
using transcoding_kernel = transcoding_result (*)(From const* text, std::size_t length, To* output);

struct transcoding_kernels {
    transcoding_kernel<char, utf16_unit> utf8_to_utf16;        // 1 unit for each unit read
    transcoding_kernel<utf16_unit, char> utf16_to_utf8;        // 4
    transcoding_kernel<char, utf32_unit> utf8_to_utf32;        // 1
    transcoding_kernel<utf32_unit, char> utf32_to_utf8;        // 4
    transcoding_kernel<utf16_unit, utf32_unit> utf16_to_utf32; // 1
    transcoding_kernel<utf32_unit, utf16_unit> utf32_to_utf16; // 2
};

// The readable truth that every other table is tested against.
extern transcoding_kernels const scalar_transcoding_kernels;

// The table that the converters use.
transcoding_kernels const& selected_transcoding_kernels();

} // namespace VELDRIN_2_18::strings::_private
