#include "veldrin/i18n/message_catalogs.hpp"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/temporary_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::message_catalogs;
using strings::ustring8;

// The last store to let go of the catalogue is one of the threads'.
TEST(message_catalogs_threads, hold_one_catalogue_in_stores_of_their_own) {
    support::temporary_directory const directory;
    message_catalogs catalogs;
    catalogs.load(ustring8(directory.file("a.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='en'>"
                                                   "<msg name='m'>text</msg></catalog></xmc>")),
                  "en");
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([store = catalogs] {
            for (int round = 0; round < 200; ++round) {
                message_catalogs copy(store);
                EXPECT_EQ(copy.message("c", "m").as_utf8(generic::varg_list()), "text");
                copy.erase(ustring8("c"));
                EXPECT_TRUE(store.has_message("c", "m"));
            }
        });
    }
    catalogs.erase();
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_TRUE(catalogs == types::nil);
}

} // namespace
