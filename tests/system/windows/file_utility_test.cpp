// What only a Windows file system has: the backslash, drives, names in UTF-16, files that others have open.

#include "veldrin/system/file_utility.hpp"

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/temporary_working_directory.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/system/io.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

class windows_files : public testing::Test {
protected:
    support::temporary_working_directory directory;
};

TEST_F(windows_files, create_directory_takes_the_backslash_alone_for_a_separator) {
    EXPECT_FALSE(system::create_directory("a/b/c"));
    EXPECT_FALSE(system::io::exists("a"));
    EXPECT_TRUE(system::create_directory("a\\b\\c"));
    EXPECT_TRUE(system::create_directory("a/b/d"));
    EXPECT_TRUE(system::io::is_directory("a\\b\\d"));
}

TEST_F(windows_files, create_directory_passes_by_the_drive) {
    ustring8 const path = directory->path("x\\y\\z");
    EXPECT_EQ(path.substr(1, 2), ":\\");
    EXPECT_TRUE(system::create_directory(path));
    EXPECT_TRUE(system::io::is_directory("x\\y\\z"));
}

TEST_F(windows_files, lists_join_by_the_backslash) {
    directory->file("top/one/file");
    EXPECT_EQ(system::list_directory(ustring8("top")), std::vector<ustring8>{"top\\one"});
    EXPECT_EQ(system::list_directory(ustring8("top/one")), std::vector<ustring8>{"top/one\\file"});
    std::vector<ustring8> files;
    system::get_directory_files(ustring8("top"), files);
    EXPECT_EQ(files, std::vector<ustring8>{"top\\one\\file"});
}

TEST_F(windows_files, one_entry_has_one_name_in_three_forms) {
    EXPECT_EQ(system::store_file(support::utf16({0xE9, 0x65E5, 0xD83D, 0xDE00}), "text"), 0);
    ustring8 text;
    EXPECT_EQ(system::load_file(ustring8("\xC3\xA9\xE6\x97\xA5\xF0\x9F\x98\x80"), text), 0);
    EXPECT_EQ(text, "text");
    EXPECT_EQ(system::store_file(support::utf32({0xE9, 0x65E5}), "more"), 0);
    EXPECT_EQ(system::load_file(support::utf16({0xE9, 0x65E5}), text), 0);
    EXPECT_EQ(text, "more");
}

TEST_F(windows_files, lists_give_each_name_in_the_form_of_the_list) {
    directory->file("top/\xC3\xA9\xF0\x9F\x98\x80");
    ustring16 const units = support::utf16({'t', 'o', 'p', 0x5C, 0xE9, 0xD83D, 0xDE00});
    EXPECT_EQ(system::list_directory(ustring8("top")),
              std::vector<ustring8>{"top\\\xC3\xA9\xF0\x9F\x98\x80"});
    EXPECT_EQ(system::list_directory(support::utf16({'t', 'o', 'p'})), std::vector<ustring16>{units});
    EXPECT_EQ(system::list_directory(support::utf32({'t', 'o', 'p'})),
              std::vector<ustring32>{support::utf32({'t', 'o', 'p', 0x5C, 0xE9, 0x1F600})});
}

TEST_F(windows_files, names_are_the_same_in_any_case) {
    directory->file("File", "text");
    EXPECT_TRUE(system::io::is_file("fILE"));
    ustring8 text;
    EXPECT_EQ(system::load_file(ustring8("FILE"), text), 0);
    EXPECT_EQ(text, "text");
}

TEST_F(windows_files, a_walk_does_not_follow_a_link_back_to_where_it_is) {
    ustring8 const linked = VELDRIN_LINKED_DIRECTORY;
    EXPECT_TRUE(system::io::is_file(linked + "\\one\\up\\one\\file"));
    std::vector<ustring8> files;
    system::get_directory_files(linked, files);
    EXPECT_EQ(files, std::vector<ustring8>{linked + "\\one\\file"});
}

TEST_F(windows_files, nobody_is_shut_out) {
    std::ofstream writer("log", std::ios::binary);
    writer << "one" << std::flush;
    ustring8 text;
    EXPECT_EQ(system::load_file(ustring8("log"), text), 0);
    EXPECT_EQ(text, "one");
    EXPECT_EQ(system::store_file(ustring8("log"), "four"), 0);
    EXPECT_EQ(system::load_file(ustring8("log"), text), 0);
    EXPECT_EQ(text, "four");
}

} // namespace
