// File: veldrin/generic/convert/unit_conversion.hpp
//
// Between physical lengths and device pixels. `resolution` is the number of device pixels per inch.
//
//     using types::absolute_unit;
//     using types::device_unit;
//     generic::convert::to_device_unit(25.4, absolute_unit::mm, 300).as_int32();    // 300
//     generic::convert::to_md(72, absolute_unit::point).as_md();                    // 100000
//     generic::convert::to_md(150.0, device_unit::dpx, 96).as_md();                 // 156250
//     generic::convert::to_md(150, device_unit::dpx, 96).as_md();                   // 100000: whole inches
//
// Where a function takes a number, it takes a `double`, or an integer, of which the low 32 bits count. A type
// that is not listed in `absolute_unit::unit_types` counts as `md`. Nothing throws.

#pragma once

#include <cstdint>
#include <type_traits>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/types/absolute_unit.hpp"
#include "veldrin/types/device_unit.hpp"

namespace VELDRIN_2_18::generic::convert {

namespace _private {

template <class T>
using if_integer = std::enable_if_t<std::is_integral_v<T>>;

} // namespace _private

// ---- To device pixels -----------------------------------------------------------------------------------

// A copy, and the number as a `device_unit`.
VELDRIN_EXPORT types::device_unit to_device_unit(types::device_unit const& length);
VELDRIN_EXPORT types::device_unit to_device_unit(double pixels, types::device_unit::unit_types type);
VELDRIN_EXPORT types::device_unit to_device_unit(std::int32_t pixels, types::device_unit::unit_types type);

// The whole md times `resolution`, in 32 bits, over 100000, truncated toward zero. The product wraps: for one
// inch at a resolution above 21474.
VELDRIN_EXPORT types::device_unit to_device_unit(types::absolute_unit const& length, std::int32_t resolution);
VELDRIN_EXPORT types::device_unit to_device_unit(double length, types::absolute_unit::unit_types type,
                                                 std::int32_t resolution);
VELDRIN_EXPORT types::device_unit to_device_unit(std::int32_t length, types::absolute_unit::unit_types type,
                                                 std::int32_t resolution);

// The same by another name.
VELDRIN_EXPORT types::device_unit to_dpx(types::device_unit const& length);
VELDRIN_EXPORT types::device_unit to_dpx(double pixels, types::device_unit::unit_types type);
VELDRIN_EXPORT types::device_unit to_dpx(std::int32_t pixels, types::device_unit::unit_types type);
VELDRIN_EXPORT types::device_unit to_dpx(types::absolute_unit const& length, std::int32_t resolution);
VELDRIN_EXPORT types::device_unit to_dpx(double length, types::absolute_unit::unit_types type,
                                         std::int32_t resolution);
VELDRIN_EXPORT types::device_unit to_dpx(std::int32_t length, types::absolute_unit::unit_types type,
                                         std::int32_t resolution);

// ---- To md ----------------------------------------------------------------------------------------------

// Exact: a fraction of an md is kept.
VELDRIN_EXPORT types::basic_absolute_impl<1> to_md(types::absolute_unit const& length);
VELDRIN_EXPORT types::basic_absolute_impl<1> to_md(double const& length,
                                                   types::absolute_unit::unit_types type);
VELDRIN_EXPORT types::basic_absolute_impl<1> to_md(std::int32_t const& length,
                                                   types::absolute_unit::unit_types type);

// Only the `double` form is exact. It gives an infinity for a `resolution` of 0 (0 pixels: a NaN).
VELDRIN_EXPORT types::basic_absolute_impl<1> to_md(double const& pixels, types::device_unit::unit_types type,
                                                   std::int32_t resolution);

// The other two divide as integers first and so give whole inches, the rest is lost; the md wrap at 32 bits.
// `resolution` must not be 0.
VELDRIN_EXPORT types::basic_absolute_impl<1> to_md(types::device_unit const& length, std::int32_t resolution);
VELDRIN_EXPORT types::basic_absolute_impl<1>
to_md(std::int32_t const& pixels, types::device_unit::unit_types type, std::int32_t resolution);

// ---- Integers of other widths ---------------------------------------------------------------------------

template <class Integer, class = _private::if_integer<Integer>>
types::device_unit to_device_unit(Integer pixels, types::device_unit::unit_types type) {
    return to_device_unit(static_cast<std::int32_t>(pixels), type);
}
template <class Integer, class = _private::if_integer<Integer>>
types::device_unit to_device_unit(Integer length, types::absolute_unit::unit_types type,
                                  std::int32_t resolution) {
    return to_device_unit(static_cast<std::int32_t>(length), type, resolution);
}
template <class Integer, class = _private::if_integer<Integer>>
types::device_unit to_dpx(Integer pixels, types::device_unit::unit_types type) {
    return to_dpx(static_cast<std::int32_t>(pixels), type);
}
template <class Integer, class = _private::if_integer<Integer>>
types::device_unit to_dpx(Integer length, types::absolute_unit::unit_types type, std::int32_t resolution) {
    return to_dpx(static_cast<std::int32_t>(length), type, resolution);
}
template <class Integer, class = _private::if_integer<Integer>>
types::basic_absolute_impl<1> to_md(Integer length, types::absolute_unit::unit_types type) {
    return to_md(static_cast<std::int32_t>(length), type);
}
template <class Integer, class = _private::if_integer<Integer>>
types::basic_absolute_impl<1> to_md(Integer pixels, types::device_unit::unit_types type,
                                    std::int32_t resolution) {
    return to_md(static_cast<std::int32_t>(pixels), type, resolution);
}

} // namespace VELDRIN_2_18::generic::convert
