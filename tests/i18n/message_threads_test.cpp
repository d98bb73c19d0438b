#include "veldrin/i18n/message.hpp"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/option_text.hpp"

namespace {

using namespace VELDRIN_2_18;
using generic::argument;
using i18n::message_item;
using support::option_text;

TEST(message_threads, read_one_message_with_one_list_of_arguments) {
    i18n::message_t const message({message_item("copied "), message_item("size", message_item::memory_type),
                                   message_item(" "), message_item("size", message_item::memory_unit_type),
                                   message_item(" in "),
                                   message_item(option_text("time=p=1"), message_item::duration_type)});
    generic::varg_list const args(argument("size", 2048), argument("time", 61.5));
    std::vector<std::thread> readers;
    for (int reader = 0; reader < 4; ++reader) {
        readers.emplace_back([&] {
            for (int round = 0; round < 200; ++round) {
                i18n::message_t const copy(message);
                EXPECT_EQ(copy.as_utf8(args), "copied 2 KB in 1 min 1.5 sec");
                EXPECT_EQ(message.as_utf8(args), "copied 2 KB in 1 min 1.5 sec");
            }
        });
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
}

} // namespace
