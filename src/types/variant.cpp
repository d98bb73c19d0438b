#include "veldrin/types/variant.hpp"

#include <ostream>

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::types {

namespace {

template <class T>
variant_type* hold(T const& value) {
    return generic::abilities::make_dynamic<variant_value_t<T>>(value);
}

// A held nil would answer "0".
template <class Text>
Text text_unless_nil(variant_type const& held, Text (variant_type::*as_text)() const) {
    return held.type() == typeid(nil_t) ? Text() : (held.*as_text)();
}

} // namespace

variant::variant() : variant(nil) {}
variant::variant(nil_t const&) : m_value(hold(nil)) {}
variant::variant(bool value) : m_value(hold(value)) {}
variant::variant(signed char value) : m_value(hold(value)) {}
variant::variant(unsigned char value) : m_value(hold(value)) {}
variant::variant(short value) : m_value(hold(value)) {}
variant::variant(unsigned short value) : m_value(hold(value)) {}
variant::variant(int value) : m_value(hold(value)) {}
variant::variant(unsigned int value) : m_value(hold(value)) {}
variant::variant(long value) : m_value(hold(value)) {}
variant::variant(unsigned long value) : m_value(hold(value)) {}
variant::variant(long long value) : m_value(hold(value)) {}
variant::variant(unsigned long long value) : m_value(hold(value)) {}
variant::variant(float value) : m_value(hold(value)) {}
variant::variant(double value) : m_value(hold(value)) {}
variant::variant(long double value) : m_value(hold(value)) {}
variant::variant(std::string const& value) : m_value(hold(value)) {}
variant::variant(strings::wide_string const& value) : m_value(hold(value)) {}
variant::variant(strings::ustring8 const& value) : m_value(hold(value)) {}
variant::variant(strings::ustring16 const& value) : m_value(hold(value)) {}
variant::variant(strings::ustring32 const& value) : m_value(hold(value)) {}
variant::variant(char const* text) : variant(strings::ustring8(text)) {}
variant::variant(strings::utf16_unit const* text) : variant(strings::ustring16(text)) {}
variant::variant(strings::utf32_unit const* text) : variant(strings::ustring32(text)) {}

variant& variant::operator=(nil_t const&) { return *this = variant(); }

std::type_info const& variant::type() const { return m_value->type(); }
bool variant::equal(nil_t const&) const { return type() == typeid(nil_t); }

std::ostream& variant::ostream(std::ostream& stream) const { return m_value->ostream(stream); }

int variant::as_int() const { return m_value->as_int(); }
int variant::as_signed() const { return m_value->as_int(); }
short variant::as_short() const { return m_value->as_short(); }
std::int32_t variant::as_long() const { return m_value->as_long(); }
signed char variant::as_int8() const { return m_value->as_int8(); }
short variant::as_int16() const { return m_value->as_int16(); }
std::int32_t variant::as_int32() const { return m_value->as_int32(); }
std::int64_t variant::as_int64() const { return m_value->as_int64(); }
unsigned char variant::as_uint8() const { return m_value->as_uint8(); }
unsigned short variant::as_uint16() const { return m_value->as_uint16(); }
std::uint32_t variant::as_uint32() const { return m_value->as_uint32(); }
std::uint64_t variant::as_uint64() const { return m_value->as_uint64(); }

unsigned int variant::as_unsigned() const { return static_cast<unsigned int>(m_value->as_int()); }
unsigned int variant::as_uint() const { return static_cast<unsigned int>(m_value->as_int()); }
unsigned short variant::as_ushort() const { return static_cast<unsigned short>(m_value->as_short()); }
std::uint32_t variant::as_ulong() const { return static_cast<std::uint32_t>(m_value->as_long()); }

bool variant::as_bool() const { return m_value->as_bool(); }

float variant::as_float() const { return m_value->as_float(); }
double variant::as_double() const { return m_value->as_double(); }
long double variant::as_long_double() const { return m_value->as_long_double(); }

strings::ustring8 variant::as_string() const { return text_unless_nil(*m_value, &variant_type::as_string); }
strings::wide_string variant::as_wstring() const {
    return text_unless_nil(*m_value, &variant_type::as_wstring);
}
strings::wide_string variant::as_ustring() const {
    return text_unless_nil(*m_value, &variant_type::as_ustring);
}
strings::ustring8 variant::as_utf8() const { return text_unless_nil(*m_value, &variant_type::as_utf8); }
strings::ustring16 variant::as_utf16() const { return text_unless_nil(*m_value, &variant_type::as_utf16); }
strings::ustring32 variant::as_utf32() const { return text_unless_nil(*m_value, &variant_type::as_utf32); }

std::ostream& operator<<(std::ostream& stream, variant const& value) { return value.ostream(stream); }

} // namespace VELDRIN_2_18::types
