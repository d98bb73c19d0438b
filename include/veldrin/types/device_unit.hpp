// File: veldrin/types/device_unit.hpp
//
// A length as a count of device pixels. `generic/convert/unit_conversion.hpp` goes between it and the
// physical lengths of veldrin/types/absolute_unit.hpp.
//
//     types::device_unit(2.9).as_int32();      // 2
//     types::device_unit(-2.9).as_double();    // -2.0

#pragma once

#include <cstdint>
#include <type_traits>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types {

class VELDRIN_EXPORT device_unit {
public:
    enum unit_types : std::int32_t { dpx = 1 };

    // No pixels.
    device_unit() = default;
    device_unit(device_unit const&) = default;

    // A wider integer keeps its low 32 bits.
    device_unit(std::int32_t pixels);
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    device_unit(Integer pixels) : device_unit(static_cast<std::int32_t>(pixels)) {}

    // Truncated toward zero to 64 bits, of which the low 32 are kept. A NaN, and what 64 bits cannot hold, is
    // 0 pixels.
    device_unit(double pixels);
    device_unit(float pixels);

    // A number is assigned as the `device_unit` made of it.
    device_unit& operator=(device_unit const&) = default;
    device_unit& assign(device_unit const& other) { return *this = other; }

    // The counts are compared.
    bool equal(device_unit const& other) const { return m_pixels == other.m_pixels; }
    bool operator==(device_unit const& other) const { return equal(other); }
    bool operator!=(device_unit const& other) const { return !equal(other); }

    // `dpx`.
    unit_types type() const { return do_type(); }

    // The count. As a float it has 24 significant bits.
    std::int32_t as_int32() const { return do_as_int32(); }
    float as_float() const { return do_as_float(); }
    double as_double() const { return do_as_double(); }

protected:
    // What the operations above give. The destructor is not virtual: delete no object of a derived class by a
    // pointer to this one.
    virtual unit_types do_type() const;
    virtual std::int32_t do_as_int32() const;
    virtual float do_as_float() const;
    virtual double do_as_double() const;

private:
    std::int32_t m_pixels = 0;
};

} // namespace VELDRIN_2_18::types
