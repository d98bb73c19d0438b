#include "veldrin/system/date_time/date_duration.hpp"

#include "system/date_time/wrapping.hpp"

namespace VELDRIN_2_18::system::date_time {

date_duration& date_duration::plus_assign(date_duration const& other) {
    m_days = _private::wrapping_sum(m_days, other.m_days);
    return *this;
}

date_duration& date_duration::minus_assign(date_duration const& other) {
    m_days = _private::wrapping_difference(m_days, other.m_days);
    return *this;
}

} // namespace VELDRIN_2_18::system::date_time
