// File: veldrin/types/color.hpp
//
// A colour in 32 bits: four channels of 8, in memory red, green, blue and alpha on a little-endian machine.
// Its number, 0xAABBGGRR, may be handed on in its place.
//
//     types::color_t tested(0x11, 0x22, 0x33, 0x44);
//     tested.as_int32();      // 0x44332211
//     tested.as_rgb();        // 0x332211
//     tested.red(0xFF);       // 0xFF, the new value
//     types::color_t(0x11, 0x22, 0x33).alpha();    // 255: opaque
//     types::color_t().alpha();                    // 0: transparent

#pragma once

#include <cstdint>
#include <type_traits>

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types {

class color_t {
public:
    // All channels 0, alpha too.
    constexpr color_t() = default;
    constexpr color_t(color_t const&) = default;

    // The number as it is, alpha too. A wider integer keeps its low 32 bits.
    constexpr color_t(std::int32_t number) : m_number(static_cast<std::uint32_t>(number)) {}
    template <class Integer, class = std::enable_if_t<std::is_integral_v<Integer>>>
    constexpr color_t(Integer number) : m_number(static_cast<std::uint32_t>(number)) {}

    constexpr color_t(unsigned char red, unsigned char green, unsigned char blue, unsigned char alpha = 255)
        : m_number(placed(red, red_shift) | placed(green, green_shift) | placed(blue, blue_shift) |
                   placed(alpha, alpha_shift)) {}

    // The constructors by name. `rgb` of a number keeps its alpha bits.
    static constexpr color_t rgba(color_t const& number) { return number; }
    static constexpr color_t rgba(unsigned char red, unsigned char green, unsigned char blue,
                                  unsigned char alpha) {
        return color_t(red, green, blue, alpha);
    }
    static constexpr color_t rgb(color_t const& number) { return number; }
    static constexpr color_t rgb(unsigned char red, unsigned char green, unsigned char blue) {
        return color_t(red, green, blue);
    }

    // A number is assigned as the colour made of it.
    constexpr color_t const& operator=(color_t const& other) { return assign(other); }
    constexpr color_t const& assign(color_t const& other) {
        m_number = other.m_number;
        return *this;
    }

    // All four channels are compared.
    constexpr bool equal(color_t const& other) const { return m_number == other.m_number; }
    constexpr bool operator==(color_t const& other) const { return equal(other); }
    constexpr bool operator!=(color_t const& other) const { return !equal(other); }

    // The setters return the new value.
    constexpr unsigned char red() const { return channel(red_shift); }
    constexpr unsigned char red(unsigned char value) { return channel(red_shift, value); }
    constexpr unsigned char green() const { return channel(green_shift); }
    constexpr unsigned char green(unsigned char value) { return channel(green_shift, value); }
    constexpr unsigned char blue() const { return channel(blue_shift); }
    constexpr unsigned char blue(unsigned char value) { return channel(blue_shift, value); }
    constexpr unsigned char alpha() const { return channel(alpha_shift); }
    constexpr unsigned char alpha(unsigned char value) { return channel(alpha_shift, value); }

    // The number; `as_rgb` without its alpha bits.
    constexpr std::int32_t as_int32() const { return static_cast<std::int32_t>(m_number); }
    constexpr std::int32_t as_rgb() const { return as_int32() & 0xFFFFFF; }

private:
    static constexpr int red_shift = 0;
    static constexpr int green_shift = 8;
    static constexpr int blue_shift = 16;
    static constexpr int alpha_shift = 24;

    static constexpr std::uint32_t placed(unsigned char value, int shift) {
        return static_cast<std::uint32_t>(value) << shift;
    }
    constexpr unsigned char channel(int shift) const { return static_cast<unsigned char>(m_number >> shift); }
    constexpr unsigned char channel(int shift, unsigned char value) {
        m_number = (m_number & ~placed(255, shift)) | placed(value, shift);
        return value;
    }

    std::uint32_t m_number = 0;
};

} // namespace VELDRIN_2_18::types
