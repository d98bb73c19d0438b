// What rc_pointer and shared_pointer have in common.

#include "veldrin/memory/pointers/counted_pointer.hpp"

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;
namespace pointers = VELDRIN_2_18::memory::pointers;

struct subject : abilities::reference_count_pointer_ability<subject> {
    explicit subject(int& destroyed_count) : destroyed(destroyed_count) {}
    virtual ~subject() { ++destroyed; }
    using reference_count_pointer_ability::get_ref_count;
    int name() const { return 42; }

    int& destroyed;
};

template <class Pointer>
class counted_pointer : public testing::Test {
protected:
    subject* on_the_heap() { return abilities::make_dynamic<subject>(m_destroyed); }

    int m_destroyed = 0;
};

using both_pointers = testing::Types<pointers::rc_pointer<subject>, pointers::shared_pointer<subject>>;
TYPED_TEST_SUITE(counted_pointer, both_pointers);

TYPED_TEST(counted_pointer, is_one_machine_word) { EXPECT_EQ(sizeof(TypeParam), sizeof(void*)); }

TYPED_TEST(counted_pointer, is_empty_by_default_and_from_null) {
    TypeParam const by_default;
    TypeParam const from_null(nullptr);
    for (TypeParam const* pointer : {&by_default, &from_null}) {
        EXPECT_TRUE(pointer->is_null());
        EXPECT_FALSE(static_cast<bool>(*pointer));
        EXPECT_EQ(pointer->get(), nullptr);
    }
    EXPECT_TRUE(by_default == from_null);
}

TYPED_TEST(counted_pointer, counts_one_reference_for_each_pointer) {
    subject object(this->m_destroyed);
    TypeParam const first(&object);
    EXPECT_EQ(object.get_ref_count(), 1U);
    TypeParam const second(first);
    EXPECT_EQ(object.get_ref_count(), 2U);
    {
        TypeParam third;
        third = second;
        EXPECT_EQ(object.get_ref_count(), 3U);
    }
    EXPECT_EQ(object.get_ref_count(), 2U);
}

TYPED_TEST(counted_pointer, copies_of_an_empty_pointer_are_empty) {
    TypeParam const empty;
    TypeParam const copy(empty);
    EXPECT_TRUE(copy.is_null());
    TypeParam assigned;
    assigned = empty;
    assigned = nullptr;
    EXPECT_TRUE(assigned.is_null());
}

TYPED_TEST(counted_pointer, a_stack_object_lives_on_at_count_zero) {
    {
        subject object(this->m_destroyed);
        {
            TypeParam const first(&object);
            TypeParam const second(first);
        }
        EXPECT_EQ(object.get_ref_count(), 0U);
        EXPECT_EQ(this->m_destroyed, 0);
        TypeParam const again(&object);
        EXPECT_EQ(object.get_ref_count(), 1U);
    }
    EXPECT_EQ(this->m_destroyed, 1);
}

TYPED_TEST(counted_pointer, a_static_object_lives_on_at_count_zero) {
    static int destroyed = 0;
    static subject object(destroyed);
    { TypeParam const pointer(&object); }
    EXPECT_EQ(object.get_ref_count(), 0U);
    EXPECT_EQ(destroyed, 0);
}

TYPED_TEST(counted_pointer, an_object_of_plain_new_is_its_owners) {
    auto const owner = std::make_unique<subject>(this->m_destroyed);
    { TypeParam const pointer(owner.get()); }
    EXPECT_EQ(this->m_destroyed, 0);
}

TYPED_TEST(counted_pointer, a_heap_object_goes_exactly_with_its_second_pointer) {
    TypeParam first(this->on_the_heap());
    TypeParam second(first);
    first = nullptr;
    EXPECT_EQ(this->m_destroyed, 0);
    EXPECT_EQ(second->get_ref_count(), 1U);
    second = nullptr;
    EXPECT_EQ(this->m_destroyed, 1);
}

TYPED_TEST(counted_pointer, the_destructor_releases) {
    { TypeParam const pointer(this->on_the_heap()); }
    EXPECT_EQ(this->m_destroyed, 1);
}

TYPED_TEST(counted_pointer, assigning_the_same_object_changes_nothing) {
    TypeParam pointer(this->on_the_heap());
    TypeParam const other(pointer);
    TypeParam const& itself = pointer;
    pointer = itself;
    EXPECT_EQ(pointer->get_ref_count(), 2U);
    pointer = other;
    EXPECT_EQ(pointer->get_ref_count(), 2U);
    pointer = other.get();
    EXPECT_EQ(pointer->get_ref_count(), 2U);
    EXPECT_EQ(this->m_destroyed, 0);
}

TYPED_TEST(counted_pointer, assigning_the_only_pointer_to_itself_keeps_the_object) {
    TypeParam pointer(this->on_the_heap());
    TypeParam& itself = pointer;
    pointer = itself;
    pointer = std::move(itself);
    pointer = pointer.get();
    EXPECT_EQ(pointer->get_ref_count(), 1U);
    EXPECT_EQ(this->m_destroyed, 0);
}

TYPED_TEST(counted_pointer, a_copy_of_itself_is_empty) {
    alignas(TypeParam) std::byte storage[sizeof(TypeParam)];
    std::memset(storage, 0x5A, sizeof storage);
    // Hidden from the optimiser, for which storage has no value before an object is made in it.
    asm volatile("" : : "r"(storage) : "memory");
    auto* const place = reinterpret_cast<TypeParam*>(storage);
    new (storage) TypeParam(static_cast<TypeParam const&>(*place));
    EXPECT_TRUE(place->is_null());
    place->~TypeParam();
}

