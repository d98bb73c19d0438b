// Handles of one object in several threads: the count is atomic and the value never changes.

#include "veldrin/types/variant.hpp"

#include <atomic>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using VELDRIN_2_18::types::variant;

constexpr int thread_count = 4;
constexpr int rounds = 3000;

template <class Work>
void run_in_threads(Work work) {
    std::vector<std::thread> threads;
    for (int index = 0; index != thread_count; ++index) {
        threads.emplace_back(work, index);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(variant_threads, one_object_is_copied_read_and_let_go_by_all) {
    variant const shared("0x10");
    std::atomic<int> sum{0};
    run_in_threads([&shared, &sum](int) {
        for (int round = 0; round != rounds; ++round) {
            variant const copy(shared);
            variant assigned;
            assigned = copy;
            sum += assigned.as_int();
            sum += assigned.as_bool() ? 1 : 0;
        }
    });
    EXPECT_EQ(sum, 17 * thread_count * rounds);
    EXPECT_EQ(shared.as_string(), "0x10");
}

TEST(variant_threads, the_last_of_several_handles_frees_the_object) {
    for (int round = 0; round != 200; ++round) {
        std::vector<variant> handles(thread_count, variant(std::string(64, 'x')));
        run_in_threads([&handles](int index) {
            variant& own = handles[static_cast<std::size_t>(index)];
            own = static_cast<int>(own.as_string().size()) + index;
        });
        for (int index = 0; index != thread_count; ++index) {
            ASSERT_EQ(handles[static_cast<std::size_t>(index)].as_int(), 64 + index);
        }
    }
}

TEST(variant_threads, texts_of_floating_values_are_made_side_by_side) {
    variant const shared(2.5);
    std::atomic<int> wrong{0};
    run_in_threads([&shared, &wrong](int) {
        for (int round = 0; round != 500; ++round) {
            wrong += shared.as_string() == "2.5" && shared.as_wstring().size() == 3 ? 0 : 1;
        }
    });
    EXPECT_EQ(wrong, 0);
}

} // namespace
