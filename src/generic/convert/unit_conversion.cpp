#include "veldrin/generic/convert/unit_conversion.hpp"

namespace VELDRIN_2_18::generic::convert {

using types::absolute_unit;
using types::device_unit;
using md_length = types::basic_absolute_impl<absolute_unit::md>;

namespace {

constexpr std::int32_t md_per_inch = 100000;

// A length given in a unit that only the run time knows. What is left when it is copied as a `md_length` are
// the md, with their fraction.
class given_length : public md_length {
public:
    given_length(double length, unit_types type) : m_type(type >= md && type <= px96 ? type : md) {
        value(length);
    }

protected:
    unit_types do_type() const override { return m_type; }

private:
    unit_types m_type;
};

std::int32_t wrapped_product(std::int32_t left, std::int32_t right) {
    return static_cast<std::int32_t>(std::int64_t{left} * right);
}

// The one quotient that 32 bits cannot hold, the smallest number by -1, wraps too.
std::int32_t whole_inches(std::int32_t pixels, std::int32_t resolution) {
    return static_cast<std::int32_t>(std::int64_t{pixels} / resolution);
}

} // namespace

device_unit to_device_unit(device_unit const& length) { return length; }

device_unit to_device_unit(double pixels, device_unit::unit_types) { return device_unit(pixels); }

device_unit to_device_unit(std::int32_t pixels, device_unit::unit_types) { return device_unit(pixels); }

device_unit to_device_unit(absolute_unit const& length, std::int32_t resolution) {
    return device_unit(wrapped_product(length.as_md(), resolution) / md_per_inch);
}

device_unit to_device_unit(double length, absolute_unit::unit_types type, std::int32_t resolution) {
    return to_device_unit(given_length(length, type), resolution);
}

device_unit to_device_unit(std::int32_t length, absolute_unit::unit_types type, std::int32_t resolution) {
    return to_device_unit(static_cast<double>(length), type, resolution);
}

device_unit to_dpx(device_unit const& length) { return to_device_unit(length); }

device_unit to_dpx(double pixels, device_unit::unit_types type) { return to_device_unit(pixels, type); }

device_unit to_dpx(std::int32_t pixels, device_unit::unit_types type) { return to_device_unit(pixels, type); }

device_unit to_dpx(absolute_unit const& length, std::int32_t resolution) {
    return to_device_unit(length, resolution);
}

device_unit to_dpx(double length, absolute_unit::unit_types type, std::int32_t resolution) {
    return to_device_unit(length, type, resolution);
}

device_unit to_dpx(std::int32_t length, absolute_unit::unit_types type, std::int32_t resolution) {
    return to_device_unit(length, type, resolution);
}

md_length to_md(absolute_unit const& length) {
    md_length result;
    result = length;
    return result;
}

md_length to_md(double const& length, absolute_unit::unit_types type) {
    return to_md(given_length(length, type));
}

md_length to_md(std::int32_t const& length, absolute_unit::unit_types type) {
    return to_md(static_cast<double>(length), type);
}

md_length to_md(double const& pixels, device_unit::unit_types, std::int32_t resolution) {
    return to_md(pixels / resolution * md_per_inch, absolute_unit::md);
}

md_length to_md(device_unit const& length, std::int32_t resolution) {
    return to_md(wrapped_product(whole_inches(length.as_int32(), resolution), md_per_inch),
                 absolute_unit::md);
}

md_length to_md(std::int32_t const& pixels, device_unit::unit_types, std::int32_t resolution) {
    return to_md(device_unit(pixels), resolution);
}

} // namespace VELDRIN_2_18::generic::convert
