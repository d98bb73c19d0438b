// What only a POSIX file system has: links, pipes, sockets, mode bits, names of any bytes, and descriptors to
// lose.

#include "veldrin/system/file_utility.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <dirent.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"
#include "support/unit_texts.hpp"
#include "veldrin/strings/unicode.hpp"
#include "veldrin/system/io.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

namespace fs = std::filesystem;

class posix_files : public testing::Test {
protected:
    support::temporary_working_directory directory;
};

std::vector<ustring8> files_below(ustring8 const& path) {
    std::vector<ustring8> files;
    system::get_directory_files(path, files);
    return files;
}

template <class Text>
std::vector<Text> sorted(std::vector<Text> paths) {
    std::sort(paths.begin(), paths.end());
    return paths;
}

// As the system delivers them.
std::vector<std::string> names_in(char const* path) {
    std::vector<std::string> names;
    DIR* const stream = ::opendir(path);
    while (dirent const* const entry = ::readdir(stream)) {
        names.emplace_back(entry->d_name);
    }
    ::closedir(stream);
    return names;
}

std::size_t open_descriptors() { return names_in("/proc/self/fd").size(); }

// ------------------------------------------------------------------------------------------------------------
// Kinds of entries
// ------------------------------------------------------------------------------------------------------------

TEST_F(posix_files, a_file_is_a_regular_file) {
    ASSERT_EQ(::mkfifo("pipe", 0600), 0);
    int const socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::string_view("socket").copy(address.sun_path, sizeof address.sun_path);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
    ::close(socket);
    for (char const* const path : {"pipe", "socket", "/dev/null"}) {
        EXPECT_TRUE(system::io::exists(path)) << path;
        EXPECT_FALSE(system::io::is_file(path)) << path;
        EXPECT_FALSE(system::io::is_directory(path)) << path;
        EXPECT_TRUE(system::have_read_access(path)) << path;
    }
    EXPECT_EQ(files_below("."), std::vector<ustring8>());
}

TEST_F(posix_files, tests_follow_links) {
    directory->file("file");
    directory->directory("folder");
    fs::create_symlink("file", "to_file");
    fs::create_symlink("folder", "to_folder");
    fs::create_symlink("missing", "to_nothing");
    EXPECT_TRUE(system::io::is_file("to_file"));
    EXPECT_TRUE(system::io::is_directory("to_folder"));
    EXPECT_FALSE(system::io::exists("to_nothing"));
    EXPECT_TRUE(system::create_directory("to_folder"));
    EXPECT_FALSE(system::create_directory("to_nothing"));
}

TEST_F(posix_files, removing_a_link_leaves_what_it_points_to) {
    directory->file("file");
    directory->directory("folder");
    fs::create_symlink("file", "to_file");
    fs::create_symlink("folder", "to_folder");
    system::io::remove_file("to_file");
    system::io::remove_dir("to_folder");
    EXPECT_TRUE(fs::is_symlink("to_folder"));
    system::io::remove_file("to_folder");
    EXPECT_TRUE(fs::exists("file"));
    EXPECT_TRUE(fs::exists("folder"));
    EXPECT_FALSE(fs::is_symlink("to_file"));
    EXPECT_FALSE(fs::is_symlink("to_folder"));
}

TEST_F(posix_files, move_does_not_replace_a_link_to_nothing) {
    directory->file("file");
    fs::create_symlink("missing", "to_nothing");
    system::io::move("to_nothing", "file");
    EXPECT_TRUE(fs::exists("file"));
    EXPECT_TRUE(fs::is_symlink("to_nothing"));
}

TEST_F(posix_files, mkdir_gives_all_rights_but_those_of_the_mask) {
    mode_t const previous = ::umask(0007);
    system::io::mkdir("one");
    system::create_directory("two/three");
    ::umask(previous);
    for (char const* const path : {"one", "two", "two/three"}) {
        EXPECT_EQ(fs::status(path).permissions(), fs::perms(0770)) << path;
    }
}

