// File: veldrin/types.hpp
//
// Values: the variant, lengths, the colour, the radix, the absence of a value.

#pragma once

#include "veldrin/types/absolute_unit.hpp"
#include "veldrin/types/color.hpp"
#include "veldrin/types/device_unit.hpp"
#include "veldrin/types/nil.hpp"
#include "veldrin/types/radix.hpp"
#include "veldrin/types/variant.hpp"
