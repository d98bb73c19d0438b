#include "veldrin/config/file_item.hpp"

#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/config_items.hpp"
#include "support/files.hpp"
#include "support/temporary_directory.hpp"
#include "support/temporary_working_directory.hpp"
#include "veldrin/config/user_item.hpp"
#include "veldrin/generic/varg_list.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace std::string_literals;
using config::base_config_item;
using config::config_token;
using config::file_item;
using config::item_list;
using config::user_item;
using strings::ustring8;
using support::bytes_of;
using support::dump_of;
using support::shown;
using support::temporary_directory;
using held_item = memory::pointers::rc_pointer<base_config_item>;

static_assert(std::is_base_of_v<base_config_item, file_item>);
static_assert(std::is_same_v<decltype(std::declval<file_item&>().get_filename()), ustring8>);
static_assert(std::is_same_v<decltype(std::declval<file_item const&>().clone()), base_config_item*>);

struct open_item : file_item {
    using base_config_item::get_token;
    using base_config_item::id;
    using file_item::file_item;
    using file_item::load_file;
    using file_item::parse_comment;
};

// What a file of that text leaves in the tree.
std::string loaded(std::string_view text) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", text));
    EXPECT_TRUE(item.load());
    return shown(item);
}

std::filesystem::path path_of(file_item const& item) { return std::string(item.get_filename()); }

// What the item writes, with a bar for each line end.
std::string saved(file_item& item) {
    EXPECT_TRUE(item.save());
    std::string text = bytes_of(path_of(item));
    for (std::size_t position = 0; (position = text.find("\r\n", position)) != text.npos;) {
        text.replace(position, 2, "|");
    }
    return text;
}

struct text_row {
    std::string_view text;
    std::string_view nodes;
};

template <class Rows>
void expect_loaded(Rows const& rows) {
    for (text_row const& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(loaded(row.text), row.nodes);
    }
}

// ----------------------------------------------------------------------------------------------------------
// The item
// ----------------------------------------------------------------------------------------------------------

TEST(file_item, has_one_id_however_it_was_made) {
    open_item item("a.cfg");
    EXPECT_EQ(item.get_id(), "standard file");
    item.id = "renamed";
    EXPECT_EQ(file_item(item).get_id(), "standard file");
    EXPECT_EQ(held_item(item.clone())->get_id(), "standard file");
}

TEST(file_item, knows_its_file) {
    EXPECT_EQ(file_item("a.cfg").get_filename(), "a.cfg");
    EXPECT_EQ(file_item("").get_filename(), "");
}

TEST(file_item, a_copy_has_a_tree_of_its_own_and_the_same_file) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", "a = 1"));
    item.load();
    file_item copy(item);
    held_item const clone(item.clone());
    file_item assigned("");
    EXPECT_EQ(&(assigned = item), &assigned);
    item.unload();
    EXPECT_TRUE(clone->is_created_dynamic());
    for (file_item* const each : {&copy, dynamic_cast<file_item*>(clone.get()), &assigned}) {
        ASSERT_NE(each, nullptr);
        EXPECT_EQ(each->get_filename(), directory.path("test.cfg"));
        EXPECT_EQ(each->get_id(), "standard file");
        EXPECT_EQ(shown(*each), "a=1:1");
        each->unload();
        EXPECT_EQ(shown(*each), "");
        each->load();
        EXPECT_EQ(shown(*each), "a=1:1");
    }
}

TEST(file_item, dumps_what_a_file_holds) {
    temporary_directory const directory;
    file_item item(directory.file("sync.cfg", "# sync.cfg\n"
                                              "target = \"D:\\my files\"\n"
                                              "[limits]\n"
                                              "size = 640            // in the section: limits.size\n"
                                              "[filter]\n"
                                              "include[] = *.cpp,\n"
                                              "            *.hpp     // the array filter.include\n"));
    item.load();
    EXPECT_EQ(dump_of(item), "object : standard file\n|---------------\\\n"
                             "|\t\tfilter : true\n|\t\t|---------------\\\n"
                             "|\t\t|\t\tinclude : 3 \n|\t\t|\t\t|---------------\\\n"
                             "|\t\t|\t\t|\t\t0 : 1 *.cpp\n|\t\t|\t\t|\t\t|\n"
                             "|\t\t|\t\t|\t\t1 : 1 *.hpp\n|\t\t|\t\t|\t\t|\n"
                             "|\t\t|\t\t|\t\tend\n"
                             "|\t\t|\t\tend\n"
                             "|\t\tlimits : true\n|\t\t|---------------\\\n"
                             "|\t\t|\t\tsize : 1 640\n|\t\t|\t\t|\n"
                             "|\t\t|\t\tend\n"
                             "|\t\ttarget : 1 D:\\my files\n|\t\t|\n"
                             "|\t\tend\nend\n");
}

TEST(file_item, stores_texts) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", "a = 1\nb[] = 1, 2"));
    item.load();
    EXPECT_EQ(item.get_value("a")->second.type(), typeid(ustring8));
    EXPECT_EQ(item.get_value("b.0")->second.type(), typeid(ustring8));
    EXPECT_EQ(item.get_value("b.1")->second.type(), typeid(ustring8));
}

TEST(file_item, loading_merges_into_the_tree) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", "a = 1\nb = 1\nc[] = 1, 2, 3"));
    item.load();
    directory.file("test.cfg", "b = 2\nc[] = 4");
    item.load();
    EXPECT_EQ(shown(item), "a=1:1 b=1:2 c=3:nil c.0=1:4 c.1=1:2 c.2=1:3");
    item.unload();
    EXPECT_EQ(shown(item), "");
    EXPECT_EQ(item.get_filename(), directory.path("test.cfg"));
    item.load();
    EXPECT_EQ(shown(item), "b=1:2 c=3:nil c.0=1:4");
}

