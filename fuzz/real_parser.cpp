// The real-number parsers, on the input as the text. What they give is a finite number, and the same number
// again when it is printed with all its digits and parsed.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>

#include "require.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace VELDRIN_2_18::generic::convert;

template <class Real>
void check_text(strings::ustring8 const& text, Real (*parse)(strings::ustring8 const&),
                Real (*parse_in_locale)(strings::ustring8 const&, std::locale const&)) {
    Real const value = parse(text);
    require(std::isfinite(value));
    require(parse_in_locale(text, std::locale::classic()) == value);

    std::ostringstream printed;
    printed.precision(std::numeric_limits<Real>::max_digits10);
    printed << value;
    require(parse(printed.str()) == value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    strings::ustring8 const text(reinterpret_cast<char const*>(data), size);
    check_text<float>(text, str_to_float, str_to_float);
    check_text<double>(text, str_to_double, str_to_double);
    check_text<long double>(text, str_to_long_double, str_to_long_double);
    return 0;
}
