#include "veldrin/config/config_token.hpp"

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

namespace {

using namespace VELDRIN_2_18;
using config::config_token;
using tok_types = config_token::tok_types;

static_assert(!std::is_polymorphic_v<config_token>);
static_assert(std::is_same_v<std::underlying_type_t<tok_types>, std::int32_t>);
static_assert(std::is_convertible_v<tok_types, int>);
static_assert(std::is_same_v<decltype(config_token::text), std::string>);
static_assert(std::is_same_v<decltype(config_token::end_pos), unsigned int>);
static_assert(std::is_same_v<decltype(config_token::start_pos), unsigned int>);
static_assert(std::is_same_v<decltype(config_token::type), tok_types>);
static_assert(std::is_same_v<decltype(config_token().CvtTokStr()), std::string const>);

struct rendering {
    std::int32_t value;
    tok_types type;
    char const* rendered; // of a token whose text is "x y"
};

constexpr rendering renderings[] = {
    {0, config_token::T_VAR, "T_VAR :[x y]"},
    {1, config_token::T_NUM, "T_NUM"},
    {2, config_token::T_NEWLINE, "T_NEWLINE"},
    {3, config_token::T_TABCHAR, "T_TABCHAR"},
    {4, config_token::T_UNKNOWN, "T_UNKNOWN:[x y]"},
    {5, config_token::T_END, "T_END"},
    {6, config_token::T_SPACE, "T_SPACE"},
    {7, config_token::T_EQ, "T_EQ"},
    {8, config_token::T_EQEQ, "T_EQEQ"},
    {9, config_token::T_GT, "T_GT"},
    {10, config_token::T_GTEQ, "T_GTEQ"},
    {11, config_token::T_LT, "T_LT"},
    {12, config_token::T_LTEQ, "T_LTEQ"},
    {13, config_token::T_COLON, "T_COLON"},
    {14, config_token::T_COLONEQ, "T_COLONEQ"},
    {15, config_token::T_POUND, "T_POUND"},
    {16, config_token::T_FSFS, "T_FSFS"},
    {17, config_token::T_DOT, "T_DOT"},
    {18, config_token::T_SBRACKET, "T_SBRACKET"},
    {19, config_token::T_EBRACKET, "T_EBRACKET"},
    {20, config_token::T_PLUS, "T_PLUS"},
    {21, config_token::T_MINUS, "T_MINUS"},
    {22, config_token::T_PLUSEQ, "T_PLUSEQ"},
    {23, config_token::T_MINUSEQ, "T_MINUSEQ"},
    {24, config_token::T_TIMESDIV, "unknown type"},
    {25, config_token::T_DIVTIMES, "unknown type"},
    {26, config_token::T_TIMES, "T_TIMES"},
    {27, config_token::T_DIV, "T_DIV"},
    {28, config_token::T_TIMESEQ, "T_TIMESEQ"},
    {29, config_token::T_DIVEQ, "T_DIVEQ"},
    {30, config_token::T_STRING, "T_STRING:[x y]"},
    {31, config_token::T_NON_ALPHA_NUM, "T_NON_ALPHA_NUM:[x y]"},
};
static_assert(std::size(renderings) == 32);

config_token token_of(tok_types type, std::string const& text) {
    config_token token;
    token.type = type;
    token.text = text;
    return token;
}

TEST(config_token, renders_each_type) {
    for (rendering const& row : renderings) {
        EXPECT_EQ(row.type, row.value);
        EXPECT_EQ(token_of(row.type, "x y").CvtTokStr(), row.rendered);
    }
}

TEST(config_token, renders_what_is_no_type_as_unknown) {
    for (std::int32_t const value :
         {-1, 32, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(token_of(static_cast<tok_types>(value), "x").CvtTokStr(), "unknown type");
    }
}

TEST(config_token, renders_any_text) {
    EXPECT_EQ(token_of(config_token::T_VAR, "").CvtTokStr(), "T_VAR :[]");
    EXPECT_EQ(token_of(config_token::T_UNKNOWN, "\r").CvtTokStr(), "T_UNKNOWN:[\r]");
    EXPECT_EQ(token_of(config_token::T_STRING, std::string("a\0[", 3)).CvtTokStr(),
              std::string("T_STRING:[a\0[]", 14));
}

TEST(config_token, has_an_empty_text_at_first) { EXPECT_EQ(config_token().text, ""); }

TEST(config_token, is_a_value) {
    config_token first = token_of(config_token::T_VAR, "name");
    first.start_pos = 3;
    first.end_pos = 7;
    config_token const copy(first);
    config_token assigned;
    assigned = first;
    first = config_token();
    EXPECT_EQ(first.text, "");
    for (config_token const& each : {copy, assigned}) {
        EXPECT_EQ(each.type, config_token::T_VAR);
        EXPECT_EQ(each.text, "name");
        EXPECT_EQ(each.start_pos, 3U);
        EXPECT_EQ(each.end_pos, 7U);
    }
}

} // namespace
