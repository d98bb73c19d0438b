#include <cstddef>

#include <gtest/gtest.h>

#include "support/allocations.hpp"
#include "veldrin/config/module_config_dispatch.hpp"
#include "veldrin/config/std_config_dispatch.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_dispatch;
using config::item_list;

std::size_t blocks_in_use() { return support::allocations - support::deallocations; }

// Memory runs out at each allocation in turn. Returns how many it takes without.
std::size_t set_up_with_too_little_memory(config_dispatch const& dispatch) {
    for (std::size_t enough = 0;; ++enough) {
        std::size_t const before = blocks_in_use();
        bool done = false;
        {
            item_list items;
            done = support::succeeds_with(enough, [&] { dispatch.setup(items); });
        }
        EXPECT_EQ(blocks_in_use(), before) << enough;
        if (done) {
            return enough;
        }
    }
}

TEST(config_dispatch, the_setup_of_a_program_loses_no_item_when_memory_runs_out) {
    char const* const texts[] = {"program", nullptr};
    config::std_config_dispatch const dispatch(1, texts, texts, "a_name_too_long_for_the_text_itself.cfg",
                                               "");
    EXPECT_GE(set_up_with_too_little_memory(dispatch), 6U);
}

TEST(config_dispatch, the_setup_of_a_module_loses_no_item_when_memory_runs_out) {
    char const* const texts[] = {"a=1", nullptr};
    config::module_config_dispatch const dispatch(generic::varg_list({"first.cfg"}, {"second.cfg"}), texts);
    EXPECT_GE(set_up_with_too_little_memory(dispatch), 8U);
}

} // namespace
