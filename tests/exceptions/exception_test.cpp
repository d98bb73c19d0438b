#include "veldrin/exceptions/exception.hpp"

#include <cstring>
#include <new>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/exceptions/runtime_error.hpp"

namespace {

using namespace VELDRIN_2_18::exceptions;

// Every class that can be thrown, with the branch of the tree it belongs to.
template <class Class, class Branch>
struct row {
    using class_type = Class;
    using branch_type = Branch;
};

using all_classes = ::testing::Types<
    row<logic_error, logic_error>, row<invalid_argument_value, logic_error>, row<length_error, logic_error>,
    row<out_of_range, logic_error>, row<runtime_error, runtime_error>, row<overflow_error, runtime_error>,
    row<underflow_error, runtime_error>, row<empty_error, runtime_error>, row<full_error, runtime_error>>;

template <class Row>
class exception_tree : public ::testing::Test {};
TYPED_TEST_SUITE(exception_tree, all_classes);

TYPED_TEST(exception_tree, is_caught_by_its_own_class_its_branch_and_the_root) {
    using thrown = typename TypeParam::class_type;
    using branch = typename TypeParam::branch_type;
    EXPECT_THROW(throw thrown("text", 7, "unit", "function"), thrown);
    EXPECT_THROW(throw thrown("text", 7, "unit", "function"), branch);
    EXPECT_THROW(throw thrown("text", 7, "unit", "function"), exception);
}

TYPED_TEST(exception_tree, is_in_one_branch_only) {
    using thrown = typename TypeParam::class_type;
    EXPECT_NE((std::is_base_of_v<logic_error, thrown>), (std::is_base_of_v<runtime_error, thrown>));
}

TYPED_TEST(exception_tree, is_no_standard_exception) {
    using thrown = typename TypeParam::class_type;
    bool standard = false;
    try {
        throw thrown("text", 7, "unit", "function");
    } catch (std::exception const&) {
        standard = true;
    } catch (exception const&) {
    }
    EXPECT_FALSE(standard);
}

TYPED_TEST(exception_tree, carries_message_and_place) {
    using thrown = typename TypeParam::class_type;
    thrown const failure("the text", 7, "strings/unit", "N::function");
    exception const& root = failure;
    EXPECT_STREQ(root.message(), "the text");
    EXPECT_EQ(root.error_state().line(), 7U);
    EXPECT_STREQ(root.error_state().file(), "strings/unit");
    EXPECT_STREQ(root.error_state().function(), "N::function");
}

TYPED_TEST(exception_tree, is_built_from_a_state) {
    using thrown = typename TypeParam::class_type;
    thrown const failure("the text", exception::state(9, "unit", "function"));
    EXPECT_STREQ(failure.message(), "the text");
    EXPECT_EQ(failure.error_state().line(), 9U);
    EXPECT_STREQ(failure.error_state().file(), "unit");
    EXPECT_STREQ(failure.error_state().function(), "function");
}

TYPED_TEST(exception_tree, copies_own_their_texts) {
    using thrown = typename TypeParam::class_type;
    thrown const failure("the text", 7, "unit", "function");
    thrown const copy(failure);
    EXPECT_STREQ(copy.message(), failure.message());
    EXPECT_NE(copy.message(), failure.message());
    EXPECT_STREQ(copy.error_state().file(), failure.error_state().file());
    EXPECT_NE(copy.error_state().file(), failure.error_state().file());
}

TYPED_TEST(exception_tree, is_assignable) {
    using thrown = typename TypeParam::class_type;
    thrown target("old", 1, "old unit", "old function");
    thrown& result = target = thrown("new", 2, "new unit", "new function");
    EXPECT_EQ(&result, &target);
    EXPECT_STREQ(target.message(), "new");
    EXPECT_EQ(target.error_state().line(), 2U);
    EXPECT_STREQ(target.error_state().file(), "new unit");
    EXPECT_STREQ(target.error_state().function(), "new function");
}

TEST(exception, is_abstract_with_a_virtual_destructor) {
    EXPECT_TRUE(std::is_abstract_v<exception>);
    EXPECT_TRUE(std::has_virtual_destructor_v<exception>);
    EXPECT_FALSE(std::is_polymorphic_v<exception::state>);
}

// A user's own class of the tree.
class own_failure : public exception {
public:
    using exception::exception;

private:
    char const* get_message() const override { return "own text"; }
};

TEST(exception, message_is_what_the_private_virtual_returns) {
    own_failure const failure(3, "unit", "function");
    exception const& root = failure;
    EXPECT_STREQ(root.message(), "own text");
}

// The private virtual stands in slot 2, behind the destructor, so the next one to come gets slot 3.
template <class Class>
struct with_one_more : Class {
    using Class::Class;
    virtual void one_more() {}
};

TEST(exception, has_no_virtual_operation_but_destructor_and_message) {
    EXPECT_EQ(support::virtual_slot(&with_one_more<own_failure>::one_more), 3U);
    EXPECT_EQ(support::virtual_slot(&with_one_more<out_of_range>::one_more), 3U);
    EXPECT_EQ(support::virtual_slot(&with_one_more<overflow_error>::one_more), 3U);
}

TEST(exception_state, cuts_a_text_of_256_bytes_to_255) {
    std::string const fits(255, 'f');
    std::string const too_long(256, 'g');
    exception::state const exact(1, fits.c_str(), fits.c_str());
    EXPECT_EQ(exact.file(), fits);
    EXPECT_EQ(exact.function(), fits);
    exception::state const cut(1, too_long.c_str(), too_long.c_str());
    EXPECT_EQ(cut.file(), std::string(255, 'g'));
    EXPECT_EQ(cut.function(), std::string(255, 'g'));
}

TEST(exception_state, a_null_pointer_leaves_an_empty_text) {
    exception::state const no_file(1, nullptr, "function");
    EXPECT_STREQ(no_file.file(), "");
    EXPECT_STREQ(no_file.function(), "function");
    exception::state const no_function(1, "unit", nullptr);
    EXPECT_STREQ(no_function.file(), "unit");
    EXPECT_STREQ(no_function.function(), "");
}

TEST(exception_state, has_the_line_and_two_arrays_of_256_characters) {
    EXPECT_EQ(sizeof(exception::state), sizeof(unsigned int) + 256 + 256);
}

constexpr std::size_t file_offset = sizeof(unsigned int);

// A record made in storage that is full of `fill`, so that one sees which bytes a constructor writes.
struct prepared_state {
    alignas(exception::state) char bytes[sizeof(exception::state)];

