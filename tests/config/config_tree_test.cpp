#include "veldrin/config/config_tree.hpp"

#include <cstddef>
#include <functional>
#include <iomanip>
#include <limits>
#include <locale>
#include <map>
#include <memory>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/config_entries.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/types/nil.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_tree;
using strings::ustring8;
using support::shown;
using tree_pointer = memory::pointers::rc_pointer<config_tree>;
using entry_type = std::pair<unsigned int, types::variant>;
using entry_list = std::vector<std::pair<ustring8, entry_type>>;
using namespace std::string_literals;

static_assert(
    std::is_base_of_v<generic::abilities::reference_count_pointer_ability<config_tree>, config_tree>);
static_assert(std::is_base_of_v<generic::abilities::clone_ability, config_tree>);
static_assert(std::has_virtual_destructor_v<config_tree>);
static_assert(
    std::is_same_v<decltype(std::declval<config_tree const&>().get_node(ustring8())), entry_type const*>);
static_assert(std::is_same_v<decltype(std::declval<config_tree const&>().clone()), config_tree*>);
static_assert(config_tree::flag_set == 1 && config_tree::flag_array == 2 && config_tree::flag_alias == 4);

// Makes what derived classes reach visible for any tree.
struct open_tree : config_tree {
    using config_tree::children;
    using config_tree::entry;
    using config_tree::parse_string;
};

auto& children_of(config_tree& tree) { return tree.*&open_tree::children; }

config_tree& child_of(config_tree& tree, ustring8 const& name) { return *children_of(tree).at(name); }

entry_type& entry_of(config_tree& tree) { return tree.*&open_tree::entry; }

std::string node(config_tree const& tree, ustring8 const& key) { return shown(tree.get_node(key)); }

std::string array(config_tree& tree, ustring8 const& key) {
    entry_list entries;
    tree.get_array(key, entries);
    return shown(entries);
}

std::string pairs(config_tree& tree, ustring8 const& key, bool recursive, ustring8 const& prefix = {}) {
    entry_list entries;
    tree.get_value_pair_array(key, entries, recursive, prefix);
    return shown(entries);
}

std::string dumped(config_tree& tree, int depth = 0) {
    std::ostringstream stream;
    tree.dump(stream, depth);
    return stream.str();
}

// ---- Keys ----

void parsed(ustring8 const& key, ustring8& head, ustring8& tail) {
    (config_tree().*&open_tree::parse_string)(key, head, tail);
}

struct key_row {
    std::string key;
    std::string head;
    std::string tail;
};

TEST(parse_string, takes_the_first_segment_off) {
    key_row const rows[] = {
        {"", "", ""},
        {"a", "a", ""},
        {"Ab", "ab", ""},
        {"a.b", "a", "b"},
        {"a/b", "a", "b"},
        {"a\\b", "a", "b"},
        {"A.B/C\\D", "a", "B/C\\D"},
        {"a.", "a", ""},
        {"a..", "a", "."},
        {"a..b", "a", ".b"},
        {".", "", ""},
        {".a", "", "a"},
        {"..", "", "."},
        {"/\\", "", "\\"},
        {"a b=c", "a b=c", ""},
        {"\xC3\x84\xC4.\xC3\x84", "\xC3\x84\xC4", "\xC3\x84"},
        {"A\0B.\0C"s, "a\0b"s, "\0C"s},
        {"@[`{", "@[`{", ""},
    };
    for (key_row const& row : rows) {
        ustring8 head = "old";
        ustring8 tail = "old";
        parsed(row.key, head, tail);
        EXPECT_EQ(head, row.head) << row.key;
        EXPECT_EQ(tail, row.tail) << row.key;
    }
}

TEST(parse_string, may_write_over_its_key) {
    ustring8 key = "Long.Tail.More";
    ustring8 other;
    parsed(key, other, key);
    EXPECT_EQ(other + "|" + key, "long|Tail.More");
    parsed(key, key, other);
    EXPECT_EQ(key + "|" + other, "tail|More");

    // A head this long takes the storage of the key away.
    ustring8 const segment(1 << 20, 's');
    key = segment + ".More";
    parsed(key, key, other);
    EXPECT_EQ(key, segment);
    EXPECT_EQ(other, "More");
}