TEST(file_item, all_ways_of_loading_read_the_same) {
    temporary_directory const directory;
    std::string const file = directory.file("test.cfg", "[s]\na = 1");
    file_item item(file);
    EXPECT_TRUE(item.load());
    file_item one_of_many(file);
    EXPECT_TRUE(one_of_many.load(item_list{&one_of_many}));
    open_item inner(file);
    inner.load_file();
    EXPECT_EQ(shown(item), "s=0:1 s.a=1:1");
    EXPECT_EQ(shown(one_of_many), shown(item));
    EXPECT_EQ(shown(inner), shown(item));
}

TEST(file_item, a_file_that_cannot_be_read_leaves_the_tree_as_it_was) {
    temporary_directory const directory;
    for (std::string const& name : {""s, directory.path("missing.cfg"), directory.path(), "a\0b"s}) {
        SCOPED_TRACE(name);
        file_item item(name);
        EXPECT_TRUE(item.load());
        EXPECT_EQ(shown(item), "");
        item.set("a", 1, 0);
        EXPECT_TRUE(item.load());
        EXPECT_TRUE(item.load(item_list()));
        EXPECT_EQ(shown(item), "a=1:1");
        EXPECT_EQ(item.get_filename(), name);
    }
}

// ----------------------------------------------------------------------------------------------------------
// The search
// ----------------------------------------------------------------------------------------------------------

class file_search : public testing::Test {
protected:
    file_search() {
        for (char const* const name :
             {"first", "second", "own", "tool.cfg", "other.cfg", ".cfg", "1", "1.cfg"}) {
            directory->file(name, "loaded = "s + (*name == '.' ? "nameless" : name));
        }
        directory->directory("directory");
    }

    // The items of the list, each with one key, and what the search of an item of that name chooses among
    // them.
    std::string chosen(char const* own_name, std::vector<std::pair<char const*, char const*>> const& keys) {
        item_list items;
        for (auto const& [key, value] : keys) {
            held_item const item(user_item().clone());
            item->set(key, types::variant(value), 0);
            items.push_back(item);
        }
        file_item item(own_name);
        items.push_back(&item);
        EXPECT_TRUE(item.load(items));
        loaded_text = item.get_value("loaded") != nullptr ? item.get_value("loaded")->second.as_string() : "";
        return item.get_filename();
    }

    support::temporary_working_directory const directory;
    std::string loaded_text;
};

TEST_F(file_search, chooses_by_the_values_of_the_items) {
    struct row {
        char const* own_name;
        std::vector<std::pair<char const*, char const*>> keys;
        std::string chosen;
        std::string loaded;
    };
    row const rows[] = {
        // A value of cfg_file that can be opened goes before the name of the item.
        {"own", {{"cfg_file", "first"}}, "first", "first"},
        {"", {{"cfg_file", "first"}}, "first", "first"},
        {"own", {{"CFG_FILE", "first"}}, "first", "first"},
        {"own", {{"other", "first"}}, "own", "own"},
        {"own", {}, "own", "own"},
        {"own", {{"cfg_file", "first"}, {"cfg_file", "second"}}, "first", "first"},
        {"own", {{"cfg_file", "missing"}, {"cfg_file", "second"}}, "second", "second"},
        {"own", {{"cfg_file", "missing"}}, "own", "own"},
        {"own", {{"cfg_file", "directory"}}, "own", "own"},
        {"own", {{"cfg_file", ""}}, "own", "own"},
        // A node that is only passed through has the value true.
        {"own", {{"cfg_file.x", "first"}}, "1", "1"},
        // The name of the item is not tested.
        {"missing", {}, "missing", ""},
        {"missing", {{"application.name.raw", "tool"}}, "missing", ""},
        // The name of the program comes last.
        {"", {{"application.name.raw", "tool"}}, "tool.cfg", "tool.cfg"},
        {"",
         {{"application.name.raw", "missing"}, {"application.name.raw", "other"}},
         "other.cfg",
         "other.cfg"},
        {"", {{"application.name.raw", "tool"}, {"application.name.raw", "other"}}, "tool.cfg", "tool.cfg"},
        {"", {{"application.name.raw", "tool"}, {"cfg_file", "second"}}, "second", "second"},
        {"", {{"application.name.raw", "tool"}, {"cfg_file", "missing"}}, "tool.cfg", "tool.cfg"},
        {"own", {{"application.name.raw", "tool"}, {"cfg_file", "missing"}}, "own", "own"},
        {"", {{"application.name.raw", ""}}, ".cfg", "nameless"},
        {"", {{"application.name.raw", "missing"}}, "", ""},
        {"", {{"application.name.raw.x", "tool"}}, "1.cfg", "1.cfg"},
        {"", {{"application.name", "tool"}}, "", ""},
        {"", {}, "", ""},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.keys) + row.own_name);
        EXPECT_EQ(chosen(row.own_name, row.keys), row.chosen);
        EXPECT_EQ(loaded_text, row.loaded);
    }
}

TEST_F(file_search, a_value_of_any_kind_is_a_name) {
    user_item number;
    number.set("cfg_file", 1, 0);
    file_item item("own");
    item.load(item_list{&number});
    EXPECT_EQ(item.get_filename(), "1");
}