TEST_F(posix_files, read_access_is_the_bit_of_the_owner) {
    directory->file("file");
    for (unsigned mode = 0; mode <= 0777; ++mode) {
        fs::permissions("file", fs::perms(mode));
        EXPECT_EQ(system::have_read_access("file"), (mode & 0400) != 0) << mode;
    }
    directory->directory("folder");
    fs::permissions("folder", fs::perms(0377));
    EXPECT_FALSE(system::have_read_access("folder"));
    fs::permissions("folder", fs::perms(0700));
    EXPECT_TRUE(system::have_read_access("folder"));
}

TEST_F(posix_files, files_without_read_access_are_listed_but_not_collected) {
    directory->file("top/locked");
    directory->file("top/open");
    directory->file("top/secret/inner");
    fs::permissions("top/locked", fs::perms(0));
    fs::permissions("top/secret", fs::perms(0333));
    EXPECT_EQ(files_below("top"), std::vector<ustring8>{"top/open"});
    std::vector<ustring8> const listed = system::list_directory("top");
    EXPECT_EQ(listed.size() + (names_in("top").front()[0] == '.' ? 0 : 1), 3u);
    fs::permissions("top/secret", fs::perms(0700));
}

// ------------------------------------------------------------------------------------------------------------
// Walks
// ------------------------------------------------------------------------------------------------------------

TEST_F(posix_files, a_link_back_up_is_not_followed) {
    directory->file("top/a/b/file");
    fs::create_directory_symlink(".", "top/self");
    fs::create_directory_symlink("..", "top/a/up");
    fs::create_directory_symlink(directory->path("top"), "top/a/b/upper");
    // Beside the walk, and out of it: both are followed.
    fs::create_directory_symlink("a/b", "top/beside");
    directory->file("elsewhere/other");
    fs::create_directory_symlink("../elsewhere", "top/out");
    fs::create_symlink("missing", "top/to_nothing");
    EXPECT_EQ(sorted(files_below("top")),
              sorted(std::vector<ustring8>{"top/a/b/file", "top/beside/file", "top/out/other"}));
}

TEST_F(posix_files, entries_come_in_the_order_of_the_system) {
    for (int number = 0; number < 200; ++number) {
        directory->file("top/" + std::to_string(number * 7919 % 1000));
    }
    std::vector<std::string> const names = names_in("top");
    std::vector<ustring8> all;
    std::vector<ustring8> all_but_first;
    for (std::string const& name : names) {
        if (name != "." && name != "..") {
            all.push_back("top/" + name);
            if (name != names.front()) {
                all_but_first.push_back("top/" + name);
            }
        }
    }
    EXPECT_EQ(all.size(), 200u);
    EXPECT_EQ(files_below("top"), all);
    EXPECT_EQ(system::list_directory("top"), all_but_first);
}

TEST_F(posix_files, an_empty_directory_path_is_the_root) {
    std::vector<ustring8> expected;
    std::vector<std::string> const names = names_in("/");
    for (std::size_t index = 1; index < names.size(); ++index) {
        if (names[index] != "." && names[index] != "..") {
            expected.push_back("/" + names[index]);
        }
    }
    EXPECT_EQ(system::list_directory(ustring8()), expected);
}

ustring8 walked_at_exit;

// Built before the library was used, and so destroyed behind everything that it built for itself.
struct late_object {
    ~late_object() {
        if (!walked_at_exit.empty()) {
            for (ustring8 const& file : files_below(walked_at_exit)) {
                std::fprintf(stderr, "%s\n", file.c_str());
            }
            std::_Exit(3);
        }
    }
};

late_object const outlives_the_walks;

void walk_and_exit() {
    files_below("top");
    walked_at_exit = "top";
    std::exit(0);
}

TEST_F(posix_files, destructors_of_static_objects_may_walk) {
    directory->file("top/a/file");
    EXPECT_EXIT(walk_and_exit(), testing::ExitedWithCode(3), "^top/a/file\n$");
}

