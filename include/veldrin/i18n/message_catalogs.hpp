// File: veldrin/i18n/message_catalogs.hpp
//
// What an application holds: loads XMC files for a language, keeps their catalogues, and hands out messages
// by catalogue and name. A lookup never fails: what is not there comes back as a nil object, and a nil
// message prints as the empty text. Copies of a store share the catalogues.
//
//     i18n::message_catalogs catalogs;
//     auto const result = catalogs.load(strings::ustring8("status.xmc"), "fr_CA");
//     if (result.type() != i18n::message_catalogs::no_error) {
//         std::cerr << result << '\n';   // what is wrong, and where
//     }
//     catalogs.message("status", "title").as_utf8(generic::varg_list());   // "Synchronisation de fichiers"

#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/i18n/catalog.hpp"
#include "veldrin/i18n/message.hpp"
#include "veldrin/i18n/xmc_file_loader.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/unit_types.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::i18n {

class VELDRIN_EXPORT message_catalogs {
public:
    enum error_type : std::int32_t {
        no_error = 0,
        no_catalog_loaded = 1,   // the load ended with an empty store, or the file held no catalogue
        no_default_locale = 2,   // the language was left empty
        file_not_found = 3,      // the file, or a file it includes
        directory_not_found = 4, // the directory
        entity_not_found = 5,    // the path is neither file nor directory
        xml_parse_error = 6,     // a file is not well-formed XML
        xmc_not_valid = 7,       // a file is well-formed XML, but not valid XMC
        unexpected_error = 8     // everything else
    };

    // How a load went, with a message of one or more lines.
    class VELDRIN_EXPORT result_type {
    public:
        result_type(error_type type, strings::ustring8 const& text);
        result_type(_private::xmc_file_loader::load_error const& error);

        error_type type() const { return m_type; }
        operator error_type() const { return m_type; }
        strings::ustring8 const& message() const { return m_message; }

    protected:
        // The text is quoted in the message.
        strings::ustring8 format_message(error_type type, strings::ustring8 const& text);

        // Sets the type of this result too.
        strings::ustring8 format_message(_private::xmc_file_loader::load_error const& error);

    private:
        error_type m_type;
        strings::ustring8 m_message;
    };

    using catalog_map = std::map<strings::ustring8, memory::pointers::shared_pointer<catalog_t>>;
    using iterator = catalog_map::iterator;
    using const_iterator = catalog_map::const_iterator;

    // What stands for something that is missing. Valid before any user code runs and until all of it has.
    static message_t const s_nil_message;
    static catalog_t const s_nil_catalog;

    // An empty store, which is the nil one.
    message_catalogs() = default;
    message_catalogs(types::nil_t const&);

    // The catalogues of the other store are shared: what one of them loads into a catalogue, both have.
    message_catalogs& assign(message_catalogs const& other);

    // Drops all catalogues.
    message_catalogs& assign(types::nil_t const&);
    message_catalogs& operator=(types::nil_t const&);

    // True if the store has no catalogue.
    bool equal(types::nil_t const&) const;
    bool operator==(types::nil_t const&) const;
    bool operator!=(types::nil_t const&) const;

    // ------------------------------------------------------------------------------------------------------
    // Loading
    //
    // With two arguments: what, and for which language. A message is taken from the catalogues in that
    // language, in a less specific form of it, in "en" or in "." (neutral texts), the more specific winning.
    // With three arguments: only the catalogue of the name given. Here the language may be empty, which takes
    // "en" and "." alone; with two arguments an empty language is `no_default_locale`.
    //
    // A load adds to the store. A message of a name that is there is replaced if its language does not weigh
    // more in this load, so a second language overlays the first; `erase` the store to switch cleanly. A file
    // that fails changes nothing; the files before it stay loaded. Nothing is thrown for bad files. If memory
    // runs out, the messages written by then stay.
    // ------------------------------------------------------------------------------------------------------