TYPED_TEST(counted_pointer, assignment_releases_the_old_object_and_takes_the_new_one) {
    int second_destroyed = 0;
    subject second(second_destroyed);
    TypeParam pointer(this->on_the_heap());
    TypeParam const holder(&second);
    EXPECT_EQ(&(pointer = holder), &pointer);
    EXPECT_EQ(this->m_destroyed, 1);
    EXPECT_EQ(second.get_ref_count(), 2U);
    EXPECT_EQ(&(pointer = this->on_the_heap()), &pointer);
    EXPECT_EQ(second.get_ref_count(), 1U);
    EXPECT_EQ(pointer->get_ref_count(), 1U);
}

TYPED_TEST(counted_pointer, moving_hands_the_reference_over) {
    TypeParam source(this->on_the_heap());
    TypeParam target(std::move(source));
    EXPECT_TRUE(source.is_null());
    EXPECT_EQ(target->get_ref_count(), 1U);
    source = std::move(target);
    EXPECT_TRUE(target.is_null());
    EXPECT_EQ(source->get_ref_count(), 1U);
    target = TypeParam(this->on_the_heap());
    target = std::move(source);
    EXPECT_EQ(this->m_destroyed, 1);
    EXPECT_EQ(target->get_ref_count(), 1U);
}

TYPED_TEST(counted_pointer, moving_between_pointers_to_one_object_drops_one_reference) {
    TypeParam first(this->on_the_heap());
    TypeParam second(first);
    first = std::move(second);
    EXPECT_EQ(first->get_ref_count(), 1U);
    EXPECT_EQ(this->m_destroyed, 0);
}

TYPED_TEST(counted_pointer, gives_access_to_the_object) {
    subject object(this->m_destroyed);
    TypeParam const pointer(&object);
    EXPECT_EQ(pointer.get(), &object);
    EXPECT_EQ(&*pointer, &object);
    EXPECT_EQ(pointer->name(), 42);
    EXPECT_EQ(&pointer.checked(), &object);
    EXPECT_TRUE(static_cast<bool>(pointer));
    EXPECT_FALSE(pointer.is_null());
}

TYPED_TEST(counted_pointer, checked_access_to_nothing_throws_a_plain_literal) {
    TypeParam const empty;
    try {
        empty.checked();
        FAIL() << "nothing was thrown";
    } catch (char const* message) {
        EXPECT_STREQ(message, "unreferanced object");
    }
}

TYPED_TEST(counted_pointer, compares_by_object) {
    subject one(this->m_destroyed);
    subject other(this->m_destroyed);
    TypeParam const first(&one);
    TypeParam const second(&one);
    TypeParam const third(&other);
    EXPECT_TRUE(first == second);
    EXPECT_FALSE(first != second);
    EXPECT_TRUE(first != third);
    EXPECT_FALSE(first == third);
    EXPECT_TRUE(first != TypeParam());
}

// To compare a plain pointer takes no reference to its object, whose first would be its last.
TYPED_TEST(counted_pointer, compares_with_a_plain_pointer_and_leaves_its_object_alone) {
    subject* const raw = this->on_the_heap();
    TypeParam pointer;
    EXPECT_FALSE(pointer == raw);
    EXPECT_FALSE(raw == pointer);
    EXPECT_TRUE(pointer != raw);
    EXPECT_TRUE(raw != pointer);
    EXPECT_TRUE(pointer == nullptr);
    EXPECT_TRUE(nullptr == pointer);
    EXPECT_EQ(this->m_destroyed, 0);
    pointer = raw;
    EXPECT_TRUE(pointer == raw);
    EXPECT_TRUE(raw == pointer);
    EXPECT_FALSE(pointer != raw);
    EXPECT_FALSE(raw != pointer);
    EXPECT_TRUE(pointer != nullptr);
    EXPECT_TRUE(nullptr != pointer);
    EXPECT_EQ(raw->get_ref_count(), 1U);
}

// Knows its holder and looks at it in its last moment.
template <template <class> class Pointer>
struct looking_back : abilities::reference_count_pointer_ability<looking_back<Pointer>> {
    looking_back(Pointer<looking_back> const& its_holder, bool& found_empty)
        : holder(its_holder), holder_was_empty(found_empty) {}
    virtual ~looking_back() { holder_was_empty = holder.is_null(); }

    Pointer<looking_back> const& holder;
    bool& holder_was_empty;
};

template <template <class> class Pointer>
bool dying_object_finds_its_holder_empty() {
    bool was_empty = false;
    {
        Pointer<looking_back<Pointer>> holder;
        holder = abilities::make_dynamic<looking_back<Pointer>>(holder, was_empty);
    }
    return was_empty;
}

TEST(counted_pointer_destructor, is_null_while_the_object_goes) {
    EXPECT_TRUE(dying_object_finds_its_holder_empty<pointers::rc_pointer>());
    EXPECT_TRUE(dying_object_finds_its_holder_empty<pointers::shared_pointer>());
}

// The object held is the only thing that keeps the next one alive.
struct link : abilities::reference_count_pointer_ability<link> {
    explicit link(std::string& text) : log(text) {}
    virtual ~link() { log += "x"; }

    std::string& log;
    pointers::rc_pointer<link> next;
};

TEST(counted_pointer_chain, steps_to_an_object_that_lives_only_inside_the_released_one) {
    std::string log;
    pointers::rc_pointer<link> head(abilities::make_dynamic<link>(log));
    head->next = abilities::make_dynamic<link>(log);
    head = head->next;
    EXPECT_EQ(log, "x");
    EXPECT_TRUE(head->next.is_null());
    head = head->next;
    EXPECT_EQ(log, "xx");
    EXPECT_TRUE(head.is_null());
}

} // namespace
