// What takes the library's own memory to see: the life of the shared nil argument in the static form, where
// nothing but the header's own care orders it against the static objects of its users, and a list that memory
// runs out on.

#include "veldrin/generic/varg_list.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdlib>

#include "support/allocations.hpp"

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using generic::varg_list;

bool finds_nil() {
    varg_list const list;
    return list.at("none") == types::nil && !list.at("none").has_name();
}

// Looks only when it is destroyed, so that it is not its own look that builds the shared argument in time.
struct late_user {
    ~late_user() {
        if (!finds_nil()) {
            std::abort();
        }
    }
};

late_user const looks_behind_main;
bool const found_before_main = finds_nil();

TEST(varg_list, has_its_shared_nil_argument_before_and_behind_main) { EXPECT_TRUE(found_before_main); }

TEST(varg_list, allocates_nothing_for_the_arguments_left_out) {
    argument const first(1);
    std::size_t const before = support::allocations;
    varg_list const list(first);
    EXPECT_EQ(support::allocations, before + 1);
}

TEST(varg_list, takes_room_once_for_all_the_arguments_of_a_pack) {
    argument const first("a", 1);
    argument const second("b", 2);
    argument const third("c", 3);
    std::size_t const before = support::allocations;
    varg_list const list(first, second, third);
    EXPECT_EQ(support::allocations, before + 1);
}

TEST(varg_list, copies_a_name_once) {
    strings::ustring8 const long_name(100, 'n');
    types::variant const value(1);
    varg_list list({"a", 1}, {"b", 2});
    list.erase("b");
    std::size_t const before = support::allocations;
    EXPECT_TRUE(list.push_back(long_name, value));
    EXPECT_EQ(support::allocations, before + 1);
    EXPECT_FALSE(list.push_back(long_name, value));
    EXPECT_EQ(support::allocations, before + 1);
}

// Each run of `change` on a fresh list has memory for one allocation more, until it needs no more. The list
// must be as it was after each run but the last.
template <class Change>
void expect_unchanged_without_memory(Change change) {
    strings::ustring8 const long_name(100, 'n');
    for (std::size_t available = 0;; ++available) {
        varg_list list({long_name, 1}, {"b", 2});
        if (support::succeeds_with(available, [&] { change(list); })) {
            EXPECT_GT(available, 0u);
            return;
        }
        ASSERT_EQ(list.count(), 2u);
        EXPECT_EQ(list.at(0).name(), long_name);
        EXPECT_EQ(list.at(0).value().as_int(), 1);
        EXPECT_EQ(list.at(1).name(), "b");
        EXPECT_EQ(list.at(1).value().as_int(), 2);
    }
}

TEST(varg_list, is_as_it_was_when_memory_runs_out) {
    strings::ustring8 const long_name(100, 'x');
    argument const named(long_name, 3);
    varg_list const three(named, {"y", 4}, {strings::ustring8(100, 'z'), 5});
    varg_list const one(named);
    expect_unchanged_without_memory([&](varg_list& list) { list.push_back(named); });
    expect_unchanged_without_memory([&](varg_list& list) { list.push_back(long_name, 3); });
    expect_unchanged_without_memory([&](varg_list& list) { list = three; });
    expect_unchanged_without_memory([&](varg_list& list) { list = one; });
}

TEST(varg_list, needs_no_memory_to_remove) {
    varg_list list({strings::ustring8(100, 'a'), 1}, {strings::ustring8(100, 'b'), 2}, argument(3));
    std::size_t const before = support::allocations;
    list.erase(0);
    list.erase("");
    list.clear();
    EXPECT_EQ(support::allocations, before);
}

} // namespace
