// File: veldrin/generic.hpp
//
// Argument lists, and conversions between numbers, text and bytes, and between units of length.

#pragma once

#include "veldrin/generic/argument.hpp"
#include "veldrin/generic/convert/byte_order.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/generic/convert/unit_conversion.hpp"
#include "veldrin/generic/varg_list.hpp"
