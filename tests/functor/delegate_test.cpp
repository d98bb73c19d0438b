#include "veldrin/functor/delegate.hpp"

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"
#include "veldrin/functor/function.hpp"
#include "veldrin/functor/function_type_interface.hpp"
#include "veldrin/functor/member_function.hpp"

namespace {

using namespace VELDRIN_2_18;

struct adder {
    int total = 0;
    int add(int value) { return total += value; }
    int subtract(int value) { return total -= value; }
};

using adder_call = functor::member_function_t<adder, int(int)>;

int twice(int value) { return value * 2; }
int thrice(int value) { return value * 3; }

TEST(member_function, calls_the_member_on_the_object) {
    adder sum;
    adder_call call(&sum, &adder::add);
    EXPECT_EQ(call(3), 3);
    EXPECT_EQ(sum.total, 3);
}

TEST(member_function, is_equal_for_the_same_object_and_member_alone) {
    adder sum;
    adder other;
    adder_call const call(&sum, &adder::add);
    EXPECT_TRUE(call.equal(adder_call(&sum, &adder::add)));
    EXPECT_FALSE(call.equal(adder_call(&other, &adder::add)));
    EXPECT_FALSE(call.equal(adder_call(&sum, &adder::subtract)));
    EXPECT_FALSE(call.equal(functor::function_t<int(int)>(&twice)));
}

TEST(member_function, clone_is_a_copy) {
    adder sum;
    adder_call const call(&sum, &adder::add);
    std::unique_ptr<functor::function_type_interface<int(int)>> const clone(call.clone());
    EXPECT_NE(static_cast<void const*>(clone.get()), static_cast<void const*>(&call));
    EXPECT_TRUE(call.equal(*clone));
    EXPECT_EQ((*clone)(5), 5);
    EXPECT_EQ(sum.total, 5);
}

TEST(free_function, is_called_compared_and_cloned) {
    functor::function_t<int(int)> call(&twice);
    EXPECT_EQ(call(4), 8);
    EXPECT_TRUE(call.equal(functor::function_t<int(int)>(&twice)));
    EXPECT_TRUE(call.equal(functor::function_t<int (*)(int)>(&twice)));
    EXPECT_FALSE(call.equal(functor::function_t<int(int)>(&thrice)));
    adder sum;
    EXPECT_FALSE(call.equal(adder_call(&sum, &adder::add)));
    std::unique_ptr<functor::function_type_interface<int(int)>> const clone(call.clone());
    EXPECT_TRUE(call.equal(*clone));
}

TEST(function_type_interface, virtual_operations_stand_in_their_fixed_order) {
    using interface = functor::function_type_interface<int(int)>;
    EXPECT_TRUE(std::has_virtual_destructor_v<interface>);
    EXPECT_EQ(support::virtual_slot(&interface::operator()), 2U);
    EXPECT_EQ(support::virtual_slot(&interface::equal), 3U);
    EXPECT_EQ(support::virtual_slot(&interface::clone), 4U);
}

TEST(function_traits, defines_result_and_arguments) {
    using of_function = traits::function_traits<int(char, long)>;
    using of_pointer = traits::function_traits<int (*)(char, long)>;
    EXPECT_TRUE((std::is_same_v<of_function::result_type, int>));
    EXPECT_TRUE((std::is_same_v<of_function::argument_types, std::tuple<char, long>>));
    EXPECT_TRUE((std::is_same_v<of_function::function_type, int(char, long)>));
    EXPECT_TRUE((std::is_same_v<of_pointer::function_type, int(char, long)>));
    EXPECT_EQ(of_function::arity, 2U);
    EXPECT_TRUE((std::is_empty_v<of_function>));
    EXPECT_TRUE(
        (std::is_base_of_v<traits::function_traits<int(int)>, functor::function_type_interface<int(int)>>));
    EXPECT_TRUE(
        (std::is_base_of_v<generic::abilities::clone_ability, functor::function_type_interface<int(int)>>));
}

TEST(delegate, calls_after_the_temporary_it_was_assigned_from_is_gone) {
    adder sum;
    functor::delegate_t<int(int)> call;
    call = adder_call(&sum, &adder::add);
    EXPECT_EQ(call(3), 3);
    EXPECT_EQ(call(4), 7);
}

TEST(delegate, takes_a_pointer_to_a_function_type) {
    functor::delegate_t<int (*)(int)> call = functor::function_t<int(int)>(&twice);
    EXPECT_EQ(call(21), 42);
    EXPECT_TRUE((std::is_same_v<functor::delegate_t<int (*)(int)>::callable_type,
                                functor::delegate_t<int(int)>::callable_type>));
}

TEST(delegate, an_empty_one_does_nothing_and_returns_a_fresh_value) {
    functor::delegate_t<int(int)> const number;
    EXPECT_TRUE(number.empty());
    EXPECT_FALSE(static_cast<bool>(number));
    EXPECT_EQ(number(21), 0);
    functor::delegate_t<void(int)> const nothing;
    nothing(21);
    functor::delegate_t<std::unique_ptr<int>(int)> const pointer;
    EXPECT_EQ(pointer(21), nullptr);
}

TEST(delegate, follows_the_nil_protocol) {
    functor::delegate_t<int(int)> call(types::nil);
    EXPECT_TRUE(call == types::nil);
    EXPECT_TRUE(types::nil == call);
    EXPECT_TRUE(call.equal(types::nil));
    call.assign(functor::function_t<int(int)>(&twice));
    EXPECT_TRUE(call != types::nil);
    EXPECT_FALSE(call.equal(types::nil));
    EXPECT_TRUE(static_cast<bool>(call));
    call = types::nil;
    EXPECT_TRUE(call.empty());
    call = functor::function_t<int(int)>(&twice);
    call.assign(types::nil);
    EXPECT_TRUE(call.empty());
}

TEST(delegate, copies_deeply) {
    adder sum;
    functor::delegate_t<int(int)> first = adder_call(&sum, &adder::add);
    functor::delegate_t<int(int)> second(first);
    first = types::nil;
    EXPECT_EQ(second(2), 2);
    functor::delegate_t<int(int)> third;
    third = second;
    second = functor::function_t<int(int)>(&twice);
    EXPECT_EQ(third(2), 4);
    EXPECT_EQ(second(2), 4);
    EXPECT_EQ(third(2), 6);
    functor::delegate_t<int(int)> const& alias = third;
    third = alias;
    EXPECT_EQ(third(1), 7);
    second = functor::delegate_t<int(int)>();
    EXPECT_TRUE(second.empty());
}

TEST(delegate, moving_empties_the_source) {
    functor::delegate_t<int(int)> first = functor::function_t<int(int)>(&thrice);
    functor::delegate_t<int(int)> second(std::move(first));
    EXPECT_EQ(second(2), 6);
    functor::delegate_t<int(int)> third;
    third = std::move(second);
    EXPECT_EQ(third(3), 9);
}

// Arguments go on as they come: references stay references, and what can only be moved is moved.
using taking = int(std::unique_ptr<int>, int&);

int take(std::unique_ptr<int> value, int& count) {
    ++count;
    return *value;
}

struct taker {
    int take(std::unique_ptr<int> value, int& count) {
        count += 2;
        return *value;
    }
};

TEST(delegate, forwards_its_arguments) {
    functor::delegate_t<taking> call = functor::function_t<taking>(&take);
    int count = 0;
    EXPECT_EQ(call(std::make_unique<int>(8), count), 8);
    EXPECT_EQ(count, 1);
    taker object;
    call = functor::member_function_t<taker, taking>(&object, &taker::take);
    EXPECT_EQ(call(std::make_unique<int>(9), count), 9);
    EXPECT_EQ(count, 3);
}

// Logs when it is cloned and destroyed; a bad one cannot be cloned.
class logging_call : public functor::function_type_interface<int(int)> {
public:
    logging_call(std::string& log, bool is_bad) : m_log(log), m_is_bad(is_bad) {}
    logging_call(logging_call const&) = default;
    logging_call& operator=(logging_call const&) = delete;
    ~logging_call() override { m_log += "destroyed "; }