TEST_F(file_search, is_made_anew_at_each_load_of_a_list) {
    user_item source;
    file_item item("own");
    source.set("cfg_file", "first", 0);
    item.load(item_list{&source});
    EXPECT_EQ(item.get_filename(), "first");
    source.set("cfg_file", "second", 0);
    item.load();
    EXPECT_EQ(item.get_filename(), "first");
    item.load(item_list{&source});
    EXPECT_EQ(item.get_filename(), "second");
    // What was chosen is the name of the item from then on.
    source.set("cfg_file", "missing", 0);
    item.load(item_list{&source});
    EXPECT_EQ(item.get_filename(), "second");
}

TEST_F(file_search, asks_the_item_itself_too) {
    directory->file("own", "cfg_file = second");
    file_item item("own");
    item.load(item_list{&item});
    EXPECT_EQ(item.get_filename(), "own");
    item.load(item_list{&item});
    EXPECT_EQ(item.get_filename(), "second");
}

// ----------------------------------------------------------------------------------------------------------
// Reading
// ----------------------------------------------------------------------------------------------------------

TEST(file_item, reads_plain_values) {
    expect_loaded(std::vector<text_row>{
        {"", ""},
        {"\n \t\n", ""},
        {"a = 1", "a=1:1"},
        {"a=1\nb=2\n", "a=1:1 b=1:2"},
        {"  a\t=\t1  ", "a=1:1"},
        {"A.B/c\\D = E", "a=0:1 a.b=0:1 a.b.c=0:1 a.b.c.d=1:E"},
        {"a.b = c:d", "a=0:1 a.b=1:c:d"},
        {"a. = 1", "a=1:1"},
        {".a = 1", "=0:1 a=1:1"},
        {"a.. = 1", "a=0:1 a.=1:1"},
        {"a = x y", "a=1:xy"},
        {"a = \"x y\"", "a=1:x y"},
        {"a = x \"y  z\" 1", "a=1:xy  z1"},
        {"a = b = c == d", "a=1:b=c==d"},
        {"a = 1\na = 2", "a=1:2"},
        {"a = 1\nb = a", "a=1:1 b=1:a"},
        {"a = D:\\x\\\nb = 1", "a=1:D:\\x\\ b=1:1"},
        {"a = 1,2", "a=1:1,2"},
        {"a = [x]", "a=1:[x]"},
        {"a = -1.5", "a=1:-1.5"},
        {"a = \xC3\xA4\xE2\x82\xAC", "a=1:\xC3\xA4\xE2\x82\xAC"},
        // An empty value is not stored.
        {"a =", ""},
        {"a =\nb = 1", "b=1:1"},
        {"a = \"\"", ""},
        {"a = # none\nb = 1", "b=1:1"},
        // Only "=" ends a key.
        {"a == 1\nb = 2", "a==1b=1:2"},
        {"a += 1\nb = 2", "a+=1b=1:2"},
        {"a : 1\nb = 2", "a:1b=1:2"},
        {"a >= 1", ""},
        // Quotes in a key.
        {"\"a b\" = 1", "a b=1:1"},
        {"\"a=b\" = 1", "a=b=1:1"},
        {"x\"#\" = 1", "x#=1:1"},
    });
}

TEST(file_item, a_key_goes_on_over_line_ends_up_to_the_equals_sign) {
    expect_loaded(std::vector<text_row>{
        {"foo\nbar = 1", "foobar=1:1"},
        {"foo\n\n\t bar\n= 1", "foobar=1:1"},
        {"foo", ""},
        {"foo\n", ""},
        {"a = 1\nfoo", "a=1:1"},
        {"a b = 1", "ab=1:1"},
        // No comments in a key.
        {"a # b\nc = 1", "a#bc=1:1"},
        {"a // b\nc = 1", "a=0:1 a.=0:1 a..bc=1:1"},
        // The key is empty: what follows is the start of the next statement.
        {"=5", ""},
        {"=5\na = 1", "5a=1:1"},
        {"==5\na = 1", "==5a=1:1"},
        {"= = = a = 1", "a=1:1"},
        {"=", ""},
        {"\"\" = 1\n= 2", "1=1:2"},
    });
}

TEST(file_item, reads_sections) {
    expect_loaded(std::vector<text_row>{
        {"[one]\na = 1\n[]\nb = 2", "b=1:2 one=0:1 one.a=1:1"},
        {"[one]\na = 1\n[two]\nb = 2", "one=0:1 one.a=1:1 two=0:1 two.b=1:2"},
        {"[one]\na = 1\n[two]\nb = 2\n[one]\nc = 3", "one=0:1 one.a=1:1 one.c=1:3 two=0:1 two.b=1:2"},
        {"[One.Two]\na.b = 1", "one=0:1 one.two=0:1 one.two.a=0:1 one.two.a.b=1:1"},
        {"[s]\n.a = 1\nb. = 2\n.. = 3", "s=0:1 s.=0:1 s..=1:3 s..a=1:1 s.b=1:2"},
        {"[s\\]\na = 1", "s=0:1 s.=0:1 s..a=1:1"},
        {"[s]\na = 1\n[s.a]\nb = 2\n[s]\na = 3", "s=0:1 s.a=1:3 s.a.b=1:2"},
        // A section without keys makes no node, nor does an array that is not stored.
        {"[one]\n[two]\na =\nb[] =\n[three]\nc = 1", "three=0:1 three.c=1:1"},
        {"[a b]\nc = 1", "ab=0:1 ab.c=1:1"},
        {"[\"a b\"]\nc = 1", "a b=0:1 a b.c=1:1"},
        {"[ a\n\tb ]\nc = 1", "ab=0:1 ab.c=1:1"},
        // What stands behind the bracket is the next statement.
        {"[a]b = 1", "a=0:1 a.b=1:1"},
        {"[a] # note\nb = 1", "a=0:1 a.b=1:1"},
        {"[a][b]c = 1", "b=0:1 b.c=1:1"},
        // No comment in the brackets.
        {"[a#b]\nc = 1", "a#b=0:1 a#b.c=1:1"},
        {"[a//b]\nc = 1", "a=0:1 a.=0:1 a..b=0:1 a..b.c=1:1"},
        {"[a=b]\nc = 1", "a=b=0:1 a=b.c=1:1"},
        {"[a[b]\nc = 1", "a[b=0:1 a[b.c=1:1"},
        {"[a]]\nc = 1", "a=0:1 a.]c=1:1"},
        {"[a.]\nb = 1", "a=0:1 a.=0:1 a..b=1:1"},
        {"[\"\"]\na = 1", "a=1:1"},
        // Never closed.
        {"[a\nb = 1", ""},
        {"[", ""},
        {"[]", ""},
        {"a = 1\n[", "a=1:1"},
        {"]a = 1", "]a=1:1"},
        // A key without a line of its own, a bracket in it.
        {"a [b]\nc = 1", "a[b]c=1:1"},
        {"foo\n[a]\nb = 1", "foo[a]b=1:1"},
    });
}

