#include "veldrin/config/commandline_item.hpp"

#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/argument_vector.hpp"
#include "support/config_items.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::base_config_item;
using config::commandline_item;
using config::item_list;
using strings::ustring8;
using support::argument_vector;
using support::dump_of;
using support::shown;
using texts = std::vector<std::string>;
using held_item = memory::pointers::rc_pointer<base_config_item>;

static_assert(std::is_base_of_v<base_config_item, commandline_item>);
static_assert(std::is_same_v<decltype(std::declval<commandline_item&>().get_argc()), int>);
static_assert(std::is_same_v<decltype(std::declval<commandline_item&>().get_argv()), char const* const*>);
static_assert(std::is_same_v<decltype(std::declval<commandline_item const&>().clone()), base_config_item*>);

unsigned int count_of(argument_vector const& arguments) {
    return static_cast<unsigned int>(arguments.count());
}

commandline_item item_of(argument_vector const& arguments) { return {count_of(arguments), arguments.data()}; }

struct loaded {
    std::string nodes;
    std::string output;
};

// What the options of a nameless program leave in the tree, without the program's name, and on the standard
// output.
loaded loaded_options(texts options) {
    options.insert(options.begin(), "");
    argument_vector const arguments(options);
    commandline_item item = item_of(arguments);
    testing::internal::CaptureStdout();
    EXPECT_TRUE(item.load());
    std::string const output = testing::internal::GetCapturedStdout();
    std::string const name = "application=0:1 application.name=1: application.name.raw=1:";
    std::string nodes = shown(item);
    std::size_t const position = nodes.find(name);
    EXPECT_NE(position, nodes.npos) << nodes;
    nodes.erase(position == 0 ? 0 : position - 1, name.size() + 1);
    return {nodes, output};
}

std::string as_text(texts const& arguments) {
    std::string text;
    for (std::string const& argument : arguments) {
        text += "{" + argument + "}";
    }
    return text;
}

std::string warning(std::string const& argument) {
    return "Warning! unknown key:" + argument + "\nIgnoring key and continuing\n";
}

// ----------------------------------------------------------------------------------------------------------
// The item
// ----------------------------------------------------------------------------------------------------------

TEST(commandline_item, has_one_id_however_it_was_made) {
    struct renamed_item : commandline_item {
        using base_config_item::id;
        using commandline_item::commandline_item;
    };
    argument_vector const arguments({"tool"});
    renamed_item item(1, arguments.data());
    EXPECT_EQ(item.get_id(), "command line");
    item.id = "renamed";
    EXPECT_EQ(commandline_item(item).get_id(), "command line");
    EXPECT_EQ(held_item(item.clone())->get_id(), "command line");
}

TEST(commandline_item, gives_back_what_it_was_given) {
    argument_vector const arguments({"tool", "-a", "-b"});
    commandline_item item = item_of(arguments);
    EXPECT_EQ(item.get_argc(), 3);
    EXPECT_EQ(item.get_argv(), arguments.data());
    commandline_item const none(0, nullptr);
    EXPECT_EQ(none.get_argc(), 0);
    EXPECT_EQ(none.get_argv(), nullptr);
}

TEST(commandline_item, is_empty_before_it_is_loaded) {
    argument_vector const arguments({"tool", "-a"});
    commandline_item item = item_of(arguments);
    EXPECT_EQ(dump_of(item), "object : command line\n|---------------\\\n|\t\tend\nend\n");
}

TEST(commandline_item, a_copy_has_a_tree_of_its_own_and_the_same_arguments) {
    argument_vector const arguments({"", "-a=1"});
    commandline_item item = item_of(arguments);
    item.load();
    commandline_item copy(item);
    held_item const clone(item.clone());
    commandline_item assigned(0, nullptr);
    EXPECT_EQ(&(assigned = item), &assigned);
    item.unload();
    for (base_config_item* const each :
         {static_cast<base_config_item*>(&copy), clone.get(), static_cast<base_config_item*>(&assigned)}) {
        EXPECT_EQ(shown(*each), "a=1:1 application=0:1 application.name=1: application.name.raw=1:");
        EXPECT_EQ(each->get_id(), "command line");
        each->unload();
        EXPECT_EQ(shown(*each), "");
        EXPECT_TRUE(each->load());
        EXPECT_EQ(shown(*each), "a=1:1 application=0:1 application.name=1: application.name.raw=1:");
    }
    EXPECT_EQ(copy.get_argc(), 2);
    EXPECT_EQ(copy.get_argv(), arguments.data());
    EXPECT_EQ(assigned.get_argc(), 2);
    EXPECT_EQ(assigned.get_argv(), arguments.data());
}

