// File: veldrin/i18n/message.hpp
//
// A translated message: a sequence of literal texts and named arguments, as its catalogue laid them out. The
// text is made by walking the items and concatenating what each gives for a list of arguments. Arguments are
// matched by name, never by position. Messages are values and copy deeply.
//
//     i18n::message_t message("copied", {i18n::message_item("copied "),
//                                        i18n::message_item("count", i18n::message_item::int_type)});
//     message.as_utf8(generic::varg_list(generic::argument("count", 3)));   // "copied 3"

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/i18n/message_item.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::i18n {

class VELDRIN_EXPORT message_t {
public:
    using iterator = std::vector<message_item>::iterator;
    using const_iterator = std::vector<message_item>::const_iterator;

    // The nil message: no items, an empty name and an empty meta.
    message_t() = default;
    message_t(types::nil_t const&);

    message_t(std::vector<message_item> const& items);
    message_t(strings::ustring8 const& name, std::vector<message_item> const& items);
    message_t(strings::ustring8 const& name, std::vector<message_item> const& items,
              strings::ustring8 const& meta);

    message_t& assign(message_t const& other);

    // Empties all fields, the locale too.
    message_t& assign(types::nil_t const&);
    message_t& operator=(types::nil_t const&);

    // True for no items, an empty name and an empty meta; the locale does not count.
    bool equal(types::nil_t const&) const;
    bool operator==(types::nil_t const&) const;

    // The texts of all items in order. Nothing stops it: an item that fails stands as "?invalid?" in the
    // text. `as_string` and `as_utf8` are UTF-8, `as_wstring` and `as_ustring` UTF-16.
    std::string as_string(generic::varg_list const& args) const;
    strings::ustring8 as_utf8(generic::varg_list const& args) const;
    strings::ustring16 as_utf16(generic::varg_list const& args) const;
    strings::ustring32 as_utf32(generic::varg_list const& args) const;
    strings::wide_string as_wstring(generic::varg_list const& args) const;
    strings::wide_string as_ustring(generic::varg_list const& args) const;

    // The number of items, literal ones included.
    std::size_t count() const;
    std::size_t size() const;

    // The number of items that are not literal; a name that stands twice counts twice.
    std::size_t argument_count() const;

    // A nil value for each item that is not literal, under the name of its whole specification, options and
    // all. Items with the same specification share one entry, unless it is empty: each of those has its own.
    generic::varg_list arguments() const;

    // True if the message has items, `args` has at least `argument_count()` entries, and each argument is
    // there by its plain name. So a name that stands twice takes two entries, of which one may be anything.
    bool has_valid_args(generic::varg_list const& args) const;

    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;

    // The setters return the new value.
    strings::ustring8 const& name() const;
    strings::ustring8 const& name(strings::ustring8 const& value);
    strings::ustring8 const& meta() const;
    strings::ustring8 const& meta(strings::ustring8 const& value);

    // The language attribute of the catalogue that the message came from, as it is written there.
    strings::ustring8 const& _orginal_locale() const;
    strings::ustring8 const& _orginal_locale(strings::ustring8 const& value);

private:
    std::vector<message_item> m_items;
    strings::ustring8 m_orginal_locale;
    strings::ustring8 m_name;
    strings::ustring8 m_meta;
};

} // namespace VELDRIN_2_18::i18n
