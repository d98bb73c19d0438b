// A date whose protected members can be reached.

#pragma once

#include "veldrin/system/date_time/date.hpp"

namespace support {

class open_date : public VELDRIN_2_18::system::date_time::date {
public:
    using date::date;
    using date::get_days;
    using date::is_valid_day;
    using date::is_valid_month;
    using date::pJulian_day_number;
};

inline open_date date_of_number(unsigned int number) {
    open_date result;
    result.pJulian_day_number(number);
    return result;
}

} // namespace support
