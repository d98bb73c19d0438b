// How often the variant goes to the allocator.

#include <cstddef>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/types/variant.hpp"

namespace {

using namespace VELDRIN_2_18;
using types::variant;

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

} // namespace
