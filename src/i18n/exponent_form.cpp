#include "i18n/exponent_form.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

ustring8 fit_exponent_form(ustring8 text, std::size_t field_size) {
    constexpr std::size_t two_digit_exponent = 4; // "e+10"

    std::size_t const exponent = text.find('e');
    if (exponent != ustring8::npos && text.size() - exponent > two_digit_exponent) {
        text.erase(exponent + 2, 1);
    }
    if (text.size() < field_size) {
        text.insert(0, 1, ' ');
    } else if (text.size() > field_size) {
        text.resize(field_size);
    }
    return text;
}

} // namespace VELDRIN_2_18::i18n::_private
