// The hook at process exit, seen by an object that is older than the library's and so outlives them.

#include "veldrin/debug/assert.hpp"

#include <cstdio>
#include <cstdlib>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;

bool looks_for_a_hook = false;
int hook_calls = 0;

void count_call(char const* const, char const* const, unsigned int&) { ++hook_calls; }

struct late_object {
    ~late_object() {
        if (looks_for_a_hook) {
            bool const is_set = debug::is_assert_hook_set();
            VELDRIN_ASSERT(false, "late_object::~late_object");
            std::fputs(is_set || hook_calls != 0 ? "a hook is left" : "no hook is left", stderr);
            std::_Exit(3);
        }
    }
};

[[gnu::init_priority(101)]] late_object const outlives_the_library;

void hold_a_hook_and_exit() {
    looks_for_a_hook = true;
    debug::set_assert_hook(functor::function_t<debug::assert_hook_function>(&count_call));
    std::exit(0);
}

TEST(assert_hook_DeathTest, is_released_at_exit_and_leaves_none) {
    EXPECT_EXIT(hold_a_hook_and_exit(), testing::ExitedWithCode(3), "^no hook is left");
}

} // namespace
