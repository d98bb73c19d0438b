#include "veldrin/i18n/xmc_file_loader.hpp"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "i18n/language_name.hpp"
#include "strings/text_conversion.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/strings/case.hpp"
#include "veldrin/strings/replace.hpp"
#include "veldrin/strings/split.hpp"
#include "veldrin/system/file_utility.hpp"
#include "veldrin/system/io.hpp"

namespace VELDRIN_2_18::i18n::_private {

using parser::xml_token_stream;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::_private::to_utf8;
using xml_error = parser::xml_parser::parse_error;

namespace {

using token = xml_token_stream::token;
using token_position = xml_token_stream::const_iterator;
using load_error = xmc_file_loader::load_error;

// Far below what the stack carries: a file that includes itself ends here.
constexpr int maximum_include_depth = 256;

// A few files that each include the next one twice would otherwise be read for hours.
constexpr int maximum_includes = 10000;

// Stands between the parts of an argument's specification.
constexpr char option_separator = '\x01';

struct argument_type {
    std::string_view keyword;
    message_item::type_t type;
};

constexpr argument_type argument_types[] = {
    {"value", message_item::value_type},
    {"string", message_item::string_type},
    {"number", message_item::number_type},
    {"int", message_item::int_type},
    {"double", message_item::double_type},
    {"time", message_item::time_type},
    {"date", message_item::date_type},
    {"memory", message_item::memory_type},
    {"mem", message_item::memory_type},
    {"memory_unit", message_item::memory_unit_type},
    {"mem_unit", message_item::memory_unit_type},
    {"metric", message_item::metric_type},
    {"metric_unit", message_item::metric_unit_type},
    {"duration", message_item::duration_type},
};

// ----------------------------------------------------------------------------------------------------------
// Texts of errors
// ----------------------------------------------------------------------------------------------------------

ustring8 headline(std::string const& text) { return "xmc_file_loader::load_error - " + text; }

std::string quoted(std::string const& text) { return '"' + text + '"'; }

ustring8 unhandled_case(int number, std::string const& text) {
    return "unknown, or unhandle case happened! " + std::to_string(number) + " str data=" + text;
}

// ----------------------------------------------------------------------------------------------------------
// Languages
// ----------------------------------------------------------------------------------------------------------

// A single character stands as it is: "." is the language of neutral texts.
ustring8 normalised(ustring8 const& lang) { return lang.size() == 1 ? lang : underscored(lang); }

// ----------------------------------------------------------------------------------------------------------
// Paths. Both separators are understood on every platform.
// ----------------------------------------------------------------------------------------------------------

bool is_absolute(ustring8 const& path) {
    return path[0] == '/' || path[0] == '\\' || (path.size() > 2 && path[1] == ':');
}

ustring8 directory_of(ustring8 const& path) {
    std::size_t const separator = path.find_last_of("/\\");
    return separator == ustring8::npos ? ustring8("./") : ustring8(path.substr(0, separator + 1));
}

// Where a backslash is no separator, a path that names nothing as it stands was written on a system where it
// is one.
ustring8 readable_path(ustring8 const& path) {
    ustring8 readable = path;
    if (!system::io::exists(path)) {
        strings::replace_all(readable, ustring8("\\"), ustring8("/"));
    }
    return readable;
}

// ----------------------------------------------------------------------------------------------------------
// Includes
// ----------------------------------------------------------------------------------------------------------

// One file further in. The failures of containers and allocator that pass through a load leave it too.
class include_level {
public:
    explicit include_level(int& depth) : m_depth(depth) { ++m_depth; }
    include_level(include_level const&) = delete;
    include_level& operator=(include_level const&) = delete;
    ~include_level() { --m_depth; }

private:
    int& m_depth;
};

// ----------------------------------------------------------------------------------------------------------
// Steps over the tokens
// ----------------------------------------------------------------------------------------------------------

bool is(token const& candidate, token::token_type type, char const* value) {
    return candidate.type() == type && candidate.value() == value;
}

bool starts(token_position const& position, token_position const& end, char const* element) {
    return position != end && is(*position, token::element_start, element);
}

token const& current(token_position const& position, token_position const& end) {
    if (position == end) {
        throw load_error(xmc_file_loader::unexpected_parse_error, ustring8());
    }
    return *position;
}

// To a token: the end of the list is an error.
void advance(token_position& position, token_position const& end) {
    ++position;
    current(position, end);
}

void skip_start_of(char const* element, xmc_file_loader::error_type otherwise, token_position& position,
                   token_position const& end) {
    if (!starts(position, end, element)) {
        throw load_error(otherwise, current(position, end).value());
    }
    advance(position, end);
}

// The attributes of `catalog` and of `msg`: `name` and one other, which is returned. Only the values of the
// tokens are looked at, so a comment that got in front of the end of the attributes is taken for one. What is
// behind them is left unseen, and may be the end of the list.
ustring8 parse_name_and(char const* other_attribute, ustring8& name, token_position& position,
                        token_position const& end) {
    ustring8 other;
    while (position->type() != token::attributes_end) {
        ustring8 const& attribute = position->value();
        if (attribute != "name" && attribute != other_attribute) {
            throw load_error(xmc_file_loader::invalid_attribute, attribute);
        }
        advance(position, end);
        (attribute == "name" ? name : other) = position->value();
        advance(position, end);
    }
    ++position;
    return other;
}

void skip_catalog(ustring8 const& name, token_position& position, token_position const& end) {
    position = std::find_if(
        position, end, [](token const& candidate) { return is(candidate, token::element_end, "catalog"); });
    if (position == end) {
        throw load_error(xmc_file_loader::catalog_end_missing, name);
    }
}

void parse_line_break(token_position& position, token_position const& end) {
    advance(position, end);
    if (position->type() != token::attributes_end) {
        throw load_error(xmc_file_loader::invalid_attribute, position->value());
    }
    advance(position, end);
    if (!is(*position, token::element_end, "br")) {
        throw load_error(xmc_file_loader::br_end_missing, ustring8());
    }
    advance(position, end);
}

bool starts_argument(token_position const& position, token_position const& end) {
    return starts(position, end, "arg") || starts(position, end, "argument");
}

// ----------------------------------------------------------------------------------------------------------
// Gathering the items of a message
// ----------------------------------------------------------------------------------------------------------

class item_gatherer {
public:
    void add_text(ustring8 const& text) {
        m_text += text;
        m_after_argument = false;
    }

