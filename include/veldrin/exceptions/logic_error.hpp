// File: veldrin/exceptions/logic_error.hpp
//
// Failures that a caller could have avoided. The texts are copied into the object.

#pragma once

#include <string>

#include "veldrin/exceptions/exception.hpp"
#include "veldrin/export.hpp"

namespace VELDRIN_2_18::exceptions {

class VELDRIN_EXPORT logic_error : public exception {
public:
    logic_error(std::string const& message, unsigned int line, char const* file, char const* function);
    logic_error(std::string const& message, exception::state const& error_state);
    logic_error(logic_error const&) = default;
    logic_error& operator=(logic_error const&) = default;
    ~logic_error() override;

private:
    char const* get_message() const override;

    std::string m_message;
};

// A bad argument, or a text that cannot be read as the asked-for value.
class VELDRIN_EXPORT invalid_argument_value : public logic_error {
public:
    using logic_error::logic_error;
    invalid_argument_value(invalid_argument_value const&) = default;
    invalid_argument_value& operator=(invalid_argument_value const&) = default;
    ~invalid_argument_value() override;
};

// For users of the library, which does not throw it.
class VELDRIN_EXPORT length_error : public logic_error {
public:
    using logic_error::logic_error;
    length_error(length_error const&) = default;
    length_error& operator=(length_error const&) = default;
    ~length_error() override;
};

// A field value outside its legal range, such as a day or an hour.
class VELDRIN_EXPORT out_of_range : public logic_error {
public:
    using logic_error::logic_error;
    out_of_range(out_of_range const&) = default;
    out_of_range& operator=(out_of_range const&) = default;
    ~out_of_range() override;
};

} // namespace VELDRIN_2_18::exceptions
