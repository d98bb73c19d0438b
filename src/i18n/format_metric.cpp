#include "veldrin/i18n/format.hpp"

#include <algorithm>
#include <cstddef>

#include "i18n/format_options.hpp"
#include "i18n/scaled_number.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

struct metric_prefix {
    char const* short_name;
    char const* long_name;
};

// In steps of 1000; the one without a name has index 0.
constexpr metric_prefix prefixes[] = {
    {"a", "atto"},  {"f", "femto"}, {"p", "pico"}, {"n", "nano"},  {"mc", "micro"},
    {"m", "milli"}, {"", ""},       {"k", "kilo"}, {"M", "mega"},  {"G", "giga"},
    {"T", "tera"},  {"P", "peta"},  {"E", "exa"},  {"Z", "zetta"}, {"Y", "yotta"},
};
constexpr int first_index = -6;

// The automatic climb stops at "T".
constexpr int last_automatic_index = 4;

bool read_prefix(ustring8 const& name, int& index) {
    if (abbreviates(name, "base")) {
        index = 0;
        return true;
    }
    auto const prefix =
        std::find_if(std::begin(prefixes), std::end(prefixes),
                     [&](metric_prefix const& candidate) { return name == candidate.short_name; });
    index = static_cast<int>(prefix - std::begin(prefixes)) + first_index;
    return prefix != std::end(prefixes);
}

} // namespace

ustring8 format_metric(types::variant value, ustring8 const& options, ustring8& unit) {
    unit.clear();
    scaled_number_layout layout{"3", "0", 3};
    unit_scale scale;
    bool is_short = true;
    if (!read_options(
            options,
            {{"base_unit", [&](ustring8 const& name) { return read_prefix(name, scale.index); }},
             {"target_unit", [&](ustring8 const& name) { return read_prefix(name, scale.target.emplace()); }},
             {"short_form", sets_flag(is_short)},
             {"precision", sets_precision(layout)},
             {"fieldsize", sets_text(layout.field_size)}})) {
        return failure_text;
    }

    // A negative whole number is written as the unsigned one of the same bits.
    ustring8 number =
        layout.digits == 0
            ? write_whole(static_cast<std::uint64_t>(
                  move_to_unit(value.as_int64(), scale, std::int64_t(1000), last_automatic_index)))
            : write_real(move_to_unit(value.as_double(), scale, 1000.0, last_automatic_index), layout);
    metric_prefix const& prefix = prefixes[scale.index - first_index];
    unit = is_short ? prefix.short_name : prefix.long_name;
    return number;
}

} // namespace VELDRIN_2_18::i18n::_private
