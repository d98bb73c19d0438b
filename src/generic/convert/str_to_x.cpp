#include "veldrin/generic/convert/str_to_x.hpp"

#include <algorithm>
#include <limits>
#include <optional>
#include <sstream>
#include <type_traits>

#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/exceptions/runtime_error.hpp"
#include "veldrin/strings/unicode.hpp"

namespace VELDRIN_2_18::generic::convert {

namespace {

constexpr char const* source_unit = "generic/convert/str_to_x";
constexpr char const* invalid_radix = "invalid radix value, values of 0, 2-36 are the only valid values";
constexpr char const* too_large = "Number value is to large";
constexpr char const* too_small = "Number value is to small";

// A unit's value, wide enough to hold that of every unit type, the negative ones of `char` included.
using unit_value = std::int64_t;

bool is_white_space(unit_value unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }

// Nothing where the unit is no digit. A digit can be worth more than the radix: in 16-bit text the number of
// letters is an unsigned 16-bit value, close to 65536 at radices below 10.
template <class Unit>
std::optional<std::uint32_t> digit_value(unit_value unit, std::int32_t radix) {
    using letter_count = std::conditional_t<sizeof(Unit) == 2, std::uint16_t, std::int32_t>;
    unit_value const letters = static_cast<letter_count>(radix - 10);

    if (unit < '0') {
        return std::nullopt;
    }
    if (unit < '0' + std::min(radix, 10)) {
        return static_cast<std::uint32_t>(unit - '0');
    }
    if (unit < 'A') {
        return std::nullopt;
    }
    if (unit < 'A' + letters) {
        return static_cast<std::uint32_t>(unit - 'A' + 10);
    }
    if (unit >= 'a' && unit < 'a' + letters) {
        return static_cast<std::uint32_t>(unit - 'a' + 10);
    }
    return std::nullopt;
}

// The way over one number. Each step leaves the position on the next unit that matters; the bound is looked
// at only after a unit was taken, so that the unit at index 0 is read whatever the length.
template <class Unit>
class number_scanner {
public:
    number_scanner(Unit const* text, std::uint64_t length) : m_text(text), m_length(length) {}

    // Over white space and one sign. False when the text ends there.
    bool skip_to_number() {
        while (is_white_space(unit())) {
            if (!advance()) {
                return false;
            }
        }
        m_is_negative = unit() == '-';
        return (!m_is_negative && unit() != '+') || advance();
    }

    bool is_negative() const { return m_is_negative; }

    // The radix asked for, or the one that the text's prefix tells, which is stepped over. Nothing when the
    // text ends there.
    std::optional<std::int32_t> settle_radix(std::int32_t radix) {
        if (radix != types::radix_t::detect) {
            return radix;
        }
        if (unit() != '0' && unit() != '\\') {
            return types::radix_t::decimal;
        }
        if (!advance()) {
            return std::nullopt;
        }
        switch (unit()) {
        case 'x':
        case 'X':
            return take_prefix_letter(types::radix_t::hexadecimal);
        case 'b':
        case 'B':
            return take_prefix_letter(types::radix_t::binary);
        default:
            return types::radix_t::octal;
        }
    }

    // The value of the digits, which is 0 where there are none. Nothing when a digit would bring it beyond
    // `bound`. A signed value that is equal to the magnitude of its minimum is below every cutoff and wraps
    // from there on.
    template <class Value>
    std::optional<Value> take_digits(std::int32_t radix, std::uint64_t bound) {
        auto const factor = static_cast<std::uint64_t>(radix);
        auto const cutoff = static_cast<Value>(bound / factor);
        std::uint64_t const last = bound % factor;
        Value value = 0;
        do {
            auto const digit = digit_value<Unit>(unit(), radix);
            if (!digit) {
                break;
            }
            if (value > cutoff || (value == cutoff && *digit > last)) {
                return std::nullopt;
            }
            value = static_cast<Value>(static_cast<std::uint64_t>(value) * factor + *digit);
        } while (advance());
        return value;
    }

private:
    unit_value unit() const { return static_cast<unit_value>(m_text[m_position]); }

    bool advance() { return ++m_position < m_length; }

    std::optional<std::int32_t> take_prefix_letter(std::int32_t radix) {
        return advance() ? std::optional(radix) : std::nullopt;
    }

