// The six converters and the byte-order functions, on the input as UTF-8, as UTF-16 and as UTF-32.

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/strings/unicode.hpp"

namespace {

using namespace VELDRIN_2_18::strings;

ustring8 const failed = "-1";

bool is_surrogate(utf32_unit unit) { return unit >= 0xD800 && unit < 0xE000; }

void check_utf8(ustring8 const& text) {
    ustring16 const as_utf16 = utf8_to_utf16(text);
    ustring32 const as_utf32 = utf8_to_utf32(text);
    require(as_utf32.size() <= text.size());
    require(as_utf16.size() <= std::max<std::size_t>(text.size(), 2));
    bool const is_standard = utf32_to_utf8(as_utf32) == text;
    if (is_standard && as_utf16.substr(0, 1) != ustring16(1, swapped_byte_order_mark)) {
        require(utf16_to_utf32(as_utf16) == as_utf32);
    }
    require(remove_BOM(utf8_byte_order_mark + text) == text);
}

void check_byte_order(ustring16 const& text) {
    require(swap_string_bytes_order(text) == text);
    require(check_BOM_and_swap(text) == text);
    ustring16 swapped = text;
    modify_swap_string_bytes_order(swapped);
    modify_swap_string_bytes_order(swapped);
    require(swapped == text);
    require(remove_BOM(utf16_byte_order_mark + text) == text);
}

// Text that starts with 0xFFFE ends the process in `utf16_to_utf8` and `utf16_to_utf32`, as their contracts
// say: it is left out by the way that those name.
void check_utf16(ustring16 text) {
    check_BOM_and_modify_swap(text);
    ustring8 const as_utf8 = utf16_to_utf8(text);
    ustring32 const as_utf32 = utf16_to_utf32(text);
    require(as_utf8.size() <= std::max<std::size_t>(text.size() * 3, 2));
    require(utf32_to_utf8(as_utf32) == as_utf8);
    if (as_utf8 != failed) {
        require(utf8_to_utf16(as_utf8) == text);
    }
}

void check_utf32(ustring32 const& text) {
    bool const fails = std::any_of(text.begin(), text.end(), is_surrogate);
    ustring32 kept = text;
    kept.erase(std::remove_if(kept.begin(), kept.end(), [](utf32_unit unit) { return unit >= 0x110000; }),
               kept.end());
    ustring8 const as_utf8 = utf32_to_utf8(text);
    require(fails ? as_utf8 == failed : utf8_to_utf32(as_utf8) == kept);

    ustring16 const as_utf16 = utf32_to_utf16(text);
    bool const is_short = std::all_of(text.begin(), text.end(),
                                      [](utf32_unit unit) { return unit < 0xFFFF && !is_surrogate(unit); });
    require(as_utf16.size() <= std::max<std::size_t>(text.size() * 2, 2));
    require(!is_short || std::equal(text.begin(), text.end(), as_utf16.begin(), as_utf16.end()));
    require(remove_BOM(utf32_byte_order_mark + text) == text);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    check_utf8(text_of_bytes<ustring8>(data, size));
    check_byte_order(text_of_bytes<ustring16>(data, size));
    check_utf16(text_of_bytes<ustring16>(data, size));
    check_utf32(text_of_bytes<ustring32>(data, size));
    return 0;
}
