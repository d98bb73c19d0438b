// The tree when memory runs out.

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "veldrin/config/config_tree.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_tree;
using strings::ustring8;

using support::succeeds_with;
// Too long to be stored inside a string object.
ustring8 const segment(40, 's');

std::string names(config_tree& tree) {
    config_tree::entry_list entries;
    tree.get_value_pair_array("", entries, true, "");
    std::string text;
    for (auto const& [name, entry] : entries) {
        text += name + "=" + std::to_string(entry.first) + ":" + entry.second.as_string() + " ";
    }
    return text;
}

TEST(config_tree, is_left_as_far_as_a_write_had_come) {
    ustring8 const key = segment + "." + segment + ".c";
    types::variant const value("x");
    std::string const one = segment + "=0:1 ";
    std::string const two = one + segment + "." + segment + "=0:1 ";
    std::set<std::string> seen;
    for (std::size_t allocations = 0;; ++allocations) {
        config_tree tree;
        tree.set_node("before", value, 0);
        bool const done = succeeds_with(allocations, [&] { tree.set_node(key, value, 0); });
        std::string const left = names(tree);
        if (done) {
            EXPECT_EQ(left, "before=1:x " + two + key + "=1:x ");
            break;
        }
        seen.insert(left);
    }
    EXPECT_EQ(seen, (std::set<std::string>{"before=1:x ", "before=1:x " + one, "before=1:x " + two}));
}

TEST(config_tree, is_unchanged_when_an_assignment_fails) {
    config_tree source;
    source.set_node("a.b.c", "x", 0);
    source.set_node("a.d", "x", 0);
    config_tree target;
    target.set_node("old.key", "y", 0);
    std::string const before = names(target);
    std::size_t allocations = 0;
    while (!succeeds_with(allocations, [&] { target = source; })) {
        EXPECT_EQ(names(target), before);
        ++allocations;
    }
    EXPECT_GT(allocations, 4U);
    EXPECT_EQ(names(target), names(source));
}

TEST(config_tree, gives_its_memory_back_when_a_copy_fails) {
    config_tree source;
    source.set_node("a.b.c", "x", 0);
    std::size_t allocations = 0;
    while (!succeeds_with(allocations, [&] { config_tree const copy(source); }) ||
           !succeeds_with(allocations, [&] { delete source.clone(); })) {
        ++allocations;
    }
    EXPECT_GT(allocations, 4U);
}

TEST(config_tree, is_taken_apart_without_memory) {
    std::optional<config_tree> tree(std::in_place);
    for (char const* const key : {"a.b.c", "a.b.d", "b.c", "b.a.a"}) {
        tree->set_node(key, "x", 0);
    }
    std::optional<config_tree> copy(*tree);
    EXPECT_TRUE(succeeds_with(0, [&] { tree->erase(); }));
    EXPECT_EQ(names(*tree), "");
    EXPECT_TRUE(succeeds_with(0, [&] { copy.reset(); }));
}

} // namespace
