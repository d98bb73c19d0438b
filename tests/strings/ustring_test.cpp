#include "veldrin/strings/ustring.hpp"

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/unit_texts.hpp"
#include "veldrin/strings/unit_types.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::utf16_unit;
using strings::utf32_unit;
using strings::wide_string;
using support::utf16;
using support::utf32;
using support::utf8;

template <class Text>
class ustring : public testing::Test {};

// The same small text in each unit.
template <class Text>
Text abc() {
    using unit = typename Text::value_type;
    return {unit('a'), unit('b'), unit('c')};
}

using all_texts = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(ustring, all_texts);

TYPED_TEST(ustring, is_its_base_with_a_new_name) {
    using base = typename TypeParam::base_type;
    static_assert(std::is_convertible_v<TypeParam*, base*>, "the base is public");
    static_assert(sizeof(TypeParam) == sizeof(base) && alignof(TypeParam) == alignof(base));
    static_assert(!std::is_polymorphic_v<TypeParam>);
    static_assert(std::is_nothrow_move_constructible_v<TypeParam>);
    static_assert(std::is_nothrow_constructible_v<TypeParam, base>);
    EXPECT_TRUE(typeid(TypeParam) != typeid(base));
}

TEST(ustring_types, hold_units_of_the_width_in_their_names) {
    EXPECT_EQ(sizeof(ustring8::value_type), 1u);
    EXPECT_EQ(sizeof(ustring16::value_type), 2u);
    EXPECT_EQ(sizeof(ustring32::value_type), 4u);
    EXPECT_TRUE((std::is_same_v<ustring8::base_type, std::string>));
    EXPECT_TRUE((std::is_same_v<ustring16::base_type, wide_string>));
}

TYPED_TEST(ustring, starts_empty_and_terminated) {
    TypeParam const text;
    EXPECT_EQ(text.size(), 0u);
    EXPECT_EQ(*text.c_str(), typename TypeParam::value_type(0));
}

TYPED_TEST(ustring, copies_a_pointer_up_to_the_first_zero_unit) {
    using unit = typename TypeParam::value_type;
    unit const units[] = {unit('a'), unit('b'), unit('c'), unit(0), unit('d'), unit(0)};
    TypeParam const text(units);
    EXPECT_EQ(text, abc<TypeParam>());
    EXPECT_EQ(text.size(), 3u);
    EXPECT_EQ(text.c_str()[3], unit(0));
}

TYPED_TEST(ustring, copies_its_base) {
    using base = typename TypeParam::base_type;
    base const source = abc<TypeParam>();
    TypeParam const text = source;
    EXPECT_EQ(text, source);
    EXPECT_EQ(source.size(), 3u);
}

TYPED_TEST(ustring, has_the_other_constructors_and_the_assignments_of_its_base) {
    using unit = typename TypeParam::value_type;
    TypeParam text(3, unit('x'));
    EXPECT_EQ(text, (TypeParam{unit('x'), unit('x'), unit('x')}));
    text = unit('y');
    EXPECT_EQ(text, (TypeParam{unit('y')}));
    unit const units[] = {unit('a'), unit('b'), unit('c'), unit(0)};
    text = units;
    EXPECT_EQ(text, abc<TypeParam>());
    text = {unit('z')};
    EXPECT_EQ(text, TypeParam(1, unit('z')));
    text = typename TypeParam::base_type(2, unit('q'));
    EXPECT_EQ(text, TypeParam(2, unit('q')));
    text = {};
    EXPECT_TRUE(text.empty());
}

TYPED_TEST(ustring, is_a_value) {
    TypeParam first = abc<TypeParam>();
    TypeParam second = first;
    second.push_back(typename TypeParam::value_type('d'));
    EXPECT_EQ(first, abc<TypeParam>());
    EXPECT_EQ(second.size(), 4u);
    swap(first, second);
    EXPECT_EQ(first.size(), 4u);
    EXPECT_EQ(second, abc<TypeParam>());
    first = second;
    EXPECT_EQ(first, second);
}

// A buffer of a long text is handed over: the units stay where they are.
TYPED_TEST(ustring, moves_into_its_base_and_back_without_a_copy) {
    TypeParam text(1000, typename TypeParam::value_type('x'));
    auto const* const units = text.data();
    typename TypeParam::base_type plain = std::move(text);
    EXPECT_EQ(plain.data(), units);
    TypeParam const again = std::move(plain);
    EXPECT_EQ(again.data(), units);
    EXPECT_EQ(again.size(), 1000u);
}

TYPED_TEST(ustring, keeps_a_zero_unit_inside_the_text) {
    using unit = typename TypeParam::value_type;
    TypeParam const text{unit('a'), unit(0), unit('b')};
    TypeParam const copy = text;
    EXPECT_EQ(copy.size(), 3u);
    EXPECT_EQ(copy[2], unit('b'));
    EXPECT_EQ(copy, text);
    EXPECT_NE(copy, TypeParam(text.c_str()));
    EXPECT_EQ(TypeParam(text.c_str()).size(), 1u);
}

TYPED_TEST(ustring, puts_a_prefix_before_the_longer_text) {
    using unit = typename TypeParam::value_type;
    TypeParam const shorter{unit('a'), unit('b')};
    EXPECT_LT(shorter, abc<TypeParam>());
    EXPECT_LT(TypeParam(), shorter);
    EXPECT_FALSE(shorter < shorter);
}

TYPED_TEST(ustring, compares_units_as_unsigned_values) {
    using unit = typename TypeParam::value_type;
    auto const highest = static_cast<unit>(-1);
    auto const middle = static_cast<unit>(unit(1) << (8 * sizeof(unit) - 1));
    std::vector<TypeParam> texts = {{highest}, {unit('a'), highest}, {middle}, {unit('z')}, {unit('a')}};
    std::sort(texts.begin(), texts.end());
    std::vector<TypeParam> const sorted = {
        {unit('a')}, {unit('a'), highest}, {unit('z')}, {middle}, {highest}};
    EXPECT_EQ(texts, sorted);
}