    result_type load_file(strings::ustring8 const& path, strings::ustring8 const& lang);
    result_type load_file(strings::ustring16 const& path, strings::ustring16 const& lang);
    result_type load_file(strings::ustring32 const& path, strings::ustring32 const& lang);
    result_type load_file(strings::ustring8 const& path, strings::ustring8 const& lang,
                          strings::ustring8 const& catalog);
    result_type load_file(strings::ustring16 const& path, strings::ustring16 const& lang,
                          strings::ustring16 const& catalog);
    result_type load_file(strings::ustring32 const& path, strings::ustring32 const& lang,
                          strings::ustring32 const& catalog);

    // Can miss a file or a subdirectory: the listing behind it, `system::list_directory`, leaves out the
    // first entry that the system delivers, which on Linux may be any one. Where every file counts, give
    // `load` a list of paths, in C++20 so:
    //
    //     std::vector<strings::ustring8> paths;
    //     system::get_directory_files(strings::ustring8("catalogs"), paths);
    //     std::erase_if(paths, [](strings::ustring8 const& path) { return !path.ends_with(".xmc"); });
    //     catalogs.load(paths, "fr_CA");
    //
    // Loads every file whose name ends in ".xmc" or ".xml", in any case, in the order of the listing, and
    // walks subdirectories where they are met, except into one that the walk is inside of. Stops at the first
    // failure and returns it; otherwise returns the result of the last file, or `no_error` if there was none,
    // as is the case where the path names a file.
    result_type load_directory(strings::ustring8 const& path, strings::ustring8 const& lang);
    result_type load_directory(strings::ustring16 const& path, strings::ustring16 const& lang);
    result_type load_directory(strings::ustring32 const& path, strings::ustring32 const& lang);
    result_type load_directory(strings::ustring8 const& path, strings::ustring8 const& lang,
                               strings::ustring8 const& catalog);
    result_type load_directory(strings::ustring16 const& path, strings::ustring16 const& lang,
                               strings::ustring16 const& catalog);
    result_type load_directory(strings::ustring32 const& path, strings::ustring32 const& lang,
                               strings::ustring32 const& catalog);

    // A file or a directory. `entity_not_found` if it is neither, `no_catalog_loaded` if all went well but
    // the store has no catalogue at all.
    result_type load(strings::ustring8 const& path, strings::ustring8 const& lang);
    result_type load(strings::ustring16 const& path, strings::ustring16 const& lang);
    result_type load(strings::ustring32 const& path, strings::ustring32 const& lang);
    result_type load(strings::ustring8 const& path, strings::ustring8 const& lang,
                     strings::ustring8 const& catalog);
    result_type load(strings::ustring16 const& path, strings::ustring16 const& lang,
                     strings::ustring16 const& catalog);
    result_type load(strings::ustring32 const& path, strings::ustring32 const& lang,
                     strings::ustring32 const& catalog);

