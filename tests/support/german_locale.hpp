// The process locale that the C runtime of Windows has for German: code page 1252, and a decimal comma. For
// tests in folders windows/.

#pragma once

#include <clocale>

#include <gtest/gtest.h>

namespace support {

// The locale is that of each test.
class german_locale : public testing::Test {
protected:
    void SetUp() override { ASSERT_STREQ(std::setlocale(LC_ALL, "German"), "German_Germany.1252"); }
    void TearDown() override { std::setlocale(LC_ALL, "C"); }
};

} // namespace support