TYPED_TEST(ustring, fails_in_the_words_of_the_standard_string_only) {
    TypeParam text = abc<TypeParam>();
    EXPECT_THROW((void)text.at(3), std::out_of_range);
    EXPECT_THROW((void)text.substr(4), std::out_of_range);
    EXPECT_THROW(text.resize(text.max_size() + 1), std::length_error);
    EXPECT_EQ(text, abc<TypeParam>());
}

// No way leads from one width to another but a converter.
template <class To, class From>
constexpr bool is_reachable = std::is_constructible_v<To, From> || std::is_assignable_v<To&, From>;

static_assert(!is_reachable<ustring8, ustring16> && !is_reachable<ustring8, ustring32>);
static_assert(!is_reachable<ustring16, ustring8> && !is_reachable<ustring16, ustring32>);
static_assert(!is_reachable<ustring32, ustring8> && !is_reachable<ustring32, ustring16>);
static_assert(!is_reachable<ustring8, utf16_unit const*> && !is_reachable<ustring8, utf32_unit const*>);
static_assert(!is_reachable<ustring16, char const*> && !is_reachable<ustring32, char const*>);
static_assert(std::is_convertible_v<char const*, ustring8>);
static_assert(std::is_convertible_v<utf16_unit const*, ustring16>);
static_assert(std::is_convertible_v<utf32_unit const*, ustring32>);

TEST(ustring_sizes, count_units_and_never_characters) {
    EXPECT_EQ(utf8({0xC3, 0xA9}).size(), 2u);
    EXPECT_EQ(utf8({0xE2, 0x82, 0xAC}).size(), 3u);
    EXPECT_EQ(utf8({0xF0, 0x9F, 0x98, 0x80}).size(), 4u);
    EXPECT_EQ(utf16({0xD83D, 0xDE00}).size(), 2u);
    EXPECT_EQ(utf32({0x1F600}).size(), 1u);
}

TEST(ustring_contents, are_never_validated_or_normalised) {
    EXPECT_EQ(utf8({0xEF, 0xBB, 0xBF, 0xFF, 0xC0}).size(), 5u);
    EXPECT_EQ(utf16({0xFFFE, 0xDC00, 0xD800})[0], static_cast<utf16_unit>(0xFFFE));
    EXPECT_EQ(utf32({0xFFFFFFFF, 0xD800})[0], static_cast<utf32_unit>(0xFFFFFFFF));
}

TEST(ustring8, takes_the_bytes_of_a_literal_as_they_are) {
    ustring8 const text = "\xC3\xA9";
    EXPECT_EQ(text, utf8({0xC3, 0xA9}));
    EXPECT_EQ(text, "\xC3\xA9");
}

#ifdef __cpp_char8_t
TEST(ustring8, takes_a_literal_that_is_known_to_be_utf8) {
    ustring8 const text = u8"\u00E9";
    EXPECT_EQ(text, utf8({0xC3, 0xA9}));
}
#endif

TEST(ustring8, from_beyond_ascii_is_greater_than_any_ascii_letter) {
    ustring8 const e_acute = utf8({0xC3, 0xA9});
    for (char letter = 'A'; letter <= 'z'; ++letter) {
        EXPECT_GT(e_acute, ustring8(1, letter));
        EXPECT_GT(e_acute, ustring8(50, letter));
    }
}

TEST(ustring8, holding_invalid_bytes_copies_compares_and_sorts_like_any_other) {
    std::vector<ustring8> texts = {utf8({0xFF}), utf8({0x80, 0x80}), "b", utf8({0xC3}), utf8({0x80})};
    std::vector<ustring8> const copies = texts;
    std::sort(texts.begin(), texts.end());
    EXPECT_EQ(texts,
              (std::vector<ustring8>{"b", utf8({0x80}), utf8({0x80, 0x80}), utf8({0xC3}), utf8({0xFF})}));
    EXPECT_EQ(copies[0], utf8({0xFF}));
}

TEST(ustring8, is_a_map_key_in_byte_order) {
    std::map<ustring8, int, std::less<ustring8>> map;
    map[utf8({0xC3, 0xA9})] = 3;
    map["z"] = 2;
    map["Z"] = 0;
    map["a"] = 1;
    std::vector<int> values;
    for (auto const& entry : map) {
        values.push_back(entry.second);
    }
    EXPECT_EQ(values, (std::vector<int>{0, 1, 2, 3}));
}

ustring16 make_utf16() { return utf16({0x41, 0xD83D, 0xDE00}); }

TEST(ustring16, returned_from_a_function_binds_to_the_wide_string) {
    wide_string const& bound = make_utf16();
    wide_string const moved = make_utf16();
    EXPECT_EQ(bound.size(), 3u);
    EXPECT_EQ(moved, bound);
}

// The three are three types to overloading and to run-time type identity.
int width_of(ustring8 const&) { return 8; }
int width_of(ustring16 const&) { return 16; }
int width_of(ustring32 const&) { return 32; }

TEST(ustring_types, are_told_apart) {
    EXPECT_EQ(width_of(ustring8()), 8);
    EXPECT_EQ(width_of(ustring16()), 16);
    EXPECT_EQ(width_of(ustring32()), 32);
    EXPECT_EQ(width_of("text"), 8);
    EXPECT_TRUE(typeid(ustring8) != typeid(ustring16));
    EXPECT_TRUE(typeid(ustring16) != typeid(ustring32));
    EXPECT_TRUE(typeid(ustring8) != typeid(ustring32));
}

} // namespace
