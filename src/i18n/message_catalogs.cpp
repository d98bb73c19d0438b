#include "veldrin/i18n/message_catalogs.hpp"

#include <optional>
#include <ostream>
#include <string>

#include "platform/path.hpp"
#include "strings/text_conversion.hpp"
#include "system/directory_visit.hpp"
#include "veldrin/strings/case.hpp"
#include "veldrin/system/file_utility.hpp"
#include "veldrin/system/io.hpp"

namespace VELDRIN_2_18::i18n {

using _private::xmc_file_loader;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using strings::_private::to_utf8;
using result_type = message_catalogs::result_type;
using load_error = xmc_file_loader::load_error;

// Early enough for every other static object, in the static library too.
[[gnu::init_priority(101)]] message_t const message_catalogs::s_nil_message{};
[[gnu::init_priority(101)]] catalog_t const message_catalogs::s_nil_catalog{};

namespace {

// One call of a load function: where to, and for which language and catalogue. The names are copies: those
// that the caller has may lie in the store, and end with the first file that is merged into it.
class load_request {
public:
    load_request(message_catalogs::catalog_map& store, ustring8 const& lang) : m_store(store), m_lang(lang) {}

    load_request(message_catalogs::catalog_map& store, ustring8 const& lang, ustring8 const& catalog)
        : m_store(store), m_lang(lang), m_catalog(catalog) {}

    result_type file(ustring8 const& path) const {
        xmc_file_loader loader;
        load_error const error =
            m_catalog ? loader.parse(path, m_lang, *m_catalog) : loader.parse(path, m_lang);
        if (error.type() == xmc_file_loader::no_error) {
            loader.combine_data(m_store);
        }
        return error;
    }

    result_type directory(ustring8 const& path) const {
        if (!system::io::exists(path)) {
            return result_type(message_catalogs::directory_not_found, path);
        }
        return walk(path, nullptr, nothing_loaded());
    }

    result_type path(ustring8 const& path) const {
        result_type result = entity(path);
        if (result.type() == message_catalogs::no_error && m_store.empty()) {
            return result_type(message_catalogs::no_catalog_loaded, path);
        }
        return result;
    }

    result_type paths(std::vector<ustring8> const& paths) const {
        result_type result = nothing_loaded();
        for (ustring8 const& path : paths) {
            result = entity(path);
            if (result.type() != message_catalogs::no_error) {
                break;
            }
        }
        return result;
    }

private:
    static result_type nothing_loaded() { return result_type(message_catalogs::no_error, ustring8()); }

    static bool is_catalog_file(ustring8 const& path) {
        ustring8 const name = strings::to_lower(path);
        return name.ends_with(".xmc") || name.ends_with(".xml");
    }

    result_type entity(ustring8 const& path) const {
        if (system::io::is_file(path)) {
            return file(path);
        }
        if (system::io::is_directory(path)) {
            return directory(path);
        }
        return result_type(message_catalogs::entity_not_found, path);
    }

    // The result of the last file, or `result` if there is none.
    result_type walk(ustring8 const& directory, system::_private::directory_visit const* parent,
                     result_type result) const {
        system::_private::directory_visit const visit(platform::path(directory), parent);
        if (visit.repeats()) {
            return result;
        }
        for (ustring8 const& entry : system::list_directory(directory)) {
            if (system::io::is_file(entry)) {
                if (is_catalog_file(entry)) {
                    result = file(entry);
                }
            } else if (system::io::is_directory(entry)) {
                result = walk(entry, &visit, result);
            }
            if (result.type() != message_catalogs::no_error) {
                break;
            }
        }
        return result;
    }

