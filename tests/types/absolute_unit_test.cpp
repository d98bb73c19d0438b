#include "veldrin/types/absolute_unit.hpp"

#include <cstdint>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"

namespace {

using namespace VELDRIN_2_18;
using types::absolute_unit;
using types::basic_absolute_impl;

static_assert(std::is_abstract_v<absolute_unit> && !std::has_virtual_destructor_v<absolute_unit>);
static_assert(!std::has_virtual_destructor_v<basic_absolute_impl<1>>);
static_assert(sizeof(basic_absolute_impl<1>) == sizeof(void*) + sizeof(double));
static_assert(std::is_same_v<std::underlying_type_t<absolute_unit::unit_types>, std::int32_t>);

// A length in the unit N with what only derived classes reach.
template <int N>
struct open_length : basic_absolute_impl<N> {
    using basic_absolute_impl<N>::basic_absolute_impl;
    using absolute_unit::value;
};

// A length that reports any type.
struct typed_length : absolute_unit {
    typed_length(int type, std::int32_t length)
        : absolute_unit(length), m_type(static_cast<unit_types>(type)) {}
    using absolute_unit::value;

protected:
    unit_types do_type() const override { return m_type; }
    std::int32_t do_as_int32() const override { return 42; }
    double do_as_double() const override { return 42.5; }

private:
    unit_types m_type;
};

// The length in md with its fraction.
double md_of(absolute_unit const& length) {
    open_length<1> md;
    md.absolute_unit::operator=(length);
    return md.value();
}

// ---- One unit ------------------------------------------------------------------------------------------

template <int N>
void expect_unit(absolute_unit::unit_types type, double per_inch) {
    SCOPED_TRACE(N);
    EXPECT_EQ(type, N);
    open_length<N> length(100000);
    EXPECT_EQ(length.type(), type);
    EXPECT_EQ(length.as_md(), 100000);
    EXPECT_EQ(length.value(), per_inch);

    length = open_length<N>(-250000);
    EXPECT_EQ(length.value(), -250000.0 * per_inch / 100000);

    length.value(per_inch);
    EXPECT_EQ(md_of(length), 100000.0);
    length.value(1.0);
    EXPECT_EQ(md_of(length), 1.0 * 100000 / per_inch);
    length.value(-7.125);
    EXPECT_EQ(md_of(length), -7.125 * 100000 / per_inch);
}

TEST(absolute_unit, has_eight_units) {
    expect_unit<1>(absolute_unit::md, 100000);
    expect_unit<2>(absolute_unit::dot300, 300);
    expect_unit<3>(absolute_unit::mm, 25.4);
    expect_unit<4>(absolute_unit::cm, 2.54);
    expect_unit<5>(absolute_unit::inch, 1);
    expect_unit<6>(absolute_unit::point, 72);
    expect_unit<7>(absolute_unit::pica, 6);
    expect_unit<8>(absolute_unit::px96, 96);
}

TEST(absolute_unit, takes_and_gives_md_unscaled) {
    // 0.1 times 100000 over 100000 would be another number, and 1e305 an infinity.
    for (double const md : {0.1, 1e-320, 1e305, -4.35}) {
        open_length<1> length;
        length.value(md);
        EXPECT_EQ(length.value(), md);
    }
}

TEST(absolute_unit, scales_before_it_divides) {
    open_length<3> length(3);
    EXPECT_EQ(length.value(), 3 * 25.4 / 100000);
    EXPECT_NE(length.value(), 3 / 100000.0 * 25.4);
    length.value(0.1);
    EXPECT_EQ(md_of(length), 0.1 * 100000 / 25.4);
    EXPECT_NE(md_of(length), 0.1 / 25.4 * 100000);
}

TEST(absolute_unit, has_no_value_in_a_unit_that_is_not_listed) {
    for (int const type : {0, 9, -1, 1000000}) {
        typed_length length(type, 100000);
        EXPECT_EQ(length.type(), type);
        EXPECT_EQ(length.value(), 0.0);
        EXPECT_EQ(length.as_md(), 100000);
        length.value(5.0);
        EXPECT_EQ(length.as_md(), 0);

        open_length<absolute_unit::md> endless;
        endless.value(std::numeric_limits<double>::infinity());
        static_cast<absolute_unit&>(length) = endless;
        EXPECT_EQ(length.value(), 0.0);
    }
}

// ---- Construction and assignment -----------------------------------------------------------------------

TEST(absolute_unit, is_no_length_by_default) {
    EXPECT_EQ(md_of(basic_absolute_impl<1>()), 0.0);
    EXPECT_EQ(md_of(basic_absolute_impl<5>()), 0.0);
}

template <class Number>
void expect_md(Number value, std::int32_t md) {
    EXPECT_EQ(md_of(basic_absolute_impl<1>(value)), static_cast<double>(md));
    EXPECT_EQ(md_of(basic_absolute_impl<5>(value)), static_cast<double>(md));
    basic_absolute_impl<3> const converted = value;
    EXPECT_EQ(md_of(converted), static_cast<double>(md));
}

TEST(absolute_unit, is_made_of_md_as_any_integer) {
    expect_md<signed char>(-128, -128);
    expect_md<unsigned char>(255, 255);
    expect_md<short>(-32768, -32768);
    expect_md<unsigned short>(65535, 65535);
    expect_md<int>(-2147483647 - 1, -2147483647 - 1);
    expect_md<unsigned int>(4294967295U, -1);
    expect_md<long>(100000, 100000);
    expect_md<unsigned long>(100000, 100000);
    expect_md<long long>(0x123456789, 0x23456789);
    expect_md<unsigned long long>(18446744073709551615ULL, -1);
}

TEST(absolute_unit, is_made_of_whole_md_from_a_real_number) {
    expect_md(2.9, 2);
    expect_md(-2.9, -2);
    expect_md(2.9F, 2);
    expect_md(2147483647.5, 2147483647);
    expect_md(4294967297.5, 1);
    expect_md(1e300, 0);
    expect_md(std::numeric_limits<double>::quiet_NaN(), 0);
}

TEST(absolute_unit, copies_md_with_their_fraction) {
    open_length<1> original;
    original.value(2.75);
    open_length<1> const copy(original);
    EXPECT_EQ(copy.value(), 2.75);
    open_length<1> assigned(5);
    assigned = original;
    EXPECT_EQ(assigned.value(), 2.75);
}

TEST(absolute_unit, takes_the_md_of_another_unit_by_assignment) {
    basic_absolute_impl<3> millimetres;
    basic_absolute_impl<5> const inches(250000);
    EXPECT_EQ(&(millimetres = inches), &millimetres);
    EXPECT_EQ(millimetres.type(), absolute_unit::mm);
    EXPECT_EQ(millimetres.as_double(), 63.5);

    absolute_unit const& any = inches;
    basic_absolute_impl<6> points;
    points = any;
    EXPECT_EQ(points.as_int32(), 180);

    absolute_unit& target = points;
    target = millimetres;
    EXPECT_EQ(points.type(), absolute_unit::point);
    EXPECT_EQ(points.as_md(), 250000);
}

// ---- Results -------------------------------------------------------------------------------------------

TEST(absolute_unit, truncates_md_toward_zero) {
    struct {
        double md;
        std::int32_t whole;
    } const cases[] = {
        {2.9, 2}, {-2.9, -2}, {-0.5, 0}, {2147483647.9, 2147483647}, {4294967297.5, 1}, {1e300, 0},
    };
    for (auto const& [md, whole] : cases) {
        open_length<1> length;
        length.value(md);
        EXPECT_EQ(length.as_md(), whole) << md;
    }
}

TEST(absolute_unit, rounds_half_up) {
    struct {
        double value;
        std::int32_t as_int32;
        double as_double;
    } const cases[] = {
        {0, 0, 0},
        {0.49, 0, 0.49},
        {0.5, 1, 0.5},
        {-0.5, 0, -0.5},
        {-0.51, -1, -0.51},
        {-1.5, -1, -1.5},
        {1.5, 2, 1.5},
        {2.125, 2, 2.13},
        {-2.125, -2, -2.12},
        {0.004, 0, 0},
        {2147483646.6, 2147483647, 2147483646.6},
        {4294967298.4, 2, 4294967298.4},
    };
    for (auto const& [value, as_int32, as_double] : cases) {
        SCOPED_TRACE(value);
        open_length<1> md;
        md.value(value);
        EXPECT_EQ(md.as_int32(), as_int32);
        EXPECT_EQ(md.as_double(), as_double);
        open_length<5> inches;
        inches.value(value);
        EXPECT_EQ(inches.as_int32(), as_int32);
        EXPECT_EQ(inches.as_double(), as_double);
    }
}

TEST(absolute_unit, rounds_one_md_less_than_an_inch_to_an_inch) {
    EXPECT_EQ(basic_absolute_impl<5>(99999).as_int32(), 1);
    EXPECT_EQ(basic_absolute_impl<5>(99999).as_double(), 1.0);
    EXPECT_EQ(basic_absolute_impl<5>(50000).as_int32(), 1);
    EXPECT_EQ(basic_absolute_impl<5>(49999).as_int32(), 0);
}

TEST(absolute_unit, tells_an_inch_in_millimetres) {
    open_length<3> const inch(100000);
    EXPECT_EQ(inch.value(), 25.4);
    EXPECT_EQ(inch.as_double(), 25.4);
    EXPECT_EQ(inch.as_int32(), 25);
}

TEST(absolute_unit, calls_the_virtual_operations) {
    typed_length const length(3, 100000);
    absolute_unit const& tested = length;
    EXPECT_EQ(tested.type(), absolute_unit::mm);
    EXPECT_EQ(tested.as_int32(), 42);
    EXPECT_EQ(tested.as_double(), 42.5);
    EXPECT_EQ(length.value(), 25.4);
}

TEST(absolute_unit, virtual_operations_stand_in_their_fixed_order) {
    using support::virtual_slot;
    struct open_unit : absolute_unit {
        using absolute_unit::do_as_double;
        using absolute_unit::do_as_int32;
        using absolute_unit::do_type;
    };
    EXPECT_EQ(virtual_slot(&open_unit::do_type), 0U);
    EXPECT_EQ(virtual_slot(&open_unit::do_as_int32), 1U);
    EXPECT_EQ(virtual_slot(&open_unit::do_as_double), 2U);
}

} // namespace
