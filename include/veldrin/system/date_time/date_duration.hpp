// File: veldrin/system/date_time/date_duration.hpp
//
// A signed count of days. Sums and differences wrap at 32 bits.
//
//     system::date_time::date_duration duration(3);
//     duration -= system::date_time::date_duration(10);   // -7 days

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT date_duration {
public:
    date_duration() = default;
    date_duration(int days) : m_days(days) {}
    date_duration(date_duration const&) = default;
    ~date_duration() = default;

    int days() const { return m_days; }

    // Sets the count and returns it.
    int days(int value) { return m_days = value; }

    date_duration& operator=(date_duration const&) = default;
    date_duration& assign(date_duration const& other) { return *this = other; }

    date_duration& plus_assign(date_duration const& other);
    date_duration& minus_assign(date_duration const& other);
    date_duration& operator+=(date_duration const& other) { return plus_assign(other); }
    date_duration& operator-=(date_duration const& other) { return minus_assign(other); }

private:
    int m_days = 0;
};

} // namespace VELDRIN_2_18::system::date_time