TEST(config_tree, lowers_all_letters_and_only_them) {
    for (int value = 0; value < 256; ++value) {
        ustring8 const key(1, static_cast<char>(value));
        if (key.find_first_of("./\\") != key.npos) {
            continue;
        }
        bool const capital = value >= 'A' && value <= 'Z';
        config_tree tree;
        tree.set_node(key, "x", 0);
        EXPECT_EQ(children_of(tree).begin()->first,
                  ustring8(1, static_cast<char>(capital ? value + 32 : value)));
        EXPECT_EQ(node(tree, key), "1:x");
    }
}

// Segment by segment, in the plainest words.
std::vector<std::string> segments_of(std::string const& key) {
    std::vector<std::string> segments(1);
    for (std::size_t index = 0; index < key.size(); ++index) {
        if (key[index] != '.' && key[index] != '/' && key[index] != '\\') {
            segments.back() += key[index] == 'A' ? 'a' : key[index];
        } else if (index + 1 < key.size()) {
            segments.emplace_back();
        }
    }
    return segments;
}

TEST(config_tree, finds_a_key_by_each_key_of_the_same_segments_and_no_other) {
    std::vector<std::string> keys = {""};
    for (std::size_t index = 0; keys[index].size() < 4; ++index) {
        for (char const byte : {'a', 'A', 'b', '.', '/', '\\'}) {
            keys.push_back(keys[index] + byte);
        }
    }
    ASSERT_EQ(keys.size(), 1U + 6 + 36 + 216 + 1296);
    for (std::string const& written : keys) {
        config_tree tree;
        tree.set_node(written, "x", 0);
        for (std::string const& read : {written, written + ".", written + "/", written + "a", "a" + written,
                                        "." + written, "a"s, ""s, "."s, "a.b"s, "a..b"s}) {
            EXPECT_EQ(node(tree, read) == "1:x", segments_of(read) == segments_of(written))
                << written << " " << read;
        }
    }
}

TEST(config_tree, reads_separators_at_the_end_and_in_a_row) {
    config_tree tree;
    tree.set_node("a.", "one", 0);
    EXPECT_EQ(dumped(tree), "a : 1 one\n|\nend\n");
    tree.erase();
    tree.set_node("a..", "two", 0);
    EXPECT_EQ(dumped(tree), "a : true\n|---------------\\\n|\t\t : 1 two\n|\t\t|\n|\t\tend\nend\n");
    tree.erase();
    tree.set_node("a..b", "three", 0);
    EXPECT_EQ(pairs(tree, "", true), "a=0:1 a.=0:1 a..b=1:three");
    EXPECT_EQ(node(tree, "a."), "0:1");
    EXPECT_EQ(node(tree, "a.."), "0:1");
    EXPECT_EQ(node(tree, "a../b"), "none");
}

TEST(config_tree, has_an_empty_segment_for_the_empty_key) {
    config_tree tree;
    tree.set_node("a", "x", 0);
    EXPECT_EQ(node(tree, ""), "none");
    tree.set_node("", "y", 0);
    EXPECT_EQ(node(tree, ""), "1:y");
    EXPECT_EQ(node(tree, "."), "1:y");
    EXPECT_EQ(node(tree, ".."), "none");
    tree.set_node(".b", "z", 0);
    EXPECT_EQ(node(tree, "/B"), "1:z");
    EXPECT_EQ(node(tree, ""), "1:y");
}

// ---- Writing and reading nodes ----

TEST(config_tree, starts_empty) {
    config_tree tree;
    EXPECT_TRUE(children_of(tree).empty());
    EXPECT_EQ(entry_of(tree).first, 0U);
    EXPECT_TRUE(entry_of(tree).second.type() == typeid(bool));
    EXPECT_TRUE(entry_of(tree).second.as_bool());
}

