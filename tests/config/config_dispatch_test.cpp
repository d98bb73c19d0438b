#include "veldrin/config/config_dispatch.hpp"

#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "support/virtual_slot.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_dispatch;
using config::item_list;
using support::virtual_slot;

static_assert(std::is_abstract_v<config_dispatch>);
static_assert(std::has_virtual_destructor_v<config_dispatch>);
static_assert(std::is_base_of_v<generic::abilities::clone_ability, config_dispatch>);
static_assert(std::is_same_v<decltype(std::declval<config_dispatch const&>().clone()), config_dispatch*>);

// A policy of an application's own: no items at all.
class counting_dispatch : public config_dispatch {
public:
    explicit counting_dispatch(int& alive) : m_alive(alive) { ++m_alive; }
    counting_dispatch(counting_dispatch const& other) : config_dispatch(other), m_alive(other.m_alive) {
        ++m_alive;
    }
    ~counting_dispatch() override { --m_alive; }

    void setup(item_list&) const override {}
    void load(item_list&) const override {}
    void unload(item_list&) const override {}
    void save(item_list&) const override {}
    config_dispatch* clone() const override { return new counting_dispatch(*this); }

private:
    int& m_alive;
};

TEST(config_dispatch, has_its_virtual_operations_in_their_fixed_order) {
    EXPECT_EQ(virtual_slot(&config_dispatch::setup), 2U);
    EXPECT_EQ(virtual_slot(&config_dispatch::load), 3U);
    EXPECT_EQ(virtual_slot(&config_dispatch::unload), 4U);
    EXPECT_EQ(virtual_slot(&config_dispatch::save), 5U);
    EXPECT_EQ(virtual_slot(&config_dispatch::clone), 6U);
}

TEST(config_dispatch, is_destroyed_as_what_it_is) {
    int alive = 0;
    {
        counting_dispatch const original(alive);
        config_dispatch const* const clone = original.clone();
        EXPECT_EQ(alive, 2);
        delete clone;
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

} // namespace