TEST_F(posix_files, a_deep_tree_is_walked_to_its_end) {
    std::string path = "top";
    for (int level = 0; level < 300; ++level) {
        path += "/d";
    }
    EXPECT_TRUE(system::create_directory(path));
    EXPECT_EQ(system::store_file(path + "/file", "text"), 0);
    EXPECT_EQ(files_below("top"), std::vector<ustring8>{path + "/file"});
}

// ------------------------------------------------------------------------------------------------------------
// Names
// ------------------------------------------------------------------------------------------------------------

// U+00E9, U+1F600: one, and two units in UTF-16.
ustring8 const name8 = support::utf8({0xC3, 0xA9, 0xF0, 0x9F, 0x98, 0x80});
ustring16 const name16 = support::utf16({0xE9, 0xD83D, 0xDE00});
ustring32 const name32 = support::utf32({0xE9, 0x1F600});

TEST_F(posix_files, one_entry_has_one_name_in_three_forms) {
    directory->file(name8, "text");
    EXPECT_TRUE(system::io::is_file(name8));
    EXPECT_TRUE(system::io::is_file(name16));
    EXPECT_TRUE(system::io::is_file(name32));
    EXPECT_TRUE(system::have_read_access(name16));
    ustring8 text;
    EXPECT_EQ(system::load_file(name16, text), 0);
    EXPECT_EQ(system::store_file(name32, "other"), 0);
    EXPECT_EQ(support::bytes_of(name8.c_str()), "other");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1);

    ustring16 const folder = support::utf16({0x2E, 0x2F, 0x4E2D});
    EXPECT_TRUE(system::create_directory(folder));
    system::io::move(folder + support::utf16({0x2F, 0x78}), name16);
    EXPECT_EQ(support::bytes_of("./\xE4\xB8\xAD/x"), "other");
}

TEST_F(posix_files, lists_give_each_name_in_the_form_of_the_list) {
    directory->file("top/" + name8);
    EXPECT_EQ(files_below("top"), std::vector<ustring8>{"top/" + name8});
    std::vector<ustring16> files16;
    system::get_directory_files(strings::utf8_to_utf16("top"), files16);
    EXPECT_EQ(files16, std::vector<ustring16>{strings::utf8_to_utf16("top/") + name16});
    std::vector<ustring32> files32;
    system::get_directory_files(strings::utf8_to_utf32("top"), files32);
    EXPECT_EQ(files32, std::vector<ustring32>{strings::utf8_to_utf32("top/") + name32});
}

// Names that a 16-bit path could not lead back to.
std::string const odd_names[] = {
    "latin-\xE9.txt",    // a Latin-1 letter
    "cut-\xE2\x82",      // a sequence cut off
    "over-\xC0\xAE",     // an overlong form
    "half-\xED\xA0\x80", // an encoded surrogate
    "far-\xF4\x90\x80\x80", "\xFF",
};

TEST_F(posix_files, names_that_are_no_utf_8_are_left_out_of_16_bit_lists) {
    for (std::string const& name : odd_names) {
        directory->file("top/" + name);
    }
    directory->file("top/plain");
    directory->file("top/-1");
    EXPECT_EQ(files_below("top").size(), std::size(odd_names) + 2);
    std::vector<ustring16> files16;
    system::get_directory_files(strings::utf8_to_utf16("top"), files16);
    EXPECT_EQ(sorted(files16), (std::vector<ustring16>{strings::utf8_to_utf16("top/-1"),
                                                       strings::utf8_to_utf16("top/plain")}));
    // A directory with such a name is walked; it is its files that have no path.
    directory->file("odd/\xFF/inner");
    files16.clear();
    system::get_directory_files(strings::utf8_to_utf16("odd"), files16);
    EXPECT_EQ(files16, std::vector<ustring16>());
    for (ustring16 const& path : system::list_directory(strings::utf8_to_utf16("top"))) {
        EXPECT_TRUE(system::io::is_file(path));
    }
}

