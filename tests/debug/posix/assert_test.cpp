#include "veldrin/debug/assert.hpp"

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;

// Only "%n" lets the formatting be seen when nobody gets the text.
TEST(assertion_without_hook, formats_its_context_all_the_same) {
    ASSERT_FALSE(debug::is_assert_hook_set());
    int written = -1;
    debug::_private::_______________CONTEXT__ASSERT________________("e", "unit", 1, "function", "abc%n",
                                                                    &written);
    EXPECT_EQ(written, 3);
}

} // namespace
