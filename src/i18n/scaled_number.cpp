#include "i18n/scaled_number.hpp"

#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/i18n/format.hpp"
#include "veldrin/strings/replace.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

option_setter sets_precision(scaled_number_layout& layout) {
    return [&layout](ustring8 const& value) {
        layout.precision = value;
        return read_count(value, layout.digits);
    };
}

// The replacement reaches into the texts too: a ";" in one of them separates options.
ustring8 write_real(double value, scaled_number_layout const& layout) {
    ustring8 options = "precision;" + layout.precision + ";fieldsize;" + layout.field_size;
    strings::replace_all(options, ustring8(";"), ustring8("\x01"));
    return format_double(value, options);
}

ustring8 write_whole(std::uint64_t value) {
    char text[21];
    generic::convert::ulltoa(value, text, 10);
    return text;
}

} // namespace VELDRIN_2_18::i18n::_private
