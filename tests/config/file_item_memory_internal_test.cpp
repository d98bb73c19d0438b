// Files that no one would write: they load, in memory that grows with their size, and on an ordinary stack.

#include <cstddef>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "support/memory_in_use.hpp"
#include "support/temporary_directory.hpp"
#include "veldrin/config/file_item.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_tree;
using config::file_item;
using strings::ustring8;

constexpr std::size_t million = 1000000;

std::string repeated(std::string_view text, std::size_t size) {
    std::string result;
    result.reserve(size + text.size());
    while (result.size() < size) {
        result += text;
    }
    return result;
}

class hostile_file : public testing::Test {
protected:
    // Loads a file of that text; its memory may be so many times its size.
    void load(std::string const& text, std::size_t factor) {
        directory.file("test.cfg", text);
        item.unload();
        EXPECT_LT(support::peak_memory_of([&] { EXPECT_TRUE(item.load()); }), text.size() * factor);
    }

    std::size_t count_of_nodes() {
        config_tree::entry_list entries;
        item.get_value_pair_array("", entries, true);
        return entries.size();
    }

    support::temporary_directory const directory;
    file_item item{ustring8(directory.path("test.cfg"))};
};

// A segment takes one byte of the file and a node of the tree.
TEST_F(hostile_file, a_key_of_a_million_separators) {
    for (char const separator : {'.', '/', '\\'}) {
        SCOPED_TRACE(separator);
        std::string const key = "a" + std::string(million, separator) + "b";
        load(key + " = 1", 500);
        ASSERT_NE(item.get_value(key), nullptr);
        EXPECT_EQ(item.get_value(key)->second.as_string(), "1");
    }
    item.unload();
    EXPECT_EQ(item.get_value("a"), nullptr);
}

TEST_F(hostile_file, a_section_of_a_million_separators) {
    std::string const name = "s" + std::string(million, '.');
    load("[" + name + "]\na[] = 1, 2\n", 500);
    ASSERT_NE(item.get_value(name + ".a.1"), nullptr);
    EXPECT_EQ(item.get_value(name + ".a.1")->second.as_string(), "2");
}

TEST_F(hostile_file, texts_of_a_megabyte) {
    std::string const text = repeated("x", million);
    load(text + " = 1", 10);
    ASSERT_NE(item.get_value(text), nullptr);
    load("[" + text + "]\na = 1", 10);
    ASSERT_NE(item.get_value(text + ".a"), nullptr);
    load("a = " + text, 10);
    EXPECT_EQ(item.get_value("a")->second.as_string(), text);
    load("a[] = " + text + "," + text, 10);
    EXPECT_EQ(item.get_value("a.1")->second.as_string(), text);
    load("# " + text + "\na = 1", 10);
    EXPECT_EQ(count_of_nodes(), 1U);
}

// Else a file of two megabytes could keep a program busy for hours.
TEST_F(hostile_file, a_long_name_is_not_written_again_for_each_key_and_element) {
    std::string const long_name = repeated("x", million);
    std::string const deep_name(million, '.');
    for (std::string const& name : {long_name, deep_name}) {
        for (char const* const statement : {"a=1\n", "a[]=1\n", "\"[]\"=1\n", "a[]=1,\"\"\nb[]=2\n"}) {
            SCOPED_TRACE(statement);
            std::string const text = "[" + name + "]\n" + repeated(statement, 10000);
            directory.file("test.cfg", text);
            item.unload();
            EXPECT_LT(support::memory_taken_by([&] { item.load(); }), text.size() * 500);
        }
        std::string const text = name + "x[]=" + repeated("1,", 10000) + "1";
        directory.file("test.cfg", text);
        item.unload();
        EXPECT_LT(support::memory_taken_by([&] { item.load(); }), text.size() * 500);
        EXPECT_EQ(item.get_value(name + "x.5000")->second.as_string(), "1");
    }
}

TEST_F(hostile_file, strings_that_never_end) {
    std::string const text = repeated("x\n", million);
    load("a = \"" + text, 10);
    EXPECT_EQ(item.get_value("a")->second.as_string(), text);
    load("\"" + text, 10);
    EXPECT_EQ(count_of_nodes(), 0U);
    load("[\"" + text, 10);
    EXPECT_EQ(count_of_nodes(), 0U);
    load("# \"" + text, 10);
    EXPECT_EQ(count_of_nodes(), 0U);
    load(repeated("\"", million + 1), 10);
    EXPECT_EQ(count_of_nodes(), 0U);
    load("a = \"" + repeated("\\", million), 10);
    EXPECT_EQ(item.get_value("a")->second.as_string(), repeated("\\", million));
}

TEST_F(hostile_file, zero_bytes) {
    std::string const zeros(million, '\0');
    load(zeros, 10);
    EXPECT_EQ(count_of_nodes(), 0U);
    load(zeros + "=" + zeros, 10);
    ASSERT_NE(item.get_value(zeros), nullptr);
    EXPECT_EQ(item.get_value(zeros)->second.as_string(), zeros);
}

TEST_F(hostile_file, ten_megabytes_of_brackets) {
    for (char const* const brackets : {"[", "]", "[]", "][", "[[]]", "[]\n"}) {
        SCOPED_TRACE(brackets);
        load(repeated(brackets, 10 * million), 10);
        EXPECT_EQ(count_of_nodes(), 0U);
    }
}

TEST_F(hostile_file, a_million_times_the_same) {
    struct row {
        std::string_view text;
        std::size_t nodes;
    };
    row const rows[] = {
        {"=", 0},           {"= ", 0},   {",", 0},     {"#", 0},      {"//", 0},
        {"# \n", 0},        {"\n", 0},   {"\r", 0},    {" ", 0},      {"\t", 0},
        {"\\", 0},          {"*/", 0},   {".", 0},     {"a[]=\n", 0}, {"$", 0},
        {"a[]=,\"\"\n", 0}, {"a=\n", 0}, {"a=1\n", 1}, {"[s]\n", 0},  {"[s]a=1\n", 2},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(row.text);
        load(repeated(row.text, million), 500);
        EXPECT_EQ(count_of_nodes(), row.nodes);
    }
}

// An element takes one byte of the file and a node of the tree.
TEST_F(hostile_file, an_array_of_a_million_elements) {
    load("a[] = " + std::string(million, ',') + "x", 1000);
    ASSERT_NE(item.get_value("a.1000000"), nullptr);
    EXPECT_EQ(item.get_value("a.1000000")->second.as_string(), "x");
    EXPECT_EQ(item.get_value("a.999999")->second.as_string(), "");
}

} // namespace
