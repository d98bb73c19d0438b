// File: veldrin/namespace.hpp
//
// All names of the library live in the versioned namespace VELDRIN_2_18; `veldrin` is the alias that
// applications write.

#pragma once

namespace VELDRIN_2_18 {}

namespace veldrin = VELDRIN_2_18;
