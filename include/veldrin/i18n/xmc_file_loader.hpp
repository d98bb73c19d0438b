// File: veldrin/i18n/xmc_file_loader.hpp
//
// Reads one XMC file, and the files it includes, into a map of catalogues, choosing among the languages that
// suit a request while it reads. The object is made for one load; `message_catalogs` makes one for each file
// and merges what it read into its store. XMC is the XML dialect of message catalogues:
//
//     <?xml version="1.0" encoding="UTF-8"?>
//     <xmc version="1.1"><include file="common.xmc"/>
//     <catalog name="status" lang="en_US">
//     <msg name="used">Used <arg name="n" type="memory"/> <arg name="n" type="memory_unit"/><br/>in all</msg>
//     </catalog></xmc>
//
//     i18n::_private::xmc_file_loader loader;
//     auto const error = loader.parse("status.xmc", "en_US");   // error.type(): xmc_file_loader::no_error
//     loader.combine_data(store);                               // 1: the message "used" of "status"

#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/i18n/catalog.hpp"
#include "veldrin/i18n/message.hpp"
#include "veldrin/i18n/message_item.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/parser/xml_parser.hpp"
#include "veldrin/parser/xml_token_stream.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::i18n::_private {

class VELDRIN_EXPORT xmc_file_loader {
public:
    enum error_type : std::int32_t {
        no_error = 0,
        no_catalog_loaded = 1,      // the file holds neither `catalog` nor `include`
        no_default_locale = 2,      // a two-argument `parse` with an empty language
        file_not_found = 3,         // the file does not exist, or an `include` has an empty `file`
        xml_parse_error = 4,        // the text is not well-formed XML, or the file cannot be read
        invalid_attribute = 5,      // an attribute that the element does not have, or `version` not in front
        invalid_element = 6,        // an element where it is not allowed
        not_xmc_file = 7,           // the root element is not `xmc`
        bad_xmc_version = 8,        // `version` is neither "1.0" nor "1.1"
        br_end_missing = 9,         // something between the start and the end of `br`
        msg_end_missing = 10,       // reserved, never given
        arg_end_missing = 11,       // the tokens end inside an argument
        include_end_missing = 12,   // something between the start and the end of `include`
        catalog_end_missing = 13,   // a `catalog` that does not end, or with something other than `msg` in it
        unexpected_parse_error = 14 // the tokens end early, includes nest more than 256 deep, or this loader
                                    // has read 10,000 of them
    };

    // How a load went: what was wrong, and behind it one line for each place around it, the innermost first.
    // The parsing functions throw it among themselves; callers get it as a value.
    class VELDRIN_EXPORT load_error {
    public:
        enum append_type : std::int32_t { in_message = 1, in_catalog = 2, in_file = 3, at_line = 4 };

        // `no_error`.
        load_error();

        // The XML parser's error in words. The type is taken as it is given, the words follow the error.
        load_error(error_type type, parser::xml_parser::parse_error const& error);

        // The text is quoted in the message; types that have nothing to quote drop it.
        load_error(error_type type, strings::ustring8 const& text);

        error_type type() const { return m_type; }
        strings::ustring8 const& message() const { return m_message; }

        // Adds one line that names a place around the error.
        void append_error_stack(append_type kind, strings::ustring8 const& text);

    protected:
        static strings::ustring8 format_msg(error_type type, strings::ustring8 const& text);

        // The words follow the error's own type, and end in a line feed and its line number; `type` is
        // ignored.
        static strings::ustring8 format_msg(error_type type, parser::xml_parser::parse_error const& error);

        // Starts with a line feed.
        static strings::ustring8 format_msg(append_type kind, strings::ustring8 const& text);

    private:
        strings::ustring8 m_message;
        error_type m_type;
    };

