#include "veldrin/generic/varg_list.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using generic::varg_list;

static_assert(!std::is_polymorphic_v<varg_list>);
static_assert(std::is_same_v<varg_list::iterator, std::vector<argument>::iterator>);
static_assert(std::is_same_v<varg_list::const_iterator, std::vector<argument>::const_iterator>);

// "name=value" for each argument, or the value alone for one without a name.
std::string contents(varg_list const& list) {
    std::string text;
    for (argument const& element : list) {
        text += text.empty() ? "" : " ";
        text += element.has_name() ? element.name() + "=" : "";
        text += element.value() == types::nil ? "nil" : element.value().as_utf8();
    }
    return text;
}

// ---- Construction ----

TEST(varg_list, is_empty_when_built_of_nothing) {
    varg_list const list;
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.count(), 0u);
    EXPECT_EQ(list.size(), 0u);
    EXPECT_TRUE(list.begin() == list.end());
}

TEST(varg_list, takes_its_arguments_in_order) {
    EXPECT_EQ(contents(varg_list(argument("b", 1), argument(2), argument("a", 3))), "b=1 2 a=3");
}

TEST(varg_list, takes_whatever_converts_to_an_argument) {
    types::variant const value("five");
    EXPECT_EQ(contents(varg_list(value)), "five");
    EXPECT_EQ(contents(varg_list(types::variant(1), argument("x", 2), {"y", 3}, value)), "1 x=2 y=3 five");
    EXPECT_EQ(contents(varg_list({"file", "notes.txt"}, {"size", 512})), "file=notes.txt size=512");
    varg_list const copied = argument("x", 1);
    EXPECT_EQ(contents(copied), "x=1");
}

TEST(varg_list, takes_26_arguments) {
    varg_list const list({"a", 1}, {"b", 2}, {"c", 3}, {"d", 4}, {"e", 5}, {"f", 6}, {"g", 7}, {"h", 8},
                         {"i", 9}, {"j", 10}, {"k", 11}, {"l", 12}, {"m", 13}, {"n", 14}, {"o", 15},
                         {"p", 16}, {"q", 17}, {"r", 18}, {"s", 19}, {"t", 20}, {"u", 21}, {"v", 22},
                         {"w", 23}, {"x", 24}, {"y", 25}, {"z", 26});
    EXPECT_EQ(contents(list),
              "a=1 b=2 c=3 d=4 e=5 f=6 g=7 h=8 i=9 j=10 k=11 l=12 m=13 n=14 o=15 p=16 q=17 r=18 s=19 "
              "t=20 u=21 v=22 w=23 x=24 y=25 z=26");
}

template <std::size_t>
using repeated_argument = argument const&;

template <std::size_t... Indexes>
constexpr bool takes(std::index_sequence<Indexes...>) {
    return std::is_constructible_v<varg_list, repeated_argument<Indexes>...>;
}

static_assert(takes(std::make_index_sequence<1>()) && takes(std::make_index_sequence<26>()) &&
              !takes(std::make_index_sequence<27>()));

TEST(varg_list, ends_at_the_first_nil_argument) {
    argument const a(1);
    argument const b(2);
    argument const c(3);
    EXPECT_EQ(contents(varg_list(a, b, types::nil, c)), "1 2");
    EXPECT_EQ(contents(varg_list(a, argument(), b)), "1");
    EXPECT_EQ(contents(varg_list(a, types::variant(), b)), "1");
    EXPECT_EQ(contents(varg_list(types::nil, a, b)), "");
    EXPECT_EQ(contents(varg_list(types::nil)), "");
}

TEST(varg_list, does_not_end_at_a_named_argument_that_holds_nil) {
    EXPECT_EQ(contents(varg_list({"x", types::nil}, {"y", 1})), "x=nil y=1");
}

TEST(varg_list, takes_the_first_of_several_arguments_with_one_name) {
    EXPECT_EQ(contents(varg_list({"x", 1}, {"x", 2})), "x=1");
    EXPECT_EQ(contents(varg_list({"x", 1}, {"x", 2}, {"y", 3}, {"x", 4}, {"z", 5})), "x=1 y=3 z=5");
}

TEST(varg_list, takes_any_number_of_arguments_without_a_name) {
    EXPECT_EQ(contents(varg_list(argument(1), argument(1), argument("", 1))), "1 1 1");
}

TEST(varg_list, copies_all_arguments) {
    varg_list original({"x", 1}, {"y", 2});
    varg_list const copy(original);
    original.clear();
    EXPECT_EQ(contents(copy), "x=1 y=2");
}

TEST(varg_list, is_empty_when_nil_is_assigned) {
    varg_list list = types::nil;
    EXPECT_TRUE(list.empty());
    list.push_back("x", 1);
    list = types::nil;
    EXPECT_TRUE(list.empty());
    list.push_back("x", 1);
    list.assign(types::nil);
    EXPECT_TRUE(list.empty());
}

