#include "veldrin/i18n/message_item.hpp"

#include <cstddef>
#include <string>

#include "i18n/format_options.hpp"
#include "platform/debug_channel.hpp"
#include "veldrin/i18n/format.hpp"

namespace VELDRIN_2_18::i18n {

using strings::ustring8;

namespace {

constexpr char separator = '\x01';
constexpr char const* invalid_text = "?invalid?";

ustring8 options_of(ustring8 const& specification) {
    std::size_t const end_of_name = specification.find(separator);
    return end_of_name == ustring8::npos ? ustring8() : ustring8(specification.substr(end_of_name + 1));
}

using scaling_formatter = ustring8 (*)(types::variant, ustring8 const&, ustring8&);

ustring8 unit_by(scaling_formatter format, types::variant const& value, ustring8 const& options) {
    ustring8 unit;
    ustring8 const number = format(value, options, unit);
    return number == _private::failure_text ? number : unit;
}

ustring8 number_by(scaling_formatter format, types::variant const& value, ustring8 const& options) {
    ustring8 unit;
    return format(value, options, unit);
}

ustring8 format(message_item::type_t type, types::variant const& value, ustring8 const& options) {
    switch (type) {
    case message_item::int_type:
        return _private::format_int(value.as_int64(), options);
    case message_item::double_type:
        return _private::format_double(value.as_double(), options);
    case message_item::duration_type:
        return _private::format_duration(value.as_double(), options);
    case message_item::memory_type:
        return number_by(_private::format_memory, value, options);
    case message_item::memory_unit_type:
        return unit_by(_private::format_memory, value, options);
    case message_item::metric_type:
        return number_by(_private::format_metric, value, options);
    case message_item::metric_unit_type:
        return unit_by(_private::format_metric, value, options);
    default:
        return _private::failure_text;
    }
}

ustring8 argument_text(message_item const& item, types::variant const& value) {
    if (item.type() == message_item::string_type) {
        return value.as_string();
    }
    ustring8 const text = format(item.type(), value, options_of(item.data()));
    return text == _private::failure_text ? ustring8(invalid_text) : text;
}

} // namespace

message_item::message_item(ustring8 const& text) : message_item(text, value_type) {}

message_item::message_item(ustring8 const& data, type_t type) : m_data(data), m_type(type) {}

message_item& message_item::assign(message_item const& other) { return *this = other; }

ustring8 message_item::as_string(generic::varg_list const& args) const {
    ustring8 result = invalid_text;
    if (m_type == value_type) {
        result = m_data;
    } else if (auto const argument = args.find(name()); argument != args.end()) {
        result = argument_text(*this, argument->value());
    }
    if (result == invalid_text) {
        platform::write_debug_line("Failure -- " + m_data);
    }
    return result;
}

message_item::type_t message_item::type() const { return m_type; }

ustring8 message_item::data() const { return m_data; }

ustring8 message_item::name() const { return m_data.substr(0, m_data.find(separator)); }

} // namespace VELDRIN_2_18::i18n