    // Reads the catalogues of the file that are in "." (the neutral texts), in "en", or in a language that
    // `lang` begins with: "ja_JP.UTF-8" takes "ja", "ja_JP", "ja_JP_UTF" and "ja_JP_UTF_8". "." and "-" count
    // as "_" on both sides. Among variants of a message the later in this list wins, and the first one read
    // among equals. An empty language is `no_default_locale`.
    //
    // Does not throw a `load_error`. What was read before a failure stays in the map. A second call extends
    // the list of languages and the map.
    load_error parse(strings::ustring8 const& path, strings::ustring8 const& lang);
    load_error parse(strings::ustring16 const& path, strings::ustring16 const& lang);
    load_error parse(strings::ustring32 const& path, strings::ustring32 const& lang);

    // The same for the catalogue of one name; an empty name takes them all. Here an empty language is
    // accepted and takes "." and "en" alone.
    load_error parse(strings::ustring8 const& path, strings::ustring8 const& lang,
                     strings::ustring8 const& catalog);
    load_error parse(strings::ustring16 const& path, strings::ustring16 const& lang,
                     strings::ustring16 const& catalog);
    load_error parse(strings::ustring32 const& path, strings::ustring32 const& lang,
                     strings::ustring32 const& catalog);

    // Merges what was read into the store and returns how many messages were written. A message that is there
    // stays if its language weighs more in this load's list; at equal weight the new one replaces it. An
    // entry of the store that is a null pointer throws the literal "unreferanced object".
    std::size_t combine_data(std::map<strings::ustring8, memory::pointers::shared_pointer<catalog_t>>& store);

protected:
    using token_position = parser::xml_token_stream::const_iterator;

    // With an empty language.
    load_error parse(strings::ustring8 const& path);

    load_error parse_file(strings::ustring8 const& path);
    load_error parse_string(strings::ustring8 const& data, strings::ustring8 const& filename);

    // The parsing functions: one for each production. Each starts at `position`, leaves it behind what it
    // took, never goes past `end`, and throws a `load_error`.

    void parse_xmc_header(token_position& position, token_position const& end);
    void parse_include(token_position& position, token_position const& end);
    void parse_catalog(token_position& position, token_position const& end);
    message_t parse_message(token_position& position, token_position const& end);

    // At anything but an `arg` or `argument`: takes nothing and returns an empty "string" item.
    message_item parse_message_arg(token_position& position, token_position const& end);

    // The type of a keyword in any case; an unknown one is `string_type`.
    message_item::type_t parse_message_type(strings::ustring8 const& keyword);

    // Comments, white space and text.
    void parse_ignorable(token_position& position, token_position const& end);

    // Appends to the list of languages ".", "en" and the beginnings of `lang`, the shortest first.
    void handle_language(strings::ustring8 const& lang);

    // True if the language is in the list.
    bool is_lang_id_good(strings::ustring8 const& lang) const;

    // The place of the language in the list, counted from 1; 0 if it is not there.
    std::size_t get_locale_weight(strings::ustring8 const& lang) const;

    // True if the load is for one catalogue.
    bool is_cat_id_set() const;

    // True if the load takes the catalogue of that name.
    bool is_catalog_matched(strings::ustring8 const& name) const;

    // Keeps the message, unless there is one of its name whose language weighs as much or more.
    void set_message(message_t const& msg, strings::ustring8 const& catalog);

    // Does nothing.
    void reset();

    // The languages of this load, in rising order of preference.
    std::vector<strings::ustring8> locale_list;

    // Messages by name, by catalogue.
    std::map<strings::ustring8, std::map<strings::ustring8, message_t>> catalog_map;

    // The directory of the file being read, with its separator.
    strings::ustring8 base_dir;

    // The one catalogue to take; empty for all.
    strings::ustring8 catalog_id;

private:
    bool parse_root_content(token_position& position, token_position const& end);
    void parse_messages(strings::ustring8 const& catalog, strings::ustring8 const& lang,
                        token_position& position, token_position const& end);
    std::vector<message_item> parse_message_items(token_position& position, token_position const& end);
    void include_file(strings::ustring8 const& file);

    int m_include_depth = 0;
    int m_includes = 0;
};

} // namespace VELDRIN_2_18::i18n::_private