TEST(config_tree, finds_what_was_written_in_any_case_and_with_any_separator) {
    config_tree tree;
    tree.set_node("A.B", 5, 0);
    EXPECT_EQ(node(tree, "a/b"), "1:5");
    EXPECT_TRUE(tree.get_node("a\\B")->second.type() == typeid(int));
    EXPECT_EQ(node(tree, "a.b.c"), "none");
    EXPECT_EQ(node(tree, "b"), "none");
}

TEST(config_tree, gives_a_node_on_the_way_the_word_0_and_the_value_true) {
    config_tree tree;
    tree.set_node("A.B", 5, 0);
    ASSERT_NE(tree.get_node("a"), nullptr);
    EXPECT_EQ(tree.get_node("a")->first, 0U);
    EXPECT_TRUE(tree.get_node("a")->second.type() == typeid(bool));
    EXPECT_TRUE(tree.get_node("a")->second.as_bool());
}

TEST(config_tree, raises_the_set_flag_at_every_write_and_keeps_the_others) {
    for (auto const& [flags, stored] : std::map<unsigned int, unsigned int>{{0, 1},
                                                                            {1, 1},
                                                                            {2, 3},
                                                                            {4, 5},
                                                                            {6, 7},
                                                                            {8, 9},
                                                                            {0xFFFFFFFE, 0xFFFFFFFF},
                                                                            {0x80000000, 0x80000001}}) {
        config_tree tree;
        tree.set_node("a", "x", flags);
        EXPECT_EQ(tree.get_node("a")->first, stored);
        EXPECT_EQ(dumped(tree), "a : " + std::to_string(stored) + " x\n|\nend\n");
    }
}

TEST(config_tree, lets_the_last_write_win_whatever_the_flags) {
    config_tree tree;
    tree.set_node("a", "first", 0xFF);
    tree.set_node("A", "second", 0);
    EXPECT_EQ(node(tree, "a"), "1:second");
    tree.set_node("a.", types::nil, 0);
    EXPECT_EQ(node(tree, "a"), "1:nil");
}

TEST(config_tree, keeps_children_at_a_write_and_entries_on_the_way) {
    config_tree tree;
    tree.set_node("a.b", "below", 0);
    tree.set_node("a", "above", 4);
    EXPECT_EQ(pairs(tree, "", true), "a=5:above a.b=1:below");
    tree.set_node("a.c.d", "more", 0);
    EXPECT_EQ(pairs(tree, "", true), "a=5:above a.b=1:below a.c=0:1 a.c.d=1:more");
}

TEST(config_tree, takes_a_value_that_stands_in_the_tree) {
    config_tree tree;
    tree.set_node("a", "x", 4);
    tree.set_node("a", tree.get_node("a")->second, 0);
    EXPECT_EQ(node(tree, "a"), "1:x");
    tree.set_node("b", tree.get_node("a")->second, 0);
    EXPECT_EQ(node(tree, "b"), "1:x");
}

TEST(config_tree, hands_out_the_entry_itself) {
    config_tree tree;
    tree.set_node("a.b", "x", 0);
    entry_type const* const entry = tree.get_node("a.b");
    tree.set_node("a.b", "y", 4);
    tree.set_node("a.c", "z", 0);
    EXPECT_EQ(shown(*entry), "5:y");
    EXPECT_EQ(entry, tree.get_node("A/B"));
}

TEST(config_tree, erases_all_children_and_keeps_its_own_entry) {
    config_tree tree;
    tree.set_node("a.b", "x", 0);
    tree.set_node("c", "y", 0);
    entry_of(tree) = entry_type(9, "own");
    tree.erase();
    for (char const* key : {"a", "a.b", "c", ""}) {
        EXPECT_EQ(tree.get_node(key), nullptr);
    }
    EXPECT_EQ(shown(entry_of(tree)), "9:own");
    EXPECT_EQ(dumped(tree), "end\n");
    tree.erase();
    tree.set_node("a", "again", 0);
    EXPECT_EQ(pairs(tree, "", true), "a=1:again");
}

TEST(config_tree, never_writes_the_root) {
    config_tree tree;
    for (char const* key : {"", ".", "a", "a.b", "/", "\\\\"}) {
        tree.set_node(key, "x", 2);
    }
    EXPECT_EQ(shown(entry_of(tree)), "0:1");
}

