// File: veldrin/generic.hpp
//
// Argument lists, and conversions between text and numbers.

#pragma once

#include "veldrin/generic/argument.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/generic/varg_list.hpp"