TEST(file_item, reads_arrays) {
    expect_loaded(std::vector<text_row>{
        {"a[] = 1, 2", "a=3:nil a.0=1:1 a.1=1:2"},
        {"a[] = 1,\n2", "a=3:nil a.0=1:1 a.1=1:2"},
        {"a[] = 1,\n\n \t\n2\nb = 3", "a=3:nil a.0=1:1 a.1=1:2 b=1:3"},
        {"a[] = 1\nb = 2", "a=3:nil a.0=1:1 b=1:2"},
        {"[s]\na[] = 1, 2", "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2"},
        {"a.b[] = 1", "a=0:1 a.b=3:nil a.b.0=1:1"},
        {"a [ ] = 1", "a=3:nil a.0=1:1"},
        {"a\n[\n]\n= 1", "a=3:nil a.0=1:1"},
        {"\"a[]\" = 1", "a=3:nil a.0=1:1"},
        {"a[]b = 1, 2", "a[]b=1:1,2"},
        {"a[x] = 1, 2", "a[x]=1:1,2"},
        {"a[] = x y, \"x y\"", "a=3:nil a.0=1:xy a.1=1:x y"},
        {"a[] = \"1, 2\", 3", "a=3:nil a.0=1:1, 2 a.1=1:3"},
        {"a[] = \",\", 2", "a=3:nil a.0=1:, a.1=1:2"},
        {"a\"[]\" = 1", "a=3:nil a.0=1:1"},
        {"a[] = b=c, [d]", "a=3:nil a.0=1:b=c a.1=1:[d]"},
        {"a[] = 1, , 2", "a=3:nil a.0=1:1 a.1=1: a.2=1:2"},
        {"a[] = ,1", "a=3:nil a.0=1: a.1=1:1"},
        {"a[] = 1, 2, 3\na[] = 4", "a=3:nil a.0=1:4 a.1=1:2 a.2=1:3"},
        // Comments end at the line end, which ends the array unless it stands behind a comma.
        {"a[] = 1, # one\n2 // two\nb = 3", "a=3:nil a.0=1:1 a.1=1:2 b=1:3"},
        {"a[] = 1 # one,\n2\nb = 3", "2b=1:3 a=3:nil a.0=1:1"},
        // Behind a comma the next statement is the next element.
        {"a[] = 1,\nb = 2", "a=3:nil a.0=1:1 a.1=1:b=2"},
        {"a[] = 1,\n[s]\nb = 2", "a=3:nil a.0=1:1 a.1=1:[s] b=1:2"},
        // The brackets are all of the key.
        {"\"[]\" = 1", "=3:nil 0=1:1"},
        {"[s]\n\"[]\" = 1", "s=3:nil s.=0:1 s..0=1:1"},
        {"[s]\na = 1\n\"[]\" = 2", "s=3:nil s.=0:1 s..0=1:2 s.a=1:1"},
        {"[s.]\n\"[]\" = 1", "s=0:1 s.=3:nil s..=0:1 s...0=1:1"},
        {"[.]\n\"[]\" = 1", "=0:1 =3:nil =0:1 0=1:1"},
        // A separator in front of the brackets adds nothing to the head and a segment to the elements.
        {"a.[] = 1", "a=3:nil a.=0:1 a..0=1:1"},
        {"[s]\n.[] = 1", "s=0:1 s.=3:nil s..=0:1 s...0=1:1"},
        {"[s]\na/[] = 1, 2", "s=0:1 s.a=3:nil s.a.=0:1 s.a..0=1:1 s.a..1=1:2"},
    });
}

// An array whose last element is empty is not stored; the elements in front of it wait for the next array.
TEST(file_item, elements_wait_for_the_next_array) {
    expect_loaded(std::vector<text_row>{
        {"a[] =", ""},
        {"a[] =\nb = 1", "b=1:1"},
        {"a[] = # none\nb = 1", "b=1:1"},
        {"a[] = 1,", ""},
        {"a[] = 1,\n", ""},
        {"a[] = 1, \"\"\nb[] = 2, 3", "b=3:nil b.0=1:1 b.1=1:2 b.2=1:3"},
        {"a[] = 1, \"\"\nb = 2\n[s]\nc[] = 3", "b=1:2 s=0:1 s.c=3:nil s.c.0=1:1 s.c.1=1:3"},
        {"a[] = 1, \"\"\nb[] =\nc[] = , \"\"\nd[] = 2", "d=3:nil d.0=1:1 d.1=1: d.2=1:2"},
        {"a[] = 1, \"\"\nb[] = 2\nc[] = 3", "b=3:nil b.0=1:1 b.1=1:2 c=3:nil c.0=1:3"},
        {"a[] = \"\"\nb[] = 1", "b=3:nil b.0=1:1"},
        // The string closes the array, although there is nothing in it.
        {"a[] = 1, \"\"\n2 = 3", "2=1:3"},
    });
}