// ---- Arrays ----

config_tree tree_with_array() {
    config_tree tree;
    tree.set_node("list", types::nil, 2);
    for (int index = 0; index < 12; ++index) {
        tree.set_node("list." + std::to_string(index), index * 10, index == 3 ? 4U : 0U);
    }
    return tree;
}

TEST(get_array, gives_the_elements_in_the_order_of_their_numbers) {
    config_tree tree = tree_with_array();
    EXPECT_EQ(array(tree, "LIST"), "0=1:0 1=1:10 2=1:20 3=5:30 4=1:40 5=1:50 6=1:60 7=1:70 8=1:80 9=1:90 "
                                   "10=1:100 11=1:110");
}

TEST(get_array, ends_at_a_gap) {
    config_tree tree;
    tree.set_node("a", types::nil, 2);
    tree.set_node("a.3", "d", 0);
    EXPECT_EQ(array(tree, "a"), "");
    tree.set_node("a.1", "b", 0);
    tree.set_node("a.0", "a", 0);
    EXPECT_EQ(array(tree, "a"), "0=1:a 1=1:b");
    tree.set_node("a.02", "c", 0);
    EXPECT_EQ(array(tree, "a"), "0=1:a 1=1:b");
}

TEST(get_array, needs_the_array_flag_and_no_other) {
    config_tree tree;
    for (auto const& [flags, elements] : std::map<unsigned int, std::string>{{0, ""},
                                                                             {1, ""},
                                                                             {4, ""},
                                                                             {5, ""},
                                                                             {2, "0=1:x"},
                                                                             {3, "0=1:x"},
                                                                             {6, "0=1:x"},
                                                                             {0xFFFFFFFF, "0=1:x"}}) {
        tree.set_node("a.0", "x", 0);
        tree.set_node("a", "own", flags);
        EXPECT_EQ(array(tree, "a"), elements) << flags;
    }
    EXPECT_EQ(array(tree, "b"), "");
    EXPECT_EQ(array(tree, "a.0"), "");
    EXPECT_EQ(array(tree, ""), "");
}

TEST(get_array, reads_below_other_nodes_and_takes_elements_with_children) {
    config_tree tree;
    tree.set_node("x.y.a", 1, 2);
    tree.set_node("x.y.a.0.deep", "no element", 0);
    EXPECT_EQ(array(tree, "x/y/a"), "0=0:1");
    EXPECT_EQ(array(tree, "x/y/a."), "0=0:1");
    tree.set_node("", types::nil, 2);
    tree.set_node(".0", "under the empty name", 0);
    EXPECT_EQ(array(tree, ""), "0=1:under the empty name");
}

TEST(get_array, appends) {
    config_tree tree;
    tree.set_node("a", types::nil, 2);
    tree.set_node("a.0", "x", 0);
    entry_list out = {{"there", {7, "before"}}};
    tree.get_array("a", out);
    tree.get_array("none", out);
    EXPECT_EQ(shown(out), "there=7:before 0=1:x");
}

// ---- Walks ----

TEST(get_value_pair_array, gives_children_or_the_subtree_in_pre_order) {
    config_tree tree;
    tree.set_node("b", 1, 0);
    tree.set_node("A.C", 2, 0);
    EXPECT_EQ(pairs(tree, "", false), "a=0:1 b=1:1");
    EXPECT_EQ(pairs(tree, "", true), "a=0:1 a.c=1:2 b=1:1");
}

TEST(get_value_pair_array, goes_by_the_order_of_bytes) {
    config_tree tree;
    for (char const* key : {"2", "10", "1", "0", "", "a b", "a", "\xC3\xA4", "~", "a.x", "aa"}) {
        tree.set_node(key, key, 0);
    }
    EXPECT_EQ(pairs(tree, "", true),
              "=1: 0=1:0 1=1:1 10=1:10 2=1:2 a=1:a a.x=1:a.x a b=1:a b aa=1:aa ~=1:~ \xC3\xA4=1:\xC3\xA4");
}