    int operator()(int value) override { return value; }
    bool equal(function_type_interface const&) const override { return false; }
    logging_call* clone() const override {
        m_log += "cloned ";
        if (m_is_bad) {
            throw std::runtime_error("no clone");
        }
        return new logging_call(*this);
    }

private:
    std::string& m_log;
    bool m_is_bad;
};

TEST(delegate, destroys_what_it_held_before_it_clones_the_next) {
    std::string log;
    logging_call const good(log, false);
    functor::delegate_t<int(int)> call(good);
    EXPECT_EQ(log, "cloned ");
    log.clear();
    call = good;
    EXPECT_EQ(log, "destroyed cloned ");
    log.clear();
    call.assign(good);
    EXPECT_EQ(log, "destroyed cloned ");
    EXPECT_EQ(call(7), 7);
}

TEST(delegate, is_left_empty_by_a_callable_that_cannot_be_cloned) {
    std::string log;
    logging_call const bad(log, true);
    functor::delegate_t<int(int)> call = functor::function_t<int(int)>(&twice);
    EXPECT_THROW(call = bad, std::runtime_error);
    EXPECT_TRUE(call.empty());
}

// Tells where it is, as a callable can that hands itself on.
class showing_call : public functor::function_type_interface<showing_call const*()> {
public:
    explicit showing_call(int& destroyed) : m_destroyed(destroyed) {}
    showing_call(showing_call const&) = default;
    showing_call& operator=(showing_call const&) = delete;
    ~showing_call() override { ++m_destroyed; }

    showing_call const* operator()() override { return this; }
    bool equal(function_type_interface const&) const override { return false; }
    showing_call* clone() const override { return new showing_call(*this); }

private:
    int& m_destroyed;
};

TEST(delegate, keeps_the_held_callable_when_that_is_assigned) {
    int destroyed = 0;
    showing_call const passing(destroyed);
    functor::delegate_t<showing_call const*()> call = passing;
    showing_call const* const held = call();
    call = *held;
    call.assign(*held);
    EXPECT_EQ(destroyed, 0);
    EXPECT_EQ(call(), held);
}

} // namespace
