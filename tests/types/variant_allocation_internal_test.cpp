// How often the variant goes to the allocator, and what it does when that has nothing left.

#include <cstddef>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/types/variant.hpp"

namespace {

using namespace VELDRIN_2_18;
using types::variant;

using support::succeeds_with;
template <class Action>
std::size_t allocations_of(Action action) {
    std::size_t const before = support::allocations;
    action();
    return support::allocations - before;
}

TEST(variant_allocation, every_construction_from_a_value_allocates_once) {
    EXPECT_EQ(allocations_of([] { variant const value; }), 1U);
    EXPECT_EQ(allocations_of([] { variant const value(types::nil); }), 1U);
    EXPECT_EQ(allocations_of([] { variant const value(5); }), 1U);
    EXPECT_EQ(allocations_of([] { variant const value("short"); }), 1U);
}

TEST(variant_allocation, copies_and_moves_share) {
    variant source(std::string(100, 'x'));
    variant target;
    EXPECT_EQ(allocations_of([&source] { variant const copy(source); }), 0U);
    EXPECT_EQ(allocations_of([&source] { variant const moved(std::move(source)); }), 0U);
    EXPECT_EQ(allocations_of([&source, &target] { target = source; }), 0U);
    EXPECT_EQ(allocations_of([&source, &target] { target.assign(source); }), 0U);
}

TEST(variant_allocation, assigning_nil_takes_a_new_object) {
    variant value(5);
    EXPECT_EQ(allocations_of([&value] { value = types::nil; }), 1U);
    EXPECT_EQ(allocations_of([&value] { value = types::nil; }), 1U);
}

TEST(variant_allocation, text_is_parsed_where_it_stands) {
    std::string const digits(100, '1');
    variant const utf8{strings::ustring8(digits)};
    variant const utf16{strings::ustring16(digits.begin(), digits.end())};
    variant const utf32{strings::ustring32(digits.begin(), digits.end())};
    for (variant const* value : {&utf8, &utf16, &utf32}) {
        EXPECT_EQ(allocations_of([value] { value->as_int(); }), 0U);
        EXPECT_EQ(allocations_of([value] { value->as_uint64(); }), 0U);
    }
}

TEST(variant_allocation, text_in_the_units_of_the_result_is_copied_once) {
    std::string const text(100, 'x');
    variant const standard(text);
    variant const utf8{strings::ustring8(text)};
    for (variant const* value : {&standard, &utf8}) {
        EXPECT_EQ(allocations_of([value] { value->as_string(); }), 1U);
        EXPECT_EQ(allocations_of([value] { value->as_utf8(); }), 1U);
    }
    variant const wide{strings::wide_string(text.begin(), text.end())};
    variant const utf16{strings::ustring16(text.begin(), text.end())};
    for (variant const* value : {&wide, &utf16}) {
        EXPECT_EQ(allocations_of([value] { value->as_wstring(); }), 1U);
        EXPECT_EQ(allocations_of([value] { value->as_ustring(); }), 1U);
        EXPECT_EQ(allocations_of([value] { value->as_utf16(); }), 1U);
    }
    variant const utf32{strings::ustring32(text.begin(), text.end())};
    EXPECT_EQ(allocations_of([&utf32] { utf32.as_utf32(); }), 1U);
}

TEST(variant_allocation, a_construction_without_memory_passes_the_failure_on) {
    EXPECT_FALSE(succeeds_with(0, [] { variant const value; }));
    EXPECT_FALSE(succeeds_with(0, [] { variant const value(5); }));
    EXPECT_TRUE(succeeds_with(1, [] { variant const value(5); }));
    std::string const text(100, 'x');
    for (std::size_t const available : {0U, 1U}) {
        EXPECT_FALSE(succeeds_with(available, [&text] { variant const value(text); }));
    }
}

TEST(variant_allocation, an_assignment_without_memory_leaves_the_value) {
    variant value("kept");
    EXPECT_FALSE(succeeds_with(0, [&value] { value = types::nil; }));
    EXPECT_EQ(value.as_string(), "kept");
    EXPECT_FALSE(succeeds_with(0, [&value] { value = 5; }));
    EXPECT_EQ(value.as_string(), "kept");
}

// Longer than what a string holds in itself, and longer still in wide characters.
TEST(variant_allocation, no_text_of_a_real_is_cut_where_memory_ends) {
    variant const value(-1.23456e-300);
    auto const wide_result = support::text_of<strings::wide_string>("-1.23456e-300");
    for (std::size_t available = 0;; ++available) {
        strings::ustring8 narrow;
        strings::wide_string wide;
        bool const has_narrow = succeeds_with(available, [&] { narrow = value.as_string(); });
        bool const has_wide = succeeds_with(available, [&] { wide = value.as_wstring(); });
        EXPECT_EQ(narrow, has_narrow ? "-1.23456e-300" : "");
        EXPECT_TRUE(wide == (has_wide ? wide_result : strings::wide_string())) << available;
        if (has_narrow && has_wide) {
            break;
        }
    }
}

} // namespace
