#include "veldrin/strings/console.hpp"

namespace VELDRIN_2_18::strings::gh2 {

// Bound before any code runs, in the static form of the library too.
constinit std::basic_istream<wchar_t>& ucin = std::wcin;
constinit std::basic_ostream<wchar_t>& ucout = std::wcout;
constinit std::basic_ostream<wchar_t>& ucerr = std::wcerr;

} // namespace VELDRIN_2_18::strings::gh2
