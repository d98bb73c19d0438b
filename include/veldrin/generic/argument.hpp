// File: veldrin/generic/argument.hpp
//
// A value with an optional name, the element of `varg_list`. The empty name means that there is none.
//
//     generic::argument path("path", "notes.txt");
//     path.name();            // "path"
//     path = 5;               // keeps the name
//     path == types::nil;     // false: an argument with a name is never nil

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::generic {

class VELDRIN_EXPORT argument {
public:
    // The nil argument: no name, a nil value.
    argument() = default;
    argument(types::nil_t const&);

    // Without a name.
    argument(types::variant const& value);

    // An empty `name` gives an argument without one.
    argument(strings::ustring8 const& name, types::variant const& value);

    bool has_name() const { return !m_name.empty(); }

    // The setters return the new state.
    strings::ustring8 const& name() const { return m_name; }
    strings::ustring8 const& name(strings::ustring8 const& name);
    types::variant const& value() const { return m_value; }
    types::variant const& value(types::variant const& value);

    // True for no name and a nil value. A named argument is not nil, whatever it holds. Two arguments do not
    // compare with each other.
    bool equal(types::nil_t const&) const;
    bool operator==(types::nil_t const&) const { return equal(types::nil); }
    bool operator!=(types::nil_t const&) const { return !equal(types::nil); }

    // Sets the value and leaves the name as it was.
    argument& assign(types::variant const& value);
    argument& operator=(types::variant const& value) { return assign(value); }

    // Sets both.
    argument& assign(strings::ustring8 const& name, types::variant const& value);
    argument& assign(argument const& other) { return *this = other; }

    // Makes it the nil argument: the name goes too.
    argument& assign(types::nil_t const&);
    argument& operator=(types::nil_t const&) { return assign(types::nil); }

private:
    strings::ustring8 m_name;
    types::variant m_value;
};

} // namespace VELDRIN_2_18::generic
