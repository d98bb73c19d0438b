// The integer parsers, on the input as 8-, 16- and 32-bit text: as whole units, and as one unit a byte. The
// first byte gives the radix, -2 to 37, the second says how the length is given, the rest is the text.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/exceptions/exception.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::generic::convert;

// A text and the way in which the parsers are called on it. Where the length is that of the text there is no
// terminator, so that a read behind the text is a read outside its storage.
template <class Unit>
struct input {
    std::vector<Unit> units;
    std::uint64_t length;
    types::radix_t::base radix;

    input(std::basic_string<Unit> const& text, std::uint8_t length_byte, std::uint8_t radix_byte)
        : units(text.begin(), text.end()),
          length(length_byte < 128 ? text.size() : length_byte % (text.size() + 1)),
          radix(static_cast<types::radix_t::base>(radix_byte % 40 - 2)) {
        if (length == 0 || length != text.size()) {
            units.push_back(Unit{0});
        }
        units.shrink_to_fit();
    }
};

// The value of one call, and whether it failed. A value that does not throw when asked to is the one given
// when not asked to.
template <class Result, class Unit>
struct answer {
    using parser = Result (*)(Unit const*, std::uint64_t, types::radix_t::base, bool);

    Result value = 0;
    bool is_bad_radix = false;
    bool is_out_of_range = false;

    answer(parser parse, input<Unit> const& from) {
        try {
            value = parse(from.units.data(), from.length, from.radix, false);
        } catch (exceptions::exception const&) {
            is_bad_radix = true;
        }
        try {
            Result const checked = parse(from.units.data(), from.length, from.radix, true);
            require(!is_bad_radix && checked == value);
        } catch (exceptions::exception const&) {
            is_out_of_range = !is_bad_radix;
        }
        using limits = std::numeric_limits<Result>;
        require(!is_out_of_range || value == 0 || value == limits::min() || value == limits::max());
    }

    bool operator==(answer const& other) const {
        return value == other.value && is_bad_radix == other.is_bad_radix &&
               is_out_of_range == other.is_out_of_range;
    }
};

// The value formatted and parsed again, in the radix of the input as far as it is one to write in.
template <class Value, class Unit>
void check_round_trip(Value value, types::radix_t::base radix, void (*format)(Value, Unit*, unsigned int),
                      typename answer<Value, Unit>::parser parse) {
    types::radix_t::base const written =
        radix >= types::radix_t::binary && radix <= types::radix_t::maximum ? radix : types::radix_t::decimal;
    Unit buffer[66];
    format(value, buffer, static_cast<unsigned int>(written));
    require(parse(buffer, std::char_traits<Unit>::length(buffer), written, true) == value);
}

// Without a "-" and without digits beyond the radix, each width gives the value cut to its range.
template <class Unit>
void check_ranges(input<Unit> const& from, std::uint64_t value) {
    auto const cut = [value](std::uint64_t maximum) { return std::min(value, maximum); };
    auto const* const text = from.units.data();
    auto const equal = [](auto result, std::uint64_t expected) {
        return static_cast<std::uint64_t>(result) == expected;
    };
    require(equal(str_to_uint8(text, from.length, from.radix, false), cut(UINT8_MAX)));
    require(equal(str_to_uint16(text, from.length, from.radix, false), cut(UINT16_MAX)));
    require(equal(str_to_uint32(text, from.length, from.radix, false), cut(UINT32_MAX)));
    require(equal(str_to_int8(text, from.length, from.radix, false), cut(INT8_MAX)));
    require(equal(str_to_int16(text, from.length, from.radix, false), cut(INT16_MAX)));
    require(equal(str_to_int32(text, from.length, from.radix, false), cut(INT32_MAX)));
    require(equal(str_to_int64(text, from.length, from.radix, false), cut(INT64_MAX)));
}

template <class Unit>
void check_text(input<Unit> const& from) {
    answer<signed char, Unit>(str_to_int8, from);
    answer<std::int16_t, Unit> const in_16_bits(str_to_int16, from);
    answer<std::int32_t, Unit> const in_32_bits(str_to_int32, from);
    answer<std::int64_t, Unit> const in_64_bits(str_to_int64, from);
    answer<unsigned char, Unit>(str_to_uint8, from);
    answer<std::uint16_t, Unit>(str_to_uint16, from);
    answer<std::uint32_t, Unit> const unsigned_32(str_to_uint32, from);
    answer<std::uint64_t, Unit> const unsigned_64(str_to_uint64, from);

    require(in_16_bits == answer<short, Unit>(str_to_short, from));
    require(in_32_bits == answer<int, Unit>(str_to_int, from));
    require(in_32_bits == answer<int, Unit>(str_to_signed, from));
    require(in_32_bits == answer<std::int32_t, Unit>(str_to_long, from));
    require(unsigned_32 == answer<unsigned int, Unit>(str_to_unsigned, from));

    check_round_trip<std::int32_t, Unit>(in_32_bits.value, from.radix, ltoa, str_to_int32);
    check_round_trip<std::uint32_t, Unit>(unsigned_32.value, from.radix, ultoa, str_to_uint32);
    check_round_trip<std::int64_t, Unit>(in_64_bits.value, from.radix, lltoa, str_to_int64);
    check_round_trip<std::uint64_t, Unit>(unsigned_64.value, from.radix, ulltoa, str_to_uint64);

    bool const has_minus = std::find(from.units.begin(), from.units.end(), Unit{'-'}) != from.units.end();
    bool const has_plain_digits = sizeof(Unit) != 2 || from.radix >= types::radix_t::decimal;
    if (has_plain_digits && !has_minus && from.length != 0 && from.radix >= 0 && !unsigned_64.is_bad_radix) {
        check_ranges(from, unsigned_64.value);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    std::uint8_t const radix = *data++;
    std::uint8_t const length = *data++;
    size -= 2;
    auto const bytes = text_of_bytes<strings::ustring8>(data, size);
    check_text(input<char>(bytes, length, radix));
    check_text(input<strings::utf16_unit>({bytes.begin(), bytes.end()}, length, radix));
    check_text(input<strings::utf32_unit>({bytes.begin(), bytes.end()}, length, radix));
    check_text(input<strings::utf16_unit>(text_of_bytes<strings::ustring16>(data, size), length, radix));
    check_text(input<strings::utf32_unit>(text_of_bytes<strings::ustring32>(data, size), length, radix));
    return 0;
}
