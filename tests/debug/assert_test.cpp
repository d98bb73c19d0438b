#include "veldrin/debug/assert.hpp"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "veldrin/functor/member_function.hpp"

namespace {

using namespace VELDRIN_2_18;
using debug::_private::____________________ASSERT____________________;
using debug::_private::_______________CONTEXT__ASSERT________________;

// What the hook was given last, and what it does besides.
struct recorder {
    int calls = 0;
    std::string expression;
    std::string file;
    unsigned int line = 0;
    bool throws = false;

    void on_failure(char const* const failed, char const* const where, unsigned int& at) {
        ++calls;
        expression = failed;
        file = where;
        line = at;
        at = 4711;
        if (throws) {
            throw std::runtime_error("from the hook");
        }
    }
};

using hook_call =
    functor::member_function_t<recorder, void(char const* const, char const* const, unsigned int&)>;

class assertion : public ::testing::Test {
protected:
    void SetUp() override { debug::set_assert_hook(hook_call(&record, &recorder::on_failure)); }
    void TearDown() override { debug::set_assert_hook(types::nil); }

    recorder record;
};

TEST(assertion_without_hook, returns_and_does_nothing) {
    ASSERT_FALSE(debug::is_assert_hook_set());
    ____________________ASSERT____________________("a < b", "unit", 12, "function");
    _______________CONTEXT__ASSERT________________("a < b", "unit", 12, "function", "%d", 3);
    EXPECT_FALSE(debug::is_assert_hook_set());
}

TEST_F(assertion, passes_expression_file_and_line) {
    unsigned int const line = 12;
    ____________________ASSERT____________________("a < b", "unit", line, "function");
    EXPECT_EQ(record.calls, 1);
    EXPECT_EQ(record.expression, "a < b");
    EXPECT_EQ(record.file, "unit");
    EXPECT_EQ(record.line, 12U);
    EXPECT_EQ(line, 12U);
}

TEST_F(assertion, with_context_passes_both_as_one_text) {
    unsigned int line = 13;
    _______________CONTEXT__ASSERT________________("a < b", "unit", line, "function", "a is %d, b is %s", 3,
                                                   "two");
    EXPECT_EQ(record.expression, "a < b : a is 3, b is two");
    EXPECT_EQ(record.file, "unit");
    EXPECT_EQ(record.line, 13U);
    EXPECT_EQ(line, 13U);
}

TEST_F(assertion, with_a_null_format_has_no_context) {
    _______________CONTEXT__ASSERT________________("a < b", "unit", 1, "function",
                                                   static_cast<char const*>(nullptr));
    EXPECT_EQ(record.expression, "a < b : ");
}

TEST_F(assertion, with_context_names_a_null_expression) {
    _______________CONTEXT__ASSERT________________(nullptr, "unit", 1, "function", "context");
    EXPECT_EQ(record.expression, "(null) : context");
}

TEST_F(assertion, an_expression_that_fills_the_buffer_is_cut_and_has_no_context) {
    std::string const longest(300, 'e');
    _______________CONTEXT__ASSERT________________(longest.c_str(), "unit", 1, "function", "context");
    EXPECT_EQ(record.expression, std::string(255, 'e'));
}

TEST_F(assertion, an_expression_of_the_last_length_that_fits_leaves_no_room_for_context) {
    std::string const exact(252, 'e');
    _______________CONTEXT__ASSERT________________(exact.c_str(), "unit", 1, "function", "context");
    EXPECT_EQ(record.expression, exact + " : ");
    std::string const one_less(251, 'e');
    _______________CONTEXT__ASSERT________________(one_less.c_str(), "unit", 1, "function", "context");
    EXPECT_EQ(record.expression, one_less + " : c");
}

TEST_F(assertion, a_long_context_is_cut) {
    _______________CONTEXT__ASSERT________________("e", "unit", 1, "function", "%s",
                                                   std::string(400, 'c').c_str());
    EXPECT_EQ(record.expression, "e : " + std::string(251, 'c'));
}

TEST_F(assertion, lets_the_exception_of_a_hook_through) {
    record.throws = true;
    EXPECT_THROW(____________________ASSERT____________________("e", "unit", 1, "f"), std::runtime_error);
    EXPECT_THROW(_______________CONTEXT__ASSERT________________("e", "unit", 1, "f", "c"),
                 std::runtime_error);
    EXPECT_TRUE(debug::is_assert_hook_set());
}

TEST_F(assertion, macro_passes_its_expression_once_and_goes_on) {
    int evaluated = 0;
    VELDRIN_ASSERT(++evaluated == 1, "function");
    EXPECT_EQ(record.calls, 0);
    VELDRIN_ASSERT(++evaluated == 1, "function");
    EXPECT_EQ(record.calls, 1);
    EXPECT_EQ(record.line, static_cast<unsigned int>(__LINE__ - 2));
    EXPECT_EQ(record.expression, "++evaluated == 1");
    EXPECT_EQ(record.file, __FILE__);
    EXPECT_EQ(evaluated, 2);
}

TEST_F(assertion, hook_is_cleared_by_nil_and_by_an_empty_delegate) {
    EXPECT_TRUE(debug::is_assert_hook_set());
    debug::set_assert_hook(types::nil);
    EXPECT_FALSE(debug::is_assert_hook_set());
    debug::set_assert_hook(hook_call(&record, &recorder::on_failure));
    EXPECT_TRUE(debug::is_assert_hook_set());
    debug::set_assert_hook(functor::delegate_t<debug::assert_hook_function>());
    EXPECT_FALSE(debug::is_assert_hook_set());
    ____________________ASSERT____________________("e", "unit", 1, "f");
    EXPECT_EQ(record.calls, 0);
}

TEST_F(assertion, a_second_hook_takes_the_place_of_the_first) {
    recorder other;
    {
        functor::delegate_t<debug::assert_hook_function> const passing(
            hook_call(&other, &recorder::on_failure));
        debug::set_assert_hook(passing);
    }
    ____________________ASSERT____________________("e", "unit", 1, "f");
    EXPECT_EQ(record.calls, 0);
    EXPECT_EQ(other.calls, 1);
    EXPECT_EQ(other.expression, "e");
}

int free_calls = 0;
void free_hook(char const* const, char const* const, unsigned int&) { ++free_calls; }

TEST_F(assertion, hook_may_be_a_free_function) {
    debug::set_assert_hook(functor::function_t<debug::assert_hook_function>(&free_hook));
    ____________________ASSERT____________________("e", "unit", 1, "f");
    EXPECT_EQ(free_calls, 1);
}

// A hook that takes itself away, so that only the first failure is told.
struct one_shot {
    int calls = 0;

