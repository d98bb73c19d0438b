#include "veldrin/system/io.hpp"

#include <filesystem>
#include <string_view>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

namespace fs = std::filesystem;

template <class Text>
class io : public testing::Test {
protected:
    static Text path(std::string_view ascii) { return support::text_of<Text>(ascii); }

    support::temporary_working_directory directory;
};

using text_classes = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(io, text_classes);

TYPED_TEST(io, tests_tell_files_and_directories_apart) {
    this->directory->file("file");
    this->directory->directory("directory");
    struct {
        std::string_view path;
        bool exists;
        bool is_directory;
        bool is_file;
    } const cases[] = {
        {"file", true, false, true}, {"directory", true, true, false}, {".", true, true, false},
        {"..", true, true, false},   {"missing", false, false, false}, {"", false, false, false},
    };
    for (auto const& current : cases) {
        EXPECT_EQ(system::io::exists(this->path(current.path)), current.exists) << current.path;
        EXPECT_EQ(system::io::is_directory(this->path(current.path)), current.is_directory) << current.path;
        EXPECT_EQ(system::io::is_file(this->path(current.path)), current.is_file) << current.path;
    }
    EXPECT_TRUE(system::io::is_file(this->path(support::joined("directory", "..", "file"))));
    EXPECT_TRUE(system::io::is_file(this->path(this->directory->path("file"))));
}

TYPED_TEST(io, mkdir_makes_one_level_only) {
    system::io::mkdir(this->path("a"));
    EXPECT_TRUE(fs::is_directory("a"));
    system::io::mkdir(this->path(support::joined("b", "c")));
    EXPECT_FALSE(fs::exists("b"));
    system::io::mkdir(this->path(support::joined("a", "c")));
    EXPECT_TRUE(fs::is_directory("a/c"));
}

TYPED_TEST(io, mkdir_leaves_what_exists) {
    this->directory->file("file", "text");
    this->directory->file("directory/file");
    system::io::mkdir(this->path("file"));
    system::io::mkdir(this->path("directory"));
    system::io::mkdir(this->path(""));
    EXPECT_EQ(support::bytes_of("file"), "text");
    EXPECT_TRUE(fs::exists("directory/file"));
}

TYPED_TEST(io, move_takes_the_new_name_first) {
    this->directory->file("old", "text");
    system::io::move(this->path("new"), this->path("old"));
    EXPECT_FALSE(fs::exists("old"));
    EXPECT_EQ(support::bytes_of("new"), "text");
    // With the parameters swapped it goes the other way.
    system::io::move(this->path("old"), this->path("new"));
    EXPECT_FALSE(fs::exists("new"));
    EXPECT_EQ(support::bytes_of("old"), "text");
}

TYPED_TEST(io, move_takes_directories_and_what_is_in_them) {
    this->directory->file("old/inner/file", "text");
    this->directory->directory("place");
    system::io::move(this->path(support::joined("place", "new")), this->path("old"));
    EXPECT_FALSE(fs::exists("old"));
    EXPECT_EQ(support::bytes_of("place/new/inner/file"), "text");
}

TYPED_TEST(io, move_never_replaces_an_entry) {
    this->directory->file("one", "1");
    this->directory->file("two", "2");
    this->directory->directory("empty");
    this->directory->directory("other");
    system::io::move(this->path("one"), this->path("two"));
    system::io::move(this->path("empty"), this->path("one"));
    system::io::move(this->path("one"), this->path("empty"));
    system::io::move(this->path("empty"), this->path("other"));
    EXPECT_EQ(support::bytes_of("one"), "1");
    EXPECT_EQ(support::bytes_of("two"), "2");
    EXPECT_TRUE(fs::is_directory("empty"));
    EXPECT_TRUE(fs::is_directory("other"));
}

TYPED_TEST(io, move_ignores_what_cannot_be_done) {
    this->directory->file("file", "text");
    system::io::move(this->path("new"), this->path("missing"));
    system::io::move(this->path(support::joined("missing", "new")), this->path("file"));
    system::io::move(this->path(""), this->path("file"));
    system::io::move(this->path("new"), this->path(""));
    EXPECT_EQ(support::bytes_of("file"), "text");
    EXPECT_FALSE(fs::exists("new"));
}

TYPED_TEST(io, remove_file_removes_files_only) {
    this->directory->file("file");
    this->directory->directory("empty");
    system::io::remove_file(this->path("file"));
    system::io::remove_file(this->path("empty"));
    system::io::remove_file(this->path("missing"));
    system::io::remove_file(this->path(""));
    EXPECT_FALSE(fs::exists("file"));
    EXPECT_TRUE(fs::is_directory("empty"));
}

TYPED_TEST(io, remove_dir_removes_empty_directories_only) {
    this->directory->file("file");
    this->directory->directory("empty");
    this->directory->file("full/file");
    system::io::remove_dir(this->path("file"));
    system::io::remove_dir(this->path("empty"));
    system::io::remove_dir(this->path("full"));
    system::io::remove_dir(this->path("missing"));
    system::io::remove_dir(this->path(""));
    EXPECT_TRUE(fs::exists("file"));
    EXPECT_FALSE(fs::exists("empty"));
    EXPECT_TRUE(fs::exists("full/file"));
}

TYPED_TEST(io, a_path_with_a_zero_unit_names_nothing) {
    this->directory->file("file", "text");
    this->directory->directory("directory");
    TypeParam const file = this->path({"file\0.txt", 9});
    TypeParam const folder = this->path({"directory\0", 10});
    EXPECT_FALSE(system::io::exists(file));
    EXPECT_FALSE(system::io::is_file(file));
    EXPECT_FALSE(system::io::is_directory(folder));
    system::io::remove_file(file);
    system::io::remove_dir(folder);
    system::io::move(this->path("new"), file);
    system::io::move(this->path({"new\0", 4}), this->path("file"));
    system::io::mkdir(this->path({"made\0", 5}));
    EXPECT_EQ(support::bytes_of("file"), "text");
    EXPECT_TRUE(fs::exists("directory"));
    EXPECT_FALSE(fs::exists("new"));
    EXPECT_FALSE(fs::exists("made"));
}

// The converters answer bad text by the text "-1": the file of that name must not be meant.
TYPED_TEST(io, a_file_may_be_called_minus_one) {
    this->directory->file("-1");
    EXPECT_TRUE(system::io::is_file(this->path("-1")));
    system::io::remove_file(this->path("-1"));
    EXPECT_FALSE(fs::exists("-1"));
}

TEST(io_bad_paths, name_nothing) {
    support::temporary_working_directory directory;
    directory->file("-1", "text");
    directory->file("A", "text");
    for (ustring32 const& bad : {support::utf32({0xD800}), support::utf32({0x41, 0xDFFF}),
                                 support::utf32({0x41, 0x110000}), support::utf32({0xFFFFFFFF})}) {
        EXPECT_FALSE(system::io::exists(bad));
        EXPECT_FALSE(system::io::is_file(bad));
        system::io::remove_file(bad);
        system::io::move(support::text_of<ustring32>("new"), bad);
        system::io::move(bad, support::text_of<ustring32>("A"));
        system::io::mkdir(bad);
    }
    EXPECT_EQ(support::bytes_of("-1"), "text");
    EXPECT_EQ(support::bytes_of("A"), "text");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 2);
}

} // namespace
