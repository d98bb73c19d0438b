// File: veldrin/types/variant_type.hpp
//
// What a `variant` points to: an immutable value of one of the twenty kinds, with all its conversions as
// virtual operations. There is no tag: the kind is known by `type()` and by which instantiation the object
// is. Most callers use veldrin/types/variant.hpp instead.
//
//     memory::pointers::rc_pointer<types::variant_type> held(
//         generic::abilities::make_dynamic<types::variant_value_t<int>>(-5));
//     held->as_uint32();   // 4294967291

#pragma once

#include <cstdint>
#include <iosfwd>
#include <typeinfo>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::types {

// Objects are made by `generic::abilities::make_dynamic` and never change, so any number of holders on any
// threads may share one. The order of the virtual operations is fixed. What each conversion gives for each
// kind of value stands with `variant`.
class VELDRIN_EXPORT variant_type : public generic::abilities::reference_count_pointer_ability<variant_type>,
                                    public generic::abilities::clone_ability {
public:
    ~variant_type() override;
    variant_type(variant_type const&) = delete;
    variant_type& operator=(variant_type const&) = delete;

    // 1 for every kind. It keeps its place in the virtual table.
    virtual int always_one() const = 0;

    // The type of the held value.
    virtual std::type_info const& type() const = 0;

    // A new object of the same kind with a copy of the value: flag set, count 0. Give it to a counted pointer
    // or delete it.
    virtual variant_type* clone() const = 0;

    // Writes the value and returns the stream.
    virtual std::ostream& ostream(std::ostream& stream) const = 0;

    virtual int as_int() const = 0;
    virtual short as_short() const = 0;
    virtual std::int32_t as_long() const = 0;
    virtual signed char as_int8() const = 0;
    virtual short as_int16() const = 0;
    virtual std::int32_t as_int32() const = 0;
    virtual std::int64_t as_int64() const = 0;
    virtual unsigned char as_uint8() const = 0;
    virtual unsigned short as_uint16() const = 0;
    virtual std::uint32_t as_uint32() const = 0;
    virtual std::uint64_t as_uint64() const = 0;
    virtual bool as_bool() const = 0;

    // The text operations of a nil value give "0"; it is `variant` that gives an empty text for it.
    virtual strings::ustring8 as_string() const = 0;
    virtual strings::wide_string as_wstring() const = 0;
    virtual strings::wide_string as_ustring() const = 0;
    virtual strings::ustring8 as_utf8() const = 0;
    virtual strings::ustring16 as_utf16() const = 0;
    virtual strings::ustring32 as_utf32() const = 0;

    virtual float as_float() const = 0;
    virtual double as_double() const = 0;
    virtual long double as_long_double() const = 0;

protected:
    variant_type() = default;
};

// A value of type T, which is one of: `bool`, the five signed and the five unsigned integer types, `float`,
// `double`, `long double`, `std::string`, `strings::wide_string`, `strings::ustring8`, `ustring16`,
// `ustring32`, `nil_t`. The library holds these twenty instantiations; no other one links.
template <class T>
class variant_value_t : public variant_type {
public:
    explicit variant_value_t(T const& value);
    ~variant_value_t() override;

    int always_one() const override;
    std::type_info const& type() const override;
    variant_type* clone() const override;
    std::ostream& ostream(std::ostream& stream) const override;

    int as_int() const override;
    short as_short() const override;
    std::int32_t as_long() const override;
    signed char as_int8() const override;
    short as_int16() const override;
    std::int32_t as_int32() const override;
    std::int64_t as_int64() const override;
    unsigned char as_uint8() const override;
    unsigned short as_uint16() const override;
    std::uint32_t as_uint32() const override;
    std::uint64_t as_uint64() const override;
    bool as_bool() const override;

    strings::ustring8 as_string() const override;
    strings::wide_string as_wstring() const override;
    strings::wide_string as_ustring() const override;
    strings::ustring8 as_utf8() const override;
    strings::ustring16 as_utf16() const override;
    strings::ustring32 as_utf32() const override;

    float as_float() const override;
    double as_double() const override;
    long double as_long_double() const override;

private:
    T const m_value;
};

} // namespace VELDRIN_2_18::types
