// File: veldrin/system/date_time/basic_date.hpp
//
// Year, month and day as plain numbers: whatever is stored is kept and read back. `date` is the form that
// checks and calculates.
//
//     system::date_time::basic_date fields;
//     fields.day(99);   // 99, and day() reads 99

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time {

// All fields of a new one are 0. Each setter returns what it stored.
class VELDRIN_EXPORT basic_date {
public:
    unsigned int year() const { return m_year; }
    unsigned int month() const { return m_month; }
    unsigned int day() const { return m_day; }

    unsigned int year(unsigned int value) { return m_year = value; }
    unsigned int month(unsigned int value) { return m_month = value; }
    unsigned int day(unsigned int value) { return m_day = value; }

private:
    unsigned int m_year = 0;
    unsigned int m_month = 0;
    unsigned int m_day = 0;
};

} // namespace VELDRIN_2_18::system::date_time
