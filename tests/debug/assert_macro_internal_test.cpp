// What the assertion macro expands to, in release code: the entry point is this file's own.

#ifndef NDEBUG
#define NDEBUG
#endif

#include "veldrin/debug/assert.hpp"

#include <string>

#include <gtest/gtest.h>

namespace {

struct {
    std::string expression;
    std::string file;
    unsigned int line = 0;
    std::string function;
} passed;

} // namespace

void VELDRIN_2_18::debug::_private::____________________ASSERT____________________(
    char const* const expression, char const* const file, unsigned int line, char const* const function) {
    passed = {expression, file, line, function};
}

namespace {

TEST(assertion_macro, passes_condition_file_line_and_function_in_release_code_too) {
    VELDRIN_ASSERT(1 + 1 == 2, "N::holds");
    EXPECT_EQ(passed.expression, "");
    VELDRIN_ASSERT(1 + 1 == 3, "N::fails");
    EXPECT_EQ(passed.line, static_cast<unsigned int>(__LINE__ - 1));
    EXPECT_EQ(passed.expression, "1 + 1 == 3");
    EXPECT_EQ(passed.file, __FILE__);
    EXPECT_EQ(passed.function, "N::fails");
}

} // namespace
