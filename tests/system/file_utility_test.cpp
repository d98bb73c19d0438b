#include "veldrin/system/file_utility.hpp"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using support::joined;

namespace fs = std::filesystem;

template <class Text>
class file_utility : public testing::Test {
protected:
    static Text path(std::string_view ascii) { return support::text_of<Text>(ascii); }

    static std::vector<Text> sorted(std::vector<Text> paths) {
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    support::temporary_working_directory directory;
};

using text_classes = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(file_utility, text_classes);

std::string all_bytes() {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    return bytes;
}

// Byte-order mark, line ends of all kinds, an end-of-text mark, and bytes that are no UTF-8.
std::string const odd_bytes = "\xEF\xBB\xBF" + all_bytes() + "\r\n\n\r\x1A" + std::string(3, '\0');

TYPED_TEST(file_utility, load_file_gives_the_bytes_as_they_are) {
    this->directory->file("file", odd_bytes);
    ustring8 text;
    EXPECT_EQ(system::load_file(this->path("file"), text), 0);
    EXPECT_EQ(text, odd_bytes);
    std::string bytes;
    EXPECT_EQ(system::load_file(this->path("file"), bytes), 0);
    EXPECT_EQ(bytes, odd_bytes);
}

TYPED_TEST(file_utility, load_file_replaces_what_was_there) {
    this->directory->file("short", "ab");
    this->directory->file("long", "abcdefghijklmnopqrstuvwxyz, and on and on");
    this->directory->file("empty");
    ustring8 text = "earlier text";
    EXPECT_EQ(system::load_file(this->path("short"), text), 0);
    EXPECT_EQ(text, "ab");
    EXPECT_EQ(system::load_file(this->path("long"), text), 0);
    EXPECT_EQ(text, "abcdefghijklmnopqrstuvwxyz, and on and on");
    EXPECT_EQ(system::load_file(this->path("empty"), text), 0);
    EXPECT_EQ(text, "");
    std::string bytes = "earlier bytes";
    EXPECT_EQ(system::load_file(this->path("empty"), bytes), 0);
    EXPECT_EQ(bytes, "");
}

TYPED_TEST(file_utility, load_file_reports_what_cannot_be_opened) {
    this->directory->directory("directory");
    this->directory->file("file", "text");
    for (std::string const& bad : {std::string("missing"), std::string("directory"), std::string("."),
                                   joined("missing", "file"), std::string(), std::string("file\0", 5)}) {
        ustring8 text = "earlier text";
        EXPECT_EQ(system::load_file(this->path(bad), text), 1) << bad;
        EXPECT_EQ(text, "earlier text") << bad;
        std::string bytes = "earlier bytes";
        EXPECT_EQ(system::load_file(this->path(bad), bytes), 1) << bad;
        EXPECT_EQ(bytes, "earlier bytes") << bad;
    }
}

// The size is kept in 32 bits with a sign, so these are longer than any string.
TYPED_TEST(file_utility, load_file_of_2_to_4_gib_ends_in_the_failure_of_the_string) {
    for (std::uintmax_t const size : {0x80000000u, 0xC0000000u, 0xFFFFFFFFu}) {
        this->directory->file("file");
        fs::resize_file("file", size);
        ustring8 text = "earlier text";
        EXPECT_THROW(system::load_file(this->path("file"), text), std::length_error) << size;
        EXPECT_EQ(text, "earlier text");
        std::string bytes;
        EXPECT_THROW(system::load_file(this->path("file"), bytes), std::length_error) << size;
    }
}

TYPED_TEST(file_utility, store_file_writes_the_bytes_as_they_are) {
    EXPECT_EQ(system::store_file(this->path("file"), odd_bytes), 0);
    EXPECT_EQ(support::bytes_of("file"), odd_bytes);
    ustring8 text;
    EXPECT_EQ(system::load_file(this->path("file"), text), 0);
    EXPECT_EQ(text, odd_bytes);
}

TYPED_TEST(file_utility, store_file_replaces_what_was_there) {
    this->directory->file("file", "a long earlier text");
    EXPECT_EQ(system::store_file(this->path("file"), "ab"), 0);
    EXPECT_EQ(support::bytes_of("file"), "ab");
    EXPECT_EQ(system::store_file(this->path("file"), ""), 0);
    EXPECT_EQ(fs::file_size("file"), 0u);
}

TYPED_TEST(file_utility, store_file_reports_what_cannot_be_opened) {
    this->directory->directory("directory");
    for (std::string const& bad :
         {joined("missing", "file"), std::string("directory"), std::string(), std::string("file\0", 5)}) {
        EXPECT_EQ(system::store_file(this->path(bad), "text"), 1) << bad;
    }
    EXPECT_FALSE(fs::exists("missing"));
    EXPECT_FALSE(fs::exists("file"));
}

TYPED_TEST(file_utility, have_read_access_is_for_what_exists) {
    this->directory->file("file");
    this->directory->directory("directory");
    EXPECT_TRUE(system::have_read_access(this->path("file")));
    EXPECT_TRUE(system::have_read_access(this->path("directory")));
    EXPECT_FALSE(system::have_read_access(this->path("missing")));
    EXPECT_FALSE(system::have_read_access(this->path("")));
    EXPECT_FALSE(system::have_read_access(this->path({"file\0", 5})));
}

TYPED_TEST(file_utility, create_directory_makes_the_whole_chain) {
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "b", "c"))));
    EXPECT_TRUE(fs::is_directory("a/b/c"));
    // All levels but the last exist, and then all of them.
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "b", "d"))));
    EXPECT_TRUE(fs::is_directory("a/b/d"));
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "b", "d"))));
    EXPECT_TRUE(system::create_directory(this->path("e")));
    EXPECT_TRUE(fs::is_directory("e"));
    EXPECT_TRUE(system::create_directory(this->path(this->directory->path(joined("f", "g")))));
    EXPECT_TRUE(fs::is_directory("f/g"));
}

