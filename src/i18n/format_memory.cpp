#include "veldrin/i18n/format.hpp"

#include <cstddef>
#include <string_view>

#include "i18n/format_options.hpp"
#include "i18n/scaled_number.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

// The index of a letter is the power of 1024 that it stands for.
constexpr std::string_view letters = " KMGTPEZY";
constexpr int last_index = static_cast<int>(letters.size()) - 1;

// What stands behind the "B" of a unit does not count.
bool read_unit(std::string_view name, int& index) {
    if (name.substr(0, 1) == "B") {
        index = 0;
        return true;
    }
    if (name.size() < 2 || name[1] != 'B') {
        return false;
    }
    std::size_t const letter = letters.find(name[0], 1);
    index = static_cast<int>(letter);
    return letter != std::string_view::npos;
}

bool read_target_unit(ustring8 const& value, unit_scale& scale) {
    scale.target = 0;
    return abbreviates(value, "any") || read_unit(value, *scale.target);
}

bool read_base_unit(ustring8 const& value, unit_scale& scale) {
    scale.index = 0;
    return value == "default" || read_unit(value, scale.index);
}

} // namespace

ustring8 format_memory(types::variant value, ustring8 const& options, ustring8& unit) {
    unit.clear();
    scaled_number_layout layout{"0", "0", 0};
    unit_scale scale;
    if (!read_options(options,
                      {{"target_unit", [&](ustring8 const& name) { return read_target_unit(name, scale); }},
                       {"base_unit", [&](ustring8 const& name) { return read_base_unit(name, scale); }},
                       {"precision", sets_precision(layout)},
                       {"fieldsize", sets_text(layout.field_size)}})) {
        return failure_text;
    }

    ustring8 number =
        layout.digits == 0
            ? write_whole(move_to_unit(value.as_uint64(), scale, std::uint64_t(1024), last_index))
            : write_real(move_to_unit(value.as_double(), scale, 1024.0, last_index), layout);
    if (scale.index > 0) {
        unit += letters[static_cast<std::size_t>(scale.index)];
    }
    unit += 'B';
    return number;
}

} // namespace VELDRIN_2_18::i18n::_private
