#include "veldrin/config/base_config_item.hpp"

#include <cstdint>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/config_items.hpp"
#include "support/virtual_slot.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/types/nil.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::base_config_item;
using config::config_token;
using config::config_tree;
using config::item_list;
using generic::varg_list;
using generic::abilities::make_dynamic;
using strings::ustring8;
using support::dump_of;
using support::shown;
using support::virtual_slot;
using item_pointer = memory::pointers::rc_pointer<base_config_item>;
using namespace std::string_literals;

static_assert(std::is_base_of_v<generic::abilities::reference_count_pointer_ability<base_config_item>,
                                base_config_item>);
static_assert(std::is_base_of_v<generic::abilities::clone_ability, base_config_item>);
static_assert(std::has_virtual_destructor_v<base_config_item>);
static_assert(std::is_abstract_v<base_config_item>);
static_assert(std::is_same_v<item_list, std::list<item_pointer>>);

// An item with nothing of its own but a name.
class plain_item : public base_config_item {
public:
    explicit plain_item(ustring8 const& name = {}) { id = name; }

    base_config_item* clone() const override { return make_dynamic<plain_item>(*this); }
};

std::string value(base_config_item const& item, ustring8 const& key) { return shown(item.get_value(key)); }

// Values without names.
template <class... Values>
varg_list list_of(Values const&... values) {
    varg_list list;
    (list.push_back(types::variant(values)), ...);
    return list;
}

// ---- The virtual operations ----

TEST(base_config_item, has_its_virtual_operations_in_their_fixed_order) {
    using alone = bool (base_config_item::*)();
    using with_list = bool (base_config_item::*)(item_list const&);
    EXPECT_EQ(virtual_slot(static_cast<alone>(&base_config_item::load)), 2U);
    EXPECT_EQ(virtual_slot(static_cast<with_list>(&base_config_item::load)), 3U);
    EXPECT_EQ(virtual_slot(static_cast<alone>(&base_config_item::save)), 4U);
    EXPECT_EQ(virtual_slot(static_cast<with_list>(&base_config_item::save)), 5U);
    EXPECT_EQ(virtual_slot(&base_config_item::unload), 6U);
    EXPECT_EQ(virtual_slot(&base_config_item::clone), 7U);
}

TEST(base_config_item, loads_saves_and_unloads_nothing) {
    plain_item item("name");
    item.set("a", 1, 0);
    item_list const items = {make_dynamic<plain_item>()};
    EXPECT_TRUE(item.load());
    EXPECT_TRUE(item.load(items));
    EXPECT_TRUE(item.save());
    EXPECT_TRUE(item.save(items));
    item.unload();
    EXPECT_EQ(shown(item), "a=1:1");
    EXPECT_EQ(item.get_id(), "name");
}

class loading_item : public plain_item {
public:
    using base_config_item::load;
    bool load() override {
        set("loaded", 1, 0);
        return m_result;
    }

    bool m_result = false;
};

TEST(base_config_item, loads_with_a_list_by_the_load_of_its_class) {
    loading_item item;
    EXPECT_FALSE(item.load(item_list()));
    EXPECT_EQ(shown(item), "loaded=1:1");
    item.m_result = true;
    EXPECT_TRUE(static_cast<base_config_item&>(item).load(item_list()));
}

// ---- Copies ----

TEST(base_config_item, starts_without_a_name_and_without_keys) {
    plain_item item;
    EXPECT_EQ(item.get_id(), "");
    EXPECT_EQ(shown(item), "");
}

TEST(base_config_item, copies_its_name_and_each_node_of_its_tree) {
    plain_item source("source");
    source.set("a.b", 1, 0);

    plain_item constructed(source);
    plain_item assigned("other");
    assigned.set("gone", 1, 0);
    EXPECT_EQ(&(assigned = source), &assigned);
    item_pointer const cloned(source.clone());

    source.set("a.b", 2, 0);
    for (base_config_item* const copy : {static_cast<base_config_item*>(&constructed),
                                         static_cast<base_config_item*>(&assigned), cloned.get()}) {
        EXPECT_EQ(copy->get_id(), "source");
        EXPECT_EQ(shown(*copy), "a=0:1 a.b=1:1");
    }
    EXPECT_TRUE(cloned->is_created_dynamic());
    EXPECT_FALSE(constructed.is_created_dynamic());
}

