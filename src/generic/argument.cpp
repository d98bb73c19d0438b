#include "veldrin/generic/argument.hpp"

namespace VELDRIN_2_18::generic {

argument::argument(types::nil_t const&) {}

argument::argument(types::variant const& value) : m_value(value) {}

argument::argument(strings::ustring8 const& name, types::variant const& value)
    : m_name(name), m_value(value) {}

strings::ustring8 const& argument::name(strings::ustring8 const& name) { return m_name = name; }

types::variant const& argument::value(types::variant const& value) { return m_value = value; }

bool argument::equal(types::nil_t const&) const { return !has_name() && m_value == types::nil; }

argument& argument::assign(types::variant const& value) {
    m_value = value;
    return *this;
}

argument& argument::assign(strings::ustring8 const& name, types::variant const& value) {
    m_name = name;
    m_value = value;
    return *this;
}

argument& argument::assign(types::nil_t const&) { return *this = argument(); }

} // namespace VELDRIN_2_18::generic
