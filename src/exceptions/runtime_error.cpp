#include "veldrin/exceptions/runtime_error.hpp"

namespace VELDRIN_2_18::exceptions {

runtime_error::runtime_error(std::string const& message, unsigned int line, char const* file,
                             char const* function)
    : exception(line, file, function), m_message(message) {}

runtime_error::runtime_error(std::string const& message, exception::state const& error_state)
    : exception(error_state), m_message(message) {}

runtime_error::~runtime_error() = default;

char const* runtime_error::get_message() const { return m_message.c_str(); }

overflow_error::~overflow_error() = default;

underflow_error::~underflow_error() = default;

empty_error::~empty_error() = default;

full_error::~full_error() = default;

} // namespace VELDRIN_2_18::exceptions
