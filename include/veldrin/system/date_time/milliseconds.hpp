// File: veldrin/system/date_time/milliseconds.hpp
//
// A `time_duration` written as one number.
//
//     system::date_time::time noon(12, 0, 0, 0);
//     noon += system::date_time::milliseconds(1500);   // 12:00:01.500

#pragma once

#include <cstdint>

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/system/date_time/time_duration.hpp"

namespace VELDRIN_2_18::system::date_time {

class VELDRIN_EXPORT milliseconds : public time_duration {
public:
    milliseconds() = default;
    milliseconds(std::int64_t count) : time_duration(0, 0, 0, count) {}
    milliseconds(milliseconds const&) = default;

    milliseconds& operator=(milliseconds const&) = default;
    milliseconds& assign(milliseconds const& other) { return *this = other; }

    // The low 32 bits of the count.
    operator int() const { return static_cast<int>(total_milliseconds()); }
};

} // namespace VELDRIN_2_18::system::date_time