    Unit const* m_text;
    std::uint64_t m_length;
    std::uint64_t m_position = 0;
    bool m_is_negative = false;
};

template <class Value, class Unit>
Value strtointx(Unit const* text, std::uint64_t length, std::int32_t radix, bool throw_on_range) {
    constexpr char const* function = "VELDRIN_2_18::generic::convert::strtointx";
    using limits = std::numeric_limits<Value>;

    number_scanner<Unit> scanner(text, length != 0 ? length : strings::string_length(text));
    if (!scanner.skip_to_number()) {
        return 0;
    }
    if (radix == 1 || radix > types::radix_t::maximum) {
        throw exceptions::invalid_argument_value(invalid_radix, __LINE__, source_unit, function);
    }
    if (radix < 0) {
        return 0;
    }
    auto const number_radix = scanner.settle_radix(radix);
    if (!number_radix) {
        return 0;
    }

    std::uint64_t const maximum = limits::max();
    auto const value =
        scanner.template take_digits<Value>(*number_radix, scanner.is_negative() ? maximum + 1 : maximum);
    if (value) {
        return scanner.is_negative() ? static_cast<Value>(0 - static_cast<std::uint64_t>(*value)) : *value;
    }
    if (!throw_on_range) {
        return scanner.is_negative() ? limits::min() : limits::max();
    }
    if (scanner.is_negative()) {
        throw exceptions::underflow_error(too_small, __LINE__, source_unit, function);
    }
    throw exceptions::overflow_error(too_large, __LINE__, source_unit, function);
}

template <class Value, class Unit>
Value strtouintx(Unit const* text, std::uint64_t length, std::int32_t radix, bool throw_on_range) {
    constexpr char const* function = "VELDRIN_2_18::generic::convert::strtouintx";

    number_scanner<Unit> scanner(text, length);
    if (!scanner.skip_to_number()) {
        return 0;
    }
    if (radix == 1 || radix < 0 || radix > types::radix_t::maximum) {
        throw exceptions::invalid_argument_value(invalid_radix, __LINE__, source_unit, function);
    }
    auto const number_radix = scanner.settle_radix(radix);
    if (!number_radix) {
        return 0;
    }

    auto const maximum = std::numeric_limits<Value>::max();
    auto const value = scanner.template take_digits<Value>(*number_radix, maximum);
    if (scanner.is_negative() && value != Value{0}) {
        if (throw_on_range) {
            throw exceptions::underflow_error(too_small, __LINE__, source_unit, function);
        }
        return 0;
    }
    if (!value && throw_on_range) {
        throw exceptions::overflow_error(too_large, __LINE__, source_unit, function);
    }
    return value.value_or(maximum);
}

template <class Real>
Real extract(strings::ustring8 const& text, std::locale const& loc) {
    std::stringstream stream(text);
    stream.imbue(loc);
    // Else the stream would keep to itself that memory is exhausted, and the number would read as 0.
    stream.exceptions(std::ios_base::badbit);
    Real value = 0;
    stream >> value;
    return stream.fail() ? Real{0} : value;
}

template <class Value, class Unit>
void format_integer(Value value, Unit* buffer, unsigned int radix) {
    if (radix < 2) {
        *buffer = Unit{0};
        return;
    }
    auto magnitude = static_cast<std::make_unsigned_t<Value>>(value);
    if constexpr (std::is_signed_v<Value>) {
        if (value < 0) {
            *buffer++ = '-';
            magnitude = 0 - magnitude;
        }
    }
    Unit* end = buffer;
    do {
        auto const remainder = magnitude % radix;
        magnitude /= radix;
        *end++ = static_cast<Unit>(remainder + (remainder > 9 ? 'a' - 10 : '0'));
    } while (magnitude != 0);
    *end = Unit{0};
    std::reverse(buffer, end);
}

} // namespace

// The overloads of a name differ in the unit alone, but only templates can share one definition, and the
// public functions are none.
// NOLINTBEGIN(bugprone-macro-parentheses): the arguments are types and names
#define VELDRIN_OVER_EACH_UNIT(define, ...)                                                                  \
    define(char, __VA_ARGS__) define(strings::utf16_unit, __VA_ARGS__)                                       \
        define(strings::utf32_unit, __VA_ARGS__)

#define VELDRIN_INTEGER_PARSER(unit, routine, name, result)                                                  \
    result name(unit const* text, std::uint64_t length, types::radix_t::base radix, bool throw_on_range) {   \
        return routine<result>(text, length, radix, throw_on_range);                                         \
    }

VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_int8, signed char)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_short, short)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_int16, std::int16_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_int, int)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_signed, int)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_long, std::int32_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_int32, std::int32_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtointx, str_to_int64, std::int64_t)

VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtouintx, str_to_uint8, unsigned char)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtouintx, str_to_uint16, std::uint16_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtouintx, str_to_unsigned, unsigned int)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtouintx, str_to_uint32, std::uint32_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_PARSER, strtouintx, str_to_uint64, std::uint64_t)

#undef VELDRIN_INTEGER_PARSER

float str_to_float(strings::ustring8 const& text) { return str_to_float(text, std::locale()); }

float str_to_float(strings::ustring8 const& text, std::locale const& loc) {
    return extract<float>(text, loc);
}

double str_to_double(strings::ustring8 const& text) { return str_to_double(text, std::locale()); }

double str_to_double(strings::ustring8 const& text, std::locale const& loc) {
    return extract<double>(text, loc);
}

long double str_to_long_double(strings::ustring8 const& text) {
    return str_to_long_double(text, std::locale());
}

long double str_to_long_double(strings::ustring8 const& text, std::locale const& loc) {
    return extract<long double>(text, loc);
}

#define VELDRIN_INTEGER_FORMATTER(unit, name, type)                                                          \
    void name(type value, unit* buffer, unsigned int radix) { format_integer(value, buffer, radix); }

VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_FORMATTER, ltoa, std::int32_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_FORMATTER, ultoa, std::uint32_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_FORMATTER, lltoa, std::int64_t)
VELDRIN_OVER_EACH_UNIT(VELDRIN_INTEGER_FORMATTER, ulltoa, std::uint64_t)

#undef VELDRIN_INTEGER_FORMATTER
#undef VELDRIN_OVER_EACH_UNIT
// NOLINTEND(bugprone-macro-parentheses)

} // namespace VELDRIN_2_18::generic::convert
