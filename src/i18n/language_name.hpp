// Names of languages as files and callers write them: "fr_CA", "fr-CA" and "fr.CA" are one language.

#pragma once

#include "veldrin/strings/replace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n::_private {

// With each "." and "-" written as "_".
inline strings::ustring8 underscored(strings::ustring8 lang) {
    strings::replace_all(lang, strings::ustring8("."), strings::ustring8("_"));
    strings::replace_all(lang, strings::ustring8("-"), strings::ustring8("_"));
    return lang;
}

} // namespace VELDRIN_2_18::i18n::_private
