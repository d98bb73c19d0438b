// File: veldrin/types.hpp
//
// Values: the variant, the radix, the absence of a value.

#pragma once

#include "veldrin/types/nil.hpp"
#include "veldrin/types/radix.hpp"
#include "veldrin/types/variant.hpp"