TEST(base_config_item, leaves_flag_and_count_alone_when_assigned) {
    item_pointer const held(make_dynamic<plain_item>("held"));
    plain_item local("local");
    static_cast<base_config_item&>(local) = *held;
    EXPECT_FALSE(local.is_created_dynamic());
    *held = local;
    EXPECT_TRUE(held->is_created_dynamic());
    base_config_item const& same = *held;
    *held = same;
    EXPECT_EQ(held->get_id(), "held");
}

// ---- Questions ----

TEST(base_config_item, answers_from_its_tree) {
    plain_item item;
    item.set("A.B.C", "x", 4);
    EXPECT_EQ(value(item, "a/b/c"), "5:x");
    EXPECT_EQ(value(item, "a.b"), "0:1");
    EXPECT_TRUE(item.get_value("a.b")->second.type() == typeid(bool));
    EXPECT_EQ(value(item, "b"), "none");
}

TEST(base_config_item, gives_names_relative_to_the_key) {
    plain_item item;
    item.set("a.b.c", "x", 0);
    item.set("a.d", "y", 0);
    config_tree::entry_list out = {{"there", {7, "before"}}};
    item.get_value_pair_array("a", out, true);
    EXPECT_EQ(shown(out), "there=7:before b=0:1 b.c=1:x d=1:y");
    out.clear();
    item.get_value_pair_array("", out, false);
    EXPECT_EQ(shown(out), "a=0:1");
    out.clear();
    item.get_value_pair_array("", out, true);
    EXPECT_EQ(shown(out), "a=0:1 a.b=0:1 a.b.c=1:x a.d=1:y");
}

TEST(base_config_item, gives_the_elements_of_an_array) {
    plain_item item;
    item.set_array("a", varg_list({"x"}, {"y"}), {});
    config_tree::entry_list out = {{"there", {7, "before"}}};
    item.get_array("a", out);
    item.get_array("a.0", out);
    EXPECT_EQ(shown(out), "there=7:before 0=1:x 1=1:y");
}

// ---- Keys and values from text ----

struct key_value_row {
    std::string text;
    config_token::tok_types delimiter;
    std::string key;
    std::string value;
};

key_value_row const key_value_rows[] = {
    {"a=1", config_token::T_EQ, "a", "1"},
    {"a = 1", config_token::T_EQ, "a", "1"},
    {"a b = c d", config_token::T_EQ, "ab", "cd"},
    {"\ta\tb\t=\tc\td\t", config_token::T_EQ, "ab", "cd"},
    {"key", config_token::T_EQ, "key", ""},
    {"key =", config_token::T_EQ, "key", ""},
    {"=value", config_token::T_EQ, "", "value"},
    {"", config_token::T_EQ, "", ""},
    {"=", config_token::T_EQ, "", ""},
    {" \t\n", config_token::T_EQ, "", ""},
    {"a=b=c", config_token::T_EQ, "a", "b=c"},
    {"a==b", config_token::T_EQ, "a==b", ""},
    {"a= =b", config_token::T_EQ, "a", "=b"},
    {"a+=b", config_token::T_EQ, "a+=b", ""},
    {"A.b/C\\d = X", config_token::T_EQ, "A.b/C\\d", "X"},
    {"p = C:\\dir\\file-1.txt", config_token::T_EQ, "p", "C:\\dir\\file-1.txt"},
    {"n = -1.5e+3", config_token::T_EQ, "n", "-1.5e+3"},
    {"u = \xE2\x82\xAC \xC3\x9F", config_token::T_EQ, "u", "\xE2\x82\xAC\xC3\x9F"},
    // Strings keep their blanks and lose their quotes.
    {"k = \"a  b\" c", config_token::T_EQ, "k", "a  bc"},
    {"\"a = b\" c = d", config_token::T_EQ, "a = bc", "d"},
    {"k = \"a\nb\"\nc", config_token::T_EQ, "k", "a\nb"},
    {"k = \"a\\\"b\"", config_token::T_EQ, "k", "a\\\"b"},
    {"k = \"a", config_token::T_EQ, "k", "a"},
    {"k = \"a\\", config_token::T_EQ, "k", "a\\\0"s},
    {"\"k = a", config_token::T_EQ, "k = a", ""},
    // Comments mean nothing here.
    {"k = a # b // c", config_token::T_EQ, "k", "a#b//c"},
    {"# k = a", config_token::T_EQ, "#k", "a"},
    {"a */ b = c */ d", config_token::T_EQ, "a*/b", "c*/d"},
    // Lines: the value ends with its line, the key goes on.
    {"a = 1\nb = 2", config_token::T_EQ, "a", "1"},
    {"a = 1\r\nb = 2", config_token::T_EQ, "a", "1"},
    {"a\nb = 2\nc", config_token::T_EQ, "ab", "2"},
    {"a\r\nb = 2", config_token::T_EQ, "ab", "2"},
    {"a =\n2", config_token::T_EQ, "a", ""},
    {"a\rb = 1\r2", config_token::T_EQ, "a\rb", "1\r2"},
    {"a\0b = c\0d"s, config_token::T_EQ, "a\0b"s, "c\0d"s},
    // Any type is a delimiter, also one that is dropped elsewhere.
    {"a b c", config_token::T_SPACE, "a", "bc"},
    {"  a b", config_token::T_SPACE, "", "ab"},
    {"a\nb\nc", config_token::T_NEWLINE, "a", "b"},
    {"a\tb", config_token::T_TABCHAR, "a", "b"},
    {"a := b = c", config_token::T_COLONEQ, "a", "b=c"},
    {"a := b = c", config_token::T_EQ, "a:=b", "c"},
    {"a,b,c", config_token::T_NON_ALPHA_NUM, "a", "b,c"},
    {"1a2", config_token::T_VAR, "1", "2"},
    {"a\"x\"b", config_token::T_STRING, "a", "b"},
    {"a = b", config_token::T_END, "a=b", ""},
    {"a // b", config_token::T_FSFS, "a", "b"},
    // A star and a slash go by the stored type, not by the answer.
    {"a */ b", config_token::T_FSFS, "a*/b", ""},
    {"a */ b", config_token::T_TIMESDIV, "a", "b"},
};

