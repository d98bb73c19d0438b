// File: veldrin/types/nil.hpp
//
// The tag for the absence of a value. Classes that have a state for it take it in a constructor, in `assign`,
// `operator=`, `equal` and `operator==`.
//
//     veldrin::strings::code_page page;
//     page = veldrin::types::nil;

#pragma once

#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::types {

class nil_t {};

inline constexpr nil_t nil{};

} // namespace VELDRIN_2_18::types
