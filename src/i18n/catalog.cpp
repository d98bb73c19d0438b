#include "veldrin/i18n/catalog.hpp"

#include <utility>

#include "i18n/language_name.hpp"
#include "strings/text_conversion.hpp"

namespace VELDRIN_2_18::i18n {

using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::_private::to_utf8;

// Early enough for every other static object, in the static library too.
[[gnu::init_priority(101)]] message_t const catalog_t::m_nil_message{};

catalog_t::catalog_t(types::nil_t const&) {}

catalog_t::catalog_t(ustring8 const& name, std::vector<ustring8> const& languages,
                     std::map<ustring8, message_t> const& messages)
    : m_name(name), m_languages(languages.begin(), languages.end()), m_messages(messages) {}

catalog_t& catalog_t::operator=(catalog_t const& other) { return assign(other); }

// The base is left alone: flag and count belong to the object. The copy comes first: once it is made, nothing
// can fail.
catalog_t& catalog_t::assign(catalog_t const& other) {
    catalog_t copy(other);
    m_name.swap(copy.m_name);
    m_languages.swap(copy.m_languages);
    m_messages.swap(copy.m_messages);
    return *this;
}

catalog_t& catalog_t::operator=(types::nil_t const& nil) { return assign(nil); }

catalog_t& catalog_t::assign(types::nil_t const&) {
    m_name.clear();
    m_languages.clear();
    m_messages.clear();
    return *this;
}

bool catalog_t::equal(types::nil_t const&) const {
    return m_name.empty() && m_messages.empty() && m_languages.empty();
}

bool catalog_t::operator==(types::nil_t const& nil) const { return equal(nil); }

bool catalog_t::operator!=(types::nil_t const& nil) const { return !equal(nil); }

ustring8 catalog_t::name() const { return m_name; }

void catalog_t::_name(ustring8 const& value) { m_name = value; }

bool catalog_t::has_message(ustring8 const& key) const { return m_messages.find(key) != m_messages.end(); }

bool catalog_t::has_message(ustring16 const& key) const { return has_message(to_utf8(key)); }

bool catalog_t::has_message(ustring32 const& key) const { return has_message(to_utf8(key)); }

message_t const& catalog_t::message(ustring8 const& key) const {
    auto const found = m_messages.find(key);
    return found == m_messages.end() ? m_nil_message : found->second;
}

message_t const& catalog_t::message(ustring16 const& key) const { return message(to_utf8(key)); }

message_t const& catalog_t::message(ustring32 const& key) const { return message(to_utf8(key)); }

message_t const& catalog_t::message(ustring8 const& key, message_t const& value) {
    // The copy comes first, so that a message is written whole or not at all.
    message_t copy(value);
    message_t& stored = m_messages[key];
    stored = std::move(copy);
    // Not before the look-up: the key may be one of them.
    m_languages.clear();
    return stored;
}

catalog_t::language_iterator catalog_t::languages_begin() const { return languages().begin(); }

catalog_t::language_iterator catalog_t::languages_end() const { return languages().end(); }

bool catalog_t::is_language_loaded(ustring8 const& lang) const {
    return languages().count(_private::underscored(lang)) != 0;
}

bool catalog_t::is_language_loaded(ustring16 const& lang) const { return is_language_loaded(to_utf8(lang)); }

bool catalog_t::is_language_loaded(ustring32 const& lang) const { return is_language_loaded(to_utf8(lang)); }

std::size_t catalog_t::size() const { return m_messages.size(); }

catalog_t::const_iterator catalog_t::begin() const { return m_messages.begin(); }

catalog_t::const_iterator catalog_t::end() const { return m_messages.end(); }

// A set that is filled in part would be taken for the whole one.
void catalog_t::gen_lang_set() const {
    std::set<ustring8> languages;
    for (auto const& [key, message] : m_messages) {
        languages.insert(message._orginal_locale());
    }
    m_languages.merge(languages);
}

std::set<ustring8> const& catalog_t::languages() const {
    if (m_languages.empty()) {
        gen_lang_set();
    }
    return m_languages;
}

} // namespace VELDRIN_2_18::i18n
