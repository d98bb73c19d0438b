// Dates, times and durations under a sequence of operations, each of 10 bytes: one that picks it, one that
// says how to cut the number down, and the number. After each, what must hold for every value is checked,
// some of it against plain arithmetic.

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>

#include "require.hpp"
#include "veldrin/exceptions/logic_error.hpp"
#include "veldrin/system/date_time/date_time.hpp"
#include "veldrin/system/date_time/milliseconds.hpp"

namespace {

using namespace VELDRIN_2_18;
using system::date_time::date;
using system::date_time::date_duration;
using system::date_time::date_time_t;
using system::date_time::milliseconds;
using system::date_time::time;
using system::date_time::time_duration;

constexpr std::int64_t milliseconds_in_day = 86400000;

class open_date : public date {
public:
    using date::pJulian_day_number;
    explicit open_date(date const& value) : date(value) {}
    explicit open_date(unsigned int number) { pJulian_day_number(number); }
};

unsigned int number_of(date const& value) { return open_date(value).pJulian_day_number(); }

bool is_same(date const& left, date const& right) {
    return left.year() == right.year() && left.month() == right.month() && left.day() == right.day() &&
           left.is_day_constrained() == right.is_day_constrained();
}

std::int64_t in_day(time const& value) { return (value - time()).total_milliseconds(); }

// Whether it came to its end.
template <class Action>
bool is_done(Action const& action) {
    try {
        action();
        return true;
    } catch (exceptions::out_of_range const&) {
        return false;
    }
}

void check_date(date const& value) {
    require(value.month() <= date::max_months_in_year && value.day() <= date::max_days_in_month);
    // Beyond this year day numbers wrap; before March of the year 0 there are none.
    bool const is_counted = value.year() < 11759221 && (value.year() > 0 || value.month() > 2);
    bool const is_leap_day = value.month() == 2 && value.day() == 29;
    if (is_counted && !is_leap_day && !value.is_day_constrained() && value.day() != 0) {
        require(is_same(open_date(number_of(value)), value));
    }
}

void check_moved_date(unsigned int number, date const& after) {
    require(is_same(after, open_date(number)));
    require(!after.is_day_constrained() && (after.month() != 2 || after.day() != 29));
    // A 29 February became the 1 March behind it.
    bool const is_in_place = number_of(after) == number;
    require(is_in_place || (number_of(after) == number + 1 && after.month() == 3 && after.day() == 1));
}

void check_time(time const& value) {
    require(static_cast<unsigned int>(value.hour()) <= time::max_hour);
    require(static_cast<unsigned int>(value.minute()) <= time::max_minute);
    require(static_cast<unsigned int>(value.second()) <= time::max_second);
    require(static_cast<unsigned int>(value.millisecond()) <= time::max_millisecond);
}

// Where in the day a move ends. Empty where it must fail, or where the sum leaves 64 bits, so that nothing is
// foretold.
std::optional<std::int64_t> moved(std::int64_t start, std::int64_t count) {
    std::int64_t sum = 0;
    if (__builtin_add_overflow(start + milliseconds_in_day, count, &sum) ||
        (sum < 0 && sum % milliseconds_in_day != 0)) {
        return std::nullopt;
    }
    return sum % milliseconds_in_day;
}

void check_duration(time_duration const& value) {
    std::int64_t const count = value.total_milliseconds();
    require(value.is_negative() == (count < 0));
    require(value.minute() > -60 && value.minute() < 60);
    require(value.second() > -60 && value.second() < 60);
    require(value.millisecond() > -1000 && value.millisecond() < 1000);
    if (count > INT32_MIN && count < INT32_MAX) {
        require(value.hour() * 3600000 + value.minute() * 60000 + value.second() * 1000 +
                    value.millisecond() ==
                count);
    }
    require(milliseconds(count) == static_cast<std::int32_t>(count));
}

// Each member function is one operation on a moment, and checks what it did.
class values {
public:
    void set_day(std::int64_t number) {
        set(number, 1, date::max_days_in_month, [&](unsigned int value) { return m_moment.day(value); });
    }
    void set_month(std::int64_t number) {
        set(number, 1, date::max_months_in_year, [&](unsigned int value) { return m_moment.month(value); });
    }
    void set_year(std::int64_t number) {
        set(number, 0, UINT32_MAX, [&](unsigned int value) { return m_moment.year(value); });
    }
    void set_hour(std::int64_t number) {
        set(number, 0, time::max_hour, [&](unsigned int value) { return m_moment.hour(value); });
    }
    void set_minute(std::int64_t number) {
        set(number, 0, time::max_minute, [&](unsigned int value) { return m_moment.minute(value); });
    }
    void set_second(std::int64_t number) {
        set(number, 0, time::max_second, [&](unsigned int value) { return m_moment.second(value); });
    }
    void set_millisecond(std::int64_t number) {
        set(number, 0, time::max_millisecond,
            [&](unsigned int value) { return m_moment.millisecond(value); });
    }