TEST(commandline_item, a_clone_is_an_object_of_the_heap) {
    argument_vector const arguments({"tool"});
    commandline_item const item = item_of(arguments);
    held_item const clone(item.clone());
    EXPECT_TRUE(clone->is_created_dynamic());
    EXPECT_NE(dynamic_cast<commandline_item*>(clone.get()), nullptr);
}

TEST(commandline_item, loads_as_one_of_many_without_a_look_at_them) {
    argument_vector const arguments({"", "-a=1"});
    argument_vector const others({"", "-a=2", "-b=2"});
    commandline_item item = item_of(arguments);
    commandline_item other = item_of(others);
    other.load();
    base_config_item& base = item;
    EXPECT_TRUE(base.load(item_list{&other, &item}));
    EXPECT_EQ(shown(item), "a=1:1 application=0:1 application.name=1: application.name.raw=1:");
}

TEST(commandline_item, unloads_and_loads_again_from_the_same_arguments) {
    argument_vector const arguments({"tool", "-a=1,2"});
    commandline_item item = item_of(arguments);
    item.load();
    std::string const dump = dump_of(item);
    EXPECT_EQ(dump, "object : command line\n|---------------\\\n"
                    "|\t\ta : 3 \n|\t\t|---------------\\\n"
                    "|\t\t|\t\t0 : 1 1\n|\t\t|\t\t|\n"
                    "|\t\t|\t\t1 : 1 2\n|\t\t|\t\t|\n"
                    "|\t\t|\t\tend\n"
                    "|\t\tapplication : true\n|\t\t|---------------\\\n"
                    "|\t\t|\t\tname : 1 tool\n|\t\t|\t\t|---------------\\\n"
                    "|\t\t|\t\t|\t\traw : 1 \n|\t\t|\t\t|\t\t|\n"
                    "|\t\t|\t\t|\t\tend\n"
                    "|\t\t|\t\tend\n"
                    "|\t\tend\nend\n");
    item.unload();
    EXPECT_EQ(shown(item), "");
    EXPECT_TRUE(item.load());
    EXPECT_EQ(dump_of(item), dump);
}

TEST(commandline_item, a_second_load_erases_nothing) {
    argument_vector const arguments({"", "-a=1"});
    commandline_item item = item_of(arguments);
    item.set("b", 2, 0);
    item.set("a", 2, 0);
    item.load();
    EXPECT_EQ(shown(item), "a=1:1 application=0:1 application.name=1: application.name.raw=1: b=1:2");
}

TEST(commandline_item, saves_nothing) {
    argument_vector const arguments({"", "-a=1"});
    commandline_item item = item_of(arguments);
    EXPECT_TRUE(item.save());
    EXPECT_TRUE(item.save(item_list()));
}

// ----------------------------------------------------------------------------------------------------------
// The program's name
// ----------------------------------------------------------------------------------------------------------

TEST(commandline_item, splits_the_name_of_the_program) {
    struct row {
        std::string path;
        std::string nodes;
    };
    row const rows[] = {
        {"tool", "application.name=1:tool application.name.raw=1:"},
        {"tool.exe",
         "application.name=1:tool.exe application.name.extention=1:exe application.name.raw=1:tool"},
        {"D:\\tools\\my.app.exe",
         "application.name=1:my.app.exe application.name.extention=1:exe application.name.raw=1:myapp"},
        // Only the backslash separates.
        {"a/b.exe", "application.name=1:a/b.exe application.name.extention=1:exe application.name.raw=1:a/b"},
        {"./tool", "application.name=1:./tool application.name.extention=1:/tool application.name.raw=1:"},
        {"../tool", "application.name=1:../tool application.name.extention=1:/tool application.name.raw=1:"},
        {"/usr/bin/tool", "application.name=1:/usr/bin/tool application.name.raw=1:"},
        {"a.b\\tool", "application.name=1:tool application.name.raw=1:"},
        {"\\tool", "application.name=1:tool application.name.raw=1:"},
        {"\\\\host\\tool.exe",
         "application.name=1:tool.exe application.name.extention=1:exe application.name.raw=1:tool"},
        // Case and blanks stay: it is a value.
        {"My Tool.EXE",
         "application.name=1:My Tool.EXE application.name.extention=1:EXE application.name.raw=1:My Tool"},
        {".tool", "application.name=1:.tool application.name.extention=1:tool application.name.raw=1:"},
        {"a..b", "application.name=1:a..b application.name.extention=1:b application.name.raw=1:a"},
        // Behind a dot at the end there is no part.
        {"tool.", "application.name=1:tool. application.name.raw=1:"},
        {"a.b.", "application.name=1:a.b. application.name.extention=1:b application.name.raw=1:a"},
        {".", "application.name=1:. application.name.raw=1:"},
        {"..", "application.name=1:.. application.name.extention=1: application.name.raw=1:"},
        // Empty names.
        {"", "application.name=1: application.name.raw=1:"},
        {"\\", "application.name=1: application.name.raw=1:"},
        {"\\\\", "application.name=1: application.name.raw=1:"},
        // Behind a backslash at the end there is no part.
        {"D:\\tools\\", "application.name=1:tools application.name.raw=1:"},
        {"tool.exe\\",
         "application.name=1:tool.exe application.name.extention=1:exe application.name.raw=1:tool"},
        {"tool.exe\\\\", "application.name=1: application.name.raw=1:"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.path);
        argument_vector const arguments({row.path});
        commandline_item item = item_of(arguments);
        EXPECT_TRUE(item.load());
        EXPECT_EQ(shown(item), "application=0:1 " + row.nodes);
    }
}

