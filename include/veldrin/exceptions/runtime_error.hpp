// File: veldrin/exceptions/runtime_error.hpp
//
// Failures that only running shows. The texts are copied into the object.

#pragma once

#include <string>

#include "veldrin/exceptions/exception.hpp"
#include "veldrin/export.hpp"

namespace VELDRIN_2_18::exceptions {

class VELDRIN_EXPORT runtime_error : public exception {
public:
    runtime_error(std::string const& message, unsigned int line, char const* file, char const* function);
    runtime_error(std::string const& message, exception::state const& error_state);
    runtime_error(runtime_error const&) = default;
    runtime_error& operator=(runtime_error const&) = default;
    ~runtime_error() override;

private:
    char const* get_message() const override;

    std::string m_message;
};

// A number beyond the upper bound of its type.
class VELDRIN_EXPORT overflow_error : public runtime_error {
public:
    using runtime_error::runtime_error;
    overflow_error(overflow_error const&) = default;
    overflow_error& operator=(overflow_error const&) = default;
    ~overflow_error() override;
};

// A number beyond the lower bound of its type.
class VELDRIN_EXPORT underflow_error : public runtime_error {
public:
    using runtime_error::runtime_error;
    underflow_error(underflow_error const&) = default;
    underflow_error& operator=(underflow_error const&) = default;
    ~underflow_error() override;
};

// For users of the library, which does not throw it.
class VELDRIN_EXPORT empty_error : public runtime_error {
public:
    using runtime_error::runtime_error;
    empty_error(empty_error const&) = default;
    empty_error& operator=(empty_error const&) = default;
    ~empty_error() override;
};

// For users of the library, which does not throw it.
class VELDRIN_EXPORT full_error : public runtime_error {
public:
    using runtime_error::runtime_error;
    full_error(full_error const&) = default;
    full_error& operator=(full_error const&) = default;
    ~full_error() override;
};

} // namespace VELDRIN_2_18::exceptions