TEST(get_value_pair_array, shows_arrays_with_their_elements_in_byte_order) {
    config_tree tree = tree_with_array();
    EXPECT_EQ(pairs(tree, "", true),
              "list=3:nil list.0=1:0 list.1=1:10 list.10=1:100 list.11=1:110 list.2=1:20 list.3=5:30 "
              "list.4=1:40 list.5=1:50 list.6=1:60 list.7=1:70 list.8=1:80 list.9=1:90");
}

TEST(get_value_pair_array, names_nodes_relative_to_the_addressed_one) {
    config_tree tree;
    tree.set_node("A.B.C", 1, 0);
    tree.set_node("a.b.c.d", 2, 0);
    tree.set_node("a.e", 3, 0);
    EXPECT_EQ(pairs(tree, "a", true), "b=0:1 b.c=1:1 b.c.d=1:2 e=1:3");
    EXPECT_EQ(pairs(tree, "A/B", true), "c=1:1 c.d=1:2");
    EXPECT_EQ(pairs(tree, "a.b", false), "c=1:1");
    EXPECT_EQ(pairs(tree, "a.b.c.d", true), "");
    EXPECT_EQ(pairs(tree, "a.x", true), "");
    EXPECT_EQ(pairs(tree, "x", false), "");
}

TEST(get_value_pair_array, puts_the_prefix_in_front_for_the_empty_key_only) {
    config_tree tree;
    tree.set_node("a.b", 1, 0);
    EXPECT_EQ(pairs(tree, "", true, "P"), "P.a=0:1 P.a.b=1:1");
    EXPECT_EQ(pairs(tree, "", false, "P.q"), "P.q.a=0:1");
    EXPECT_EQ(pairs(tree, "a", true, "P"), "b=1:1");
    EXPECT_EQ(pairs(tree, ".", true, "P"), "");
    EXPECT_EQ(pairs(tree, "", true, "."), "..a=0:1 ..a.b=1:1");
}

TEST(get_value_pair_array, has_nothing_in_front_below_an_empty_name) {
    config_tree tree;
    tree.set_node(".a.b", 1, 0);
    EXPECT_EQ(pairs(tree, "", true), "=0:1 a=0:1 a.b=1:1");
    EXPECT_EQ(pairs(tree, "", true, "P"), "P.=0:1 P..a=0:1 P..a.b=1:1");
    EXPECT_EQ(pairs(tree, ".", true), "a=0:1 a.b=1:1");
}

TEST(get_value_pair_array, appends_and_takes_a_prefix_that_stands_in_the_result) {
    config_tree tree;
    tree.set_node("a.b", 1, 0);
    tree.set_node("c", 2, 0);
    entry_list out = {{"there", {7, "before"}}};
    out.shrink_to_fit();
    tree.get_value_pair_array("", out, true, out.front().first);
    EXPECT_EQ(shown(out), "there=7:before there.a=0:1 there.a.b=1:1 there.c=1:2");
    tree.get_value_pair_array("none", out, true, "");
    EXPECT_EQ(out.size(), 4U);
}

// ---- Copies ----

config_tree sample() {
    config_tree tree;
    tree.set_node("a.b.c", "deep", 0);
    tree.set_node("a.b", "middle", 4);
    tree.set_node("list", types::nil, 2);
    tree.set_node("list.0", 1.5, 0);
    return tree;
}

std::string const sample_pairs = "a=0:1 a.b=5:middle a.b.c=1:deep list=3:nil list.0=1:1.5";

struct copy_row {
    char const* name;
    std::function<std::unique_ptr<config_tree>(config_tree const&)> copied;
};

copy_row const copy_rows[] = {
    {"constructor", [](config_tree const& tree) { return std::make_unique<config_tree>(tree); }},
    {"assignment",
     [](config_tree const& tree) {
         auto copy = std::make_unique<config_tree>();
         copy->set_node("a.b.gone", 1, 0);
         copy->set_node("old", 1, 0);
         EXPECT_EQ(&(*copy = tree), copy.get());
         return copy;
     }},
    {"clone", [](config_tree const& tree) { return std::unique_ptr<config_tree>(tree.clone()); }},
};

