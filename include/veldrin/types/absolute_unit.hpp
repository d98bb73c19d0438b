// File: veldrin/types/absolute_unit.hpp
//
// A physical length, kept in md: one md is 1/100000 of an inch. Each of the eight units is a class that tells
// the length in its own measure.
//
//     types::basic_absolute_impl<types::absolute_unit::mm> width(100000);   // from md: one inch
//     width.as_double();                                                    // 25.4
//     width.as_int32();                                                     // 25
//     types::basic_absolute_impl<types::absolute_unit::point> same;
//     same = width;
//     same.as_int32();                                                      // 72
//
// Lengths are made from numbers in other units by veldrin/generic/convert/unit_conversion.hpp.

#pragma once

#include <cstdint>
#include <type_traits>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types {

class VELDRIN_EXPORT absolute_unit {
public:
    enum unit_types : std::int32_t {
        md = 1,     // 100000 to the inch
        dot300 = 2, // 300
        mm = 3,     // 25.4
        cm = 4,     // 2.54
        inch = 5,   // 1
        point = 6,  // 72
        pica = 7,   // 6
        px96 = 8,   // 96
    };

    // No length.
    absolute_unit() = default;
    absolute_unit(absolute_unit const&) = default;

    // A length in md. A wider integer keeps its low 32 bits.
    absolute_unit(std::int32_t length_in_md) : m_md(length_in_md) {}
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    absolute_unit(Integer length_in_md) : absolute_unit(static_cast<std::int32_t>(length_in_md)) {}

    // A whole number of md: truncated toward zero to 64 bits, of which the low 32 are kept. A NaN, and what
    // 64 bits cannot hold, is no length.
    absolute_unit(double length_in_md);

    // Takes the md, whatever the units of the two are.
    absolute_unit& operator=(absolute_unit const&) = default;

    unit_types type() const { return do_type(); }

    // The length in the object's own unit, rounded half up: to a whole number, and to two decimals.
    std::int32_t as_int32() const { return do_as_int32(); }
    double as_double() const { return do_as_double(); }

    // The md, truncated toward zero as in the constructor.
    std::int32_t as_md() const;

protected:
    // Not virtual, and not for a pointer to this class.
    ~absolute_unit() = default;

    // The length in the object's own unit, neither rounded nor truncated. An object of a type that is not
    // listed has the value 0 and takes none.
    double value() const;
    void value(double value);

    virtual unit_types do_type() const = 0;
    virtual std::int32_t do_as_int32() const = 0;
    virtual double do_as_double() const = 0;

private:
    static constexpr std::int64_t m_md_per_inch = 100000;

    double m_md = 0;
};

// A length in the unit of the number N, one of `absolute_unit::unit_types`. The library holds the eight
// instantiations.
template <int N>
class basic_absolute_impl : public absolute_unit {
    static_assert(N >= md && N <= px96, "there are eight units, 1 to 8");

public:
    using absolute_unit::absolute_unit;

    // Takes the md of a length in any unit.
    template <class Length, class = std::enable_if_t<std::is_base_of_v<absolute_unit, Length>>>
    basic_absolute_impl& operator=(Length const& other) {
        absolute_unit::operator=(other);
        return *this;
    }

protected:
    unit_types do_type() const override;
    std::int32_t do_as_int32() const override;
    double do_as_double() const override;
};

} // namespace VELDRIN_2_18::types