    message_catalogs::catalog_map& m_store;
    ustring8 m_lang;
    std::optional<ustring8> m_catalog;
};

template <class Path>
std::vector<ustring8> utf8_paths(std::vector<Path> const& paths) {
    std::vector<ustring8> result;
    result.reserve(paths.size());
    for (Path const& path : paths) {
        result.push_back(to_utf8(path));
    }
    return result;
}

std::string headline(std::string const& text) { return "message_catalogs::result_type - " + text; }

} // namespace

// ----------------------------------------------------------------------------------------------------------
// result_type
// ----------------------------------------------------------------------------------------------------------

message_catalogs::result_type::result_type(error_type type, ustring8 const& text)
    : m_type(type), m_message(format_message(type, text)) {}

message_catalogs::result_type::result_type(load_error const& error)
    : m_type(message_catalogs::no_error), m_message(format_message(error)) {}

ustring8 message_catalogs::result_type::format_message(error_type type, ustring8 const& text) {
    std::string const quoted = '"' + text + '"';
    switch (type) {
    case message_catalogs::no_error:
        return headline("No Error");
    case message_catalogs::no_catalog_loaded:
        return headline("No catalog was loaded in file: " + quoted);
    case message_catalogs::file_not_found:
        return headline("File " + quoted + " was not found on disk");
    case message_catalogs::directory_not_found:
        return headline("Directory " + quoted + " was not found on disk");
    case message_catalogs::entity_not_found:
        return headline("Entity (file or directory) " + quoted + " was not found on disk");
    default:
        return "unknown, or unhandle case happened! " + std::to_string(type) + " str data=" + text;
    }
}

ustring8 message_catalogs::result_type::format_message(load_error const& error) {
    auto const report = [&](error_type type, char const* first_line) {
        m_type = type;
        return ustring8(headline(first_line) + "\n " + error.message());
    };
    switch (error.type()) {
    case xmc_file_loader::no_error:
        return report(message_catalogs::no_error, "No Error");
    case xmc_file_loader::no_catalog_loaded:
        return report(message_catalogs::no_catalog_loaded, "No catalog was loaded");
    case xmc_file_loader::no_default_locale:
        return report(message_catalogs::no_default_locale, "Default locale lookup not supported yet");
    case xmc_file_loader::file_not_found:
        return report(message_catalogs::file_not_found, "File was not found on disk");
    case xmc_file_loader::xml_parse_error:
        return report(message_catalogs::xml_parse_error, "XML parse error, XML file not well formed");
    case xmc_file_loader::invalid_attribute:
    case xmc_file_loader::invalid_element:
    case xmc_file_loader::not_xmc_file:
    case xmc_file_loader::bad_xmc_version:
    case xmc_file_loader::br_end_missing:
    case xmc_file_loader::msg_end_missing:
    case xmc_file_loader::arg_end_missing:
    case xmc_file_loader::include_end_missing:
    case xmc_file_loader::catalog_end_missing:
        return report(message_catalogs::xmc_not_valid, "XMC file is not valid");
    case xmc_file_loader::unexpected_parse_error:
        return report(message_catalogs::unexpected_error, "Unexpected error happened during loading");
    }
    return report(message_catalogs::unexpected_error, "Unhandled case");
}

std::ostream& operator<<(std::ostream& stream, result_type const& result) {
    return stream << result.message();
}

// ----------------------------------------------------------------------------------------------------------
// Nil
// ----------------------------------------------------------------------------------------------------------

message_catalogs::message_catalogs(types::nil_t const&) {}

message_catalogs& message_catalogs::assign(message_catalogs const& other) { return *this = other; }

message_catalogs& message_catalogs::assign(types::nil_t const&) {
    erase();
    return *this;
}

message_catalogs& message_catalogs::operator=(types::nil_t const& nil) { return assign(nil); }

bool message_catalogs::equal(types::nil_t const&) const { return m_catalogs.empty(); }

bool message_catalogs::operator==(types::nil_t const& nil) const { return equal(nil); }

bool message_catalogs::operator!=(types::nil_t const& nil) const { return !equal(nil); }

// ----------------------------------------------------------------------------------------------------------
// Loading
// ----------------------------------------------------------------------------------------------------------

result_type message_catalogs::load_file(ustring8 const& path, ustring8 const& lang) {
    return load_request(m_catalogs, lang).file(path);
}

result_type message_catalogs::load_file(ustring16 const& path, ustring16 const& lang) {
    return load_file(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load_file(ustring32 const& path, ustring32 const& lang) {
    return load_file(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load_file(ustring8 const& path, ustring8 const& lang, ustring8 const& catalog) {
    return load_request(m_catalogs, lang, catalog).file(path);
}

result_type message_catalogs::load_file(ustring16 const& path, ustring16 const& lang,
                                        ustring16 const& catalog) {
    return load_file(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load_file(ustring32 const& path, ustring32 const& lang,
                                        ustring32 const& catalog) {
    return load_file(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load_directory(ustring8 const& path, ustring8 const& lang) {
    return load_request(m_catalogs, lang).directory(path);
}

result_type message_catalogs::load_directory(ustring16 const& path, ustring16 const& lang) {
    return load_directory(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load_directory(ustring32 const& path, ustring32 const& lang) {
    return load_directory(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load_directory(ustring8 const& path, ustring8 const& lang,
                                             ustring8 const& catalog) {
    return load_request(m_catalogs, lang, catalog).directory(path);
}

result_type message_catalogs::load_directory(ustring16 const& path, ustring16 const& lang,
                                             ustring16 const& catalog) {
    return load_directory(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load_directory(ustring32 const& path, ustring32 const& lang,
                                             ustring32 const& catalog) {
    return load_directory(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(ustring8 const& path, ustring8 const& lang) {
    return load_request(m_catalogs, lang).path(path);
}

result_type message_catalogs::load(ustring16 const& path, ustring16 const& lang) {
    return load(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load(ustring32 const& path, ustring32 const& lang) {
    return load(to_utf8(path), to_utf8(lang));
}

result_type message_catalogs::load(ustring8 const& path, ustring8 const& lang, ustring8 const& catalog) {
    return load_request(m_catalogs, lang, catalog).path(path);
}

result_type message_catalogs::load(ustring16 const& path, ustring16 const& lang, ustring16 const& catalog) {
    return load(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(ustring32 const& path, ustring32 const& lang, ustring32 const& catalog) {
    return load(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<ustring8> const& paths, ustring8 const& lang) {
    return load_request(m_catalogs, lang).paths(paths);
}

result_type message_catalogs::load(std::vector<ustring16> const& paths, ustring16 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<ustring32> const& paths, ustring32 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring8 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring16 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring32 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring8 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring16 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring32 const& lang) {
    return load(utf8_paths(paths), to_utf8(lang));
}

result_type message_catalogs::load(std::vector<ustring8> const& paths, ustring8 const& lang,
                                   ustring8 const& catalog) {
    return load_request(m_catalogs, lang, catalog).paths(paths);
}

result_type message_catalogs::load(std::vector<ustring16> const& paths, ustring16 const& lang,
                                   ustring16 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<ustring32> const& paths, ustring32 const& lang,
                                   ustring32 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring8 const& lang,
                                   ustring8 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring16 const& lang,
                                   ustring16 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<std::string> const& paths, ustring32 const& lang,
                                   ustring32 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring8 const& lang,
                                   ustring8 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring16 const& lang,
                                   ustring16 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

result_type message_catalogs::load(std::vector<wide_string> const& paths, ustring32 const& lang,
                                   ustring32 const& catalog) {
    return load(utf8_paths(paths), to_utf8(lang), to_utf8(catalog));
}

// ----------------------------------------------------------------------------------------------------------
// Dropping
// ----------------------------------------------------------------------------------------------------------

void message_catalogs::erase() { m_catalogs.clear(); }

void message_catalogs::remove() { erase(); }

void message_catalogs::erase(ustring8 const& name) { m_catalogs.erase(name); }

void message_catalogs::erase(ustring16 const& name) { erase(to_utf8(name)); }

void message_catalogs::erase(ustring32 const& name) { erase(to_utf8(name)); }

// ----------------------------------------------------------------------------------------------------------
// Looking up
// ----------------------------------------------------------------------------------------------------------

bool message_catalogs::has_catalog(ustring8 const& name) const {
    return m_catalogs.find(name) != m_catalogs.end();
}

bool message_catalogs::has_catalog(ustring16 const& name) const { return has_catalog(to_utf8(name)); }

bool message_catalogs::has_catalog(ustring32 const& name) const { return has_catalog(to_utf8(name)); }

bool message_catalogs::has_catalog(ustring8 const& name, ustring8 const& lang) const {
    return catalog(name).is_language_loaded(lang);
}

bool message_catalogs::has_catalog(ustring16 const& name, ustring16 const& lang) const {
    return has_catalog(to_utf8(name), to_utf8(lang));
}

bool message_catalogs::has_catalog(ustring32 const& name, ustring32 const& lang) const {
    return has_catalog(to_utf8(name), to_utf8(lang));
}

catalog_t const& message_catalogs::catalog(ustring8 const& name) const {
    auto const found = m_catalogs.find(name);
    return found == m_catalogs.end() || found->second.is_null() ? s_nil_catalog : *found->second;
}

catalog_t const& message_catalogs::catalog(ustring16 const& name) const { return catalog(to_utf8(name)); }

catalog_t const& message_catalogs::catalog(ustring32 const& name) const { return catalog(to_utf8(name)); }

bool message_catalogs::has_message(ustring8 const& catalog_name, ustring8 const& key) const {
    return catalog(catalog_name).has_message(key);
}

bool message_catalogs::has_message(ustring16 const& catalog_name, ustring16 const& key) const {
    return has_message(to_utf8(catalog_name), to_utf8(key));
}

bool message_catalogs::has_message(ustring32 const& catalog_name, ustring32 const& key) const {
    return has_message(to_utf8(catalog_name), to_utf8(key));
}

message_t const& message_catalogs::message(ustring8 const& catalog_name, ustring8 const& key) const {
    catalog_t const& found = catalog(catalog_name);
    return &found == &s_nil_catalog ? s_nil_message : found.message(key);
}

message_t const& message_catalogs::message(ustring16 const& catalog_name, ustring16 const& key) const {
    return message(to_utf8(catalog_name), to_utf8(key));
}

message_t const& message_catalogs::message(ustring32 const& catalog_name, ustring32 const& key) const {
    return message(to_utf8(catalog_name), to_utf8(key));
}

std::size_t message_catalogs::size() const { return m_catalogs.size(); }

std::size_t message_catalogs::count() const { return size(); }

std::size_t message_catalogs::size(ustring8 const& name) const { return catalog(name).size(); }

std::size_t message_catalogs::size(ustring16 const& name) const { return size(to_utf8(name)); }

std::size_t message_catalogs::size(ustring32 const& name) const { return size(to_utf8(name)); }

std::size_t message_catalogs::count(ustring8 const& name) const { return size(name); }

std::size_t message_catalogs::count(ustring16 const& name) const { return count(to_utf8(name)); }

std::size_t message_catalogs::count(ustring32 const& name) const { return count(to_utf8(name)); }

message_catalogs::iterator message_catalogs::begin() { return m_catalogs.begin(); }

message_catalogs::iterator message_catalogs::end() { return m_catalogs.end(); }

message_catalogs::const_iterator message_catalogs::begin() const { return m_catalogs.begin(); }

message_catalogs::const_iterator message_catalogs::end() const { return m_catalogs.end(); }

catalog_t::const_iterator message_catalogs::begin(ustring8 const& name) const {
    return catalog(name).begin();
}

catalog_t::const_iterator message_catalogs::begin(ustring16 const& name) const {
    return begin(to_utf8(name));
}

catalog_t::const_iterator message_catalogs::begin(ustring32 const& name) const {
    return begin(to_utf8(name));
}

catalog_t::const_iterator message_catalogs::end(ustring8 const& name) const { return catalog(name).end(); }

catalog_t::const_iterator message_catalogs::end(ustring16 const& name) const { return end(to_utf8(name)); }

catalog_t::const_iterator message_catalogs::end(ustring32 const& name) const { return end(to_utf8(name)); }

} // namespace VELDRIN_2_18::i18n
