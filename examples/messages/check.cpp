#include "check.hpp"

#include <ostream>

#include "veldrin/i18n/message_catalogs.hpp"
#include "veldrin/parser/xml_token_stream.hpp"
#include "veldrin/system/file_utility.hpp"

using veldrin::strings::ustring8;
using token = veldrin::parser::xml_token_stream::token;
using veldrin::i18n::message_catalogs;

std::vector<catalog_summary> summarise(ustring8 const& contents) {
    veldrin::parser::xml_token_stream tokens;
    tokens.parse(contents);

    std::vector<catalog_summary> catalogs;
    bool in_catalog_tag = false;
    ustring8 attribute;
    for (token const& current : tokens) {
        switch (current.type()) {
        case token::element_start:
            in_catalog_tag = current.value() == "catalog";
            if (in_catalog_tag) {
                catalogs.emplace_back();
            } else if (current.value() == "msg" && !catalogs.empty()) {
                ++catalogs.back().messages;
            }
            break;
        case token::attribute_name:
            attribute = current.value();
            break;
        case token::attribute_value:
            if (in_catalog_tag && attribute == "name") {
                catalogs.back().name = current.value();
            } else if (in_catalog_tag && attribute == "lang") {
                catalogs.back().language = current.value();
            }
            break;
        default:
            break;
        }
    }
    return catalogs;
}

std::set<ustring8> languages_of(ustring8 const& path) {
    ustring8 contents;
    veldrin::system::load_file(path, contents);
    std::set<ustring8> languages;
    for (catalog_summary const& catalog : summarise(contents)) {
        if (!catalog.language.empty()) {
            languages.insert(catalog.language);
        }
    }
    return languages;
}

int check(std::ostream& out, std::ostream& error, ustring8 const& path) {
    std::set<ustring8> languages = languages_of(path);
    if (languages.empty()) {
        languages.insert("en");
    }
    for (ustring8 const& language : languages) {
        message_catalogs catalogs;
        message_catalogs::result_type const result = catalogs.load_file(path, language);
        if (result.type() != message_catalogs::no_error) {
            error << result << '\n';
            return 1;
        }
    }

    ustring8 contents;
    veldrin::system::load_file(path, contents);
    std::vector<catalog_summary> const summary = summarise(contents);
    if (summary.empty()) {
        out << "no catalogue of its own; what it includes can be loaded\n";
    }
    for (catalog_summary const& catalog : summary) {
        out << "catalogue " << catalog.name << ", language " << catalog.language << ": " << catalog.messages
            << (catalog.messages == 1 ? " message\n" : " messages\n");
    }
    return 0;
}
