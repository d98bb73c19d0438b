#include "platform/file_system.hpp"

#include <filesystem>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "support/temporary_working_directory.hpp"

namespace {

using namespace VELDRIN_2_18;

// A drive alone is listed from its root: a walk from there is not yet inside of the current directory.
TEST(windows_identity, of_a_drive_is_that_of_its_root) {
    support::temporary_working_directory const directory;
    std::string const drive = std::filesystem::current_path().root_name().string();
    ASSERT_EQ(drive.size(), 2u);
    auto const identity = platform::identity_of(platform::path(strings::ustring8(drive)));
    ASSERT_NE(identity, std::nullopt);
    EXPECT_EQ(identity, platform::identity_of(platform::path(strings::ustring8(drive + '\\'))));
    EXPECT_NE(identity, platform::identity_of(platform::path(strings::ustring8("."))));
}

} // namespace