TEST(commandline_item, a_program_without_a_name_has_empty_names) {
    char const* const arguments[] = {nullptr};
    commandline_item item(0, arguments);
    EXPECT_TRUE(item.load());
    EXPECT_EQ(shown(item), "application=0:1 application.name=1: application.name.raw=1:");
}

TEST(commandline_item, loads_nothing_without_arguments) {
    for (unsigned int const count : {0U, 1U, 5U}) {
        commandline_item item(count, nullptr);
        EXPECT_TRUE(item.load());
        EXPECT_EQ(shown(item), "");
    }
}

// ----------------------------------------------------------------------------------------------------------
// Options
// ----------------------------------------------------------------------------------------------------------

TEST(commandline_item, reads_each_form_of_an_option) {
    struct row {
        texts options;
        std::string nodes;
    };
    row const rows[] = {
        {{}, ""},
        // -key$text
        {{"-x$1,2"}, "x=1:1,2"},
        {{"-x$"}, "x=1:"},
        {{"-x$a$b=c:d"}, "x=1:a$b=c:d"},
        {{"-x$", "-y"}, "x=1: y=1:"},
        {{"-$v"}, "=1:v"},
        // -key=text
        {{"-x=1"}, "x=1:1"},
        {{"-x="}, "x=1:"},
        {{"-x=", "-y"}, "x=1: y=1:"},
        {{"-x=a=b"}, "x=1:a=b"},
        {{"-x=a:b:=c==d"}, "x=1:a:b:=c==d"},
        {{"-x=a$b"}, "x=1:a$b"},
        {{"-x=$1,2"}, "x=3:nil x.0=1:$1 x.1=1:2"},
        {{"-=v"}, "=1:v"},
        // -key=elements
        {{"-x=1,2,3"}, "x=3:nil x.0=1:1 x.1=1:2 x.2=1:3"},
        {{"-x=1,"}, "x=3:nil x.0=1:1 x.1=1:"},
        {{"-x=,"}, "x=3:nil x.0=1: x.1=1:"},
        {{"-x=,1"}, "x=3:nil x.0=1: x.1=1:1"},
        {{"-x=a,,b"}, "x=3:nil x.0=1:a x.1=1: x.2=1:b"},
        {{"-x=1,2", "-y"}, "x=3:nil x.0=1:1 x.1=1:2 y=1:"},
        // -key
        {{"-x"}, "x=1:"},
        {{"/x"}, "x=1:"},
        {{"-x", "-y"}, "x=1: y=1:"},
        {{"-x", "/y"}, "x=1: y=1:"},
        {{"-"}, "=1:"},
        {{"/"}, "=1:"},
        // -key text
        {{"-x", "1"}, "x=1:1"},
        {{"-x", "1,2"}, "x=1:1,2"},
        {{"-x", "a=b"}, "x=1:a=b"},
        {{"-x", "$a"}, "x=1:$a"},
        {{"-x", ""}, "x=1:"},
        {{"-x", "1", "-y"}, "x=1:1 y=1:"},
        // -key text text ...
        {{"-x", "1", "2", "3", "-y"}, "x=3:nil x.0=1:1 x.1=1:2 x.2=1:3 y=1:"},
        {{"-x", "1", "2"}, "x=3:nil x.0=1:1 x.1=1:2"},
        {{"-x", "1", "2,3"}, "x=3:nil x.0=1:1 x.1=1:2,3"},
        {{"-x", "", ""}, "x=3:nil x.0=1: x.1=1:"},
        {{"-x", "a", "/b"}, "x=3:nil x.0=1:a x.1=1:/b"},
        {{"-x", "a", "/b", "c", "-y", "d"}, "x=3:nil x.0=1:a x.1=1:/b x.2=1:c y=1:d"},
        // An absolute path is an option.
        {{"-x", "/home/me"}, "home=0:1 home.me=1: x=1:"},
        {{"-x=/home/me"}, "x=1:/home/me"},
        {{"/x", "1"}, "x=1:1"},
        {{"/x=1"}, "x=1:1"},
        // Exactly one prefix byte is skipped.
        {{"--x=1"}, "-x=1:1"},
        {{"--x"}, "-x=1:"},
        {{"--"}, "-=1:"},
        {{"/-x=1"}, "-x=1:1"},
        {{"-/x=1"}, "=0:1 x=1:1"},
        {{"//x=1"}, "=0:1 x=1:1"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(as_text(row.options));
        loaded const result = loaded_options(row.options);
        EXPECT_EQ(result.nodes, row.nodes);
        EXPECT_EQ(result.output, "");
    }
}

TEST(commandline_item, ends_a_key_at_a_separator) {
    struct row {
        std::string option;
        std::string nodes;
    };
    row const rows[] = {
        {"-a=b", "a=1:b"},
        {"-a:b", "a=1:b"},
        {"-a:=b", "a=1:b"},
        {"-a>=b", "a>=1:b"},
        {"-a<=b", "a<=1:b"},
        {"-a+=b", "a+=1:b"},
        {"-a-=b", "a-=1:b"},
        {"-a*=b", "a*=1:b"},
        // The slash that stays on the key separates segments there; at the end it adds nothing.
        {"-a/=b", "a=1:b"},
        {"-a>=1,2", "a>=3:nil a>.0=1:1 a>.1=1:2"},
        {"-a:1,2", "a=3:nil a.0=1:1 a.1=1:2"},
        {"-a$=b", "a=1:=b"},
        {"-a=$b", "a=1:$b"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.option);
        EXPECT_EQ(loaded_options({row.option}).nodes, row.nodes);
    }
}

TEST(commandline_item, takes_every_other_token_into_the_key) {
    struct row {
        std::string option;
        std::string nodes;
    };
    row const rows[] = {
        {"-a1_b=v", "a1_b=1:v"},
        {"-a.b=v", "a=0:1 a.b=1:v"},
        {"-a/b=v", "a=0:1 a.b=1:v"},
        {"-a\\b=v", "a=0:1 a.b=1:v"},
        {"-A.Bc=V", "a=0:1 a.bc=1:V"},
        // Two equal signs in a row are no separator.
        {"-a==b", "a==b=1:"},
        {"-a==b=c", "a==b=1:c"},
        {"-a<b>c=v", "a<b>c=1:v"},
        {"-a#b=v", "a#b=1:v"},
        {"-a+b-c*d=v", "a+b-c*d=1:v"},
        {"-[a]=v", "[a]=1:v"},
        {"-a,b=v", "a,b=1:v"},
        {"-a//b=v", "a=0:1 a.=0:1 a..b=1:v"},
        {"-a*/b=v", "a*=0:1 a*.b=1:v"},
        {"-a\tb=v", "a\tb=1:v"},
        {"-a\nb=v", "a\nb=1:v"},
        {"-a\r\nb=v", "a\nb=1:v"},
        {"-a\rb=v", "a\rb=1:v"},
        {"-\"a=b\"=v", "a=b=1:v"},
        {"-\"a$b\"=v", "a$b=1:v"},
        {"-a\"$\"=v", "a$=1:v"},
        {"-a\"=\"$v", "a==1:v"},
        {"-\"A b\"=v", "a b=1:v"},
        {"-\xC3\xA4=v", "\xC3\xA4=1:v"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.option);
        EXPECT_EQ(loaded_options({row.option}).nodes, row.nodes);
    }
}

TEST(commandline_item, takes_every_token_into_a_value) {
    struct row {
        std::string value;
        std::string text;
    };
    row const rows[] = {
        {"D:\\files\\a.txt", "D:\\files\\a.txt"},
        {"http://host/#top", "http://host/#top"},
        {"[a]<b>{c}", "[a]<b>{c}"},
        {"a>=b<=c==d:=e+=f-=g*=h/=i", "a>=b<=c==d:=e+=f-=g*=h/=i"},
        {"a*/b/*c//d", "a*/b/*c//d"},
        {"1.5e-3", "1.5e-3"},
        {"a\tb", "a\tb"},
        {"a\r\nb\nc\rd", "a\nb\nc\rd"},
        {"\"a b\"", "a b"},
        {"\"a, b\"", "a, b"},
        {"x\"a b\"y", "xa by"},
        {"\"a\\\"b\"", "a\\\"b"},
        {"\"a b", "a b"},
        {"\xE2\x82\xAC", "\xE2\x82\xAC"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(loaded_options({"-k=" + row.value}).nodes, "k=1:" + row.text);
        EXPECT_EQ(loaded_options({"-k$" + row.value}).nodes, "k=1:" + row.text);
        EXPECT_EQ(loaded_options({"-k", row.value}).nodes, "k=1:" + row.text);
        EXPECT_EQ(loaded_options({"-k", "1", row.value}).nodes, "k=3:nil k.0=1:1 k.1=1:" + row.text);
        EXPECT_EQ(loaded_options({"-k=1," + row.value}).nodes, "k=3:nil k.0=1:1 k.1=1:" + row.text);
    }
}

TEST(commandline_item, a_string_with_a_comma_is_one_element) {
    EXPECT_EQ(loaded_options({"-k=\"a,b\",c"}).nodes, "k=3:nil k.0=1:a,b k.1=1:c");
    EXPECT_EQ(loaded_options({"-k=\",\""}).nodes, "k=1:,");
}

// Blanks have no text: the token in front of them counts once more, if it is read by the same loop.
TEST(commandline_item, repeats_the_token_in_front_of_blanks) {
    struct row {
        texts options;
        std::string nodes;
    };
    row const rows[] = {
        {{"-a b"}, "aab=1:"},
        {{"-a b=c"}, "aab=1:c"},
        {{"-a   b=c"}, "aab=1:c"},
        {{"-a "}, "aa=1:"},
        {{"- a"}, "a=1:"},
        {{"-a.b c=v"}, "a=0:1 a.bbc=1:v"},
        {{"-k=a b"}, "k=1:aab"},
        {{"-k=ab1 c"}, "k=1:ab11c"},
        {{"-k=a b c"}, "k=1:aabbc"},
        {{"-k=a "}, "k=1:aa"},
        {{"-k=\"a b\" c"}, "k=1:a ba bc"},
        {{"-k$a b"}, "k=1:aab"},
        {{"-k", "a b"}, "k=1:aab"},
        {{"-k", "a b", "c d"}, "k=3:nil k.0=1:aab k.1=1:ccd"},
        // A comma is repeated as text: the token is one of blanks.
        {{"-k=a, b"}, "k=3:nil k.0=1:a k.1=1:,b"},
        {{"-k=a ,b"}, "k=3:nil k.0=1:aa k.1=1:b"},
        {{"-k$a, b"}, "k=1:a,,b"},
        // Nothing crosses from a key into its value, nor from one argument into the next.
        {{"-k= a"}, "k=1:a"},
        {{"-k$ a"}, "k=1:a"},
        {{"-k = a"}, "kk=1:a"},
        {{"-k", " a"}, "k=1:a"},
        {{"-k", "a", " b"}, "k=3:nil k.0=1:a k.1=1:b"},
        {{"-k", "a ", " b"}, "k=3:nil k.0=1:aa k.1=1:b"},
        {{"-k= "}, "k=1:"},
        {{"-k", " "}, "k=1:"},
        {{"- "}, "=1:"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(as_text(row.options));
        loaded const result = loaded_options(row.options);
        EXPECT_EQ(result.nodes, row.nodes);
        EXPECT_EQ(result.output, "");
    }
}

// It goes through the text form of `set`, which splits and drops blanks.
TEST(commandline_item, cuts_the_key_without_a_value_into_tokens_once_more) {
    struct row {
        std::string option;
        std::string nodes;
    };
    row const rows[] = {
        {"-\"a=b\"", "a=1:b"},
        {"-\"a b\"", "ab=1:"},
        {"-\"a b\"=", "a b=1:"},
        {"-\"a=b c\nd\"", "a=1:bc"},
        {"-\"a\\\"b = c\\\"\"", "a=0:1 a.b = c=0:1 a.b = c.\"=1:"},
        {"-\"=b\"", "=1:b"},
        {"-a\"b", "ab=1:"},
        {"-a\tb", "ab=1:"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.option);
        EXPECT_EQ(loaded_options({row.option}).nodes, row.nodes);
    }
}

TEST(commandline_item, warns_of_what_is_no_option_and_goes_on) {
    struct row {
        texts options;
        std::string nodes;
        std::string output;
    };
    row const rows[] = {
        {{"foo"}, "", warning("foo")},
        {{"-a", "foo"}, "a=1:foo", ""},
        {{"foo", "-a"}, "a=1:", warning("foo")},
        {{"foo", "bar", "-a=1", "baz"}, "a=1:1", warning("foo") + warning("bar") + warning("baz")},
        {{"-a=", "foo"}, "a=1:", warning("foo")},
        {{"-a$", "foo"}, "a=1:", warning("foo")},
        {{"a=1"}, "", warning("a=1")},
        {{"a b \"c\""}, "", warning("a b \"c\"")},
        {{""}, "", warning("")},
        {{" -a"}, "", warning(" -a")},
        {{"\\a"}, "", warning("\\a")},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(as_text(row.options));
        loaded const result = loaded_options(row.options);
        EXPECT_EQ(result.nodes, row.nodes);
        EXPECT_EQ(result.output, row.output);
    }
}

TEST(commandline_item, the_warning_has_this_text) {
    EXPECT_EQ(loaded_options({"foo"}).output, "Warning! unknown key:foo\nIgnoring key and continuing\n");
}

TEST(commandline_item, the_last_of_two_options_wins) {
    EXPECT_EQ(loaded_options({"-a=1", "-a=2"}).nodes, "a=1:2");
    EXPECT_EQ(loaded_options({"-a=1", "-A"}).nodes, "a=1:");
    EXPECT_EQ(loaded_options({"-a.b=1", "-a=2"}).nodes, "a=1:2 a.b=1:1");
    // An array leaves the higher elements of a longer one.
    EXPECT_EQ(loaded_options({"-a=1,2,3", "-a=4,5"}).nodes, "a=3:nil a.0=1:4 a.1=1:5 a.2=1:3");
    EXPECT_EQ(loaded_options({"-a=1,2", "-a=3"}).nodes, "a=1:3 a.0=1:1 a.1=1:2");
}

TEST(commandline_item, an_option_can_replace_the_name_of_the_program) {
    argument_vector const arguments({"tool.exe", "-application.name.raw=other"});
    commandline_item item = item_of(arguments);
    item.load();
    EXPECT_EQ(item.get_value("application.name.raw")->second.as_string(), "other");
}

TEST(commandline_item, stores_texts) {
    argument_vector const arguments({"tool.exe", "-a=1", "-b$1", "-c", "1", "-d=1,2", "-e", "1", "2", "-f"});
    commandline_item item = item_of(arguments);
    item.load();
    for (char const* const key : {"application.name", "application.name.extention", "application.name.raw",
                                  "a", "b", "c", "d.0", "d.1", "e.0", "e.1"}) {
        SCOPED_TRACE(key);
        EXPECT_EQ(item.get_value(key)->second.type(), typeid(std::string));
    }
    EXPECT_EQ(item.get_value("f")->second.type(), typeid(ustring8));
    EXPECT_EQ(item.get_value("d")->second, types::nil);
}

TEST(commandline_item, reads_no_further_than_the_count_and_the_null_pointer) {
    char const* const arguments[] = {"", "-a", "b", nullptr, "-c"};
    struct row {
        unsigned int count;
        std::string nodes;
    };
    row const rows[] = {
        {0, ""}, {1, ""}, {2, "a=1: "}, {3, "a=1:b "}, {4, "a=1:b "}, {5, "a=1:b "}, {4294967295U, "a=1:b "},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.count);
        commandline_item item(row.count, arguments);
        EXPECT_TRUE(item.load());
        EXPECT_EQ(shown(item), row.nodes + "application=0:1 application.name=1: application.name.raw=1:");
    }
}

TEST(commandline_item, reads_the_arguments_when_it_is_loaded) {
    std::string option = "-a=1";
    char const* const arguments[] = {"", option.c_str(), nullptr};
    commandline_item item(2, arguments);
    item.load();
    option[3] = '2';
    EXPECT_EQ(item.get_value("a")->second.as_string(), "1");
    item.load();
    EXPECT_EQ(item.get_value("a")->second.as_string(), "2");
}

} // namespace
