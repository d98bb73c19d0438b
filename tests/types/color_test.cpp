#include "veldrin/types/color.hpp"

#include <cstdint>
#include <cstring>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;
using types::color_t;

static_assert(sizeof(color_t) == sizeof(std::int32_t) && alignof(color_t) == alignof(std::int32_t));
static_assert(!std::is_polymorphic_v<color_t> && std::is_standard_layout_v<color_t>);
static_assert(std::is_trivially_copy_constructible_v<color_t> && std::is_trivially_destructible_v<color_t>);

// In a constant expression too.
static_assert(color_t(0x11, 0x22, 0x33, 0x44).as_int32() == 0x44332211);

void expect_channels(color_t const& tested, int red, int green, int blue, int alpha) {
    EXPECT_EQ(tested.red(), red);
    EXPECT_EQ(tested.green(), green);
    EXPECT_EQ(tested.blue(), blue);
    EXPECT_EQ(tested.alpha(), alpha);
}

TEST(color_t, is_transparent_black_by_default) {
    expect_channels(color_t(), 0, 0, 0, 0);
    EXPECT_EQ(color_t().as_int32(), 0);
}

TEST(color_t, is_made_of_four_channels) {
    expect_channels(color_t(1, 2, 3, 4), 1, 2, 3, 4);
    expect_channels(color_t::rgba(1, 2, 3, 4), 1, 2, 3, 4);
    expect_channels(color_t(255, 0, 255, 0), 255, 0, 255, 0);
}

TEST(color_t, is_opaque_when_made_of_three_channels) {
    expect_channels(color_t(1, 2, 3), 1, 2, 3, 255);
    expect_channels(color_t::rgb(1, 2, 3), 1, 2, 3, 255);
}

TEST(color_t, is_made_of_a_number_with_its_alpha_bits) {
    expect_channels(color_t(0x44332211), 0x11, 0x22, 0x33, 0x44);
    expect_channels(color_t::rgba(0x44332211), 0x11, 0x22, 0x33, 0x44);
    expect_channels(color_t::rgb(0x44332211), 0x11, 0x22, 0x33, 0x44);
    expect_channels(color_t::rgb(0x00332211), 0x11, 0x22, 0x33, 0);
}

template <class Integer>
void expect_number(Integer number, std::int32_t expected) {
    EXPECT_EQ(color_t(number).as_int32(), expected);
    EXPECT_EQ(color_t::rgba(number).as_int32(), expected);
    EXPECT_EQ(color_t::rgb(number).as_int32(), expected);
    color_t const converted = number;
    EXPECT_EQ(converted.as_int32(), expected);
    color_t assigned(1, 2, 3);
    EXPECT_EQ(&(assigned = number), &assigned);
    EXPECT_EQ(assigned.as_int32(), expected);
    color_t named(1, 2, 3);
    EXPECT_EQ(&named.assign(number), &named);
    EXPECT_EQ(named.as_int32(), expected);
}

TEST(color_t, takes_every_integer) {
    expect_number<signed char>(-1, -1);
    expect_number<unsigned char>(255, 255);
    expect_number<short>(-2, -2);
    expect_number<unsigned short>(65535, 65535);
    expect_number<int>(-16777216, -16777216);
    expect_number<unsigned int>(0xFF332211, -13426159);
    expect_number<long>(0x44332211, 0x44332211);
    expect_number<unsigned long>(0x44332211, 0x44332211);
    expect_number<long long>(0x544332211, 0x44332211);
    expect_number<unsigned long long>(0xFFFFFFFF44332211, 0x44332211);
}

TEST(color_t, copies_all_channels) {
    color_t const original(1, 2, 3, 4);
    color_t const copy(original);
    expect_channels(copy, 1, 2, 3, 4);
    color_t assigned;
    EXPECT_EQ(&(assigned = original), &assigned);
    expect_channels(assigned, 1, 2, 3, 4);
    color_t named;
    EXPECT_EQ(&named.assign(original), &named);
    expect_channels(named, 1, 2, 3, 4);
    named = *&named;
    expect_channels(named, 1, 2, 3, 4);
}

static_assert(
    std::is_same_v<decltype(std::declval<color_t&>() = std::declval<color_t const&>()), color_t const&>);
static_assert(std::is_same_v<decltype(std::declval<color_t&>() = 5), color_t const&>);
static_assert(std::is_same_v<decltype(std::declval<color_t&>().assign(5)), color_t const&>);

TEST(color_t, compares_every_channel) {
    color_t const tested(1, 2, 3, 4);
    EXPECT_TRUE(tested.equal(color_t(1, 2, 3, 4)));
    EXPECT_TRUE(tested == color_t(1, 2, 3, 4));
    EXPECT_FALSE(tested != color_t(1, 2, 3, 4));
    for (color_t const& other :
         {color_t(0, 2, 3, 4), color_t(1, 0, 3, 4), color_t(1, 2, 0, 4), color_t(1, 2, 3, 0)}) {
        EXPECT_FALSE(tested.equal(other));
        EXPECT_FALSE(tested == other);
        EXPECT_TRUE(tested != other);
    }
}

TEST(color_t, sets_one_channel_and_returns_its_new_value) {
    color_t tested(1, 2, 3, 4);
    EXPECT_EQ(tested.red(0xF1), 0xF1);
    expect_channels(tested, 0xF1, 2, 3, 4);
    EXPECT_EQ(tested.green(0xF2), 0xF2);
    expect_channels(tested, 0xF1, 0xF2, 3, 4);
    EXPECT_EQ(tested.blue(0xF3), 0xF3);
    expect_channels(tested, 0xF1, 0xF2, 0xF3, 4);
    EXPECT_EQ(tested.alpha(0xF4), 0xF4);
    expect_channels(tested, 0xF1, 0xF2, 0xF3, 0xF4);
    EXPECT_EQ(tested.red(0), 0);
    expect_channels(tested, 0, 0xF2, 0xF3, 0xF4);
}

TEST(color_t, gives_its_number_with_and_without_alpha) {
    EXPECT_EQ(color_t(0x11, 0x22, 0x33, 0x44).as_int32(), 0x44332211);
    EXPECT_EQ(color_t(0x11, 0x22, 0x33, 0x44).as_rgb(), 0x332211);
    EXPECT_EQ(color_t(255, 255, 255).as_int32(), -1);
    EXPECT_EQ(color_t(255, 255, 255).as_rgb(), 0xFFFFFF);
}

TEST(color_t, lies_in_memory_as_its_number) {
    color_t const tested(0x11, 0x22, 0x33, 0x44);
    std::int32_t number = 0;
    std::memcpy(&number, &tested, sizeof number);
    EXPECT_EQ(number, 0x44332211);
    EXPECT_TRUE(color_t(number) == tested);
}

} // namespace
