// How often both forms go to the allocator, and what they hold when that has nothing left.

#include <cstddef>
#include <cstdint>
#include <locale>
#include <memory>
#include <new>
#include <string>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "veldrin/serialization.hpp"

namespace {

using namespace VELDRIN_2_18;
using serialization::serialize_buffer;

template <class Form>
class serialize_allocation : public testing::Test {};

using both_forms = testing::Types<serialization::serialize_binary_buf, serialization::serialize_text_buf>;
TYPED_TEST_SUITE(serialize_allocation, both_forms);

struct operation {
    char const* name;
    void (*append)(serialize_buffer&);
};

std::string const long_text(100, 'x');

constexpr operation operations[] = {
    {"int8", [](serialize_buffer& to) { to.append_int8(INT8_MIN); }},
    {"int16", [](serialize_buffer& to) { to.append_int16(INT16_MIN); }},
    {"int32", [](serialize_buffer& to) { to.append_int32(INT32_MIN); }},
    {"int64", [](serialize_buffer& to) { to.append_int64(INT64_MIN); }},
    {"uint8", [](serialize_buffer& to) { to.append_uint8(UINT8_MAX); }},
    {"uint16", [](serialize_buffer& to) { to.append_uint16(UINT16_MAX); }},
    {"uint32", [](serialize_buffer& to) { to.append_uint32(UINT32_MAX); }},
    {"uint64", [](serialize_buffer& to) { to.append_uint64(UINT64_MAX); }},
    {"float", [](serialize_buffer& to) { to.append_float(0.1F, 9); }},
    {"double", [](serialize_buffer& to) { to.append_double(0.1, 17); }},
    {"string", [](serialize_buffer& to) { to.append_string(long_text); }},
    {"itself", [](serialize_buffer& to) { to.append_string(to.as_str()); }},
};

// Storage grows by doubling, and nothing else is allocated.
TYPED_TEST(serialize_allocation, appending_allocates_only_to_grow) {
    for (operation const& each : operations) {
        TypeParam buffer;
        std::size_t const before = support::allocations;
        for (int count = 0; count < 4096 && buffer.as_str().size() < 100000; ++count) {
            each.append(buffer);
        }
        EXPECT_LE(support::allocations - before, 18U) << each.name;
    }
}

TYPED_TEST(serialize_allocation, reading_numbers_allocates_nothing) {
    TypeParam buffer;
    for (operation const& each : operations) {
        each.append(buffer);
    }
    std::size_t const before = support::allocations;
    EXPECT_EQ(buffer.read_int8(), INT8_MIN);
    EXPECT_EQ(buffer.read_int16(), INT16_MIN);
    EXPECT_EQ(buffer.read_int32(), INT32_MIN);
    EXPECT_EQ(buffer.read_int64(), INT64_MIN);
    EXPECT_EQ(buffer.read_uint8(), UINT8_MAX);
    EXPECT_EQ(buffer.read_uint16(), UINT16_MAX);
    EXPECT_EQ(buffer.read_uint32(), UINT32_MAX);
    EXPECT_EQ(buffer.read_uint64(), UINT64_MAX);
    EXPECT_EQ(support::allocations, before);
}

TYPED_TEST(serialize_allocation, a_nested_buffer_takes_one_object_and_one_copy) {
    TypeParam buffer;
    buffer.append_string(long_text);
    std::size_t const before = support::allocations;
    std::unique_ptr<serialize_buffer> const nested(buffer.read_buffer());
    EXPECT_EQ(support::allocations - before, 2U);
    EXPECT_EQ(nested->as_str(), long_text);
}

// A value is there whole or not at all, at every size that the storage may have before it.
TYPED_TEST(serialize_allocation, a_value_without_memory_leaves_the_bytes_as_they_were) {
    for (operation const& each : operations) {
        int failures = 0;
        for (std::size_t size = 0; size < 70; ++size) {
            TypeParam buffer(std::string(size, 'a'));
            std::string const before = buffer.as_str();
            if (!support::succeeds_with(0, [&] { each.append(buffer); })) {
                ++failures;
                EXPECT_EQ(buffer.as_str(), before) << each.name << ' ' << size;
            }
        }
        EXPECT_GT(failures, 0) << each.name;
    }
}

TYPED_TEST(serialize_allocation, a_nested_buffer_without_memory_leaves_nothing_behind) {
    TypeParam buffer;
    buffer.append_string(long_text);
    for (std::size_t left = 0; left < 2; ++left) {
        buffer.reset_read();
        support::allocations_left = left;
        EXPECT_THROW(delete buffer.read_buffer(), std::bad_alloc);
        support::allocations_left = SIZE_MAX;
    }
}

TYPED_TEST(serialize_allocation, a_read_without_memory_moves_behind_the_value) {
    TypeParam buffer;
    buffer.append_string(long_text);
    buffer.append_string(long_text);
    buffer.append_int8(5);
    support::allocations_left = 0;
    EXPECT_THROW(buffer.read_string(), std::bad_alloc);
    EXPECT_THROW(delete buffer.read_buffer(), std::bad_alloc);
    support::allocations_left = SIZE_MAX;
    EXPECT_EQ(buffer.read_int8(), 5);
}

// The standard library looks a locale's signs up when the first number is written by it. A stream that fails
// there says nothing unless it is asked to.
TEST(serialize_text_allocation, a_real_that_the_locale_has_no_memory_for_is_not_written_in_part) {
    std::locale const previous = std::locale::global(std::locale(std::locale(), new std::numpunct<char>));
    serialization::serialize_text_buf buffer;
    support::allocations_left = 0;
    EXPECT_THROW(buffer.append_double(0.5, 6), std::bad_alloc);
    support::allocations_left = SIZE_MAX;
    std::locale::global(previous);
    EXPECT_EQ(buffer.as_str(), "");
}

} // namespace
