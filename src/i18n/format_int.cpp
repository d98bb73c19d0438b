#include "veldrin/i18n/format.hpp"

#include <algorithm>
#include <bit>
#include <string_view>

#include "i18n/format_options.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

struct number_base {
    std::string_view keyword;
    unsigned int radix;
    int bits_per_digit; // of the radices with a complement form
    int digit_group;    // without a field size, digits come in multiples of this
    std::string_view prefix;
    std::string_view suffix;
    bool is_spaced;

    bool is_decimal() const { return radix == 10; }
    int mark_width() const { return static_cast<int>(prefix.size() + suffix.size()); }
};

constexpr number_base bases[] = {
    {"dec", 10, 0, 1, "", "", false},       {"default", 10, 0, 1, "", "", false},
    {"spaced_dec", 10, 0, 1, "", "", true}, {"hex", 16, 4, 4, "0x", "", false},
    {"oct", 8, 3, 1, "o", "", false},       {"bin", 2, 1, 1, "", "b", false},
};

int bit_width(std::uint64_t value) { return static_cast<int>(std::bit_width(value)); }

int round_up(int value, int step) { return (value + step - 1) / step * step; }

// Adds the radix to the power of the digits that are to be shown. Where that power has no room in 64 bits, it
// is a multiple of 2^64, and the sum is the value's own 64 bits.
std::uint64_t complement_of(std::int64_t negative, number_base const& base, int field_size) {
    auto const value = static_cast<std::uint64_t>(negative);
    std::uint64_t const magnitude = 0 - value;
    int const bits = field_size != 0
                         ? std::max(round_up(bit_width(magnitude), base.bits_per_digit),
                                    (field_size - base.mark_width()) * base.bits_per_digit)
                         : round_up(bit_width(magnitude - 1) + 1, base.bits_per_digit * base.digit_group);
    return bits < 64 ? value + (std::uint64_t(1) << bits) : value;
}

ustring8 digits_of(std::int64_t value, number_base const& base, int field_size) {
    char text[66];
    if (value >= 0 || base.is_decimal()) {
        generic::convert::lltoa(value, text, base.radix);
    } else {
        generic::convert::ulltoa(complement_of(value, base, field_size), text, base.radix);
    }
    return text;
}

ustring8 with_spaces(ustring8 digits, bool is_negative) {
    std::size_t const first_digit = is_negative ? 1 : 0;
    for (std::size_t group = digits.size(); group > first_digit + 3;) {
        group -= 3;
        digits.insert(group, 1, ' ');
    }
    return digits;
}

option_setter sets_base(number_base const*& base) {
    return [&base](ustring8 const& value) {
        base = std::find_if(std::begin(bases), std::end(bases), [&](number_base const& candidate) {
            return abbreviates(value, candidate.keyword);
        });
        return base != std::end(bases);
    };
}

} // namespace

ustring8 format_int(std::int64_t value, ustring8 const& options) {
    number_base const* base = &bases[0];
    int field_size = 0;
    if (!read_options(options, {{"base", sets_base(base)}, {"fieldsize", sets_field_size(field_size)}})) {
        return failure_text;
    }

    ustring8 digits = digits_of(value, *base, field_size);
    if (base->is_spaced) {
        digits = with_spaces(digits, value < 0);
    }
    int const length = static_cast<int>(digits.size());
    int const width = length + base->mark_width();
    if (field_size != 0 && field_size < width) {
        return failure_text;
    }

    int padding = 0;
    if (value >= 0 && !base->is_decimal()) {
        padding = field_size != 0 ? field_size - width : round_up(length, base->digit_group) - length;
    }
    ustring8 result(base->prefix);
    result.append(static_cast<std::size_t>(padding), '0').append(digits).append(base->suffix);
    return result;
}

} // namespace VELDRIN_2_18::i18n::_private
