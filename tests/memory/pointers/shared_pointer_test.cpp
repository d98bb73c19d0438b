#include "veldrin/memory/pointers/shared_pointer.hpp"

#include <cstdint>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;
using VELDRIN_2_18::memory::pointers::shared_pointer;

struct record : abilities::reference_count_pointer_ability<record> {
    explicit record(std::string& text) : log(text) {}
    ~record() { log += "record "; }

    std::string& log;
    std::string payload = std::string(100, 'x');
};

TEST(shared_pointer, destroys_a_class_with_no_virtual_destructor) {
    ASSERT_FALSE(std::is_polymorphic_v<record>);
    std::string log;
    shared_pointer<record> pointer(abilities::make_dynamic<record>(log));
    pointer = nullptr;
    EXPECT_EQ(log, "record ");
}

// A class with a virtual destructor is ended like any other: by the destructor of the class that the pointer
// names.
struct base_record : abilities::reference_count_pointer_ability<base_record> {
    explicit base_record(std::string& text) : log(text) {}
    virtual ~base_record() { log += "base "; }

    std::string& log;
};

struct derived_record : base_record {
    using base_record::base_record;
    ~derived_record() override { log += "derived "; }
};

TEST(shared_pointer, calls_the_destructor_of_exactly_its_class) {
    std::string log;
    shared_pointer<base_record> pointer(abilities::make_dynamic<derived_record>(log));
    pointer = nullptr;
    EXPECT_EQ(log, "base ");
}

struct alignas(64) aligned_record : abilities::reference_count_pointer_ability<aligned_record> {
    char payload[64] = {};
};

TEST(shared_pointer, frees_the_storage_of_an_over_aligned_class) {
    shared_pointer<aligned_record> const pointer(abilities::make_dynamic<aligned_record>());
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pointer.get()) % 64, 0U);
}

} // namespace
