// Lexer and keys under a locale that has letters beyond ASCII.

#include <gtest/gtest.h>

#include "support/german_locale.hpp"
#include "veldrin/config/base_config_item.hpp"
#include "veldrin/config/config_tree.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_token;

using config_under_locale = support::german_locale;

struct reader : config::base_config_item {
    using config::base_config_item::get_token;
};

TEST_F(config_under_locale, the_lexer_knows_ascii_letters_alone) {
    config_token token;
    unsigned int position = 0;
    EXPECT_EQ(reader::get_token("\xE4z\xC4", position, token), config_token::T_NON_ALPHA_NUM);
    EXPECT_EQ(reader::get_token("\xE4z\xC4", position, token), config_token::T_VAR);
    EXPECT_EQ(token.text, "z");
    EXPECT_EQ(reader::get_token("\xE4z\xC4", position, token), config_token::T_NON_ALPHA_NUM);
    EXPECT_EQ(token.text, "\xC4");
}

TEST_F(config_under_locale, keys_are_lowered_as_the_process_does_it) {
    config::config_tree tree;
    tree.set_node("\xC4.A", "x", 0);
    EXPECT_NE(tree.get_node("\xE4.a"), nullptr);
    EXPECT_NE(tree.get_node("\xC4.A"), nullptr);
}

} // namespace