TEST(config_tree, shares_no_node_with_a_copy) {
    for (copy_row const& row : copy_rows) {
        config_tree source = sample();
        auto const copy = row.copied(source);
        EXPECT_EQ(pairs(*copy, "", true), sample_pairs) << row.name;
        EXPECT_NE(copy->get_node("a.b.c"), source.get_node("a.b.c")) << row.name;
        EXPECT_TRUE(copy->get_node("list.0")->second.type() == typeid(double)) << row.name;

        source.set_node("a.b.c", "changed", 0);
        source.set_node("a.b.d", "new", 0);
        EXPECT_EQ(pairs(*copy, "", true), sample_pairs) << row.name;
        copy->erase();
        EXPECT_EQ(node(source, "a.b.c"), "1:changed") << row.name;
    }
}

TEST(config_tree, copies_its_own_entry) {
    for (copy_row const& row : copy_rows) {
        config_tree source;
        entry_of(source) = entry_type(12, "own");
        auto const copy = row.copied(source);
        config_tree holder;
        holder = *copy;
        EXPECT_EQ(shown(entry_of(holder)), "12:own") << row.name;
    }
}

TEST(config_tree, is_a_counted_object_whose_copies_have_counts_of_their_own) {
    tree_pointer const held(generic::abilities::make_dynamic<config_tree>());
    EXPECT_TRUE(held->is_created_dynamic());
    config_tree const copy(*held);
    EXPECT_FALSE(copy.is_created_dynamic());
    config_tree assigned;
    assigned = *held;
    EXPECT_FALSE(assigned.is_created_dynamic());

    tree_pointer const cloned(copy.clone());
    EXPECT_TRUE(cloned->is_created_dynamic());
    *held = copy;
    EXPECT_TRUE(held->is_created_dynamic());
    delete copy.clone();
}

TEST(config_tree, makes_its_nodes_on_the_heap) {
    config_tree tree;
    tree.set_node("a.b", "x", 0);
    EXPECT_TRUE(child_of(tree, "a").is_created_dynamic());
    config_tree copy;
    copy = tree;
    EXPECT_TRUE(child_of(copy, "a").is_created_dynamic());
}

TEST(config_tree, is_unchanged_when_assigned_to_itself) {
    config_tree tree = sample();
    config_tree const& same = tree;
    tree = same;
    EXPECT_EQ(pairs(tree, "", true), sample_pairs);
}

TEST(config_tree, may_be_assigned_from_a_part_of_itself) {
    config_tree tree;
    tree = sample();
    tree = child_of(tree, "a");
    EXPECT_EQ(pairs(tree, "", true), "b=5:middle b.c=1:deep");
    tree = child_of(tree, "b");
    EXPECT_EQ(pairs(tree, "", true), "c=1:deep");
    EXPECT_EQ(shown(entry_of(tree)), "5:middle");
}

TEST(config_tree, may_be_assigned_to_a_part_of_itself) {
    config_tree tree;
    tree = sample();
    child_of(tree, "a") = tree;
    EXPECT_EQ(
        pairs(tree, "", true),
        "a=0:1 a.a=0:1 a.a.b=5:middle a.a.b.c=1:deep a.list=3:nil a.list.0=1:1.5 list=3:nil list.0=1:1.5");
}

TEST(config_tree, leaves_its_children_to_a_node_that_somebody_else_holds) {
    auto tree = std::make_unique<config_tree>();
    *tree = sample();
    tree_pointer const held = children_of(*tree).at("a");
    tree->erase();
    EXPECT_EQ(pairs(*held, "", true), "b=5:middle b.c=1:deep");

    children_of(*tree).emplace("again", held);
    tree.reset();
    EXPECT_EQ(pairs(*held, "", true), "b=5:middle b.c=1:deep");
}

// ---- The dump ----