TEST_F(posix_files, a_32_bit_list_shows_question_marks) {
    directory->file("top/\xE9.txt");
    std::vector<ustring32> files32;
    system::get_directory_files(strings::utf8_to_utf32("top"), files32);
    EXPECT_EQ(files32, std::vector<ustring32>{strings::utf8_to_utf32("top/?.txt")});
}

TEST_F(posix_files, bytes_that_are_no_utf_8_are_a_path_like_any_other) {
    for (std::string const& name : odd_names) {
        EXPECT_EQ(system::store_file(name, "text"), 0);
        EXPECT_EQ(support::bytes_of(name), "text");
        system::io::remove_file(name);
        EXPECT_FALSE(fs::exists(name));
    }
}

TEST_F(posix_files, a_16_bit_path_that_cannot_be_converted_names_nothing) {
    directory->file("-1", "text");
    directory->directory("folder");
    for (ustring16 const& bad :
         {support::utf16({0xD800}), support::utf16({0x61, 0xDC00}), support::utf16({0xD83D, 0x61}),
          // The swapped mark, on which the converter does not return.
          support::utf16({0xFFFE}), support::utf16({0xFFFE, 0x2D00, 0x3100})}) {
        EXPECT_FALSE(system::io::exists(bad));
        EXPECT_FALSE(system::io::is_file(bad));
        EXPECT_FALSE(system::io::is_directory(bad));
        EXPECT_FALSE(system::have_read_access(bad));
        EXPECT_FALSE(system::create_directory(bad));
        ustring8 text = "earlier";
        EXPECT_EQ(system::load_file(bad, text), 1);
        EXPECT_EQ(text, "earlier");
        EXPECT_EQ(system::store_file(bad, "other"), 1);
        std::vector<ustring16> files;
        system::get_directory_files(bad, files);
        EXPECT_EQ(files, std::vector<ustring16>());
        EXPECT_EQ(system::list_directory(bad), std::vector<ustring16>());
        system::io::mkdir(bad);
        system::io::remove_file(bad);
        system::io::remove_dir(bad);
        system::io::move(bad, support::utf16({0x2D, 0x31}));
        system::io::move(support::utf16({0x6E}), bad);
    }
    EXPECT_EQ(support::bytes_of("-1"), "text");
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 2);
}

// ------------------------------------------------------------------------------------------------------------
// Contents and descriptors
// ------------------------------------------------------------------------------------------------------------

TEST_F(posix_files, a_device_without_bytes_is_an_empty_file) {
    ustring8 text = "earlier text";
    EXPECT_EQ(system::load_file("/dev/null", text), 0);
    EXPECT_EQ(text, "");
    EXPECT_EQ(system::store_file("/dev/null", "text"), 0);
}

TEST_F(posix_files, a_pipe_has_no_size) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::write(ends[1], "text", 4), 4);
    ustring8 text = "earlier text";
    EXPECT_THROW(system::load_file("/proc/self/fd/" + std::to_string(ends[0]), text), std::length_error);
    EXPECT_EQ(text, "earlier text");
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(posix_files, no_descriptor_is_lost) {
    directory->file("top/a/b/file", "text");
    directory->file("top/other", "text");
    directory->file("large");
    fs::resize_file("large", 0x80000000u);
    std::size_t const before = open_descriptors();
    for (int round = 0; round < 100; ++round) {
        files_below("top");
        files_below("missing");
        system::list_directory("top");
        system::list_directory("missing");
        ustring8 text;
        system::load_file("top/other", text);
        system::load_file("top", text);
        EXPECT_THROW(system::load_file("large", text), std::length_error);
        system::store_file("top/other", text);
        system::store_file("top", text);
        system::io::exists("top");
        system::create_directory("top/a/b");
    }
    EXPECT_EQ(open_descriptors(), before);
}

} // namespace