    void on_failure(char const* const, char const* const, unsigned int& line) {
        debug::set_assert_hook(types::nil);
        ++calls;
        line = 0;
    }
};

TEST_F(assertion, hook_may_clear_itself_while_it_is_called) {
    one_shot first_failure;
    debug::set_assert_hook(
        functor::member_function_t<one_shot, void(char const* const, char const* const, unsigned int&)>(
            &first_failure, &one_shot::on_failure));
    ____________________ASSERT____________________("e", "unit", 1, "f");
    EXPECT_FALSE(debug::is_assert_hook_set());
    ____________________ASSERT____________________("e", "unit", 1, "f");
    EXPECT_EQ(first_failure.calls, 1);
}

// A callable that counts its living objects, to see when the holder lets go of one.
class counted_hook
    : public functor::function_type_interface<void(char const* const, char const* const, unsigned int&)> {
public:
    explicit counted_hook(int& living) : m_living(living) { ++m_living; }
    counted_hook(counted_hook const& other) : function_type_interface(other), m_living(other.m_living) {
        ++m_living;
    }
    counted_hook& operator=(counted_hook const&) = delete;
    ~counted_hook() override { --m_living; }

    void operator()(char const* const, char const* const, unsigned int&) override {}
    bool equal(function_type_interface const&) const override { return false; }
    counted_hook* clone() const override { return new counted_hook(*this); }

private:
    int& m_living;
};

TEST_F(assertion, hook_is_a_clone_that_is_destroyed_when_replaced) {
    int living = 0;
    {
        counted_hook const passing(living);
        debug::set_assert_hook(passing);
    }
    EXPECT_EQ(living, 1);
    debug::set_assert_hook(types::nil);
    EXPECT_EQ(living, 0);
}

// A callable that can be cloned once, into a delegate, and no further.
class hook_cloned_once
    : public functor::function_type_interface<void(char const* const, char const* const, unsigned int&)> {
public:
    explicit hook_cloned_once(bool may_clone) : m_may_clone(may_clone) {}

    void operator()(char const* const, char const* const, unsigned int&) override {}
    bool equal(function_type_interface const&) const override { return false; }
    hook_cloned_once* clone() const override {
        if (!m_may_clone) {
            throw std::runtime_error("no clone");
        }
        return new hook_cloned_once(false);
    }

private:
    bool m_may_clone;
};

TEST_F(assertion, no_hook_is_left_by_one_that_cannot_be_cloned) {
    functor::delegate_t<debug::assert_hook_function> const passing = hook_cloned_once(true);
    EXPECT_TRUE(debug::is_assert_hook_set());
    EXPECT_THROW(debug::set_assert_hook(passing), std::runtime_error);
    EXPECT_FALSE(debug::is_assert_hook_set());
}

// A callable that fails an assertion while it is destroyed.
class failing_hook
    : public functor::function_type_interface<void(char const* const, char const* const, unsigned int&)> {
public:
    explicit failing_hook(int& calls) : m_calls(calls) {}
    failing_hook(failing_hook const&) = default;
    failing_hook& operator=(failing_hook const&) = delete;
    ~failing_hook() override { VELDRIN_ASSERT(false, "failing_hook::~failing_hook"); }

    void operator()(char const* const, char const* const, unsigned int&) override { ++m_calls; }
    bool equal(function_type_interface const&) const override { return false; }
    failing_hook* clone() const override { return new failing_hook(*this); }

private:
    int& m_calls;
};

TEST(assertion_in_a_dying_hook, finds_no_hook) {
    int calls = 0;
    functor::delegate_t<debug::assert_hook_function> const passing = failing_hook(calls);
    debug::set_assert_hook(passing);
    debug::set_assert_hook(passing);
    debug::set_assert_hook(types::nil);
    EXPECT_EQ(calls, 0);
}

} // namespace
