// File: veldrin/config.hpp
//
// Layered configuration: trees of keys, and the sources that fill them.

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/config/commandline_item.hpp"
#include "veldrin/config/config_dispatch.hpp"
#include "veldrin/config/config_manager.hpp"
#include "veldrin/config/config_token.hpp"
#include "veldrin/config/config_tree.hpp"
#include "veldrin/config/enviroment_item.hpp"
#include "veldrin/config/file_item.hpp"
#include "veldrin/config/module_config_dispatch.hpp"
#include "veldrin/config/std_config_dispatch.hpp"
#include "veldrin/config/user_item.hpp"
