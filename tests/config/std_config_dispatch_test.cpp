#include "veldrin/config/std_config_dispatch.hpp"

#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/argument_vector.hpp"
#include "support/config_items.hpp"
#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"
#include "veldrin/config/commandline_item.hpp"
#include "veldrin/config/enviroment_item.hpp"
#include "veldrin/config/file_item.hpp"
#include "veldrin/config/user_item.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::commandline_item;
using config::config_dispatch;
using config::enviroment_item;
using config::file_item;
using config::item_list;
using config::std_config_dispatch;
using config::user_item;
using support::argument_vector;
using support::shown;

static_assert(std::is_base_of_v<config_dispatch, std_config_dispatch>);
static_assert(!std::is_default_constructible_v<std_config_dispatch>);

std::vector<std::string> ids_of(item_list const& items) {
    std::vector<std::string> ids;
    for (auto const& item : items) {
        ids.push_back(item->get_id());
    }
    return ids;
}

std::vector<std::string> trees_of(item_list const& items) {
    std::vector<std::string> trees;
    for (auto const& item : items) {
        trees.push_back(shown(*item));
    }
    return trees;
}

template <class Item>
Item& as(item_list const& items, int index) {
    return dynamic_cast<Item&>(**std::next(items.begin(), index));
}

class std_dispatch : public testing::Test {
protected:
    support::temporary_working_directory const directory;
    argument_vector const arguments{{"tool", "-a=1"}};
    argument_vector const environment{{"A=3", "B=3"}};
    std_config_dispatch const dispatch{arguments.count(), arguments.data(), environment.data(), "test.cfg",
                                       "spare"};
    item_list items;
};

TEST_F(std_dispatch, sets_up_its_three_sources) {
    dispatch.setup(items);
    EXPECT_EQ(ids_of(items), (std::vector<std::string>{"command line", "standard file", "enviroment"}));
    EXPECT_EQ(trees_of(items), (std::vector<std::string>{"", "", ""}));
    EXPECT_EQ(as<commandline_item>(items, 0).get_argc(), 2);
    EXPECT_EQ(as<commandline_item>(items, 0).get_argv(), arguments.data());
    EXPECT_EQ(as<file_item>(items, 1).get_filename(), "test.cfg");
    EXPECT_EQ(as<enviroment_item>(items, 2).get_envp(), environment.data());
    for (auto const& item : items) {
        EXPECT_TRUE(item->is_created_dynamic());
    }
}

TEST_F(std_dispatch, appends_to_the_list) {
    items.push_back(generic::abilities::make_dynamic<user_item>());
    dispatch.setup(items);
    dispatch.setup(items);
    EXPECT_EQ(ids_of(items),
              (std::vector<std::string>{"user item", "command line", "standard file", "enviroment",
                                        "command line", "standard file", "enviroment"}));
}

TEST_F(std_dispatch, loads_and_unloads_all_items) {
    directory->file("test.cfg", "a = 2");
    dispatch.setup(items);
    dispatch.load(items);
    std::vector<std::string> const loaded{
        "a=1:1 application=0:1 application.name=1:tool application.name.raw=1:", "a=1:2", "a=1:3 b=1:3"};
    EXPECT_EQ(trees_of(items), loaded);
    dispatch.unload(items);
    EXPECT_EQ(trees_of(items), (std::vector<std::string>{"", "", ""}));
    EXPECT_EQ(items.size(), 3U);
    dispatch.load(items);
    EXPECT_EQ(trees_of(items), loaded);
}

TEST_F(std_dispatch, saves_nothing) {
    directory->file("test.cfg", "s.a = 2");
    dispatch.setup(items);
    dispatch.load(items);
    dispatch.save(items);
    EXPECT_EQ(support::bytes_of("test.cfg"), "s.a = 2");
}

// At the first load the environment is still empty when the file is searched for.
TEST_F(std_dispatch, the_file_is_chosen_by_what_stands_in_front_of_it) {
    directory->file("test.cfg", "x = test");
    directory->file("chosen.cfg", "x = chosen");
    directory->file("tool.cfg", "x = tool");
    struct row {
        std::vector<std::string> arguments;
        std::vector<std::string> environment;
        char const* file_name;
        std::string first;
        std::string second;
    };
    row const rows[] = {
        {{"tool.exe"}, {}, "test.cfg", "test.cfg", "test.cfg"},
        {{"tool.exe", "-cfg_file=chosen.cfg"}, {}, "test.cfg", "chosen.cfg", "chosen.cfg"},
        {{"tool.exe", "-cfg_file=missing.cfg"}, {}, "test.cfg", "test.cfg", "test.cfg"},
        {{"tool.exe"}, {}, "", "tool.cfg", "tool.cfg"},
        {{"tool"}, {}, "", "", ""},
        {{"tool.exe"}, {"CFG_FILE=chosen.cfg"}, "test.cfg", "test.cfg", "chosen.cfg"},
        {{"tool.exe"}, {"CFG_FILE=chosen.cfg"}, "", "tool.cfg", "chosen.cfg"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments) + testing::PrintToString(row.environment));
        argument_vector const given_arguments(row.arguments);
        argument_vector const given_environment(row.environment);
        item_list list;
        std_config_dispatch const given(given_arguments.count(), given_arguments.data(),
                                        given_environment.data(), row.file_name, "");
        given.setup(list);
        given.load(list);
        EXPECT_EQ(as<file_item>(list, 1).get_filename(), row.first);
        given.load(list);
        EXPECT_EQ(as<file_item>(list, 1).get_filename(), row.second);
    }
}

TEST_F(std_dispatch, a_negative_count_is_none) {
    std_config_dispatch const negative(-1, arguments.data(), nullptr, "", "");
    negative.setup(items);
    EXPECT_EQ(as<commandline_item>(items, 0).get_argc(), 0);
}

TEST_F(std_dispatch, needs_neither_arguments_nor_an_environment) {
    std_config_dispatch const empty(0, nullptr, nullptr, "", "");
    empty.setup(items);
    empty.load(items);
    EXPECT_EQ(trees_of(items), (std::vector<std::string>{"", "", ""}));
}

TEST_F(std_dispatch, a_copy_sets_up_the_same) {
    std_config_dispatch const copy(dispatch);
    std::unique_ptr<config_dispatch const> const clone(dispatch.clone());
    std_config_dispatch assigned(0, nullptr, nullptr, "", "");
    EXPECT_EQ(&(assigned = dispatch), &assigned);
    EXPECT_NE(dynamic_cast<std_config_dispatch const*>(clone.get()), nullptr);
    for (config_dispatch const* const each : {static_cast<config_dispatch const*>(&copy), clone.get(),
                                              static_cast<config_dispatch const*>(&assigned)}) {
        item_list list;
        each->setup(list);
        EXPECT_EQ(as<commandline_item>(list, 0).get_argc(), 2);
        EXPECT_EQ(as<commandline_item>(list, 0).get_argv(), arguments.data());
        EXPECT_EQ(as<file_item>(list, 1).get_filename(), "test.cfg");
        EXPECT_EQ(as<enviroment_item>(list, 2).get_envp(), environment.data());
    }
}

} // namespace
