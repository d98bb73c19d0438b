// By what a walk tells that it is back at a directory.

#include "platform/file_system.hpp"

#include <filesystem>
#include <optional>

#include <gtest/gtest.h>

#include "support/temporary_working_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using platform::directory_identity;

class identity : public testing::Test {
protected:
    static std::optional<directory_identity> identity_of(strings::ustring8 const& text) {
        return platform::identity_of(platform::path(text));
    }

    support::temporary_working_directory directory;
};

TEST_F(identity, is_the_same_by_any_path) {
    directory->directory("a/b");
    ASSERT_NE(identity_of("a"), std::nullopt);
    EXPECT_EQ(identity_of("a"), identity_of(directory->path("a")));
    EXPECT_EQ(identity_of("a"), identity_of(directory->path("a/b/..")));
    EXPECT_NE(identity_of("a"), identity_of("."));
    EXPECT_NE(identity_of("a"), identity_of(directory->path("a/b")));
}

// As an enumeration takes it.
TEST_F(identity, of_an_empty_path_is_that_of_the_root) {
    ASSERT_NE(identity_of(""), std::nullopt);
    EXPECT_EQ(identity_of(""), identity_of(std::filesystem::current_path().root_path().string()));
    EXPECT_NE(identity_of(""), identity_of("."));
}

TEST_F(identity, belongs_to_directories_alone) {
    directory->file("file");
    EXPECT_EQ(identity_of("file"), std::nullopt);
    EXPECT_EQ(identity_of("missing"), std::nullopt);
    EXPECT_EQ(identity_of({".\0", 2}), std::nullopt);
}

} // namespace
