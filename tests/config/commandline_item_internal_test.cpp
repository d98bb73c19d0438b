// What an object that is built before all others can load.

#include "veldrin/config/commandline_item.hpp"

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;

bool reports_an_unknown_key() {
    char const* const arguments[] = {"program", "stray", "-key=value", nullptr};
    config::commandline_item item(3, arguments);
    item.load();
    return item.get_value("key") != nullptr;
}

struct early_user {
    bool const was_served = reports_an_unknown_key();
};

[[gnu::init_priority(102)]] early_user const before_all_others{};

TEST(commandline_item, reports_an_unknown_key_before_main_too) { EXPECT_TRUE(before_all_others.was_served); }

} // namespace
