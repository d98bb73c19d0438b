// The exponent form of a number as a field takes it.

#pragma once

#include <cstddef>

#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n::_private {

// Drops the first of three exponent digits, whatever it is: standard libraries that always write three are
// meant. Then a text that is too short gets one blank in front, one that is too long is cut.
strings::ustring8 fit_exponent_form(strings::ustring8 text, std::size_t field_size);

} // namespace VELDRIN_2_18::i18n::_private
