// File: veldrin/config.hpp
//
// Layered configuration: trees of keys, and the sources that fill them.

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/config/config_token.hpp"
#include "veldrin/config/config_tree.hpp"