    // Files and directories in order, up to the first failure, which is returned; otherwise returns the
    // result of the last path, or `no_error` if there was none. A store that stays empty is no failure here.
    // Paths in a `std::string` are UTF-8, in a `wide_string` UTF-16. Literals in braces alone fit several of
    // these: write the list's type.
    result_type load(std::vector<strings::ustring8> const& paths, strings::ustring8 const& lang);
    result_type load(std::vector<strings::ustring16> const& paths, strings::ustring16 const& lang);
    result_type load(std::vector<strings::ustring32> const& paths, strings::ustring32 const& lang);
    result_type load(std::vector<std::string> const& paths, strings::ustring8 const& lang);
    result_type load(std::vector<std::string> const& paths, strings::ustring16 const& lang);
    result_type load(std::vector<std::string> const& paths, strings::ustring32 const& lang);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring8 const& lang);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring16 const& lang);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring32 const& lang);
    result_type load(std::vector<strings::ustring8> const& paths, strings::ustring8 const& lang,
                     strings::ustring8 const& catalog);
    result_type load(std::vector<strings::ustring16> const& paths, strings::ustring16 const& lang,
                     strings::ustring16 const& catalog);
    result_type load(std::vector<strings::ustring32> const& paths, strings::ustring32 const& lang,
                     strings::ustring32 const& catalog);
    result_type load(std::vector<std::string> const& paths, strings::ustring8 const& lang,
                     strings::ustring8 const& catalog);
    result_type load(std::vector<std::string> const& paths, strings::ustring16 const& lang,
                     strings::ustring16 const& catalog);
    result_type load(std::vector<std::string> const& paths, strings::ustring32 const& lang,
                     strings::ustring32 const& catalog);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring8 const& lang,
                     strings::ustring8 const& catalog);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring16 const& lang,
                     strings::ustring16 const& catalog);
    result_type load(std::vector<strings::wide_string> const& paths, strings::ustring32 const& lang,
                     strings::ustring32 const& catalog);

    // ------------------------------------------------------------------------------------------------------
    // Dropping
    // ------------------------------------------------------------------------------------------------------

    // All catalogues. Other stores that share them keep them.
    void erase();
    void remove();

    // One catalogue; a missing name does nothing.
    void erase(strings::ustring8 const& name);
    void erase(strings::ustring16 const& name);
    void erase(strings::ustring32 const& name);

    // ------------------------------------------------------------------------------------------------------
    // Looking up
    // ------------------------------------------------------------------------------------------------------

    bool has_catalog(strings::ustring8 const& name) const;
    bool has_catalog(strings::ustring16 const& name) const;
    bool has_catalog(strings::ustring32 const& name) const;

    // True if a message of the catalogue is in that language; see `catalog_t::is_language_loaded`.
    bool has_catalog(strings::ustring8 const& name, strings::ustring8 const& lang) const;
    bool has_catalog(strings::ustring16 const& name, strings::ustring16 const& lang) const;
    bool has_catalog(strings::ustring32 const& name, strings::ustring32 const& lang) const;

    // `s_nil_catalog` if there is none of that name.
    catalog_t const& catalog(strings::ustring8 const& name) const;
    catalog_t const& catalog(strings::ustring16 const& name) const;
    catalog_t const& catalog(strings::ustring32 const& name) const;

    bool has_message(strings::ustring8 const& catalog_name, strings::ustring8 const& key) const;
    bool has_message(strings::ustring16 const& catalog_name, strings::ustring16 const& key) const;
    bool has_message(strings::ustring32 const& catalog_name, strings::ustring32 const& key) const;

    // `s_nil_message` if the catalogue is missing, `catalog_t::m_nil_message` if only the message is. The
    // reference is good until the message is loaded again or its catalogue dropped.
    message_t const& message(strings::ustring8 const& catalog_name, strings::ustring8 const& key) const;
    message_t const& message(strings::ustring16 const& catalog_name, strings::ustring16 const& key) const;
    message_t const& message(strings::ustring32 const& catalog_name, strings::ustring32 const& key) const;

    // The number of catalogues.
    std::size_t size() const;
    std::size_t count() const;

    // The number of messages of a catalogue; 0 if it is missing.
    std::size_t size(strings::ustring8 const& name) const;
    std::size_t size(strings::ustring16 const& name) const;
    std::size_t size(strings::ustring32 const& name) const;
    std::size_t count(strings::ustring8 const& name) const;
    std::size_t count(strings::ustring16 const& name) const;
    std::size_t count(strings::ustring32 const& name) const;

    // The catalogues by name, in byte order.
    iterator begin();
    iterator end();
    const_iterator begin() const;
    const_iterator end() const;

    // The messages of a catalogue; none if it is missing.
    catalog_t::const_iterator begin(strings::ustring8 const& name) const;
    catalog_t::const_iterator begin(strings::ustring16 const& name) const;
    catalog_t::const_iterator begin(strings::ustring32 const& name) const;
    catalog_t::const_iterator end(strings::ustring8 const& name) const;
    catalog_t::const_iterator end(strings::ustring16 const& name) const;
    catalog_t::const_iterator end(strings::ustring32 const& name) const;

private:
    catalog_map m_catalogs;
};

// Writes the message.
VELDRIN_EXPORT std::ostream& operator<<(std::ostream& stream, message_catalogs::result_type const& result);

} // namespace VELDRIN_2_18::i18n
