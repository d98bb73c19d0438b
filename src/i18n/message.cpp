#include "veldrin/i18n/message.hpp"

#include <algorithm>

#include "veldrin/strings/unicode.hpp"

namespace VELDRIN_2_18::i18n {

using generic::varg_list;
using strings::ustring8;

namespace {

bool is_argument(message_item const& item) { return item.type() != message_item::value_type; }

} // namespace

message_t::message_t(types::nil_t const&) {}

message_t::message_t(std::vector<message_item> const& items) : m_items(items) {}

message_t::message_t(ustring8 const& name, std::vector<message_item> const& items)
    : m_items(items), m_name(name) {}

message_t::message_t(ustring8 const& name, std::vector<message_item> const& items, ustring8 const& meta)
    : m_items(items), m_name(name), m_meta(meta) {}

message_t& message_t::assign(message_t const& other) { return *this = other; }

message_t& message_t::assign(types::nil_t const&) { return *this = types::nil; }

message_t& message_t::operator=(types::nil_t const&) { return *this = message_t(); }

bool message_t::equal(types::nil_t const&) const {
    return m_items.empty() && m_name.empty() && m_meta.empty();
}

bool message_t::operator==(types::nil_t const&) const { return equal(types::nil); }

std::string message_t::as_string(varg_list const& args) const {
    std::string text;
    for (message_item const& item : m_items) {
        text += item.as_string(args);
    }
    return text;
}

ustring8 message_t::as_utf8(varg_list const& args) const { return as_string(args); }

strings::ustring16 message_t::as_utf16(varg_list const& args) const {
    return strings::utf8_to_utf16(as_string(args));
}

strings::ustring32 message_t::as_utf32(varg_list const& args) const {
    return strings::utf8_to_utf32(as_string(args));
}

strings::wide_string message_t::as_wstring(varg_list const& args) const { return as_utf16(args); }

strings::wide_string message_t::as_ustring(varg_list const& args) const { return as_utf16(args); }

std::size_t message_t::count() const { return m_items.size(); }

std::size_t message_t::size() const { return m_items.size(); }

std::size_t message_t::argument_count() const {
    return static_cast<std::size_t>(std::count_if(m_items.begin(), m_items.end(), is_argument));
}

varg_list message_t::arguments() const {
    varg_list list;
    for (message_item const& item : m_items) {
        if (is_argument(item)) {
            list.push_back(item.data(), types::variant());
        }
    }
    return list;
}

bool message_t::has_valid_args(varg_list const& args) const {
    if (m_items.empty() || args.count() < argument_count()) {
        return false;
    }
    return std::all_of(m_items.begin(), m_items.end(), [&](message_item const& item) {
        return !is_argument(item) || args.has_argument(item.name());
    });
}

message_t::iterator message_t::begin() { return m_items.begin(); }

message_t::iterator message_t::end() { return m_items.end(); }

message_t::const_iterator message_t::begin() const { return m_items.begin(); }

message_t::const_iterator message_t::end() const { return m_items.end(); }

ustring8 const& message_t::name() const { return m_name; }

ustring8 const& message_t::name(ustring8 const& value) { return m_name = value; }

ustring8 const& message_t::meta() const { return m_meta; }

ustring8 const& message_t::meta(ustring8 const& value) { return m_meta = value; }

ustring8 const& message_t::_orginal_locale() const { return m_orginal_locale; }

ustring8 const& message_t::_orginal_locale(ustring8 const& value) { return m_orginal_locale = value; }

} // namespace VELDRIN_2_18::i18n
