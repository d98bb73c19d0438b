// The life of the shared nil argument, in the static form of the library, where nothing but the header's own
// care orders it against the static objects of its users.

#include "veldrin/generic/varg_list.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

using namespace VELDRIN_2_18;

bool finds_nil() {
    generic::varg_list const list;
    return list.at("none") == types::nil && !list.at("none").has_name();
}

// Looks only when it is destroyed, so that it is not its own look that builds the shared argument in time.
struct late_user {
    ~late_user() {
        if (!finds_nil()) {
            std::abort();
        }
    }
};

late_user const looks_behind_main;
bool const found_before_main = finds_nil();

TEST(varg_list, has_its_shared_nil_argument_before_and_behind_main) { EXPECT_TRUE(found_before_main); }

} // namespace
