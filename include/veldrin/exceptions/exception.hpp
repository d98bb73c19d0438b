// File: veldrin/exceptions/exception.hpp
//
// The base of everything the library throws by class. It is not a `std::exception`: catch it as well.
//
//     try {
//         strings::code_page().encode(text);
//     } catch (exceptions::exception const& failure) {
//         failure.message();                  // "Not valid code_page type"
//         failure.error_state().function();   // "VELDRIN_2_18::strings::code_page::to_system_type"
//     }

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::exceptions {

class VELDRIN_EXPORT exception {
public:
    // The place in the source that raised the failure. It owns copies of its texts and never allocates. A
    // text of 256 bytes or more is cut to 255; a null pointer leaves an empty text.
    class VELDRIN_EXPORT state {
    public:
        state(unsigned int line, char const* file, char const* function);

        // Copies text by text: the bytes behind a terminator are not copied.
        state(state const& other);

        // Copies the whole record, the bytes behind the terminators included.
        state& operator=(state const& other);

        ~state() = default;

        unsigned int line() const { return m_line; }

        // Both point into the record and live as long as it does.
        char const* file() const { return m_file; }
        char const* function() const { return m_function; }

    private:
        unsigned int m_line;
        char m_file[256];
        char m_function[256];
    };

    exception(unsigned int line, char const* file, char const* function);
    exception(state const& error_state);
    exception(exception const&) = default;
    exception& operator=(exception const&) = default;
    virtual ~exception();

    // Zero-terminated; valid as long as the exception object is.
    char const* message() const { return get_message(); }

    state const& error_state() const { return m_state; }

private:
    virtual char const* get_message() const = 0;

    state m_state;
};

} // namespace VELDRIN_2_18::exceptions
