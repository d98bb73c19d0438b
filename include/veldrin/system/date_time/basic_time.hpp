// File: veldrin/system/date_time/basic_time.hpp
//
// Hour, minute, second and millisecond as plain numbers: whatever is stored is kept and read back. `time` is
// the form that checks and calculates.
//
//     system::date_time::basic_time fields;
//     fields.minute(99);   // 99, and minute() reads 99

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::system::date_time {

// All fields of a new one are 0. Each setter returns what it stored.
class VELDRIN_EXPORT basic_time {
public:
    unsigned int hour() const { return m_hour; }
    unsigned int minute() const { return m_minute; }
    unsigned int second() const { return m_second; }
    unsigned int millisecond() const { return m_millisecond; }

    unsigned int hour(unsigned int value) { return m_hour = value; }
    unsigned int minute(unsigned int value) { return m_minute = value; }
    unsigned int second(unsigned int value) { return m_second = value; }
    unsigned int millisecond(unsigned int value) { return m_millisecond = value; }

private:
    unsigned int m_hour = 0;
    unsigned int m_minute = 0;
    unsigned int m_second = 0;
    unsigned int m_millisecond = 0;
};

} // namespace VELDRIN_2_18::system::date_time
