// File: veldrin/system.hpp
//
// Files and directories.

#pragma once

#include "veldrin/system/file_utility.hpp"
#include "veldrin/system/io.hpp"