    void add_to_date(std::int64_t number) {
        auto const days = static_cast<unsigned int>(number);
        date day = m_moment.date();
        day += date_duration(static_cast<int>(days));
        check_moved_date(number_of(m_moment.date()) + days, day);
        m_moment = day;
    }

    void subtract_from_date(std::int64_t number) {
        auto const days = static_cast<int>(number);
        unsigned int const start = number_of(m_moment.date());
        date day = m_moment.date();
        bool const done = is_done([&] { day -= date_duration(days); });
        require(done == (days < static_cast<int>(start)));
        if (done) {
            check_moved_date(start - static_cast<unsigned int>(days), day);
        } else {
            require(is_same(day, m_moment.date()));
        }
        m_moment = day;
    }

    void add_to_time(std::int64_t number) {
        time clock = m_moment.time();
        bool const done = is_done([&] { clock += milliseconds(number); });
        if (std::optional<std::int64_t> const expected = moved(in_day(m_moment.time()), number)) {
            require(done && in_day(clock) == *expected);
        } else if (number < 0) {
            require(!done);
        }
        m_moment = clock;
    }

    void subtract_from_time(std::int64_t number) {
        time clock = m_moment.time();
        time by_addition = clock;
        bool const done = is_done([&] { clock -= milliseconds(number); });
        require(done == is_done([&] { by_addition += time_duration() - milliseconds(number); }));
        require(in_day(clock) == in_day(by_addition));
        m_moment = clock;
    }

    void move_by_days(std::int64_t number) {
        date_time_t const before = m_moment;
        m_moment += date_duration(static_cast<int>(number));
        m_moment -= date_duration(static_cast<int>(number));
        require(is_same(m_moment.date(), before.date()) && in_day(m_moment.time()) == in_day(before.time()));
    }

    void add(std::int64_t number) {
        move(milliseconds(number), [&](time_duration const& duration) { m_moment += duration; });
    }
    void subtract(std::int64_t number) {
        move(milliseconds(number), [&](time_duration const& duration) { m_moment -= duration; });
    }

    void check(std::int64_t number) {
        m_duration += milliseconds(number);
        check_duration(m_duration);
        check_duration(milliseconds(number) - m_duration);
        check_date(m_moment.date());
        check_time(m_moment.time());
    }

private:
    template <class Setter>
    static void set(std::int64_t number, unsigned int minimum, unsigned int maximum, Setter const& setter) {
        auto const value = static_cast<unsigned int>(number);
        bool const done = is_done([&] { require(static_cast<unsigned int>(setter(value)) == value); });
        require(done == (value >= minimum && value <= maximum));
    }

    // Less than 24 hours leave the date alone, and so does a failure of the day that is overwritten.
    template <class Move>
    void move(time_duration const& duration, Move const& move) {
        date const before = m_moment.date();
        int const day = duration.hour() % 24;
        bool const is_short = duration.hour() > -24 && duration.hour() < 24;
        bool const done = is_done([&] { move(duration); });
        require(is_short || day > 0 || !done);
        require((!is_short && day > 0) || is_same(m_moment.date(), before));
    }

    date_time_t m_moment;
    time_duration m_duration;
};

constexpr void (values::*operations[])(std::int64_t) = {&values::set_day,
                                                        &values::set_month,
                                                        &values::set_year,
                                                        &values::set_hour,
                                                        &values::set_minute,
                                                        &values::set_second,
                                                        &values::set_millisecond,
                                                        &values::add_to_date,
                                                        &values::subtract_from_date,
                                                        &values::add_to_time,
                                                        &values::subtract_from_time,
                                                        &values::move_by_days,
                                                        &values::add,
                                                        &values::subtract};

// The number as it is, or cut down to what is near the bounds of the fields.
std::int64_t number_at(std::uint8_t const* bytes, std::uint8_t width) {
    std::uint64_t number = 0;
    for (int index = 0; index < 8; ++index) {
        number = number << 8 | bytes[index];
    }
    auto const whole = static_cast<std::int64_t>(number);
    std::int64_t const limits[] = {33, 14, 1002, 10000, 200 * 3600000, INT32_MAX, INT64_MAX};
    return whole % limits[width % std::size(limits)];
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    values all;
    for (; size >= 10; data += 10, size -= 10) {
        std::int64_t const number = number_at(data + 2, data[1]);
        (all.*operations[data[0] % std::size(operations)])(number);
        all.check(number);
    }
    return 0;
}