TEST(file_item, elements_do_not_wait_for_the_next_load) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", "a[] = 1,"));
    item.load();
    directory.file("test.cfg", "a[] = 2");
    item.load();
    EXPECT_EQ(shown(item), "a=3:nil a.0=1:2");
}

TEST(file_item, a_section_does_not_outlive_the_load) {
    temporary_directory const directory;
    file_item item(directory.file("test.cfg", "[s]\na = 1"));
    item.load();
    directory.file("test.cfg", "b = 2");
    item.load();
    EXPECT_EQ(shown(item), "b=1:2 s=0:1 s.a=1:1");
}

TEST(file_item, skips_comments_in_front_of_a_statement_and_in_a_value) {
    expect_loaded(std::vector<text_row>{
        {"# a = 1", ""},
        {"// a = 1", ""},
        {"# a = 1\nb = 2", "b=1:2"},
        {"#\n//\n # x // y\n\t// x # y\nb = 2", "b=1:2"},
        {"a = 1 # note", "a=1:1"},
        {"a = 1# note", "a=1:1"},
        {"a = 1 // note\nb = 2", "a=1:1 b=1:2"},
        {"a = \"1 # note\"", "a=1:1 # note"},
        {"a = \"http://x\"", "a=1:http://x"},
        {"url = x://y", "url=1:x:"},
        {"# [s]\na = 1", "a=1:1"},
        {"a = 1 / 2 /x/", "a=1:1/2/x/"},
        // Only the type of the token counts: a star and a slash are no comment, a slash and a star neither.
        {"a = 1 */ 2", "a=1:1*/2"},
        {"*/ a = 1", "*=0:1 *.a=1:1"},
        {"a = /* 1 */", "a=1:/*1*/"},
        {"/* a */ = 1", "=0:1 *a*=1:1"},
        {"a[] = 1 */, 2", "a=3:nil a.0=1:1*/ a.1=1:2"},
        {"a = ///x", ""},
        // A carriage return alone ends no comment.
        {"# x\ra = 1\nb = 2", "b=1:2"},
    });
}

TEST(file_item, a_quote_in_a_comment_swallows_the_lines_up_to_the_next_one) {
    expect_loaded(std::vector<text_row>{
        {"# don\"t\na = 1\nb\"\nc = 3", "c=1:3"},
        {"# don\"t\na = 1\nb = \"2\"\nc = 3", ""},
        {"# \"x\"\na = 1", "a=1:1"},
        {"# it is 5\" wide\na = 1", ""},
        {"a = 1 # 5\"\nb = 2\nc = 5\" # x\nd = 3", "a=1:1 d=1:3"},
    });
}

TEST(file_item, reads_strings_over_lines_and_without_an_end) {
    expect_loaded(std::vector<text_row>{
        {"a = \"x\ny\"\nb = 1", "a=1:x\ny b=1:1"},
        {"a = \"x\r\ny\"", "a=1:x\r\ny"},
        {"a = \"x", "a=1:x"},
        {"a = \"x\nb = 1", "a=1:x\nb = 1"},
        {"\"x", ""},
        {"[\"x", ""},
        {"a[] = 1, \"x", "a=3:nil a.0=1:1 a.1=1:x"},
        {"a = \"x\\\"y\"", "a=1:x\\\"y"},
        {"a = \"x\\\\\"", "a=1:x\\\\"},
        {"a = \"x\\n\"", "a=1:x\\n"},
    });
    EXPECT_EQ(loaded("a = \"x\\"), "a=1:x\\\0"s);
}

TEST(file_item, line_ends_of_two_bytes_read_as_those_of_one) {
    expect_loaded(std::vector<text_row>{
        {"a = 1\r\nb = 2\r\n", "a=1:1 b=1:2"},
        {"[s]\r\n\r\n# x\r\na[] = 1,\r\n2 // y\r\nb = 2", "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2 s.b=1:2"},
        // A carriage return alone is text.
        {"a = 1\rb = 2", "a=1:1\rb=2"},
        {"a\rb = 1", "a\rb=1:1"},
        {"\ra = 1", "\ra=1:1"},
        {"[s\rt]a = 1", "s\rt=0:1 s\rt.a=1:1"},
        {"a = 1\r", "a=1:1\r"},
        {"a = 1\n\r", "a=1:1"},
    });
}

TEST(file_item, reads_bytes_as_they_are) {
    EXPECT_EQ(loaded("a\0b = c\0d"s), "a\0b=1:c\0d"s);
    EXPECT_EQ(loaded("\0"s), "");
    EXPECT_EQ(loaded("\xFF\xFE = \x80\xFF"s), "\xFF\xFE=1:\x80\xFF"s);
    // A byte-order mark belongs to the first key.
    EXPECT_EQ(loaded("\xEF\xBB\xBF"
                     "a = 1\nb = 2"),
              "b=1:2 \xEF\xBB\xBF"
              "a=1:1");
    EXPECT_EQ(loaded("\xEF\xBB\xBF[s]\na = 1"), "\xEF\xBB\xBF[s]a=1:1");
}