TEST(dump, shows_a_whole_tree) {
    config_tree tree;
    tree.set_node("Name", "veldrin", 0);
    tree.set_node("window.size.width", 640, 0);
    tree.set_node("window.size", "large", 4);
    tree.set_node("window.title", "", 0);
    tree.set_node("list", types::nil, 2);
    tree.set_node("list.0", true, 0);
    tree.set_node("list.1", 2.5, 8);
    EXPECT_EQ(dumped(tree), "list : 3 \n"
                            "|---------------\\\n"
                            "|\t\t0 : 1 1\n"
                            "|\t\t|\n"
                            "|\t\t1 : 9 2.5\n"
                            "|\t\t|\n"
                            "|\t\tend\n"
                            "name : 1 veldrin\n"
                            "|\n"
                            "window : true\n"
                            "|---------------\\\n"
                            "|\t\tsize : 5 large\n"
                            "|\t\t|---------------\\\n"
                            "|\t\t|\t\twidth : 1 640\n"
                            "|\t\t|\t\t|\n"
                            "|\t\t|\t\tend\n"
                            "|\t\ttitle : 1 \n"
                            "|\t\t|\n"
                            "|\t\tend\n"
                            "end\n");
}

TEST(dump, shows_an_empty_tree) { EXPECT_EQ(dumped(*std::make_unique<config_tree>()), "end\n"); }

TEST(dump, stands_behind_bars_of_the_depth) {
    config_tree tree;
    tree.set_node("a.b", "x", 0);
    EXPECT_EQ(dumped(tree, 2), "|\t\t|\t\ta : true\n"
                               "|\t\t|\t\t|---------------\\\n"
                               "|\t\t|\t\t|\t\tb : 1 x\n"
                               "|\t\t|\t\t|\t\t|\n"
                               "|\t\t|\t\t|\t\tend\n"
                               "|\t\t|\t\tend\n");
    EXPECT_EQ(dumped(*std::make_unique<config_tree>(), 3), "|\t\t|\t\t|\t\tend\n");
}

TEST(dump, has_no_bars_below_depth_1) {
    config_tree tree;
    tree.set_node("a.b.c", "x", 0);
    EXPECT_EQ(dumped(tree, -1), "a : true\n"
                                "|---------------\\\n"
                                "b : true\n"
                                "|---------------\\\n"
                                "|\t\tc : 1 x\n"
                                "|\t\t|\n"
                                "|\t\tend\n"
                                "end\n"
                                "end\n");
    EXPECT_EQ(dumped(*std::make_unique<config_tree>(), std::numeric_limits<int>::min()), "end\n");
}

TEST(dump, shows_no_value_without_a_flag_word) {
    config_tree tree;
    children_of(tree).emplace("quiet", tree_pointer(generic::abilities::make_dynamic<config_tree>()));
    entry_of(child_of(tree, "quiet")) = entry_type(0, "hidden");
    EXPECT_EQ(dumped(tree), "quiet : true\n|\nend\n");
}

TEST(dump, is_what_the_stream_operator_writes) {
    config_tree tree = sample();
    std::ostringstream stream;
    EXPECT_EQ(&(stream << tree), &stream);
    EXPECT_EQ(stream.str(), dumped(tree));
}

struct grouping : std::numpunct<char> {
    std::string do_grouping() const override { return "\1"; }
};

TEST(dump, does_not_depend_on_the_state_of_the_stream) {
    config_tree tree;
    tree.set_node("a", "x", 1000);
    std::ostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new grouping));
    stream << std::hex << std::showbase << std::setfill('*') << std::setw(20) << std::left;
    tree.dump(stream, 0);
    EXPECT_EQ(stream.str(), "a : 1001 x\n|\nend\n");
}

TEST(dump, writes_names_and_values_whole) {
    config_tree tree;
    tree.set_node("a\0b"s, std::string("x\0y\nz", 5), 0);
    EXPECT_EQ(dumped(tree), "a\0b : 1 x\0y\nz\n|\nend\n"s);
}

// ---- Very long and very deep keys ----

std::size_t const million = 1'000'000;

// Each segment "s".
ustring8 deep_key() {
    ustring8 key;
    for (std::size_t index = 0; index < million; ++index) {
        key += "s.";
    }
    return key;
}

// Counts bytes and keeps none.
class counting_buffer : public std::streambuf {
public:
    std::size_t count = 0;

private:
    std::streamsize xsputn(char const*, std::streamsize length) override {
        count += static_cast<std::size_t>(length);
        return length;
    }
    int_type overflow(int_type character) override {
        ++count;
        return character;
    }
};

