// File: veldrin/veldrin.hpp
//
// The whole library in one include.

#pragma once

#include "veldrin/config.hpp"
#include "veldrin/foundation.hpp"
#include "veldrin/generic.hpp"
#include "veldrin/i18n.hpp"
#include "veldrin/parser.hpp"
#include "veldrin/serialization.hpp"
#include "veldrin/strings.hpp"
#include "veldrin/system.hpp"
#include "veldrin/types.hpp"