    template <class... Arguments>
    exception::state* construct(char fill, Arguments const&... arguments) {
        std::memset(bytes, fill, sizeof bytes);
        // Hidden from the optimiser, for which storage has no value before an object is made in it.
        asm volatile("" : : "r"(bytes) : "memory");
        return new (bytes) exception::state(arguments...);
    }

    char file_byte(std::size_t index) const {
        char byte = 0;
        std::memcpy(&byte, bytes + file_offset + index, 1);
        return byte;
    }
};

TEST(exception_state, construction_writes_no_further_than_the_terminator) {
    prepared_state storage;
    storage.construct('x', 1U, "unit", "function");
    EXPECT_EQ(storage.file_byte(4), '\0');
    EXPECT_EQ(storage.file_byte(5), 'x');
}

TEST(exception_state, copying_copies_the_texts_alone) {
    prepared_state source;
    exception::state const* const original = source.construct('s', 1U, "unit", "function");
    prepared_state target;
    exception::state const* const copy = target.construct('t', *original);
    EXPECT_STREQ(copy->file(), "unit");
    EXPECT_STREQ(copy->function(), "function");
    EXPECT_EQ(copy->line(), 1U);
    EXPECT_EQ(target.file_byte(5), 't');
}

TEST(exception_state, assignment_copies_the_bytes_behind_the_terminators_too) {
    prepared_state source;
    exception::state const* const original = source.construct('s', 1U, "unit", "function");
    prepared_state target;
    exception::state* const assigned = target.construct('t', 2U, "a longer unit", "f");
    *assigned = *original;
    EXPECT_EQ(std::memcmp(source.bytes, target.bytes, sizeof source.bytes), 0);
    EXPECT_EQ(target.file_byte(5), 's');
}

TEST(exception_state, assigning_to_itself_changes_nothing) {
    exception::state record(5, "unit", "function");
    exception::state const& alias = record;
    record = alias;
    EXPECT_EQ(record.line(), 5U);
    EXPECT_STREQ(record.file(), "unit");
    EXPECT_STREQ(record.function(), "function");
}

} // namespace