TEST(deep_tree, is_written_and_read) {
    ustring8 const key = deep_key();
    config_tree tree;
    tree.set_node(key, "deep", 2);
    EXPECT_EQ(node(tree, key), "3:deep");
    EXPECT_EQ(node(tree, key + "s"), "none");
    EXPECT_EQ(node(tree, key.substr(2)), "0:1");
    EXPECT_EQ(node(tree, key.substr(2) + "t"), "none");

    tree.set_node(key + "0", "element", 0);
    EXPECT_EQ(array(tree, key), "0=1:element");
    EXPECT_EQ(pairs(tree, key, true), "0=1:element");
    EXPECT_EQ(pairs(tree, key.substr(4), false), "s=0:1");
    tree.erase();
    EXPECT_EQ(node(tree, "s"), "none");
}

TEST(deep_tree, is_copied_and_destroyed) {
    ustring8 const key = deep_key();
    config_tree tree;
    tree.set_node(key, "deep", 0);
    {
        config_tree copy(tree);
        EXPECT_EQ(node(copy, key), "1:deep");
        copy = tree;
        EXPECT_EQ(node(copy, key), "1:deep");
    }
    tree_pointer const cloned(tree.clone());
    EXPECT_EQ(node(*cloned, key), "1:deep");
}

TEST(deep_tree, is_walked) {
    // Names below an empty one have nothing in front, so that they stay short.
    ustring8 const key(million, '/');
    config_tree tree;
    tree.set_node(key, "deep", 0);
    EXPECT_EQ(node(tree, key), "1:deep");
    entry_list out;
    tree.get_value_pair_array("", out, true, "");
    ASSERT_EQ(out.size(), million);
    EXPECT_EQ(out.front().first, "");
    EXPECT_EQ(shown(out.front().second), "0:1");
    EXPECT_EQ(out.back().first, "");
    EXPECT_EQ(shown(out.back().second), "1:deep");
}

TEST(deep_tree, is_dumped) {
    config_tree tree;
    tree.set_node(deep_key(), "deep", 0);
    counting_buffer buffer;
    std::ostream stream(&buffer);
    stream << tree;
    // Behind one bar for each level above: the line of a node, the line below it, the end of the children.
    // "s : true\n" and "|---------------\\\n" for all but the last, "s : 1 deep\n" and "|\n" for that.
    std::size_t const bars = 2 * (million * (million - 1) / 2) + million * (million + 1) / 2 - million;
    EXPECT_EQ(buffer.count, 3 * bars + (million - 1) * (9 + 18) + 11 + 2 + million * 4);
}

TEST(deep_tree, may_branch_at_every_level) {
    config_tree tree;
    config_tree* level = &tree;
    ustring8 const key(200, '.');
    for (int index = 0; index < 200; ++index) {
        level->set_node("leaf", "x", 0);
        level->set_node(key, "y", 0);
        level->set_node("same", "x", 0);
        level = &child_of(*level, "same");
    }
    config_tree const copy(tree);
    tree.erase();
    EXPECT_EQ(node(copy, "same.same." + key), "1:y");
}

TEST(long_key, is_one_segment_of_a_megabyte) {
    ustring8 const key(1 << 20, 'K');
    config_tree tree;
    tree.set_node(key + ".x", "value", 0);
    EXPECT_EQ(node(tree, key + "/X"), "1:value");
    EXPECT_EQ(pairs(tree, "", true),
              ustring8(1 << 20, 'k') + "=0:1 " + ustring8(1 << 20, 'k') + ".x=1:value");
}

TEST(wide_tree, holds_a_hundred_thousand_children) {
    config_tree tree;
    for (int index = 0; index < 100'000; ++index) {
        tree.set_node("n." + std::to_string(index), index, 0);
    }
    tree.set_node("n", types::nil, 2);
    entry_list out;
    tree.get_array("n", out);
    ASSERT_EQ(out.size(), 100'000U);
    EXPECT_EQ(out[99'999].second.second.as_int(), 99'999);
}

} // namespace
