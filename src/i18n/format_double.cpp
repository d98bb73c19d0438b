#include "veldrin/i18n/format.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdio>

#include "i18n/exponent_form.hpp"
#include "i18n/format_options.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

constexpr std::size_t buffer_size = 64;

// Prints by a format that takes a width, a precision and the value; false if the buffer does not hold it all.
bool print(ustring8& text, char const* format, int width, int precision, double value) {
    // Wider than the buffer is too wide, however wide: the library is not asked to work out more than that.
    constexpr int limit = buffer_size;
    char buffer[buffer_size];
    int const length =
        std::snprintf(buffer, buffer_size, format, std::min(width, limit), std::min(precision, limit), value);
    text = buffer;
    return length >= 0 && length < limit;
}

} // namespace

ustring8 format_double(double value, ustring8 const& options) {
    int precision = 2;
    int field_size = 0;
    if (!read_options(options,
                      {{"precision", sets_count(precision)}, {"fieldsize", sets_field_size(field_size)}})) {
        return failure_text;
    }

    ustring8 text;
    if (field_size == 0) {
        if (!print(text, "%-*.*f", 32, precision, value)) {
            return failure_text;
        }
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }
    if (!print(text, "%*.*f", field_size, precision, value)) {
        return failure_text;
    }
    auto const width = static_cast<std::size_t>(field_size);
    if (text.size() <= width) {
        return text;
    }
    if (!print(text, "%*.*e", field_size, precision, value)) {
        return failure_text;
    }
    return fit_exponent_form(text, width);
}

} // namespace VELDRIN_2_18::i18n::_private
