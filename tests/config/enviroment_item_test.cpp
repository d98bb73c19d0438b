#include "veldrin/config/enviroment_item.hpp"

#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/argument_vector.hpp"
#include "support/config_items.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::base_config_item;
using config::enviroment_item;
using config::item_list;
using strings::ustring8;
using support::argument_vector;
using support::dump_of;
using support::shown;
using held_item = memory::pointers::rc_pointer<base_config_item>;

static_assert(std::is_base_of_v<base_config_item, enviroment_item>);
static_assert(std::is_same_v<decltype(std::declval<enviroment_item&>().get_envp()), char const* const*>);
static_assert(std::is_same_v<decltype(std::declval<enviroment_item const&>().clone()), base_config_item*>);

TEST(enviroment_item, has_one_id_however_it_was_made) {
    struct renamed_item : enviroment_item {
        using base_config_item::id;
        using enviroment_item::enviroment_item;
    };
    renamed_item item(nullptr);
    EXPECT_EQ(item.get_id(), "enviroment");
    item.id = "renamed";
    EXPECT_EQ(enviroment_item(item).get_id(), "enviroment");
    EXPECT_EQ(held_item(item.clone())->get_id(), "enviroment");
}

TEST(enviroment_item, gives_back_what_it_was_given) {
    argument_vector const environment({"A=1"});
    EXPECT_EQ(enviroment_item(environment.data()).get_envp(), environment.data());
    EXPECT_EQ(enviroment_item(nullptr).get_envp(), nullptr);
}

TEST(enviroment_item, reads_each_entry) {
    struct row {
        std::vector<std::string> entries;
        std::string nodes;
    };
    row const rows[] = {
        {{}, ""},
        {{"HOME=/home/me"}, "home=1:/home/me"},
        {{"B=2", "A=1"}, "a=1:1 b=1:2"},
        {{"A=1", "a=2"}, "a=1:2"},
        {{"A="}, "a=1:"},
        {{"A"}, "a=1:"},
        {{""}, "=1:"},
        {{"=C:=C:\\files"}, "=1:C:=C:\\files"},
        {{"A=b=c==d"}, "a=1:b=c==d"},
        // A name with a separator nests.
        {{"A.B=1", "C/D=2", "E\\F=3"}, "a=0:1 a.b=1:1 c=0:1 c.d=1:2 e=0:1 e.f=1:3"},
        // Blanks and tabs are dropped, unless they are quoted.
        {{"PATH=C:\\Program Files"}, "path=1:C:\\ProgramFiles"},
        {{"PATH=\"C:\\Program Files\""}, "path=1:C:\\Program Files"},
        {{"A B = c\td"}, "ab=1:cd"},
        {{"A=b \"c d\" e"}, "a=1:bc de"},
        // So is what stands behind a line end.
        {{"A=b\nc"}, "a=1:b"},
        // Nothing is a comment, nothing an array.
        {{"A=b#c//d,e"}, "a=1:b#c//d,e"},
        {{"A[]=1,2"}, "a[]=1:1,2"},
        {{"-A=1"}, "-a=1:1"},
        // Only "=" separates.
        {{"A:b=c"}, "a:b=1:c"},
        {{"A==b"}, "a==b=1:"},
        {{"A+=b"}, "a+=b=1:"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.entries));
        argument_vector const environment(row.entries);
        enviroment_item item(environment.data());
        EXPECT_TRUE(item.load());
        EXPECT_EQ(shown(item), row.nodes);
    }
}

TEST(enviroment_item, stores_texts) {
    argument_vector const environment({"A=1"});
    enviroment_item item(environment.data());
    item.load();
    EXPECT_EQ(item.get_value("a")->second.type(), typeid(ustring8));
}

TEST(enviroment_item, loads_nothing_without_an_environment) {
    enviroment_item item(nullptr);
    EXPECT_TRUE(item.load());
    EXPECT_EQ(shown(item), "");
}

TEST(enviroment_item, unloads_and_loads_again_from_the_same_environment) {
    argument_vector const environment({"A.B=1"});
    enviroment_item item(environment.data());
    base_config_item& base = item;
    EXPECT_TRUE(base.load(item_list{&item}));
    std::string const dump = "object : enviroment\n|---------------\\\n"
                             "|\t\ta : true\n|\t\t|---------------\\\n"
                             "|\t\t|\t\tb : 1 1\n|\t\t|\t\t|\n"
                             "|\t\t|\t\tend\n"
                             "|\t\tend\nend\n";
    EXPECT_EQ(dump_of(item), dump);
    base.unload();
    EXPECT_EQ(dump_of(item), "object : enviroment\n|---------------\\\n|\t\tend\nend\n");
    EXPECT_TRUE(base.load());
    EXPECT_EQ(dump_of(item), dump);
}

TEST(enviroment_item, a_copy_has_a_tree_of_its_own_and_the_same_environment) {
    argument_vector const environment({"A=1"});
    enviroment_item item(environment.data());
    item.load();
    enviroment_item copy(item);
    held_item const clone(item.clone());
    enviroment_item assigned(nullptr);
    EXPECT_EQ(&(assigned = item), &assigned);
    item.unload();
    for (base_config_item* const each :
         {static_cast<base_config_item*>(&copy), clone.get(), static_cast<base_config_item*>(&assigned)}) {
        EXPECT_EQ(shown(*each), "a=1:1");
        EXPECT_EQ(each->get_id(), "enviroment");
        each->unload();
        EXPECT_EQ(shown(*each), "");
        each->load();
        EXPECT_EQ(shown(*each), "a=1:1");
    }
    EXPECT_EQ(copy.get_envp(), environment.data());
    EXPECT_EQ(assigned.get_envp(), environment.data());
    EXPECT_TRUE(clone->is_created_dynamic());
    EXPECT_NE(dynamic_cast<enviroment_item*>(clone.get()), nullptr);
}

TEST(enviroment_item, saves_nothing) {
    enviroment_item item(nullptr);
    EXPECT_TRUE(item.save());
    EXPECT_TRUE(item.save(item_list()));
}

} // namespace
