// The place of a failure takes no allocation, so it can be told when there is no memory.

#include <cstdlib>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "veldrin/exceptions/logic_error.hpp"

namespace {

std::size_t allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size)) {
        return memory;
    }
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }

void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using VELDRIN_2_18::exceptions::exception;
using VELDRIN_2_18::exceptions::out_of_range;

TEST(exception_allocation, a_state_is_made_copied_and_assigned_without_any) {
    std::string const long_text(200, 'f');
    std::size_t const before = allocations;
    exception::state const original(1, long_text.c_str(), long_text.c_str());
    exception::state copy(original);
    copy = original;
    EXPECT_EQ(allocations, before);
    EXPECT_EQ(copy.file(), long_text);
}

TEST(exception_allocation, an_exception_allocates_for_its_message_alone) {
    std::string const long_text(200, 'm');
    std::size_t const before = allocations;
    out_of_range const failure(long_text, 1, long_text.c_str(), long_text.c_str());
    EXPECT_EQ(allocations, before + 1);
    EXPECT_EQ(failure.message(), long_text);
}

} // namespace
