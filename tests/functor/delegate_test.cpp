#include "veldrin/functor/delegate.hpp"

#include <gtest/gtest.h>

#include "veldrin/functor/function.hpp"
#include "veldrin/functor/member_function.hpp"

namespace {

using namespace VELDRIN_2_18;

struct adder {
    int total = 0;
    int add(int value) { return total += value; }
};

int twice(int value) { return value * 2; }

TEST(delegate, calls_after_the_temporary_it_was_assigned_from_is_gone) {
    adder sum;
    functor::delegate_t<int(int)> call;
    call = functor::member_function_t<adder, int(int)>(&sum, &adder::add);
    EXPECT_EQ(call(3), 3);
    EXPECT_EQ(call(4), 7);
}

TEST(delegate, takes_a_pointer_to_a_function_type) {
    functor::delegate_t<int (*)(int)> call = functor::function_t<int(int)>(&twice);
    EXPECT_EQ(call(21), 42);
    call = types::nil;
    EXPECT_TRUE(call == types::nil);
    EXPECT_EQ(call(21), 0);
}

} // namespace
