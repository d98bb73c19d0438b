#include "veldrin/generic/convert/unit_conversion.hpp"

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::generic::convert;
using types::absolute_unit;
using types::basic_absolute_impl;
using types::device_unit;

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();

// The length in md with its fraction.
double md_of(basic_absolute_impl<1> const& length) {
    struct open_length : basic_absolute_impl<1> {
        explicit open_length(basic_absolute_impl<1> const& other) : basic_absolute_impl<1>(other) {}
        using absolute_unit::value;
    };
    return open_length(length).value();
}

// ---- To device pixels ----------------------------------------------------------------------------------

TEST(to_device_unit, copies_device_pixels) {
    EXPECT_EQ(to_device_unit(device_unit(150)).as_int32(), 150);
    EXPECT_EQ(to_dpx(device_unit(150)).as_int32(), 150);
}

TEST(to_device_unit, scales_whole_md_by_the_resolution) {
    struct {
        std::int32_t md;
        std::int32_t resolution;
        std::int32_t pixels;
    } const cases[] = {
        {100000, 96, 96},
        {100000, 300, 300},
        {50000, 96, 48},
        {99999, 96, 95},
        {-99999, 96, -95},
        {1041, 96, 0},
        {1042, 96, 1},
        {-1042, 96, -1},
        {100000, 0, 0},
        {100000, -96, -96},
        {0, 96, 0},
        // The product wraps: 2147400000 still fits, 2147500000 is -2147467296 in 32 bits.
        {100000, 21474, 21474},
        {100000, 21475, -21474},
        {100000, 42948, -1},
        {100000, 42950, 0},
        {smallest, -1, -21474},
        {smallest, 2, 0},
    };
    for (auto const& [md, resolution, pixels] : cases) {
        SCOPED_TRACE(testing::Message() << md << " md at " << resolution);
        EXPECT_EQ(to_device_unit(basic_absolute_impl<1>(md), resolution).as_int32(), pixels);
        EXPECT_EQ(to_device_unit(basic_absolute_impl<3>(md), resolution).as_int32(), pixels);
        EXPECT_EQ(to_dpx(basic_absolute_impl<5>(md), resolution).as_int32(), pixels);
    }
}

TEST(to_device_unit, takes_a_number_of_pixels_whatever_the_type_says) {
    for (auto const type : {device_unit::dpx, static_cast<device_unit::unit_types>(7)}) {
        EXPECT_EQ(to_device_unit(150.9, type).as_int32(), 150);
        EXPECT_EQ(to_dpx(-150.9, type).as_int32(), -150);
        EXPECT_EQ(to_device_unit(150, type).as_int32(), 150);
        EXPECT_EQ(to_dpx(-150, type).as_int32(), -150);
        EXPECT_EQ(to_device_unit(4294967297.5, type).as_int32(), 1);
    }
}

TEST(to_device_unit, takes_a_number_in_each_unit) {
    struct {
        absolute_unit::unit_types type;
        double per_inch;
    } const units[] = {
        {absolute_unit::md, 100000}, {absolute_unit::dot300, 300}, {absolute_unit::mm, 25.4},
        {absolute_unit::cm, 2.54},   {absolute_unit::inch, 1},     {absolute_unit::point, 72},
        {absolute_unit::pica, 6},    {absolute_unit::px96, 96},
    };
    for (auto const& [type, per_inch] : units) {
        SCOPED_TRACE(type);
        EXPECT_EQ(to_device_unit(per_inch, type, 96).as_int32(), 96);
        EXPECT_EQ(to_dpx(-2 * per_inch, type, 300).as_int32(), -600);
        EXPECT_EQ(md_of(to_md(per_inch, type)), 100000.0);
        EXPECT_EQ(md_of(to_md(7, type)), type == absolute_unit::md ? 7 : 7.0 * 100000 / per_inch);
    }
    EXPECT_EQ(to_device_unit(1.0, absolute_unit::inch, 96).as_int32(), 96);
    EXPECT_EQ(to_device_unit(25.4, absolute_unit::mm, 300).as_int32(), 300);
    EXPECT_EQ(to_device_unit(254, absolute_unit::mm, 96).as_int32(), 960);
    EXPECT_EQ(to_dpx(36, absolute_unit::point, 96).as_int32(), 48);
}

TEST(to_device_unit, drops_the_fraction_of_an_md_before_it_scales) {
    // 1.9 md would be 190 pixels.
    EXPECT_EQ(to_device_unit(1.9, absolute_unit::md, 10000000).as_int32(), 100);
}

TEST(to_device_unit, takes_an_unknown_unit_as_md) {
    for (int const number : {0, 9, -1}) {
        auto const type = static_cast<absolute_unit::unit_types>(number);
        EXPECT_EQ(to_device_unit(50000.0, type, 96).as_int32(), 48);
        EXPECT_EQ(to_device_unit(50000, type, 96).as_int32(), 48);
        EXPECT_EQ(to_dpx(50000.0, type, 96).as_int32(), 48);
        EXPECT_EQ(md_of(to_md(2.75, type)), 2.75);
        EXPECT_EQ(md_of(to_md(2, type)), 2.0);
    }
}

