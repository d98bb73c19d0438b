// File: veldrin/strings/console.hpp
//
// The standard wide streams under the library's names. They can be used from any code that includes this
// header, constructors of static objects too.
//
//     strings::gh2::ucout << L"ready";
//
// They behave as the standard streams do: a character that the process's locale lacks may come out as "?",
// and on Linux nothing that is written to `std::cout` after `ucout` comes out.

#pragma once

// The whole of it, not only the declarations of the streams: it is what sets them up before the including
// file's own static objects.
#include <iostream>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::strings::gh2 {

VELDRIN_EXPORT extern std::basic_istream<wchar_t>& ucin;  // std::wcin
VELDRIN_EXPORT extern std::basic_ostream<wchar_t>& ucout; // std::wcout
VELDRIN_EXPORT extern std::basic_ostream<wchar_t>& ucerr; // std::wcerr

} // namespace VELDRIN_2_18::strings::gh2