TEST(make_key_value, splits_at_the_delimiter) {
    plain_item item;
    for (key_value_row const& row : key_value_rows) {
        auto const [key, split_value] = item.make_key_value(row.text, row.delimiter);
        EXPECT_EQ(key, row.key) << testing::PrintToString(row.text);
        EXPECT_EQ(split_value.as_utf8(), row.value) << testing::PrintToString(row.text);
        EXPECT_TRUE(split_value.type() == typeid(ustring8)) << testing::PrintToString(row.text);
    }
    EXPECT_EQ(shown(item), "");
}

TEST(make_key_value, takes_a_megabyte) {
    ustring8 const key(1 << 20, 'k');
    ustring8 const text(1 << 20, '#');
    auto const [split_key, split_value] = plain_item().make_key_value(key + " = " + text, config_token::T_EQ);
    EXPECT_EQ(split_key, key);
    EXPECT_EQ(split_value.as_utf8(), text);
}

// ---- Setting ----

TEST(base_config_item, sets_a_pair_a_value_and_a_text) {
    plain_item item;
    item.set(std::pair<ustring8, types::variant>("Pair.One", 1), 0);
    item.set("value", 2.5, 4);
    item.set("Text.Two = a b", 8);
    EXPECT_EQ(shown(item), "pair=0:1 pair.one=1:1 text=0:1 text.two=9:ab value=5:2.5");
    EXPECT_TRUE(item.get_value("pair.one")->second.type() == typeid(int));
    EXPECT_TRUE(item.get_value("value")->second.type() == typeid(double));
    EXPECT_TRUE(item.get_value("text.two")->second.type() == typeid(ustring8));
}

TEST(base_config_item, stores_the_same_word_for_the_flags_0_and_1) {
    plain_item item;
    item.set("a", "x", 0);
    item.set("b", "x", 1);
    item.set("c = x", 0);
    item.set("d = x", 1);
    EXPECT_EQ(shown(item), "a=1:x b=1:x c=1:x d=1:x");
}

TEST(base_config_item, sets_an_empty_text_for_a_key_alone_and_the_empty_key_for_a_value_alone) {
    plain_item item;
    item.set("key", 0);
    EXPECT_EQ(shown(item), "key=1:");
    EXPECT_TRUE(item.get_value("key")->second.type() == typeid(ustring8));
    item.set("=value", 0);
    EXPECT_EQ(shown(item), "=1:value key=1:");
    EXPECT_EQ(value(item, ""), "1:value");
}

TEST(base_config_item, lets_the_last_write_win) {
    plain_item item;
    item.set("a = 1", 4);
    item.set("A", 2, 0);
    EXPECT_EQ(shown(item), "a=1:2");
}

// ---- Arrays ----

TEST(set_array, sets_the_head_and_the_elements) {
    plain_item item;
    item.set_array("Section.List", list_of("x", 2, 2.5), {});
    EXPECT_EQ(shown(item),
              "section=0:1 section.list=3:nil section.list.0=1:x section.list.1=1:2 section.list.2=1:2.5");
    EXPECT_TRUE(item.get_value("section.list.1")->second.type() == typeid(int));
}

