// What threads may share: a tree, as long as nobody writes it. Each thread lexes texts of its own.

#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/config_entries.hpp"
#include "veldrin/config/base_config_item.hpp"
#include "veldrin/config/config_tree.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_token;
using config::config_tree;

template <class Action>
void run_in_threads(Action action) {
    std::vector<std::thread> threads;
    for (int index = 0; index < 4; ++index) {
        threads.emplace_back(action);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

TEST(config_tree, may_be_read_by_several_threads) {
    config_tree tree;
    tree.set_node("list", types::nil, 2);
    tree.set_node("list.0", "x", 0);
    run_in_threads([&] {
        for (int round = 0; round < 100; ++round) {
            EXPECT_EQ(support::shown(tree.get_node("List.0")), "1:x");
            config_tree::entry_list entries;
            tree.get_array("list", entries);
            tree.get_value_pair_array("", entries, true, "");
            EXPECT_EQ(support::shown(entries), "0=1:x list=3:nil list.0=1:x");
            std::ostringstream stream;
            stream << tree;
            config_tree copy(tree);
            copy.set_node("list.0", "y", 0);
        }
    });
    EXPECT_EQ(support::shown(tree.get_node("list.0")), "1:x");
}

TEST(get_token, may_be_called_by_several_threads) {
    struct reader : config::base_config_item {
        using config::base_config_item::get_token;
    };
    run_in_threads([] {
        for (int round = 0; round < 100; ++round) {
            config_token token;
            unsigned int position = 0;
            std::string texts;
            while (reader::get_token("a1 = \"x y\"", position, token) != config_token::T_END) {
                texts += token.text + "|";
            }
            EXPECT_EQ(texts, "a|1|1|=|=|x y|");
        }
    });
}

} // namespace
