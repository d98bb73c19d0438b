#include "veldrin/exceptions/logic_error.hpp"

namespace VELDRIN_2_18::exceptions {

logic_error::logic_error(std::string const& message, unsigned int line, char const* file,
                         char const* function)
    : exception(line, file, function), m_message(message) {}

logic_error::logic_error(std::string const& message, exception::state const& error_state)
    : exception(error_state), m_message(message) {}

logic_error::~logic_error() = default;

char const* logic_error::get_message() const { return m_message.c_str(); }

invalid_argument_value::~invalid_argument_value() = default;

length_error::~length_error() = default;

out_of_range::~out_of_range() = default;

} // namespace VELDRIN_2_18::exceptions
