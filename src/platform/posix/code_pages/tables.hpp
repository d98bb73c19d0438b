// Made by tools/code_pages/generate.cpp from tools/code_pages/answers/: not to be edited.
// clang-format off

#pragma once

#include "platform/posix/code_pages/table.hpp"

namespace VELDRIN_2_18::platform::code_pages {

extern table const cp_932;
extern table const cp_936;
extern table const cp_949;
extern table const cp_950;
extern table const cp_1250;
extern table const cp_1251;
extern table const cp_1252;
extern table const cp_1253;
extern table const cp_1254;
extern table const cp_1255;
extern table const cp_1256;
extern table const cp_1257;
extern table const cp_1258;
extern table const cp_20866;
extern table const cp_21866;
extern table const cp_28591;
extern table const cp_28592;
extern table const cp_28593;
extern table const cp_28594;
extern table const cp_28595;
extern table const cp_28596;
extern table const cp_28597;
extern table const cp_28598;
extern table const cp_28599;
extern table const cp_28605;

inline constexpr table const* tables[] = {
    &cp_932,
    &cp_936,
    &cp_949,
    &cp_950,
    &cp_1250,
    &cp_1251,
    &cp_1252,
    &cp_1253,
    &cp_1254,
    &cp_1255,
    &cp_1256,
    &cp_1257,
    &cp_1258,
    &cp_20866,
    &cp_21866,
    &cp_28591,
    &cp_28592,
    &cp_28593,
    &cp_28594,
    &cp_28595,
    &cp_28596,
    &cp_28597,
    &cp_28598,
    &cp_28599,
    &cp_28605,
};

} // namespace VELDRIN_2_18::platform::code_pages
