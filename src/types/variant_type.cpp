#include "veldrin/types/variant_type.hpp"

#include <algorithm>
#include <limits>
#include <ostream>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "types/truncated.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/strings/case.hpp"
#include "veldrin/strings/unicode.hpp"
#include "veldrin/types/nil.hpp"
#include "veldrin/types/radix.hpp"

namespace VELDRIN_2_18::types {

namespace {

namespace convert = generic::convert;

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::utf16_unit;
using strings::utf32_unit;
using strings::wide_string;

template <class T>
constexpr bool is_nil = std::is_same_v<T, nil_t>;
template <class T>
constexpr bool is_text = std::is_class_v<T> && !is_nil<T>;
template <class T>
constexpr bool is_integer = std::is_integral_v<T> && !std::is_same_v<T, bool>;

// ---- Text to text --------------------------------------------------------------------------------------

// Text of the same unit passes as it is; standard strings of another come in as the text class of their unit.
template <class Unit>
struct encoding;

template <>
struct encoding<char> {
    static std::string const& from(std::string const& text) { return text; }
    static ustring8 from(ustring16 const& text) { return strings::utf16_to_utf8(text); }
    static ustring8 from(ustring32 const& text) { return strings::utf32_to_utf8(text); }
};

template <>
struct encoding<utf16_unit> {
    static ustring16 from(ustring8 const& text) { return strings::utf8_to_utf16(text); }
    static std::basic_string<utf16_unit> const& from(std::basic_string<utf16_unit> const& text) {
        return text;
    }
    static ustring16 from(ustring32 const& text) { return strings::utf32_to_utf16(text); }
};

template <>
struct encoding<utf32_unit> {
    static ustring32 from(ustring8 const& text) { return strings::utf8_to_utf32(text); }
    static ustring32 from(ustring16 const& text) { return strings::utf16_to_utf32(text); }
    static std::basic_string<utf32_unit> const& from(std::basic_string<utf32_unit> const& text) {
        return text;
    }
};

// ---- Number to text ------------------------------------------------------------------------------------

template <class Unit, class Integer>
std::basic_string<Unit> decimal_digits(Integer value) {
    Unit buffer[std::numeric_limits<Integer>::digits10 + 3]; // one more digit, the sign, the terminator
    if constexpr (std::is_signed_v<Integer>) {
        if constexpr (sizeof value <= sizeof(std::int32_t)) {
            convert::ltoa(value, buffer, 10);
        } else {
            convert::lltoa(value, buffer, 10);
        }
    } else if constexpr (sizeof value <= sizeof(std::uint32_t)) {
        convert::ultoa(value, buffer, 10);
    } else {
        convert::ulltoa(value, buffer, 10);
    }
    return buffer;
}

template <class Character, class T>
std::basic_string<Character> stream_text(T value) {
    std::basic_ostringstream<Character> stream;
    // Else the stream would keep to itself that memory is exhausted, and the text would be cut.
    stream.exceptions(std::ios_base::badbit);
    stream << value;
    return stream.str();
}

template <class Text, class T>
Text to_text(T const& value) {
    using unit = typename Text::value_type;
    if constexpr (is_nil<T>) {
        return decimal_digits<unit>(0);
    } else if constexpr (is_text<T>) {
        return encoding<unit>::from(value);
    } else if constexpr (is_integer<T>) {
        return decimal_digits<unit>(value);
    } else {
        return encoding<unit>::from(stream_text<char>(value));
    }
}

template <class T>
wide_string to_wide_text(T const& value) {
    if constexpr (std::is_arithmetic_v<T> && !is_integer<T>) {
        // Each wide character becomes one 16-bit unit, also where it is wider.
        std::wstring const text = stream_text<wchar_t>(value);
        return wide_string(text.begin(), text.end());
    } else {
        return to_text<wide_string>(value);
    }
}

// ---- To number and bool --------------------------------------------------------------------------------

template <class Result, class T, class Parser>
Result to_integer(T const& value, Parser parse) {
    if constexpr (is_nil<T>) {
        return 0;
    } else if constexpr (is_text<T>) {
        return parse(value.data(), value.size(), radix_t::detect, false);
    } else if constexpr (std::is_floating_point_v<T>) {
        return _private::truncated<Result>(value);
    } else {
        return static_cast<Result>(value);
    }
}

template <class Result, class T, class Parser>
Result to_real(T const& value, Parser parse) {
    if constexpr (is_nil<T>) {
        return 0;
    } else if constexpr (is_text<T>) {
        return parse(encoding<char>::from(value));
    } else {
        return static_cast<Result>(value);
    }
}

template <class Text>
bool is_affirmative(Text const& text) {
    using namespace std::string_view_literals;
    auto const lowered = strings::to_lower(text);
    for (std::string_view const word : {"yes"sv, "on"sv, "true"sv}) {
        if (std::equal(lowered.begin(), lowered.end(), word.begin(), word.end())) {
            return true;
        }
    }
    return convert::str_to_long(text.data(), text.size(), radix_t::detect, false) != 0;
}

template <class T>
bool to_bool(T const& value) {
    if constexpr (is_nil<T>) {
        return false;
    } else if constexpr (is_text<T>) {
        return is_affirmative(value);
    } else {
        return value != T(0);
    }
}

} // namespace

variant_type::~variant_type() = default;

template <class T>
variant_value_t<T>::variant_value_t(T const& value) : m_value(value) {}

template <class T>
variant_value_t<T>::~variant_value_t() = default;

template <class T>
int variant_value_t<T>::always_one() const {
    return 1;
}

template <class T>
std::type_info const& variant_value_t<T>::type() const {
    return typeid(T);
}

template <class T>
variant_type* variant_value_t<T>::clone() const {
    return generic::abilities::make_dynamic<variant_value_t>(m_value);
}

template <class T>
std::ostream& variant_value_t<T>::ostream(std::ostream& stream) const {
    if constexpr (is_nil<T>) {
        return stream << 0;
    } else if constexpr (std::is_same_v<T, wide_string>) {
        return stream << "< " << type().name() << " instance at " << static_cast<void const*>(&m_value)
                      << " >";
    } else if constexpr (is_text<T> && !std::is_same_v<T, std::string>) {
        return stream << encoding<char>::from(m_value).c_str();
    } else {
        return stream << m_value;
    }
}

template <class T>
int variant_value_t<T>::as_int() const {
    return to_integer<int>(m_value, [](auto... text) { return convert::str_to_int(text...); });
}

template <class T>
short variant_value_t<T>::as_short() const {
    return to_integer<short>(m_value, [](auto... text) { return convert::str_to_short(text...); });
}

template <class T>
std::int32_t variant_value_t<T>::as_long() const {
    return to_integer<std::int32_t>(m_value, [](auto... text) { return convert::str_to_long(text...); });
}

template <class T>
signed char variant_value_t<T>::as_int8() const {
    return to_integer<signed char>(m_value, [](auto... text) { return convert::str_to_int8(text...); });
}

template <class T>
short variant_value_t<T>::as_int16() const {
    return to_integer<short>(m_value, [](auto... text) { return convert::str_to_int16(text...); });
}

template <class T>
std::int32_t variant_value_t<T>::as_int32() const {
    return to_integer<std::int32_t>(m_value, [](auto... text) { return convert::str_to_int32(text...); });
}

template <class T>
std::int64_t variant_value_t<T>::as_int64() const {
    return to_integer<std::int64_t>(m_value, [](auto... text) { return convert::str_to_int64(text...); });
}

template <class T>
unsigned char variant_value_t<T>::as_uint8() const {
    return to_integer<unsigned char>(m_value, [](auto... text) { return convert::str_to_uint8(text...); });
}

template <class T>
unsigned short variant_value_t<T>::as_uint16() const {
    return to_integer<unsigned short>(m_value, [](auto... text) { return convert::str_to_uint16(text...); });
}

template <class T>
std::uint32_t variant_value_t<T>::as_uint32() const {
    return to_integer<std::uint32_t>(m_value, [](auto... text) { return convert::str_to_uint32(text...); });
}

template <class T>
std::uint64_t variant_value_t<T>::as_uint64() const {
    return to_integer<std::uint64_t>(m_value, [](auto... text) { return convert::str_to_uint64(text...); });
}

template <class T>
bool variant_value_t<T>::as_bool() const {
    return to_bool(m_value);
}

template <class T>
ustring8 variant_value_t<T>::as_string() const {
    return to_text<ustring8>(m_value);
}

template <class T>
wide_string variant_value_t<T>::as_wstring() const {
    return to_wide_text(m_value);
}

template <class T>
wide_string variant_value_t<T>::as_ustring() const {
    return to_text<wide_string>(m_value);
}

template <class T>
ustring8 variant_value_t<T>::as_utf8() const {
    return to_text<ustring8>(m_value);
}

template <class T>
ustring16 variant_value_t<T>::as_utf16() const {
    return to_text<ustring16>(m_value);
}

template <class T>
ustring32 variant_value_t<T>::as_utf32() const {
    return to_text<ustring32>(m_value);
}

template <class T>
float variant_value_t<T>::as_float() const {
    return to_real<float>(m_value, [](ustring8 const& text) { return convert::str_to_float(text); });
}

template <class T>
double variant_value_t<T>::as_double() const {
    return to_real<double>(m_value, [](ustring8 const& text) { return convert::str_to_double(text); });
}

template <class T>
long double variant_value_t<T>::as_long_double() const {
    return to_real<long double>(m_value,
                                [](ustring8 const& text) { return convert::str_to_long_double(text); });
}

template class VELDRIN_EXPORT variant_value_t<bool>;
template class VELDRIN_EXPORT variant_value_t<signed char>;
template class VELDRIN_EXPORT variant_value_t<unsigned char>;
template class VELDRIN_EXPORT variant_value_t<short>;
template class VELDRIN_EXPORT variant_value_t<unsigned short>;
template class VELDRIN_EXPORT variant_value_t<int>;
template class VELDRIN_EXPORT variant_value_t<unsigned int>;
template class VELDRIN_EXPORT variant_value_t<long>;
template class VELDRIN_EXPORT variant_value_t<unsigned long>;
template class VELDRIN_EXPORT variant_value_t<long long>;
template class VELDRIN_EXPORT variant_value_t<unsigned long long>;
template class VELDRIN_EXPORT variant_value_t<float>;
template class VELDRIN_EXPORT variant_value_t<double>;
template class VELDRIN_EXPORT variant_value_t<long double>;
template class VELDRIN_EXPORT variant_value_t<std::string>;
template class VELDRIN_EXPORT variant_value_t<strings::wide_string>;
template class VELDRIN_EXPORT variant_value_t<strings::ustring8>;
template class VELDRIN_EXPORT variant_value_t<strings::ustring16>;
template class VELDRIN_EXPORT variant_value_t<strings::ustring32>;
template class VELDRIN_EXPORT variant_value_t<nil_t>;

} // namespace VELDRIN_2_18::types