// ---- To md ---------------------------------------------------------------------------------------------

TEST(to_md, copies_md_with_their_fraction) {
    basic_absolute_impl<1> const third = to_md(100.0 / 3, absolute_unit::md);
    EXPECT_EQ(md_of(third), 100.0 / 3);
    basic_absolute_impl<3> millimetres;
    millimetres = third;
    EXPECT_EQ(md_of(to_md(millimetres)), 100.0 / 3);
    EXPECT_EQ(to_md(basic_absolute_impl<5>(250000)).as_md(), 250000);
    EXPECT_EQ(to_md(millimetres).type(), absolute_unit::md);
}

TEST(to_md, divides_device_units_as_integers_first) {
    struct {
        std::int32_t pixels;
        std::int32_t resolution;
        std::int32_t md;
    } const cases[] = {
        {150, 96, 100000},
        {50, 96, 0},
        {191, 96, 100000},
        {192, 96, 200000},
        {-150, 96, -100000},
        {-50, 96, 0},
        {150, -96, -100000},
        {0, 96, 0},
        // 21474 inches are the most that 32 bits hold.
        {21474, 1, 2147400000},
        {21475, 1, -2147467296},
        {smallest, -1, 0},
        {smallest, 1, 0},
        {42950, 1, 32704},
    };
    for (auto const& [pixels, resolution, md] : cases) {
        SCOPED_TRACE(testing::Message() << pixels << " pixels at " << resolution);
        EXPECT_EQ(md_of(to_md(device_unit(pixels), resolution)), static_cast<double>(md));
        EXPECT_EQ(md_of(to_md(pixels, device_unit::dpx, resolution)), static_cast<double>(md));
        EXPECT_EQ(md_of(to_md(pixels, static_cast<device_unit::unit_types>(9), resolution)),
                  static_cast<double>(md));
    }
}

TEST(to_md, is_exact_for_a_real_number_of_pixels) {
    EXPECT_EQ(to_md(150.0, device_unit::dpx, 96).as_md(), 156250);
    EXPECT_EQ(md_of(to_md(50.0, device_unit::dpx, 96)), 50.0 / 96 * 100000.0);
    EXPECT_EQ(md_of(to_md(1.0, device_unit::dpx, 3)), 1.0 / 3 * 100000.0);
    EXPECT_EQ(md_of(to_md(-2.5, static_cast<device_unit::unit_types>(9), 10)), -25000.0);
    EXPECT_EQ(md_of(to_md(1e9, device_unit::dpx, 1)), 1e14);
}

TEST(to_md, is_infinite_for_a_real_number_at_resolution_0) {
    EXPECT_EQ(md_of(to_md(150.0, device_unit::dpx, 0)), std::numeric_limits<double>::infinity());
    EXPECT_EQ(md_of(to_md(-150.0, device_unit::dpx, 0)), -std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(md_of(to_md(0.0, device_unit::dpx, 0))));
    EXPECT_EQ(to_md(150.0, device_unit::dpx, 0).as_md(), 0);
}

// ---- Integers of every width ---------------------------------------------------------------------------

template <class Integer>
void expect_integer(Integer value, std::int32_t low_bits) {
    EXPECT_EQ(to_device_unit(value, device_unit::dpx).as_int32(), low_bits);
    EXPECT_EQ(to_dpx(value, device_unit::dpx).as_int32(), low_bits);
    EXPECT_EQ(to_device_unit(value, absolute_unit::md, 100000),
              to_device_unit(low_bits, absolute_unit::md, 100000));
    EXPECT_EQ(to_dpx(value, absolute_unit::md, 100000), to_dpx(low_bits, absolute_unit::md, 100000));
    EXPECT_EQ(md_of(to_md(value, absolute_unit::md)), static_cast<double>(low_bits));
    EXPECT_EQ(md_of(to_md(value, device_unit::dpx, 2)), static_cast<double>(low_bits / 2 * 100000));
}

TEST(unit_conversion, takes_every_integer) {
    expect_integer<signed char>(-128, -128);
    expect_integer<unsigned char>(255, 255);
    expect_integer<short>(-1001, -1001);
    expect_integer<unsigned short>(1001, 1001);
    expect_integer<int>(-1001, -1001);
    expect_integer<unsigned int>(4294966295U, -1001);
    expect_integer<long>(1001, 1001);
    expect_integer<unsigned long>(1001, 1001);
    expect_integer<long long>(4294968297, 1001);
    expect_integer<unsigned long long>(18446744073709550615U, -1001);
}

TEST(unit_conversion, takes_a_float_as_a_double) {
    EXPECT_EQ(to_device_unit(2.5F, device_unit::dpx).as_int32(), 2);
    EXPECT_EQ(to_dpx(2.5F, absolute_unit::inch, 96).as_int32(), 240);
    EXPECT_EQ(to_md(2.5F, absolute_unit::inch).as_md(), 250000);
    EXPECT_EQ(to_md(2.5F, device_unit::dpx, 10).as_md(), 25000);
}

} // namespace