TEST(file_item, a_comment_ends_in_front_of_the_token_that_ends_it) {
    struct row {
        std::string_view text;
        unsigned int start;
        unsigned int end;
    };
    row const rows[] = {
        {"# x\ny", 1, 3},        {"# x\r\ny", 1, 3},        {"#\n", 1, 1},   {"# x", 1, 3},       {"#", 1, 1},
        {"# \"x\ny\"\nz", 1, 7}, {"# x # y // z\n", 1, 12}, {"# \"x", 1, 5}, {"# x\ry\nz", 1, 5}, {"x", 5, 5},
    };
    open_item item("");
    for (row const& row : rows) {
        SCOPED_TRACE(row.text);
        unsigned int position = row.start;
        item.parse_comment(ustring8(row.text), position);
        EXPECT_EQ(position, row.end);
    }
}

// ----------------------------------------------------------------------------------------------------------
// Writing
// ----------------------------------------------------------------------------------------------------------

class file_saving : public testing::Test {
protected:
    file_saving() : item(directory.path("saved.cfg")) {}

    // What comes back from the file.
    std::string loaded_again() {
        item.save();
        file_item other(item.get_filename());
        other.load();
        return shown(other);
    }

    temporary_directory const directory;
    file_item item;
};

TEST_F(file_saving, writes_what_the_sections_hold) {
    item.set("one.a", 1, 0);
    item.set("one.b", "x y", 0);
    item.set_array("three.list", generic::varg_list({"1"}, {"2 3"}), generic::varg_list());
    EXPECT_TRUE(item.save());
    EXPECT_EQ(bytes_of(path_of(item)),
              "[one]\r\na=1\r\nb=\"x y\"\r\n\r\n[three]\r\nlist[]=1,\"2 3\"\r\n\r\n");
    EXPECT_EQ(loaded_again(), shown(item));
}

TEST_F(file_saving, replaces_the_whole_file) {
    directory.file("saved.cfg",
                   "# a comment, and a text much longer than the one that is saved\n[s]\nb = 1\na = 2");
    item.load();
    EXPECT_EQ(saved(item), "[s]|a=2|b=1||");
    item.unload();
    EXPECT_EQ(saved(item), "");
}

TEST_F(file_saving, of_a_list_writes_nothing) {
    item.set("s.a", 1, 0);
    EXPECT_TRUE(item.save(item_list{&item}));
    EXPECT_FALSE(std::filesystem::exists(path_of(item)));
}

