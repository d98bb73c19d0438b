#include "veldrin/config/user_item.hpp"

#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/config_items.hpp"
#include "veldrin/generic/varg_list.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::base_config_item;
using config::item_list;
using config::user_item;
using support::dump_of;
using support::shown;
using held_item = memory::pointers::rc_pointer<base_config_item>;

static_assert(std::is_base_of_v<base_config_item, user_item>);
static_assert(std::is_same_v<decltype(std::declval<user_item const&>().clone()), base_config_item*>);

TEST(user_item, the_id_changes_on_copying) {
    user_item item;
    EXPECT_EQ(item.get_id(), "user item");
    user_item copy(item);
    EXPECT_EQ(copy.get_id(), "user_item");
    EXPECT_EQ(held_item(item.clone())->get_id(), "user_item");
    EXPECT_EQ(user_item(copy).get_id(), "user_item");
    EXPECT_EQ(held_item(copy.clone())->get_id(), "user_item");
    // An assignment takes over what is there.
    user_item assigned(item);
    EXPECT_EQ(&(assigned = item), &assigned);
    EXPECT_EQ(assigned.get_id(), "user item");
}

TEST(user_item, holds_what_was_set) {
    user_item item;
    EXPECT_EQ(dump_of(item), "object : user item\n|---------------\\\n|\t\tend\nend\n");
    item.set("A.B", 5, 0);
    item.set("c = d e", 4);
    item.set_array("f", generic::varg_list({"1"}, {"2"}), generic::varg_list());
    EXPECT_EQ(shown(item), "a=0:1 a.b=1:5 c=5:de f=3:nil f.0=1:1 f.1=1:2");
}

TEST(user_item, neither_loads_nor_saves_nor_unloads_anything) {
    user_item item;
    item.set("a", 1, 0);
    EXPECT_TRUE(item.load());
    EXPECT_TRUE(item.load(item_list{&item}));
    EXPECT_TRUE(item.save());
    EXPECT_TRUE(item.save(item_list{&item}));
    item.unload();
    EXPECT_EQ(dump_of(item), "object : user item\n|---------------\\\n|\t\ta : 1 1\n|\t\t|\n|\t\tend\nend\n");
}

TEST(user_item, a_copy_has_a_tree_of_its_own) {
    user_item item;
    item.set("a", 1, 0);
    user_item copy(item);
    held_item const clone(item.clone());
    user_item assigned;
    assigned = item;
    item.set("a", 2, 0);
    EXPECT_EQ(shown(copy), "a=1:1");
    EXPECT_EQ(shown(*clone), "a=1:1");
    EXPECT_EQ(shown(assigned), "a=1:1");
    EXPECT_TRUE(clone->is_created_dynamic());
    EXPECT_NE(dynamic_cast<user_item*>(clone.get()), nullptr);
}

} // namespace