TYPED_TEST(file_utility, create_directory_takes_a_trailing_separator) {
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "b", "c", ""))));
    EXPECT_TRUE(fs::is_directory("a/b/c"));
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "b", "c", ""))));
    EXPECT_TRUE(system::create_directory(this->path(joined("a", "", "d"))));
    EXPECT_TRUE(fs::is_directory("a/d"));
}

TYPED_TEST(file_utility, create_directory_cannot_make_a_level_behind_a_second_trailing_separator) {
    EXPECT_FALSE(system::create_directory(this->path(joined("a", "b", "", ""))));
    EXPECT_TRUE(fs::is_directory("a/b"));
}

TYPED_TEST(file_utility, create_directory_tells_that_the_last_level_could_not_be_made) {
    this->directory->file("file", "text");
    EXPECT_FALSE(system::create_directory(this->path("")));
    EXPECT_FALSE(system::create_directory(this->path("file")));
    EXPECT_FALSE(system::create_directory(this->path(joined("file", "a"))));
    EXPECT_FALSE(system::create_directory(this->path(joined("a", "b", "..", "..", "file"))));
    EXPECT_TRUE(fs::is_directory("a/b"));
    EXPECT_EQ(support::bytes_of("file"), "text");
}

TYPED_TEST(file_utility, get_directory_files_goes_down_into_all_directories) {
    this->directory->file("top/one");
    this->directory->file("top/.hidden");
    this->directory->file("top/a/b/two");
    this->directory->file("top/a/three.xmc");
    this->directory->directory("top/empty");
    this->directory->file("beside");
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(this->sorted(files),
              this->sorted({this->path(joined("top", "one")), this->path(joined("top", ".hidden")),
                            this->path(joined("top", "a", "b", "two")),
                            this->path(joined("top", "a", "three.xmc"))}));
}

TYPED_TEST(file_utility, get_directory_files_appends) {
    this->directory->file("top/file");
    std::vector<TypeParam> files = {this->path("earlier")};
    system::get_directory_files(this->path("top"), files);
    system::get_directory_files(this->path(joined("top", "")), files);
    EXPECT_EQ(files, (std::vector<TypeParam>{this->path("earlier"), this->path(joined("top", "file")),
                                             this->path(joined("top", "", "file"))}));
    // The directory may be an element of the list.
    files = {this->path("top")};
    files.shrink_to_fit();
    system::get_directory_files(files.front(), files);
    EXPECT_EQ(files, (std::vector<TypeParam>{this->path("top"), this->path(joined("top", "file"))}));
}

TYPED_TEST(file_utility, get_directory_files_of_no_directory_changes_nothing) {
    this->directory->file("file");
    for (std::string_view const bad :
         {std::string_view("missing"), std::string_view("file"), std::string_view(".\0", 2)}) {
        std::vector<TypeParam> files = {this->path("earlier")};
        system::get_directory_files(this->path(bad), files);
        EXPECT_EQ(files, std::vector<TypeParam>{this->path("earlier")}) << bad;
    }
}

TYPED_TEST(file_utility, list_directory_of_no_directory_is_empty) {
    this->directory->file("file");
    EXPECT_EQ(system::list_directory(this->path("missing")), std::vector<TypeParam>());
    EXPECT_EQ(system::list_directory(this->path("file")), std::vector<TypeParam>());
    EXPECT_EQ(system::list_directory(this->path({".\0", 2})), std::vector<TypeParam>());
    this->directory->directory("empty");
    EXPECT_EQ(system::list_directory(this->path("empty")), std::vector<TypeParam>());
}

TYPED_TEST(file_utility, list_directory_gives_one_level) {
    this->directory->file("top/directory/inner");
    this->directory->file("top/file");
    std::vector<TypeParam> const entries = system::list_directory(this->path("top"));
    // One of the two may have been the first entry that the system delivered.
    EXPECT_GE(entries.size(), 1u);
    for (TypeParam const& entry : entries) {
        EXPECT_TRUE(entry == this->path(joined("top", "directory")) ||
                    entry == this->path(joined("top", "file")));
    }
}

} // namespace
