// The integer parsers as a list that tests can walk.

#pragma once

#include <cstdint>
#include <tuple>

#include "veldrin/generic/convert/str_to_x.hpp"

namespace support {

template <class Result, class Unit>
using integer_parser = Result (*)(Unit const*, std::uint64_t, veldrin::types::radix_t::base, bool);

// The overloads of one name. That they convert to these pointers proves their exact types.
template <class Result>
struct integer_parser_overloads {
    using result_type = Result;

    char const* name;
    std::tuple<integer_parser<Result, char>, integer_parser<Result, veldrin::strings::utf16_unit>,
               integer_parser<Result, veldrin::strings::utf32_unit>>
        overloads;

    template <class Unit>
    integer_parser<Result, Unit> over() const {
        return std::get<integer_parser<Result, Unit>>(overloads);
    }
};

// Calls `visit(overloads)` for each of the eight signed names.
template <class Visitor>
void for_each_signed_parser(Visitor visit) {
    using namespace veldrin::generic::convert;
    visit(integer_parser_overloads<signed char>{"str_to_int8", {str_to_int8, str_to_int8, str_to_int8}});
    visit(integer_parser_overloads<short>{"str_to_short", {str_to_short, str_to_short, str_to_short}});
    visit(integer_parser_overloads<short>{"str_to_int16", {str_to_int16, str_to_int16, str_to_int16}});
    visit(integer_parser_overloads<int>{"str_to_int", {str_to_int, str_to_int, str_to_int}});
    visit(integer_parser_overloads<int>{"str_to_signed", {str_to_signed, str_to_signed, str_to_signed}});
    visit(integer_parser_overloads<std::int32_t>{"str_to_long", {str_to_long, str_to_long, str_to_long}});
    visit(integer_parser_overloads<std::int32_t>{"str_to_int32", {str_to_int32, str_to_int32, str_to_int32}});
    visit(integer_parser_overloads<std::int64_t>{"str_to_int64", {str_to_int64, str_to_int64, str_to_int64}});
}

// Calls `visit(overloads)` for each of the five unsigned names.
template <class Visitor>
void for_each_unsigned_parser(Visitor visit) {
    using namespace veldrin::generic::convert;
    visit(
        integer_parser_overloads<unsigned char>{"str_to_uint8", {str_to_uint8, str_to_uint8, str_to_uint8}});
    visit(integer_parser_overloads<unsigned short>{"str_to_uint16",
                                                   {str_to_uint16, str_to_uint16, str_to_uint16}});
    visit(integer_parser_overloads<unsigned int>{"str_to_unsigned",
                                                 {str_to_unsigned, str_to_unsigned, str_to_unsigned}});
    visit(integer_parser_overloads<std::uint32_t>{"str_to_uint32",
                                                  {str_to_uint32, str_to_uint32, str_to_uint32}});
    visit(integer_parser_overloads<std::uint64_t>{"str_to_uint64",
                                                  {str_to_uint64, str_to_uint64, str_to_uint64}});
}

template <class Visitor>
void for_each_integer_parser(Visitor visit) {
    for_each_signed_parser(visit);
    for_each_unsigned_parser(visit);
}

// Calls `visit(unit, overloads)` with a value of each unit type for each name.
template <class Visitor>
void for_each_integer_overload(Visitor visit) {
    for_each_integer_parser([&](auto const& overloads) {
        visit(char{}, overloads);
        visit(veldrin::strings::utf16_unit{}, overloads);
        visit(veldrin::strings::utf32_unit{}, overloads);
    });
}

} // namespace support
