// The five formatters with any value and any options.
//
// An input is a value of eight bytes, read both as an integer and as a real, and the options behind it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "veldrin/i18n/format.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring8;

void check(bool condition) {
    if (!condition) {
        std::abort();
    }
}

bool consists_of(std::string_view text, std::string_view characters) {
    return text.find_first_not_of(characters) == std::string_view::npos;
}

void check_int(std::int64_t value, ustring8 const& options) {
    ustring8 const text = i18n::_private::format_int(value, options);
    check(!text.empty() && text.size() <= 65535);
    check(consists_of(text, " -0123456789abcdefox"));
    if (options.empty()) {
        check(text == std::to_string(value));
    }
}

void check_double(double value, ustring8 const& options) {
    ustring8 const text = i18n::_private::format_double(value, options);
    check(!text.empty() && text.size() <= 63);
    check(consists_of(text, " -+.0123456789einfa"));
}

void check_duration(double value, ustring8 const& options) {
    ustring8 const text = i18n::_private::format_duration(value, options);
    check(text == "-0" || text.back() == 's' || (text.size() > 4 && text.substr(text.size() - 4) == " sec"));
}

using scaling_formatter = ustring8 (*)(types::variant, ustring8 const&, ustring8&);

// Nothing of the unit that was there before is left.
void check_scaled(scaling_formatter format, types::variant const& value, ustring8 const& options,
                  std::size_t longest_unit) {
    ustring8 unit = "something else";
    ustring8 const number = format(value, options, unit);
    check(!number.empty() && number.size() <= 63);
    check(unit.size() <= longest_unit);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    std::int64_t whole = 0;
    double real = 0;
    if (size < sizeof whole) {
        return 0;
    }
    std::memcpy(&whole, data, sizeof whole);
    std::memcpy(&real, data, sizeof real);
    ustring8 const options(reinterpret_cast<char const*>(data) + sizeof whole, size - sizeof whole);

    check_int(whole, options);
    check_double(real, options);
    check_double(static_cast<double>(whole), options);
    check_duration(real, options);
    check_duration(static_cast<double>(whole), options);
    for (types::variant const& value : {types::variant(whole), types::variant(real)}) {
        check_scaled(i18n::_private::format_memory, value, options, 2);
        check_scaled(i18n::_private::format_metric, value, options, 5);
    }
    return 0;
}
