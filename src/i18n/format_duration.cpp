#include "veldrin/i18n/format.hpp"

#include <string>

#include "i18n/format_options.hpp"

namespace VELDRIN_2_18::i18n::_private {

using strings::ustring8;

namespace {

// Takes the whole units out of the seconds and returns how many there were. The variant's cast has a result
// for every real: the low 32 bits of the 64-bit integer.
std::int32_t take(double& seconds, std::int32_t seconds_per_unit) {
    std::int32_t const count = types::variant(seconds).as_int32() / seconds_per_unit;
    seconds -= static_cast<double>(count) * seconds_per_unit;
    return count;
}

struct unit_names {
    char const* days;
    char const* hours;
    char const* minutes;
    char const* seconds;
};

constexpr unit_names long_names = {" dy ", " hr ", " min ", " sec"};
constexpr unit_names short_names = {"d ", "h ", "m ", "s"};

} // namespace

ustring8 format_duration(double value, ustring8 const& options) {
    ustring8 precision = "2";
    bool is_short = false;
    if (!read_options(options, {{"precision", sets_text(precision)}, {"short_form", sets_flag(is_short)}})) {
        return failure_text;
    }

    std::int32_t const days = take(value, 86400);
    std::int32_t const hours = take(value, 3600);
    std::int32_t const minutes = take(value, 60);

    unit_names const& names = is_short ? short_names : long_names;
    ustring8 result;
    if (days != 0) {
        result += std::to_string(days) + names.days;
    }
    if (!result.empty() || hours != 0) {
        result += std::to_string(hours) + names.hours;
    }
    if (!result.empty() || minutes != 0) {
        result += std::to_string(minutes) + names.minutes;
    }
    result += format_double(value, "prec\x01" + precision);
    return result += names.seconds;
}

} // namespace VELDRIN_2_18::i18n::_private
