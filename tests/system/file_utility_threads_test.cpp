// Any function in any thread, as long as the files differ or are only read.

#include "veldrin/system/file_utility.hpp"

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/temporary_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring8;

TEST(file_utility_threads, walks_and_files_do_not_disturb_each_other) {
    support::temporary_directory directory;
    for (int number = 0; number < 20; ++number) {
        directory.file("top/" + std::to_string(number % 4) + "/" + std::to_string(number));
    }
    ustring8 const top = directory.path("top");
    std::vector<ustring8> expected;
    system::get_directory_files(top, expected);
    std::vector<ustring8> const expected_list = system::list_directory(top);
    ASSERT_EQ(expected.size(), 20u);

    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&, thread] {
            ustring8 const own = directory.path("own" + std::to_string(thread));
            for (int round = 0; round < 100; ++round) {
                std::vector<ustring8> files;
                system::get_directory_files(top, files);
                ustring8 contents;
                bool const good = files == expected && system::list_directory(top) == expected_list &&
                                  system::store_file(own, own) == 0 &&
                                  system::load_file(own, contents) == 0 && contents == own;
                failures += good ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(failures, 0);
}

} // namespace
