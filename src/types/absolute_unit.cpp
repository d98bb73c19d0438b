#include "veldrin/types/absolute_unit.hpp"

#include <cmath>

#include "types/truncated.hpp"

namespace VELDRIN_2_18::types {

namespace {

// 0 for a type that is none.
double units_per_inch(absolute_unit::unit_types type) {
    constexpr double table[] = {0, 100000, 300, 25.4, 2.54, 1, 72, 6, 96};
    return type >= absolute_unit::md && type <= absolute_unit::px96 ? table[type] : 0;
}

} // namespace

absolute_unit::absolute_unit(double length_in_md)
    : absolute_unit(_private::truncated<std::int32_t>(length_in_md)) {}

std::int32_t absolute_unit::as_md() const { return _private::truncated<std::int32_t>(m_md); }

// The md themselves are not scaled by their own 100000 to the inch: that would round them.
double absolute_unit::value() const {
    unit_types const type = do_type();
    if (type == md) {
        return m_md;
    }
    double const per_inch = units_per_inch(type);
    return per_inch != 0 ? m_md * per_inch / m_md_per_inch : 0;
}

void absolute_unit::value(double value) {
    unit_types const type = do_type();
    if (type == md) {
        m_md = value;
        return;
    }
    double const per_inch = units_per_inch(type);
    m_md = per_inch != 0 ? value * m_md_per_inch / per_inch : 0;
}

template <int N>
absolute_unit::unit_types basic_absolute_impl<N>::do_type() const {
    return static_cast<unit_types>(N);
}

template <int N>
std::int32_t basic_absolute_impl<N>::do_as_int32() const {
    return _private::truncated<std::int32_t>(std::floor(value() + 0.5));
}

template <int N>
double basic_absolute_impl<N>::do_as_double() const {
    return std::floor(value() * 100 + 0.5) / 100;
}

template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::md>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::dot300>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::mm>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::cm>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::inch>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::point>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::pica>;
template class VELDRIN_EXPORT basic_absolute_impl<absolute_unit::px96>;

} // namespace VELDRIN_2_18::types