TEST(varg_list, replaces_its_content_by_assignment) {
    varg_list const other({"y", 2}, {"z", 3});
    varg_list list({"x", 1});
    EXPECT_EQ(&(list = other), &list);
    EXPECT_EQ(contents(list), "y=2 z=3");
    list = varg_list(argument(4));
    EXPECT_EQ(contents(list), "4");
    EXPECT_EQ(&list.assign(other), &list);
    EXPECT_EQ(contents(list), "y=2 z=3");
    EXPECT_EQ(contents(other), "y=2 z=3");
    static_assert(std::is_same_v<decltype(list.assign(other)), varg_list const&>);
}

TEST(varg_list, changes_nothing_when_assigned_to_itself) {
    varg_list list({"x", 1}, {"y", 2});
    argument const* const first = &list[std::uint64_t{0}];
    varg_list const& same = list;
    list = same;
    EXPECT_EQ(&list[std::uint64_t{0}], first);
    list.assign(list);
    EXPECT_EQ(contents(list), "x=1 y=2");
    EXPECT_EQ(&list[std::uint64_t{0}], first);
    varg_list& same_to_move = list;
    list = std::move(same_to_move);
    EXPECT_EQ(contents(list), "x=1 y=2");
    EXPECT_EQ(&list[std::uint64_t{0}], first);
}

// ---- Nil ----

TEST(varg_list, is_nil_when_it_is_empty_and_only_then) {
    varg_list list;
    EXPECT_TRUE(list == types::nil);
    EXPECT_TRUE(list.equal(types::nil));
    EXPECT_FALSE(list != types::nil);
    EXPECT_TRUE(list.push_back(argument()));
    EXPECT_FALSE(list == types::nil);
    EXPECT_FALSE(list.equal(types::nil));
    EXPECT_TRUE(list != types::nil);
    EXPECT_FALSE(list.empty());
    EXPECT_EQ(list.count(), 1u);
}

// ---- Access ----

TEST(varg_list, is_walked_by_iterators) {
    varg_list list(argument(1), argument(2));
    for (argument& element : list) {
        element = element.value().as_int() * 10;
    }
    varg_list const& fixed = list;
    EXPECT_EQ(contents(fixed), "10 20");
    EXPECT_EQ(fixed.end() - fixed.begin(), 2);
}

TEST(varg_list, finds_arguments_by_name) {
    varg_list list({"x", 1}, argument(2), {"y", 3});
    varg_list const& fixed = list;
    EXPECT_TRUE(fixed.has_argument("x"));
    EXPECT_TRUE(fixed.has_argument("y"));
    EXPECT_EQ(fixed.at("y").value().as_int(), 3);
    EXPECT_EQ(fixed["y"].value().as_int(), 3);
    EXPECT_EQ(list["x"].value().as_int(), 1);
    EXPECT_EQ(&fixed.at("y"), &fixed.at(2));
    EXPECT_TRUE(fixed.find("y") == fixed.begin() + 2);
    EXPECT_TRUE(list.find("y") == list.begin() + 2);
    list.find("y")->value(4);
    EXPECT_EQ(contents(list), "x=1 2 y=4");
}

TEST(varg_list, matches_names_byte_for_byte) {
    varg_list const list({"name", 1}, {"\xC3\xA9", 2}, {strings::ustring8("a\0b", 3), 3});
    for (strings::ustring8 const& name :
         {strings::ustring8("Name"), strings::ustring8("nam"), strings::ustring8("names"),
          strings::ustring8("e\xCC\x81"), strings::ustring8("a"), strings::ustring8("a\0c", 3)}) {
        EXPECT_FALSE(list.has_argument(name)) << name;
    }
    EXPECT_TRUE(list.has_argument("\xC3\xA9"));
    EXPECT_TRUE(list.has_argument(strings::ustring8("a\0b", 3)));
}

TEST(varg_list, finds_the_first_argument_without_a_name_by_the_empty_name) {
    varg_list list({"x", 1}, argument(2), argument(3));
    EXPECT_TRUE(list.has_argument(""));
    EXPECT_EQ(list.at("").value().as_int(), 2);
    EXPECT_EQ(list[""].value().as_int(), 2);
    EXPECT_TRUE(list.find("") == list.begin() + 1);
    list.erase("");
    EXPECT_EQ(contents(list), "x=1 3");
    EXPECT_FALSE(varg_list({"x", 1}).has_argument(""));
}

TEST(varg_list, gives_the_shared_nil_argument_for_a_name_that_is_not_there) {
    varg_list list({"x", 1});
    varg_list const& fixed = list;
    EXPECT_TRUE(fixed.at("y") == types::nil);
    EXPECT_TRUE(fixed["y"] == types::nil);
    EXPECT_FALSE(fixed.at("y").has_name());
    EXPECT_TRUE(fixed.at("y").value() == types::nil);
    EXPECT_EQ(&fixed.at("y"), &varg_list().at("z"));
    EXPECT_EQ(&fixed["y"], &varg_list().at(""));
    EXPECT_FALSE(fixed.has_argument("y"));
    EXPECT_TRUE(fixed.find("y") == fixed.end());
    EXPECT_TRUE(list.find("y") == list.end());
}

