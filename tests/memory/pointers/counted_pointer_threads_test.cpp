// Several threads share counted objects: no reference is lost, and the last holder ends the object.

#include "veldrin/memory/pointers/counted_pointer.hpp"

#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"

namespace {

namespace abilities = VELDRIN_2_18::generic::abilities;
namespace pointers = VELDRIN_2_18::memory::pointers;

constexpr std::size_t thread_count = 4;

struct subject : abilities::reference_count_pointer_ability<subject> {
    explicit subject(std::atomic<int>& destroyed_count) : destroyed(destroyed_count) {}
    virtual ~subject() {
        for (int const mark : marks) {
            sum += mark;
        }
        destroyed += sum;
    }
    using reference_count_pointer_ability::dec_pointer_ref;
    using reference_count_pointer_ability::get_ref_count;
    using reference_count_pointer_ability::inc_pointer_ref;

    std::atomic<int>& destroyed;
    int marks[thread_count] = {};
    int sum = 0;
};

// Starts all threads at once and waits for them.
template <class Work>
void run_in_threads(Work work) {
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    for (std::size_t index = 0; index != thread_count; ++index) {
        threads.emplace_back([&ready, &work, index] {
            ++ready;
            while (ready != thread_count) {
                std::this_thread::yield();
            }
            work(index);
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

template <class Pointer>
class counted_pointer_threads : public testing::Test {};

using both_pointers = testing::Types<pointers::rc_pointer<subject>, pointers::shared_pointer<subject>>;
TYPED_TEST_SUITE(counted_pointer_threads, both_pointers);

TYPED_TEST(counted_pointer_threads, copies_and_releases_lose_no_reference) {
    std::atomic<int> destroyed{0};
    subject object(destroyed);
    {
        TypeParam const shared(&object);
        run_in_threads([&shared](std::size_t) {
            for (int round = 0; round != 20000; ++round) {
                TypeParam const first(shared);
                TypeParam second;
                second = first;
            }
        });
        EXPECT_EQ(object.get_ref_count(), 1U);
    }
    EXPECT_EQ(object.get_ref_count(), 0U);
}

// Each thread writes to the object without a lock before it lets go; whoever is last reads it all in the
// destructor. That is a race unless the count orders everything.
TYPED_TEST(counted_pointer_threads, the_last_thread_destroys_and_sees_what_the_others_wrote) {
    constexpr int rounds = 300;
    std::atomic<int> destroyed{0};
    for (int round = 0; round != rounds; ++round) {
        std::vector<TypeParam> holders(thread_count, TypeParam(abilities::make_dynamic<subject>(destroyed)));
        run_in_threads([&holders](std::size_t index) {
            holders[index]->marks[index] = 1;
            holders[index] = nullptr;
        });
        ASSERT_EQ(destroyed, static_cast<int>(thread_count) * (round + 1));
    }
}

TEST(reference_count_threads, exactly_one_thread_is_told_zero) {
    std::atomic<int> destroyed{0};
    for (int round = 0; round != 300; ++round) {
        subject object(destroyed);
        for (std::size_t index = 0; index != thread_count; ++index) {
            object.inc_pointer_ref();
        }
        std::atomic<int> zeros{0};
        run_in_threads([&object, &zeros](std::size_t) { zeros += object.dec_pointer_ref() == 0 ? 1 : 0; });
        ASSERT_EQ(zeros, 1);
    }
}

} // namespace