    // A run of white space is one blank, and none at the start of the message.
    void add_space() {
        if (m_text.empty() ? m_after_argument : m_text.back() != ' ') {
            m_text += ' ';
        }
        m_after_argument = false;
    }

    void add_line_break() { m_text += '\n'; }

    void close_literal() {
        if (!m_text.empty()) {
            m_items.emplace_back(m_text);
            m_text.clear();
        }
    }

    void add_argument(message_item const& argument) {
        m_items.push_back(argument);
        m_after_argument = true;
    }

    std::vector<message_item> const& items() const { return m_items; }

private:
    std::vector<message_item> m_items;
    ustring8 m_text;
    bool m_after_argument = false;
};

} // namespace

// ----------------------------------------------------------------------------------------------------------
// load_error
// ----------------------------------------------------------------------------------------------------------

xmc_file_loader::load_error::load_error() : load_error(no_error, ustring8()) {}

xmc_file_loader::load_error::load_error(error_type type, xml_error const& error)
    : m_message(format_msg(type, error)), m_type(type) {}

xmc_file_loader::load_error::load_error(error_type type, ustring8 const& text)
    : m_message(format_msg(type, text)), m_type(type) {}

void xmc_file_loader::load_error::append_error_stack(append_type kind, ustring8 const& text) {
    m_message += format_msg(kind, text);
}

ustring8 xmc_file_loader::load_error::format_msg(error_type type, ustring8 const& text) {
    switch (type) {
    case no_error:
        return headline("No Error");
    case no_catalog_loaded:
        return headline("No catalog was loaded in file: " + quoted(text));
    case no_default_locale:
        return headline("Default locale lookup not supported yet");
    case file_not_found:
        return headline("File " + quoted(text) + " was not found on disk");
    case invalid_attribute:
        return headline("Invalid attibute " + quoted(text));
    case invalid_element:
        return headline("Invalid element " + quoted(text));
    case not_xmc_file:
        return headline("Not XMC file, root element is not XMC but " + quoted(text));
    case bad_xmc_version:
        return headline("XMC version " + quoted(text) + " is not supported");
    case br_end_missing:
        return headline("Expected BR end tag not found");
    case msg_end_missing:
        return headline("Expected msg (message) end tag not found for message " + quoted(text));
    case arg_end_missing:
        return headline("Expected arg (argument) end tag not found for argument " + quoted(text));
    case include_end_missing:
        return headline("Expected " + quoted("include") + " end tag not found");
    case catalog_end_missing:
        return headline("Expected catalog end tag not found for catalog " + quoted(text));
    case unexpected_parse_error:
        return headline("Unexpected parse error happen!");
    case xml_parse_error:
        break;
    }
    return unhandled_case(type, text);
}

ustring8 xmc_file_loader::load_error::format_msg(error_type, xml_error const& error) {
    ustring8 const line = format_msg(at_line, ustring8(std::to_string(error.line())));
    std::string const message = quoted(error.message());
    switch (error.type()) {
    case xml_error::unexpected_eof:
        return headline("Unexpected end of file during XML parsing") + line;
    case xml_error::mismatched_end:
        return headline("Mismatched end element " + message + " was found") + line;
    case xml_error::no_root_element:
        return headline("No root element was found") + line;
    case xml_error::invalid_header:
        return headline("Valid XML header not found") + line;
    case xml_error::unexpected_char:
        return headline("Unexpected character " + message + " found while parsing") + line;
    case xml_error::missing_quote:
        return headline("Missing \" while parsing attribute " + message) + line;
    case xml_error::unknown_entity:
        return headline("Unknown enity being parsed") + line;
    case xml_error::missing_equals:
        return headline("Missing = sign for attribute " + message) + line;
    case xml_error::attribute_redefined:
        return headline("attribute " + message + " is being redefined") + line;
    case xml_error::data_after_root:
        return headline("Data found after root element") + line;
    case xml_error::no_parse_error:
        break;
    }
    return headline("Unknown Parse error");
}

ustring8 xmc_file_loader::load_error::format_msg(append_type kind, ustring8 const& text) {
    switch (kind) {
    case in_message:
        return "\n in message element: " + quoted(text);
    case in_catalog:
        return "\n in catalog element: " + quoted(text);
    case in_file:
        return "\n in file: " + quoted(text);
    case at_line:
        return "\n at line: " + quoted(text);
    }
    return "\n " + unhandled_case(kind, text);
}

// ----------------------------------------------------------------------------------------------------------
// Entries
// ----------------------------------------------------------------------------------------------------------

load_error xmc_file_loader::parse(ustring8 const& path, ustring8 const& lang) {
    if (lang.empty()) {
        return load_error(no_default_locale, ustring8());
    }
    handle_language(lang);
    return parse_file(path);
}

load_error xmc_file_loader::parse(ustring16 const& path, ustring16 const& lang) {
    return parse(to_utf8(path), to_utf8(lang));
}

load_error xmc_file_loader::parse(ustring32 const& path, ustring32 const& lang) {
    return parse(to_utf8(path), to_utf8(lang));
}

load_error xmc_file_loader::parse(ustring8 const& path, ustring8 const& lang, ustring8 const& catalog) {
    catalog_id = catalog;
    handle_language(lang);
    return parse(path);
}

load_error xmc_file_loader::parse(ustring16 const& path, ustring16 const& lang, ustring16 const& catalog) {
    return parse(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

load_error xmc_file_loader::parse(ustring32 const& path, ustring32 const& lang, ustring32 const& catalog) {
    return parse(to_utf8(path), to_utf8(lang), to_utf8(catalog));
}

load_error xmc_file_loader::parse(ustring8 const& path) {
    handle_language(ustring8());
    return parse_file(path);
}

std::size_t
xmc_file_loader::combine_data(std::map<ustring8, memory::pointers::shared_pointer<catalog_t>>& store) {
    std::size_t written = 0;
    for (auto const& [name, messages] : catalog_map) {
        auto place = store.find(name);
        if (place == store.end()) {
            memory::pointers::shared_pointer<catalog_t> made(generic::abilities::make_dynamic<catalog_t>());
            place = store.emplace(name, std::move(made)).first;
        }
        catalog_t& catalog = place->second.checked();
        catalog._name(name);
        for (auto const& [key, message] : messages) {
            message_t const& present = catalog.message(key);
            // A tie goes to the later load, unlike among the variants of one load.
            if (present == types::nil || get_locale_weight(present._orginal_locale()) <=
                                             get_locale_weight(message._orginal_locale())) {
                catalog.message(key, message);
                ++written;
            }
        }
    }
    return written;
}

load_error xmc_file_loader::parse_file(ustring8 const& path) {
    ustring8 const readable = readable_path(path);
    if (!system::io::exists(readable)) {
        return load_error(file_not_found, path);
    }
    // A file that cannot be read stays empty, which the parser reports.
    ustring8 data;
    system::load_file(readable, data);
    data += '\0';
    base_dir = directory_of(path);
    return parse_string(data, path);
}

load_error xmc_file_loader::parse_string(ustring8 const& data, ustring8 const& filename) {
    xml_token_stream stream;
    xml_error const error = stream.parse(data);
    if (error.type() != xml_error::no_parse_error) {
        load_error failure(xml_parse_error, error);
        failure.append_error_stack(load_error::in_file, filename);
        return failure;
    }
    if (stream.size() == 0) {
        return load_error(unexpected_parse_error, ustring8("Nothing of interest in the file."));
    }
    try {
        token_position position = stream.begin();
        token_position const end = stream.end();
        parse_ignorable(position, end);
        parse_xmc_header(position, end);
        parse_ignorable(position, end);
        return parse_root_content(position, end) ? load_error() : load_error(no_catalog_loaded, filename);
    } catch (load_error& failure) {
        failure.append_error_stack(load_error::in_file, filename);
        return failure;
    }
}

// ----------------------------------------------------------------------------------------------------------
// Productions
// ----------------------------------------------------------------------------------------------------------

// True if there was any `catalog` or `include`, skipped catalogues included.
bool xmc_file_loader::parse_root_content(token_position& position, token_position const& end) {
    bool anything_seen = false;
    while (starts(position, end, "catalog") || starts(position, end, "include")) {
        if (position->value() == "catalog") {
            parse_catalog(position, end);
        } else {
            parse_include(position, end);
        }
        anything_seen = true;
        parse_ignorable(position, end);
    }
    token const& last = current(position, end);
    if (!is(last, token::element_end, "xmc")) {
        throw load_error(invalid_element, last.value());
    }
    return anything_seen;
}

void xmc_file_loader::parse_xmc_header(token_position& position, token_position const& end) {
    if (position == end) {
        throw load_error(not_xmc_file, ustring8("Value Not Defined"));
    }
    skip_start_of("xmc", not_xmc_file, position, end);
    if (!is(*position, token::attribute_name, "version")) {
        throw load_error(invalid_attribute, position->value());
    }
    advance(position, end);
    if (!is(*position, token::attribute_value, "1.0") && !is(*position, token::attribute_value, "1.1")) {
        throw load_error(bad_xmc_version, position->value());
    }
    // The token behind the value is stepped over unseen. Where it is not the end of the attributes, the
    // content of the root fails on the one after it.
    advance(position, end);
    ++position;
}

void xmc_file_loader::parse_include(token_position& position, token_position const& end) {
    skip_start_of("include", invalid_element, position, end);
    while (position->type() != token::attributes_end) {
        if (is(*position, token::attribute_name, "file")) {
            advance(position, end);
            include_file(position->value());
        }
        advance(position, end);
    }
    advance(position, end);
    if (!is(*position, token::element_end, "include")) {
        throw load_error(include_end_missing, ustring8());
    }
    ++position;
}

void xmc_file_loader::include_file(ustring8 const& file) {
    if (file.empty()) {
        throw load_error(file_not_found, file);
    }
    if (m_include_depth == maximum_include_depth || m_includes == maximum_includes) {
        throw load_error(unexpected_parse_error, file);
    }
    ++m_includes;
    include_level const level(m_include_depth);
    ustring8 const including_dir = base_dir;
    load_error const result = parse_file(is_absolute(file) ? file : ustring8(base_dir + file));
    if (result.type() != no_error) {
        throw result;
    }
    base_dir = including_dir;
}

void xmc_file_loader::parse_catalog(token_position& position, token_position const& end) {
    ustring8 name;
    try {
        skip_start_of("catalog", invalid_element, position, end);
        ustring8 const lang = parse_name_and("lang", name, position, end);
        if (is_catalog_matched(name) && is_lang_id_good(lang)) {
            parse_messages(name, lang, position, end);
        } else {
            skip_catalog(name, position, end);
        }
        if (!is(*position, token::element_end, "catalog")) {
            throw load_error(catalog_end_missing, name);
        }
        ++position;
    } catch (load_error& failure) {
        failure.append_error_stack(load_error::in_catalog, name);
        throw;
    }
}

// Ends at a token that starts no message.
void xmc_file_loader::parse_messages(ustring8 const& catalog, ustring8 const& lang, token_position& position,
                                     token_position const& end) {
    parse_ignorable(position, end);
    while (is(current(position, end), token::element_start, "msg")) {
        message_t message = parse_message(position, end);
        message._orginal_locale(lang);
        set_message(message, catalog);
        parse_ignorable(position, end);
    }
}

message_t xmc_file_loader::parse_message(token_position& position, token_position const& end) {
    ustring8 name;
    try {
        skip_start_of("msg", unexpected_parse_error, position, end);
        ustring8 const meta = parse_name_and("meta", name, position, end);
        std::vector<message_item> const items = parse_message_items(position, end);
        ++position;
        return message_t(name, items, meta);
    } catch (load_error& failure) {
        failure.append_error_stack(load_error::in_message, name);
        throw;
    }
}

// Ends at any end tag, and at any token at all that reads "msg": so does a text that is exactly that.
std::vector<message_item> xmc_file_loader::parse_message_items(token_position& position,
                                                               token_position const& end) {
    item_gatherer gathered;
    while (current(position, end).value() != "msg" && position->type() != token::element_end) {
        if (starts_argument(position, end)) {
            gathered.close_literal();
            gathered.add_argument(parse_message_arg(position, end));
        } else if (starts(position, end, "br")) {
            gathered.add_line_break();
            parse_line_break(position, end);
        } else if (position->type() == token::element_start) {
            throw load_error(invalid_element, position->value());
        } else {
            if (position->type() == token::character) {
                gathered.add_text(position->value());
            } else if (position->type() == token::space) {
                gathered.add_space();
            }
            advance(position, end);
        }
    }
    gathered.close_literal();
    return gathered.items();
}

message_item xmc_file_loader::parse_message_arg(token_position& position, token_position const& end) {
    if (!starts_argument(position, end)) {
        return message_item(ustring8(), message_item::string_type);
    }
    ustring8 specification;
    message_item::type_t type = message_item::string_type;
    advance(position, end);
    for (; position->type() != token::attributes_end; advance(position, end)) {
        // A comment can stand in front of the end of the attributes.
        if (position->type() != token::attribute_name) {
            continue;
        }
        ustring8 const& attribute = position->value();
        advance(position, end);
        ustring8 const& value = position->value();
        if (attribute == "name") {
            specification = value;
        } else if (attribute == "type") {
            type = parse_message_type(value);
        } else {
            specification += option_separator + attribute + option_separator + value;
        }
    }
    message_item argument(specification, type);
    position = std::find_if(position, end,
                            [](token const& candidate) { return candidate.type() == token::element_end; });
    if (position == end) {
        throw load_error(arg_end_missing, argument.name());
    }
    advance(position, end);
    return argument;
}

message_item::type_t xmc_file_loader::parse_message_type(ustring8 const& keyword) {
    ustring8 const wanted = strings::to_lower(keyword);
    auto const* const found =
        std::find_if(std::begin(argument_types), std::end(argument_types),
                     [&](argument_type const& known) { return known.keyword == wanted; });
    return found == std::end(argument_types) ? message_item::string_type : found->type;
}

void xmc_file_loader::parse_ignorable(token_position& position, token_position const& end) {
    position = std::find_if(position, end, [](token const& candidate) {
        return candidate.type() != token::comment && candidate.type() != token::space &&
               candidate.type() != token::character;
    });
}

// ----------------------------------------------------------------------------------------------------------
// Choosing
// ----------------------------------------------------------------------------------------------------------

void xmc_file_loader::handle_language(ustring8 const& lang) {
    // Taken apart first: it may be one of the list.
    std::vector<ustring8> const parts = strings::split_string(normalised(lang), "_", 0);
    locale_list.emplace_back(".");
    locale_list.emplace_back("en");
    ustring8 beginning;
    for (std::size_t index = 0; index < parts.size(); ++index) {
        beginning += index == 0 ? parts[index] : ustring8("_" + parts[index]);
        if (beginning != "en") {
            locale_list.push_back(beginning);
        }
    }
}

bool xmc_file_loader::is_lang_id_good(ustring8 const& lang) const { return get_locale_weight(lang) != 0; }

std::size_t xmc_file_loader::get_locale_weight(ustring8 const& lang) const {
    auto const found = std::find(locale_list.begin(), locale_list.end(), normalised(lang));
    return found == locale_list.end() ? 0 : static_cast<std::size_t>(found - locale_list.begin()) + 1;
}

bool xmc_file_loader::is_cat_id_set() const { return !catalog_id.empty(); }

bool xmc_file_loader::is_catalog_matched(ustring8 const& name) const {
    return !is_cat_id_set() || catalog_id == name;
}

void xmc_file_loader::set_message(message_t const& msg, ustring8 const& catalog) {
    message_t& entry = catalog_map[catalog][msg.name()];
    if (entry == types::nil ||
        get_locale_weight(entry._orginal_locale()) < get_locale_weight(msg._orginal_locale())) {
        entry = msg;
    }
}

void xmc_file_loader::reset() {}

} // namespace VELDRIN_2_18::i18n::_private
