// Renaming where the kernel or the file system cannot rename without replacing.

#include "platform/file_system.hpp"

#include <cerrno>
#include <filesystem>

#include <gtest/gtest.h>

#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"

namespace {

int answer = 0;
unsigned last_flags = 0;

} // namespace

// Stands in front of the system's own.
extern "C" int renameat2(int, char const*, int, char const*, unsigned flags) noexcept {
    last_flags = flags;
    errno = answer;
    return -1;
}

namespace {

using namespace VELDRIN_2_18;

namespace fs = std::filesystem;

class rename_fallback : public testing::TestWithParam<int> {
protected:
    void SetUp() override {
        answer = GetParam();
        directory->file("one", "1");
        directory->file("two", "2");
        directory->file("full/file");
        directory->directory("empty");
        fs::create_symlink("missing", "to_nothing");
    }

    static void rename(char const* new_path, char const* old_path) {
        platform::rename_entry(platform::path(strings::ustring8(new_path)),
                               platform::path(strings::ustring8(old_path)));
    }

    support::temporary_working_directory directory;
};

INSTANTIATE_TEST_SUITE_P(unsupported, rename_fallback, testing::Values(EINVAL, ENOSYS));

TEST_P(rename_fallback, renames_files_and_directories) {
    rename("new", "one");
    EXPECT_EQ(last_flags, 1u); // RENAME_NOREPLACE
    EXPECT_EQ(support::bytes_of("new"), "1");
    EXPECT_FALSE(fs::exists("one"));
    rename("new_full", "full");
    EXPECT_TRUE(fs::exists("new_full/file"));
    EXPECT_FALSE(fs::exists("full"));
}

TEST_P(rename_fallback, replaces_nothing) {
    rename("two", "one");
    rename("empty", "full");
    rename("to_nothing", "one");
    rename("missing/new", "one");
    rename("", "one");
    rename("new", "missing");
    EXPECT_EQ(support::bytes_of("one"), "1");
    EXPECT_EQ(support::bytes_of("two"), "2");
    EXPECT_TRUE(fs::exists("full/file"));
    EXPECT_TRUE(fs::is_empty("empty"));
    EXPECT_TRUE(fs::is_symlink("to_nothing"));
    EXPECT_FALSE(fs::exists("new"));
}

TEST(rename, is_not_tried_again_after_another_failure) {
    support::temporary_working_directory directory;
    directory->file("one", "1");
    for (int const error : {EEXIST, EACCES, ENOENT, EXDEV}) {
        answer = error;
        platform::rename_entry(platform::path(strings::ustring8("new")),
                               platform::path(strings::ustring8("one")));
        EXPECT_FALSE(fs::exists("new"));
        EXPECT_EQ(support::bytes_of("one"), "1");
    }
}

} // namespace