TEST_F(file_saving, to_a_place_that_cannot_be_written_is_lost_without_a_word) {
    for (std::string const& name : {""s, directory.path(), directory.path("missing/saved.cfg"), "a\0b"s}) {
        SCOPED_TRACE(name);
        file_item lost(name);
        lost.set("s.a", 1, 0);
        EXPECT_TRUE(lost.save());
    }
    EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST_F(file_saving, goes_to_the_chosen_file) {
    user_item source;
    source.set("cfg_file", directory.file("chosen.cfg", "[s]\na = 1"), 0);
    item.load(item_list{&source});
    item.set("s.b", 2, 0);
    EXPECT_TRUE(item.save());
    EXPECT_EQ(bytes_of(directory.path("chosen.cfg")), "[s]\r\na=1\r\nb=2\r\n\r\n");
}

struct write {
    char const* key;
    types::variant value;
    unsigned int flags = 0;
};

TEST_F(file_saving, what_reads_back_and_what_does_not) {
    struct row {
        std::vector<write> writes;
        std::string file;
        std::string read_back; // empty: as it was
    };
    row const rows[] = {
        {{}, "", ""},
        {{{"s.a", 1}}, "[s]|a=1||", ""},
        {{{"S.A", "B"}}, "[s]|a=B||", ""},
        {{{"s.a", 1}, {"tt.b", 2}}, "[s]|a=1||[tt]|b=2||", ""},
        {{{"s.t.a", 1}}, "[s]||[s.t]|a=1||", ""},
        {{{"s.t u.a b", "c d"}}, "[s]||[\"s.t u\"]|\"a b\"=\"c d\"||", ""},
        {{{"s.a", "x\ty"}}, "[s]|a=\"x\ty\"||", ""},
        {{{"s.a", "x\ny"}}, "[s]|a=\"x\ny\"||", ""},
        {{{"s.a", "x\ry"}}, "[s]|a=\"x\ry\"||", ""},
        {{{"s.a", "D:\\x=[y]*/z"}}, "[s]|a=D:\\x=[y]*/z||", ""},
        {{{"s.a", true}}, "[s]|a=1||", ""},
        {{{"s.a", -2.5}}, "[s]|a=-2.5||", ""},
        // A key without a section, and one below a key with a value.
        {{{"a", 1}}, "", "nothing"},
        {{{"a", 1}, {"a.b", 2}}, "", "nothing"},
        {{{"s.a", 1}, {"s.a.b", 2}}, "[s]|a=1||", "s=0:1 s.a=1:1"},
        {{{"application.name", "tool.exe"}, {"application.name.raw", "tool"}},
         "[application]|name=tool.exe||",
         "application=0:1 application.name=1:tool.exe"},
        {{{"a", 1}, {"a.b.c", 2}}, "[a.b]|c=2||", "a=0:1 a.b=0:1 a.b.c=1:2"},
        // Sections of one length share what they hold.
        {{{"aa.x", 1}, {"bb.y", 2}},
         "[aa]|x=1|y=2||[bb]|x=1|y=2||",
         "aa=0:1 aa.x=1:1 aa.y=1:2 bb=0:1 bb.x=1:1 bb.y=1:2"},
        {{{"a.b.x", 1}, {"ccc.y", 2}},
         "[a]||[a.b]|x=1|y=2||[ccc]|x=1|y=2||",
         "a=0:1 a.b=0:1 a.b.x=1:1 a.b.y=1:2 ccc=0:1 ccc.x=1:1 ccc.y=1:2"},
        {{{"ccc.y", 1}, {"s.a", 2}, {"s.a.x", 3}},
         "[ccc]|y=1|x=3||[s]|a=2||",
         "ccc=0:1 ccc.x=1:3 ccc.y=1:1 s=0:1 s.a=1:2"},
        // Values with what means something to the reader.
        {{{"s.a", "1#2"}}, "[s]|a=1#2||", "s=0:1 s.a=1:1"},
        {{{"s.a", "x://y"}}, "[s]|a=x://y||", "s=0:1 s.a=1:x:"},
        {{{"s.a", "1 #2"}}, "[s]|a=\"1 #2\"||", ""},
        {{{"s.a", "x\"y"}}, "[s]|a=x\"y||", "s=0:1 s.a=1:xy\r\n\r\n"},
        {{{"s.a", "x y\\"}}, "[s]|a=\"x y\\\"||", "s=0:1 s.a=1:x y\\\"\r\n\r\n"},
        {{{"s.a", "x\"y z"}}, "[s]|a=\"x\"y z\"||", "s=0:1 s.a=1:xyz\r\n\r\n"},
        // What the equals sign behind the key makes another token with.
        {{{"s.a", "=x"}, {"s.b", 1}}, "[s]|a==x|b=1||", "s=0:1 s.a==xb=1:1"},
        {{{"s.a+", "x"}, {"s.b", 1}}, "[s]|a+=x|b=1||", "s=0:1 s.a+=xb=1:1"},
        {{{"s.a:", "x"}, {"s.b", 1}}, "[s]|a:=x|b=1||", "s=0:1 s.a:=xb=1:1"},
        {{{"s.a=", "x"}, {"s.b", 1}}, "[s]|a==x|b=1||", "s=0:1 s.a==xb=1:1"},
        {{{"s.a$", "x"}}, "[s]|a$=x||", ""},
        {{{"s.a+ ", "x"}}, "[s]|\"a+ \"=x||", ""},
        {{{"s.a", "= x"}}, "[s]|a=\"= x\"||", ""},
        {{{"s.a", types::nil, 2}, {"s.a.0", "=x"}}, "[s]|a[]==x||", "nothing"},
        // Keys with what means something to the reader.
        {{{"s.#a", 1}, {"s.b", 2}}, "[s]|#a=1|b=2||", "s=0:1 s.b=1:2"},
        {{{"s.[a", 1}, {"s.b", 2}}, "[s]|[a=1|b=2||", "nothing"},
        {{{"s.a[]", 1}}, "[s]|a[]=1||", "s=0:1 s.a=3:nil s.a.0=1:1"},
        {{{"s.# a+", 1}, {"s.[ b=", 2}}, "[s]|\"# a+\"=1|\"[ b=\"=2||", ""},
        {{{"s.a []", 1}}, "[s]|\"a []\"=1||", "s=0:1 s.a =3:nil s.a .0=1:1"},
        {{{"s ].a", 1}}, "[\"s ]\"]|a=1||", ""},
        {{{"s.a=b", 1}}, "[s]|a=b=1||", "s=0:1 s.a=1:b=1"},
        {{{"s.a\"", 1}, {"s.b", 2}}, "[s]|a\"=1|b=2||", "nothing"},
        {{{"s\".a", 1}}, "[s\"]|a=1||", "nothing"},
        {{{"s].a", 1}}, "[s]]|a=1||", "s=0:1 s.]a=1:1"},
        {{{"s#.a", 1}}, "[s#]|a=1||", ""},
        // An empty value, and nil, read back as none.
        {{{"s.a", ""}}, "[s]|a=||", "nothing"},
        {{{"s.a", types::nil}}, "[s]|a=||", "nothing"},
        // Flags are lost, those of an alias and those without a meaning.
        {{{"s.a", "b", 4}}, "[s]|a=b||", "s=0:1 s.a=1:b"},
        {{{"s.a", "b", 8}}, "[s]|a=b||", "s=0:1 s.a=1:b"},
        // An array head with any other bit is written as a value.
        {{{"s.a", "b", 6}, {"s.a.0", 1}}, "[s]|a=b||", "s=0:1 s.a=1:b"},
        // Arrays.
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.1", 2}}, "[s]|a[]=1,2||", ""},
        {{{"s.a", types::nil, 2}, {"s.a.0", "1,2"}}, "[s]|a[]=1,2||", "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2"},
        {{{"s.a", types::nil, 2}, {"s.a.0", "1, 2"}}, "[s]|a[]=\"1, 2\"||", ""},
        {{{"s.a", types::nil, 2}, {"s.a.0", ""}, {"s.a.1", 1}}, "[s]|a[]=,1||", ""},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.1", ""}}, "[s]|a[]=1,||", "nothing"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.1", ""}, {"tt.b", 2}},
         "[s]|a[]=1,||[tt]|b=2||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:[tt] s.b=1:2"},
        {{{"s.a", types::nil, 2}, {"s.a.0", ""}}, "[s]|a[]=||", "nothing"},
        {{{"s.a", types::nil, 2}}, "[s]|a[]=||", "nothing"},
        {{{"s.a", types::nil, 2}, {"s.a.1", 1}}, "[s]|a[]=||", "nothing"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.2", 3}},
         "[s]|a[]=1,3||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:3"},
        // The entry at which an array ends is passed over.
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.b", 2}}, "[s]|a[]=1||", "s=0:1 s.a=3:nil s.a.0=1:1"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.b", 2}, {"s.c", 3}},
         "[s]|a[]=1|c=3||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.c=1:3"},
        {{{"s.a", types::nil, 2}, {"s.b", 2}, {"s.c", 3}}, "[s]|a[]=|c=3||", "s=0:1 s.c=1:3"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"tt.b", 2}}, "[s]|a[]=1||[tt]|b=2||", ""},
        // What counts as an element is the number that its name starts with.
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.1x", 2}, {"s.a.x", 3}},
         "[s]|a[]=1,2||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2"},
        // Its start tells the radix, and 8 is no digit of an octal one.
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.0x5", 2}},
         "[s]|a[]=1,2||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.0b1", 2}},
         "[s]|a[]=1,2||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.08", 2}}, "[s]|a[]=1||", "s=0:1 s.a=3:nil s.a.0=1:1"},
        {{{"s.a", types::nil, 2}, {"s.a.0", 1}, {"s.a.0.5", 2}, {"s.a.1", 3}},
         "[s]|a[]=1,2,3||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.1=1:2 s.a.2=1:3"},
        {{{"s.!", types::nil, 2}, {"s.0", 1}, {"s.1", 2}},
         "[s]|![]=1,2||",
         "s=0:1 s.!=3:nil s.!.0=1:1 s.!.1=1:2"},
        {{{"s.a", types::nil, 2}, {"s.a.0.b", 1}},
         "[s]|a[]=1||[s.a.0]|b=1||",
         "s=0:1 s.a=3:nil s.a.0=1:1 s.a.0.b=1:1"},
        // Empty names.
        {{{".a", 1}}, "[]||", "nothing"},
        {{{"s..a", 1}}, "[s]||[s.]|a=1||", ""},
        {{{"s..", 1}}, "[s]||", "nothing"},
        {{{"s...", 1}}, "[s]||[s.]|=1||", "nothing"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.file);
        item.unload();
        for (write const& write : row.writes) {
            item.set(write.key, write.value, write.flags);
        }
        EXPECT_EQ(saved(item), row.file);
        std::string const read_back = row.read_back == "nothing" ? "" : row.read_back;
        EXPECT_EQ(loaded_again(), row.read_back.empty() ? shown(item) : read_back);
    }
}

