// File: veldrin/strings.hpp
//
// Text in three Unicode forms, code pages, and the text utilities.

#pragma once

#include "veldrin/strings/ansi.hpp"
#include "veldrin/strings/case.hpp"
#include "veldrin/strings/code_page.hpp"
#include "veldrin/strings/console.hpp"
#include "veldrin/strings/replace.hpp"
#include "veldrin/strings/split.hpp"
#include "veldrin/strings/unicode.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