TEST(varg_list, gives_arguments_by_index) {
    varg_list list({"x", 1}, argument(2));
    varg_list const& fixed = list;
    EXPECT_EQ(fixed.at(0).name(), "x");
    EXPECT_EQ(fixed[1].value().as_int(), 2);
    list.at(0) = 10;
    list[1] = argument("y", 20);
    EXPECT_EQ(contents(list), "x=10 y=20");
}

template <class Call>
void expect_out_of_range(Call call) {
    try {
        call();
        ADD_FAILURE() << "nothing was thrown";
    } catch (std::out_of_range const& failure) {
        EXPECT_STREQ(failure.what(), "invalid vector<T> subscript");
    }
}

TEST(varg_list, throws_for_an_index_not_below_the_count) {
    varg_list list({"x", 1}, argument(2));
    varg_list const& fixed = list;
    for (std::uint64_t const index :
         {std::uint64_t{2}, std::uint64_t{3}, std::uint64_t{1} << 32, UINT64_MAX}) {
        expect_out_of_range([&] { list.at(index); });
        expect_out_of_range([&] { list[index]; });
        expect_out_of_range([&] { fixed.at(index); });
        expect_out_of_range([&] { fixed[index]; });
    }
    expect_out_of_range([] { varg_list().at(0); });
}

// ---- Change ----

TEST(varg_list, appends_arguments) {
    varg_list list;
    EXPECT_TRUE(list.push_back(argument("x", 1)));
    EXPECT_TRUE(list.push_back(argument(2)));
    EXPECT_TRUE(list.push_back("y", 3));
    EXPECT_TRUE(list.push_back("", 4));
    EXPECT_TRUE(list.push_back(types::variant(5)));
    EXPECT_EQ(contents(list), "x=1 2 y=3 4 5");
    EXPECT_FALSE(list.at(3).has_name());
}

TEST(varg_list, keeps_the_first_value_of_a_name) {
    varg_list list({"x", 1});
    EXPECT_FALSE(list.push_back("x", 2));
    EXPECT_FALSE(list.push_back(argument("x", 3)));
    EXPECT_EQ(contents(list), "x=1");
    EXPECT_TRUE(list.push_back("X", 4));
    EXPECT_EQ(contents(list), "x=1 X=4");
}

TEST(varg_list, appends_nil_arguments) {
    varg_list list;
    EXPECT_TRUE(list.push_back(argument()));
    EXPECT_TRUE(list.push_back(types::nil));
    EXPECT_TRUE(list.push_back("", types::nil));
    EXPECT_TRUE(list.push_back("x", types::nil));
    EXPECT_EQ(contents(list), "nil nil nil x=nil");
}

TEST(varg_list, appends_its_own_elements) {
    varg_list list;
    list.push_back(argument("a value without a name that is too long for a small string"));
    for (int round = 0; round < 100; ++round) {
        ASSERT_TRUE(list.push_back(list.at(0)));
        ASSERT_TRUE(list.push_back(list.at(0).name(), list.at(0).value()));
    }
    EXPECT_EQ(list.count(), 201u);
    for (argument const& element : list) {
        ASSERT_EQ(element.value().as_utf8(), "a value without a name that is too long for a small string");
    }
    list = varg_list({"a name that is too long to be held in a small string", 1});
    EXPECT_FALSE(list.push_back(list.at(0)));
    EXPECT_FALSE(list.push_back(list.at(0).name(), 2));
    EXPECT_EQ(list.count(), 1u);
}

varg_list five() { return varg_list({"a", 1}, {"b", 2}, argument(3), {"d", 4}, {"e", 5}); }

TEST(varg_list, removes_everything) {
    varg_list list = five();
    list.clear();
    EXPECT_TRUE(list.empty());
    list = five();
    list.erase();
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(list.push_back("a", 6));
}

TEST(varg_list, removes_by_iterator) {
    varg_list list = five();
    list.erase(list.begin() + 1);
    EXPECT_EQ(contents(list), "a=1 3 d=4 e=5");
    list.erase(list.begin(), list.begin() + 2);
    EXPECT_EQ(contents(list), "d=4 e=5");
    list.erase(list.begin(), list.begin());
    EXPECT_EQ(contents(list), "d=4 e=5");
    list.erase(list.begin(), list.end());
    EXPECT_EQ(contents(list), "");
}

TEST(varg_list, removes_by_name) {
    varg_list list = five();
    list.erase("d");
    EXPECT_EQ(contents(list), "a=1 b=2 3 e=5");
    list.erase("d");
    EXPECT_EQ(contents(list), "a=1 b=2 3 e=5");
    list.erase(list.at(0).name());
    EXPECT_EQ(contents(list), "b=2 3 e=5");
    EXPECT_TRUE(list.push_back("a", 6));
}

TEST(varg_list, removes_by_index) {
    varg_list list = five();
    list.erase(0);
    EXPECT_EQ(contents(list), "b=2 3 d=4 e=5");
    list.erase(3);
    EXPECT_EQ(contents(list), "b=2 3 d=4");
    list.erase(list.count());
    list.erase(UINT64_MAX);
    EXPECT_EQ(contents(list), "b=2 3 d=4");
}

} // namespace