TEST_F(file_saving, array_elements_are_in_byte_order) {
    generic::varg_list elements;
    for (int number = 0; number < 12; ++number) {
        elements.push_back(types::variant("n" + std::to_string(number)));
    }
    item.set_array("s.a", elements, generic::varg_list());
    EXPECT_EQ(saved(item), "[s]|a[]=n0,n1,n10,n11,n2,n3,n4,n5,n6,n7,n8,n9||");
    EXPECT_EQ(loaded_again(), "s=0:1 s.a=3:nil s.a.0=1:n0 s.a.1=1:n1 s.a.10=1:n8 s.a.11=1:n9 s.a.2=1:n10 "
                              "s.a.3=1:n11 s.a.4=1:n2 s.a.5=1:n3 s.a.6=1:n4 s.a.7=1:n5 s.a.8=1:n6 "
                              "s.a.9=1:n7");
}

// ----------------------------------------------------------------------------------------------------------
// Reader and writer
// ----------------------------------------------------------------------------------------------------------

// Trees of one section level, no two sections with names of one length, with at most ten elements to an
// array, and an array only as the last key of its section.
class tree_generator {
public:
    explicit tree_generator(unsigned int seed) : m_random(seed) {}

    void fill(base_config_item& item) {
        std::size_t const sections = below(5);
        for (std::size_t section = 1; section <= sections; ++section) {
            std::string const name(section, static_cast<char>('a' + below(26)));
            std::size_t const keys = 1 + below(4);
            for (std::size_t key = 0; key < keys; ++key) {
                item.set(name + ".k" + std::to_string(below(100)) +
                             some_of({"", "_", "-x", " y", "\tz", "$"}),
                         types::variant(value()), 0);
            }
            if (below(2) == 0) {
                item.set_array(name + ".last", elements(), generic::varg_list());
            }
        }
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }

    std::string some_of(std::vector<std::string> const& texts) { return texts[below(texts.size())]; }

    // Not empty; without "#", "//", a double quote, a comma, an equals sign in front and a backslash at the
    // end.
    std::string value() {
        std::string text =
            some_of({"a", "7", " ", "\t", "\r\n", "[", "]", ":", "+=", "*/", "\\x", "\xC3\xA4"});
        for (std::size_t parts = below(6); parts != 0; --parts) {
            text += some_of({"a",  "Z",   "7", " ",  "\t",       "\r",   "\n",   "\r\n", "=",
                             "==", "[",   "]", "[]", ":",        ".",    "+=",   "*",    "*/",
                             "<",  "\\x", "$", "-",  "\xC3\xA4", "\xFF", "\x01", "\\ "});
        }
        return text;
    }

    generic::varg_list elements() {
        generic::varg_list list;
        for (std::size_t count = 1 + below(10); count != 0; --count) {
            list.push_back(types::variant(value()));
        }
        return list;
    }

    std::mt19937 m_random;
};

TEST_F(file_saving, generated_trees_read_back_as_they_were) {
    for (unsigned int seed = 0; seed < 500; ++seed) {
        SCOPED_TRACE(seed);
        item.unload();
        tree_generator(seed).fill(item);
        EXPECT_EQ(loaded_again(), shown(item));
    }
}

TEST_F(file_saving, what_was_read_back_is_written_as_it_was) {
    for (unsigned int seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(seed);
        item.unload();
        tree_generator(seed).fill(item);
        item.save();
        std::string const written = bytes_of(path_of(item));
        item.unload();
        item.load();
        item.save();
        EXPECT_EQ(bytes_of(path_of(item)), written);
    }
}

} // namespace