TEST(set_array, sets_the_head_alone_for_no_values) {
    plain_item item;
    item.set_array("a", {}, {});
    EXPECT_EQ(shown(item), "a=3:nil");
    item.set_array("b", {}, list_of(4));
    EXPECT_EQ(shown(item), "a=3:nil b=3:nil");
}

TEST(set_array, gives_each_element_the_flags_of_its_position) {
    plain_item item;
    item.set_array("a", list_of("x", "y", "z", "w"), list_of(4, 0, "0x10", -2));
    EXPECT_EQ(shown(item), "a=3:nil a.0=5:x a.1=1:y a.2=17:z a.3=4294967295:w");
}

TEST(set_array, ignores_flags_beyond_the_values) {
    plain_item item;
    item.set_array("a", list_of("x"), list_of(4, 4));
    EXPECT_EQ(shown(item), "a=3:nil a.0=5:x");
}

TEST(set_array, does_not_look_at_names) {
    plain_item item;
    item.set_array("a", varg_list({"1", "x"}, {"0", "y"}), varg_list({"1", 8}, {"0", 4}));
    EXPECT_EQ(shown(item), "a=3:nil a.0=9:x a.1=5:y");
}

TEST(set_array, stores_numbers_where_the_flags_have_run_out) {
    plain_item item;
    varg_list values = list_of("kept", "kept", "0x1F", "text", -1, 2.9, "4294967295", "4294967296");
    values.push_back(types::nil);
    item.set_array("a", values, list_of(4, 0));
    EXPECT_EQ(shown(item), "a=3:nil a.0=5:kept a.1=1:kept a.2=1:31 a.3=1:0 a.4=1:4294967295 a.5=1:2 "
                           "a.6=1:4294967295 a.7=1:4294967295 a.8=1:0");
    EXPECT_TRUE(item.get_value("a.2")->second.type() == typeid(std::uint32_t));
}

TEST(set_array, keeps_a_nil_element) {
    plain_item item;
    varg_list values;
    values.push_back(types::nil);
    item.set_array("a", values, {});
    EXPECT_EQ(shown(item), "a=3:nil a.0=1:nil");
}

TEST(set_array, leaves_the_higher_elements_of_a_longer_array) {
    plain_item item;
    item.set_array("a", list_of("x", "y", "z"), {});
    item.set("a.other", "kept", 0);
    item.set_array("a", list_of("new"), {});
    EXPECT_EQ(shown(item), "a=3:nil a.0=1:new a.1=1:y a.2=1:z a.other=1:kept");
    config_tree::entry_list out;
    item.get_array("a", out);
    EXPECT_EQ(shown(out), "0=1:new 1=1:y 2=1:z");
}

TEST(set_array, numbers_its_elements_in_decimal) {
    plain_item item;
    varg_list values;
    for (int index = 0; index < 12; ++index) {
        values.push_back(types::variant(index));
    }
    item.set_array("a", values, {});
    EXPECT_EQ(value(item, "a.11"), "1:11");
    config_tree::entry_list out;
    item.get_array("a", out);
    EXPECT_EQ(out.size(), 12U);
}

// The separator in front of the number is the key's second one, and so makes an empty segment.
TEST(set_array, puts_the_elements_of_a_key_that_ends_in_a_separator_one_level_down) {
    plain_item item;
    item.set_array("a.", list_of("x"), {});
    EXPECT_EQ(shown(item), "a=3:nil a.=0:1 a..0=1:x");
}

// ---- The dump ----

TEST(base_config_item, dumps_its_name_and_its_tree) {
    plain_item item("some item");
    item.set("A.B = x", 0);
    item.set("c", 2, 4);
    EXPECT_EQ(dump_of(item), "object : some item\n"
                             "|---------------\\\n"
                             "|\t\ta : true\n"
                             "|\t\t|---------------\\\n"
                             "|\t\t|\t\tb : 1 x\n"
                             "|\t\t|\t\t|\n"
                             "|\t\t|\t\tend\n"
                             "|\t\tc : 5 2\n"
                             "|\t\t|\n"
                             "|\t\tend\n"
                             "end\n");
}

TEST(base_config_item, dumps_without_keys_and_by_the_stream_operator) {
    plain_item item("x");
    std::string const expected = "object : x\n|---------------\\\n|\t\tend\nend\n";
    EXPECT_EQ(dump_of(item), expected);
    std::ostringstream stream;
    stream << std::setw(20);
    EXPECT_EQ(&(stream << item), &stream);
    EXPECT_EQ(stream.str(), expected);
}

} // namespace
