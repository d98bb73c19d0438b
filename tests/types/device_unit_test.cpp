#include "veldrin/types/device_unit.hpp"

#include <cstdint>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"

namespace {

using namespace VELDRIN_2_18;
using types::device_unit;

static_assert(std::is_polymorphic_v<device_unit> && !std::has_virtual_destructor_v<device_unit>);
static_assert(device_unit::dpx == 1);
static_assert(std::is_same_v<std::underlying_type_t<device_unit::unit_types>, std::int32_t>);
static_assert(sizeof(device_unit) == 2 * sizeof(void*));

TEST(device_unit, has_no_pixels_by_default) { EXPECT_EQ(device_unit().as_int32(), 0); }

template <class Number>
void expect_pixels(Number value, std::int32_t pixels) {
    EXPECT_EQ(device_unit(value).as_int32(), pixels);
    device_unit const converted = value;
    EXPECT_EQ(converted.as_int32(), pixels);
    device_unit assigned(77);
    EXPECT_EQ(&(assigned = value), &assigned);
    EXPECT_EQ(assigned.as_int32(), pixels);
    device_unit named(77);
    EXPECT_EQ(&named.assign(value), &named);
    EXPECT_EQ(named.as_int32(), pixels);
}

TEST(device_unit, is_made_of_every_integer) {
    expect_pixels<signed char>(-128, -128);
    expect_pixels<unsigned char>(255, 255);
    expect_pixels<short>(-32768, -32768);
    expect_pixels<unsigned short>(65535, 65535);
    expect_pixels<int>(-2147483647 - 1, -2147483647 - 1);
    expect_pixels<unsigned int>(2147483647, 2147483647);
    expect_pixels<long>(-96, -96);
    expect_pixels<unsigned long>(96, 96);
    expect_pixels<long long>(-96, -96);
    expect_pixels<unsigned long long>(96, 96);
    expect_pixels<char>('A', 65);
    expect_pixels<bool>(true, 1);
    expect_pixels<device_unit::unit_types>(device_unit::dpx, 1);
}

TEST(device_unit, keeps_the_low_32_bits_of_a_wider_integer) {
    expect_pixels(4294967295U, -1);
    expect_pixels(2147483648U, -2147483647 - 1);
    expect_pixels(4294967296LL, 0);
    expect_pixels(-4294967297LL, -1);
    expect_pixels(0x123456789LL, 0x23456789);
    expect_pixels(18446744073709551615ULL, -1);
    expect_pixels(std::numeric_limits<std::int64_t>::min(), 0);
    expect_pixels(std::uint64_t{0xFFFFFFFF80000000}, -2147483647 - 1);
}

TEST(device_unit, truncates_a_real_number_toward_zero) {
    expect_pixels(2.9, 2);
    expect_pixels(-2.9, -2);
    expect_pixels(2.9F, 2);
    expect_pixels(-2.9F, -2);
    expect_pixels(0.999, 0);
    expect_pixels(-0.999, 0);
    expect_pixels(2147483647.9, 2147483647);
    expect_pixels(-2147483648.9, -2147483647 - 1);
    expect_pixels(2147483520.0F, 2147483520);
}

TEST(device_unit, keeps_the_low_32_bits_of_a_large_real_number) {
    expect_pixels(4294967297.5, 1);
    expect_pixels(-4294967297.5, -1);
    expect_pixels(2147483648.0F, -2147483647 - 1);
    expect_pixels(1e300, 0);
    expect_pixels(-1e300, 0);
    expect_pixels(std::numeric_limits<double>::infinity(), 0);
    expect_pixels(std::numeric_limits<float>::quiet_NaN(), 0);
}

TEST(device_unit, copies_the_count) {
    device_unit const original(150);
    device_unit const copy(original);
    EXPECT_EQ(copy.as_int32(), 150);
    device_unit assigned;
    EXPECT_EQ(&(assigned = original), &assigned);
    EXPECT_EQ(assigned.as_int32(), 150);
    assigned = 1;
    EXPECT_EQ(&assigned.assign(original), &assigned);
    EXPECT_EQ(assigned.as_int32(), 150);
    EXPECT_EQ(original.as_int32(), 150);
}

TEST(device_unit, compares_the_counts) {
    EXPECT_TRUE(device_unit(5).equal(device_unit(5)));
    EXPECT_TRUE(device_unit(5) == device_unit(5.9));
    EXPECT_FALSE(device_unit(5) != device_unit(5.9));
    EXPECT_FALSE(device_unit(5).equal(device_unit(-5)));
    EXPECT_FALSE(device_unit(5) == device_unit(6));
    EXPECT_TRUE(device_unit(5) != device_unit(6));
    EXPECT_TRUE(device_unit(5) == 5);
}

TEST(device_unit, tells_its_type_and_its_count_in_three_widths) {
    device_unit const tested(-2147483647);
    EXPECT_EQ(tested.type(), device_unit::dpx);
    EXPECT_EQ(tested.as_int32(), -2147483647);
    EXPECT_EQ(tested.as_float(), -2147483648.0F);
    EXPECT_EQ(tested.as_double(), -2147483647.0);
}

// What a derived class makes of its count is what the operations give.
struct doubled_unit : device_unit {
    using device_unit::device_unit;

    // The operations that are overridden, from a class that may.
    unit_types plain_type() const { return device_unit::do_type(); }
    std::int32_t plain_int32() const { return device_unit::do_as_int32(); }
    float plain_float() const { return device_unit::do_as_float(); }
    double plain_double() const { return device_unit::do_as_double(); }

protected:
    unit_types do_type() const override { return static_cast<unit_types>(2); }
    std::int32_t do_as_int32() const override { return 2 * plain_int32(); }
    float do_as_float() const override { return 2 * plain_float(); }
    double do_as_double() const override { return 2 * plain_double(); }
};

TEST(device_unit, calls_the_virtual_operations) {
    doubled_unit const doubled(21);
    device_unit const& tested = doubled;
    EXPECT_EQ(tested.type(), 2);
    EXPECT_EQ(tested.as_int32(), 42);
    EXPECT_EQ(tested.as_float(), 42.0F);
    EXPECT_EQ(tested.as_double(), 42.0);
    EXPECT_EQ(doubled.plain_type(), device_unit::dpx);
}

TEST(device_unit, virtual_operations_stand_in_their_fixed_order) {
    using support::virtual_slot;
    struct open_unit : device_unit {
        using device_unit::do_as_double;
        using device_unit::do_as_float;
        using device_unit::do_as_int32;
        using device_unit::do_type;
    };
    EXPECT_EQ(virtual_slot(&open_unit::do_type), 0U);
    EXPECT_EQ(virtual_slot(&open_unit::do_as_int32), 1U);
    EXPECT_EQ(virtual_slot(&open_unit::do_as_float), 2U);
    EXPECT_EQ(virtual_slot(&open_unit::do_as_double), 3U);
}

} // namespace
