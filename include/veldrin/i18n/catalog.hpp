// File: veldrin/i18n/catalog.hpp
//
// A named set of messages. A lookup never fails: what is not there comes back as the nil message, which
// prints as the empty text. Catalogues are counted objects: stores share them by `shared_pointer`, and a copy
// of a catalogue is a new object with a count of its own.
//
//     i18n::catalog_t status;
//     status.message("idle", i18n::message_t("idle", {i18n::message_item("At rest")}));
//     status.message("idle").as_utf8(generic::varg_list());   // "At rest"
//     status.message("busy") == types::nil;                   // true

#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/i18n/message.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::i18n {

class VELDRIN_EXPORT catalog_t : public generic::abilities::reference_count_pointer_ability<catalog_t> {
public:
    using const_iterator = std::map<strings::ustring8, message_t>::const_iterator;
    using language_iterator = std::set<strings::ustring8>::const_iterator;

    // What stands for a message that is missing. Valid before any user code runs and until all of it has.
    static message_t const m_nil_message;

    // The nil catalogue: no name, no messages, no languages.
    catalog_t() = default;
    catalog_t(types::nil_t const&);

    // The languages stand until the first message is written; after that they are read off the messages.
    catalog_t(strings::ustring8 const& name, std::vector<strings::ustring8> const& languages,
              std::map<strings::ustring8, message_t> const& messages);

    catalog_t(catalog_t const& other) = default;

    // If memory runs out, the catalogue is as it was.
    catalog_t& operator=(catalog_t const& other);
    catalog_t& assign(catalog_t const& other);

    // Empties everything.
    catalog_t& operator=(types::nil_t const&);
    catalog_t& assign(types::nil_t const&);

    // True if the name, the messages and the known languages are all empty.
    bool equal(types::nil_t const&) const;
    bool operator==(types::nil_t const&) const;
    bool operator!=(types::nil_t const&) const;

    strings::ustring8 name() const;
    void _name(strings::ustring8 const& value);

    bool has_message(strings::ustring8 const& key) const;
    bool has_message(strings::ustring16 const& key) const;
    bool has_message(strings::ustring32 const& key) const;

    // `m_nil_message` if there is no message of that key. The reference is good until the message is
    // overwritten or the catalogue assigned or destroyed.
    message_t const& message(strings::ustring8 const& key) const;
    message_t const& message(strings::ustring16 const& key) const;
    message_t const& message(strings::ustring32 const& key) const;

    // Inserts the message, or overwrites the one of that key, and forgets the known languages. Returns the
    // stored message. If memory runs out, the catalogue is as it was.
    message_t const& message(strings::ustring8 const& key, message_t const& value);

    // The languages of the messages as they are written in their files, in byte order. The set is filled when
    // it is empty, within these const functions: several threads that read one catalogue race there.
    language_iterator languages_begin() const;
    language_iterator languages_end() const;

    // Looks for `lang` with each "." and "-" in it written as "_", among languages that are taken as they are
    // written. So a language that a file calls "fr-CA" is never found, "fr_CA" is; "." is looked up as "_".
    bool is_language_loaded(strings::ustring8 const& lang) const;
    bool is_language_loaded(strings::ustring16 const& lang) const;
    bool is_language_loaded(strings::ustring32 const& lang) const;

    // The number of messages.
    std::size_t size() const;

    // The messages by key, in byte order.
    const_iterator begin() const;
    const_iterator end() const;

protected:
    // Adds the language of each message to the known languages.
    void gen_lang_set() const;

private:
    std::set<strings::ustring8> const& languages() const;

    strings::ustring8 m_name;
    mutable std::set<strings::ustring8> m_languages;
    std::map<strings::ustring8, message_t> m_messages;
};

} // namespace VELDRIN_2_18::i18n
