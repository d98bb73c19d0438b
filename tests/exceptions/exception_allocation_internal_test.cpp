// The place of a failure takes no allocation, so it can be told when there is no memory.

#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "veldrin/exceptions/logic_error.hpp"

namespace {

using VELDRIN_2_18::exceptions::exception;
using VELDRIN_2_18::exceptions::out_of_range;

TEST(exception_allocation, a_state_is_made_copied_and_assigned_without_any) {
    std::string const long_text(200, 'f');
    std::size_t const before = support::allocations;
    exception::state const original(1, long_text.c_str(), long_text.c_str());
    exception::state copy(original);
    copy = original;
    EXPECT_EQ(support::allocations, before);
    EXPECT_EQ(copy.file(), long_text);
}

TEST(exception_allocation, an_exception_allocates_for_its_message_alone) {
    std::string const long_text(200, 'm');
    std::size_t const before = support::allocations;
    out_of_range const failure(long_text, 1, long_text.c_str(), long_text.c_str());
    EXPECT_EQ(support::allocations, before + 1);
    EXPECT_EQ(failure.message(), long_text);
}

} // namespace
