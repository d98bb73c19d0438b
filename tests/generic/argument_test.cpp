#include "veldrin/generic/argument.hpp"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace {

using namespace VELDRIN_2_18;
using generic::argument;

static_assert(!std::is_polymorphic_v<argument> && !std::is_polymorphic_v<argument const>);

template <class Left, class Right, class = void>
struct is_comparable : std::false_type {};

template <class Left, class Right>
struct is_comparable<Left, Right,
                     std::void_t<decltype(std::declval<Left const&>() == std::declval<Right const&>())>>
    : std::true_type {};

static_assert(is_comparable<argument, types::nil_t>::value);
static_assert(!is_comparable<argument, argument>::value);

void expect_state(argument const& tested, strings::ustring8 const& name, strings::ustring8 const& value) {
    EXPECT_EQ(tested.has_name(), !name.empty());
    EXPECT_EQ(tested.name(), name);
    EXPECT_EQ(tested.value().as_utf8(), value);
}

void expect_nil(argument const& tested) {
    expect_state(tested, "", "");
    EXPECT_TRUE(tested.equal(types::nil));
    EXPECT_TRUE(tested == types::nil);
    EXPECT_FALSE(tested != types::nil);
}

void expect_not_nil(argument const& tested) {
    EXPECT_FALSE(tested.equal(types::nil));
    EXPECT_FALSE(tested == types::nil);
    EXPECT_TRUE(tested != types::nil);
}

TEST(argument, is_nil_when_built_of_nothing_or_of_nil) {
    expect_nil(argument());
    expect_nil(argument(types::nil));
    expect_nil(argument(types::variant()));
    expect_nil(argument("", types::nil));
    argument const copied = types::nil;
    expect_nil(copied);
}

TEST(argument, has_no_name_when_built_of_a_value) {
    expect_state(argument(types::variant(5)), "", "5");
    expect_state(argument(5), "", "5");
    expect_state(argument("text"), "", "text");
    expect_not_nil(argument(5));
    argument const copied = types::variant(5);
    expect_state(copied, "", "5");
}

TEST(argument, has_the_name_it_is_built_with) {
    expect_state(argument("x", 5), "x", "5");
    expect_not_nil(argument("x", 5));
    argument const copied = {"x", 5};
    expect_state(copied, "x", "5");
}

TEST(argument, has_no_name_when_built_with_an_empty_one) {
    expect_state(argument("", 5), "", "5");
    expect_not_nil(argument("", 5));
}

TEST(argument, is_not_nil_with_a_name_and_a_nil_value) {
    argument const named("x", types::nil);
    expect_not_nil(named);
    EXPECT_TRUE(named.value() == types::nil);
}

TEST(argument, holds_a_value_of_the_type_given) {
    EXPECT_EQ(argument("x", true).value().type(), typeid(bool));
    EXPECT_EQ(argument(5u).value().type(), typeid(unsigned int));
    EXPECT_EQ(argument("x", "text").value().type(), typeid(strings::ustring8));
    EXPECT_EQ(argument("x", types::nil).value().type(), typeid(types::nil_t));
}

TEST(argument, copies_name_and_value) {
    argument original("x", 5);
    argument const copy(original);
    original.assign("y", 6);
    expect_state(copy, "x", "5");
}

TEST(argument, sets_its_name_and_returns_it) {
    argument tested(5);
    strings::ustring8 const& name = tested.name("x");
    EXPECT_EQ(&name, &std::as_const(tested).name());
    expect_state(tested, "x", "5");
    tested.name(tested.name());
    expect_state(tested, "x", "5");
    EXPECT_EQ(tested.name(""), "");
    EXPECT_FALSE(tested.has_name());
}

TEST(argument, sets_its_value_and_returns_it) {
    argument tested("x", 5);
    types::variant const& value = tested.value(6);
    EXPECT_EQ(&value, &std::as_const(tested).value());
    expect_state(tested, "x", "6");
    tested.value(tested.value());
    expect_state(tested, "x", "6");
    tested.value(types::nil);
    EXPECT_TRUE(tested.value() == types::nil);
    EXPECT_EQ(tested.name(), "x");
}

TEST(argument, keeps_its_name_when_a_value_is_assigned) {
    argument tested("x", 5);
    EXPECT_EQ(&(tested = types::variant(6)), &tested);
    expect_state(tested, "x", "6");
    EXPECT_EQ(&tested.assign(types::variant("seven")), &tested);
    expect_state(tested, "x", "seven");
    tested = 8;
    expect_state(tested, "x", "8");
    tested = types::variant();
    expect_state(tested, "x", "");
    expect_not_nil(tested);
}

TEST(argument, takes_name_and_value_by_assignment) {
    argument tested("x", 5);
    EXPECT_EQ(&tested.assign("y", 6), &tested);
    expect_state(tested, "y", "6");
    tested.assign("", 7);
    expect_state(tested, "", "7");
}

TEST(argument, takes_another_argument_by_assignment) {
    argument tested("x", 5);
    argument const other("y", 6);
    EXPECT_EQ(&tested.assign(other), &tested);
    expect_state(tested, "y", "6");
    tested = argument(7);
    expect_state(tested, "", "7");
    tested = argument("z", 8);
    argument const& same = tested;
    tested = same;
    expect_state(tested, "z", "8");
    tested = {"w", 9};
    expect_state(tested, "w", "9");
}

TEST(argument, is_nil_when_nil_is_assigned) {
    argument tested("x", 5);
    EXPECT_EQ(&(tested = types::nil), &tested);
    expect_nil(tested);
    tested.assign("x", 5);
    EXPECT_EQ(&tested.assign(types::nil), &tested);
    expect_nil(tested);
}

} // namespace
