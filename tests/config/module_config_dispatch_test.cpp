#include "veldrin/config/module_config_dispatch.hpp"

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
#include "veldrin/config/enviroment_item.hpp"
#include "veldrin/config/file_item.hpp"
#include "veldrin/config/user_item.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_dispatch;
using config::enviroment_item;
using config::file_item;
using config::item_list;
using config::module_config_dispatch;
using config::user_item;
using support::argument_vector;
using support::shown;
using texts = std::vector<std::string>;

static_assert(std::is_base_of_v<config_dispatch, module_config_dispatch>);

// "id" of each item, for a file "name".
texts names_of(item_list const& items) {
    texts names;
    for (auto const& item : items) {
        auto* const file = dynamic_cast<file_item*>(item.get());
        names.push_back(file != nullptr ? "file " + file->get_filename() : std::string(item->get_id()));
    }
    return names;
}

texts trees_of(item_list const& items) {
    texts trees;
    for (auto const& item : items) {
        trees.push_back(shown(*item));
    }
    return trees;
}

class module_dispatch : public testing::Test {
protected:
    support::temporary_working_directory const directory;
    argument_vector const environment{{"A=3"}};
    module_config_dispatch const dispatch{generic::varg_list({"first.cfg"}, {"second.cfg"}),
                                          environment.data()};
    item_list items;
};

TEST_F(module_dispatch, sets_up_its_files_the_environment_and_the_user_item) {
    dispatch.setup(items);
    EXPECT_EQ(names_of(items), (texts{"file first.cfg", "file second.cfg", "enviroment", "user_item"}));
    EXPECT_EQ(trees_of(items), (texts{"", "", "", ""}));
    EXPECT_EQ(dynamic_cast<enviroment_item&>(**std::next(items.begin(), 2)).get_envp(), environment.data());
    EXPECT_NE(dynamic_cast<user_item*>(items.back().get()), nullptr);
    for (auto const& item : items) {
        EXPECT_TRUE(item->is_created_dynamic());
    }
}

TEST_F(module_dispatch, takes_the_texts_of_the_arguments_in_their_order) {
    generic::varg_list const files({"b", "named.cfg"}, {5}, {"a", ""}, {"last.cfg"});
    module_config_dispatch(files, nullptr).setup(items);
    EXPECT_EQ(names_of(items),
              (texts{"file named.cfg", "file 5", "file ", "file last.cfg", "enviroment", "user_item"}));
}

TEST_F(module_dispatch, needs_neither_files_nor_an_environment) {
    module_config_dispatch const empty(generic::varg_list(), nullptr);
    empty.setup(items);
    empty.load(items);
    EXPECT_EQ(names_of(items), (texts{"enviroment", "user_item"}));
    EXPECT_EQ(trees_of(items), (texts{"", ""}));
}

TEST_F(module_dispatch, appends_to_the_list) {
    items.push_back(generic::abilities::make_dynamic<user_item>());
    dispatch.setup(items);
    EXPECT_EQ(names_of(items),
              (texts{"user item", "file first.cfg", "file second.cfg", "enviroment", "user_item"}));
}

TEST_F(module_dispatch, loads_and_unloads_all_but_the_user_item) {
    directory->file("first.cfg", "a = 1");
    directory->file("second.cfg", "a = 2");
    dispatch.setup(items);
    items.back()->set("a", 4, 0);
    dispatch.load(items);
    EXPECT_EQ(trees_of(items), (texts{"a=1:1", "a=1:2", "a=1:3", "a=1:4"}));
    dispatch.unload(items);
    EXPECT_EQ(trees_of(items), (texts{"", "", "", "a=1:4"}));
    dispatch.load(items);
    EXPECT_EQ(trees_of(items), (texts{"a=1:1", "a=1:2", "a=1:3", "a=1:4"}));
}

TEST_F(module_dispatch, saves_nothing) {
    directory->file("first.cfg", "s.a = 1");
    dispatch.setup(items);
    dispatch.load(items);
    dispatch.save(items);
    EXPECT_EQ(support::bytes_of("first.cfg"), "s.a = 1");
}

// The environment is loaded behind the files, the user item is there before.
TEST_F(module_dispatch, the_user_item_tells_the_files_where_to_look) {
    directory->file("chosen.cfg", "a = 5");
    dispatch.setup(items);
    items.back()->set("cfg_file", "chosen.cfg", 0);
    dispatch.load(items);
    EXPECT_EQ(names_of(items), (texts{"file chosen.cfg", "file chosen.cfg", "enviroment", "user_item"}));
}

TEST_F(module_dispatch, a_file_tells_the_ones_behind_it_where_to_look) {
    directory->file("first.cfg", "cfg_file = chosen.cfg");
    directory->file("chosen.cfg", "a = 5");
    dispatch.setup(items);
    dispatch.load(items);
    EXPECT_EQ(names_of(items), (texts{"file first.cfg", "file chosen.cfg", "enviroment", "user_item"}));
}

TEST_F(module_dispatch, a_copy_sets_up_the_same) {
    module_config_dispatch const copy(dispatch);
    std::unique_ptr<config_dispatch const> const clone(dispatch.clone());
    module_config_dispatch assigned(generic::varg_list(), nullptr);
    EXPECT_EQ(&(assigned = dispatch), &assigned);
    EXPECT_NE(dynamic_cast<module_config_dispatch const*>(clone.get()), nullptr);
    for (config_dispatch const* const each : {static_cast<config_dispatch const*>(&copy), clone.get(),
                                              static_cast<config_dispatch const*>(&assigned)}) {
        item_list list;
        each->setup(list);
        EXPECT_EQ(names_of(list), (texts{"file first.cfg", "file second.cfg", "enviroment", "user_item"}));
        EXPECT_EQ(dynamic_cast<enviroment_item&>(**std::next(list.begin(), 2)).get_envp(),
                  environment.data());
    }
}

} // namespace
