#include "veldrin/i18n/xmc_file_loader.hpp"

#include <filesystem>
#include <iterator>
#include <list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/temporary_directory.hpp"
#include "support/temporary_working_directory.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using support::text_of;
using loader_type = i18n::_private::xmc_file_loader;
using load_error = loader_type::load_error;
using xml_error = parser::xml_parser::parse_error;
using token = parser::xml_token_stream::token;
using store_type = std::map<ustring8, memory::pointers::shared_pointer<i18n::catalog_t>>;

struct open_loader : loader_type {
    using loader_type::base_dir;
    using loader_type::catalog_id;
    using loader_type::catalog_map;
    using loader_type::get_locale_weight;
    using loader_type::handle_language;
    using loader_type::is_cat_id_set;
    using loader_type::is_catalog_matched;
    using loader_type::is_lang_id_good;
    using loader_type::locale_list;
    using loader_type::parse;
    using loader_type::parse_catalog;
    using loader_type::parse_file;
    using loader_type::parse_ignorable;
    using loader_type::parse_include;
    using loader_type::parse_message;
    using loader_type::parse_message_arg;
    using loader_type::parse_message_type;
    using loader_type::parse_string;
    using loader_type::parse_xmc_header;
    using loader_type::reset;
    using loader_type::set_message;
    using loader_type::token_position;
};

struct open_error : load_error {
    using load_error::format_msg;
};

// The items as "[type:data]", with "|" for the byte between the parts of a specification.
std::string shown(i18n::message_t const& message) {
    std::string text;
    for (i18n::message_item const& item : message) {
        std::string data = item.data();
        for (char& character : data) {
            character = character == '\x01' ? '|' : character;
        }
        text += "[" + std::to_string(item.type()) + ":" + data + "]";
    }
    return text;
}

// Catalogues, messages and items, as "catalogue/message=[type:data]", one a line.
std::string shown(open_loader const& loader) {
    std::string text;
    for (auto const& [catalog, messages] : loader.catalog_map) {
        for (auto const& [name, message] : messages) {
            text += catalog + "/" + name + "=" + shown(message) + "\n";
        }
    }
    return text;
}

class xmc_file_loader : public testing::Test {
protected:
    // Parses the text as the file "a.xmc".
    load_error parse(std::string_view contents, ustring8 const& lang = "en") {
        return loader.parse(directory.file("a.xmc", contents), lang);
    }

    // The items of the message whose content this is.
    std::string items_of(std::string_view content) {
        open_loader fresh;
        std::string const path =
            directory.file("a.xmc", "<?xml version='1.0'?><xmc version='1.1'><catalog lang='en'><msg>" +
                                        std::string(content) + "</msg></catalog></xmc>");
        load_error const error = fresh.parse(path, "en");
        EXPECT_EQ(error.type(), loader_type::no_error) << error.message();
        return shown(fresh.catalog_map[""][""]);
    }

    // With the paths of the files cut down to their names.
    std::string message_of(load_error const& error) const {
        std::string text = error.message();
        std::string const prefix = directory.path("");
        for (std::size_t at = text.find(prefix); at != text.npos; at = text.find(prefix)) {
            text.erase(at, prefix.size());
        }
        return text;
    }

    support::temporary_directory directory;
    open_loader loader;
};

// ----------------------------------------------------------------------------------------------------------
// load_error
// ----------------------------------------------------------------------------------------------------------

static_assert(loader_type::no_error == 0 && loader_type::no_catalog_loaded == 1 &&
              loader_type::no_default_locale == 2 && loader_type::file_not_found == 3 &&
              loader_type::xml_parse_error == 4 && loader_type::invalid_attribute == 5 &&
              loader_type::invalid_element == 6 && loader_type::not_xmc_file == 7 &&
              loader_type::bad_xmc_version == 8 && loader_type::br_end_missing == 9 &&
              loader_type::msg_end_missing == 10 && loader_type::arg_end_missing == 11 &&
              loader_type::include_end_missing == 12 && loader_type::catalog_end_missing == 13 &&
              loader_type::unexpected_parse_error == 14);
static_assert(load_error::in_message == 1 && load_error::in_catalog == 2 && load_error::in_file == 3 &&
              load_error::at_line == 4);

TEST(load_error, says_what_was_wrong) {
    struct row {
        int type;
        std::string_view message;
    };
    std::string_view const prefix = "xmc_file_loader::load_error - ";
    row const rows[] = {
        {0, "No Error"},
        {1, "No catalog was loaded in file: \"T\""},
        {2, "Default locale lookup not supported yet"},
        {3, "File \"T\" was not found on disk"},
        {5, "Invalid attibute \"T\""},
        {6, "Invalid element \"T\""},
        {7, "Not XMC file, root element is not XMC but \"T\""},
        {8, "XMC version \"T\" is not supported"},
        {9, "Expected BR end tag not found"},
        {10, "Expected msg (message) end tag not found for message \"T\""},
        {11, "Expected arg (argument) end tag not found for argument \"T\""},
        {12, "Expected \"include\" end tag not found"},
        {13, "Expected catalog end tag not found for catalog \"T\""},
        {14, "Unexpected parse error happen!"},
    };
    for (row const& expected : rows) {
        auto const type = static_cast<loader_type::error_type>(expected.type);
        std::string const message = std::string(prefix) + std::string(expected.message);
        EXPECT_EQ(open_error::format_msg(type, ustring8("T")), message);
        EXPECT_EQ(load_error(type, ustring8("T")).message(), message);
        EXPECT_EQ(load_error(type, ustring8("T")).type(), type);
    }
    for (int const number : {4, 15, 1000, -1}) {
        EXPECT_EQ(open_error::format_msg(static_cast<loader_type::error_type>(number), ustring8("T")),
                  "unknown, or unhandle case happened! " + std::to_string(number) + " str data=T");
    }
}

TEST(load_error, says_what_was_wrong_with_the_xml) {
    struct row {
        int type;
        std::string_view message;
    };
    row const rows[] = {
        {1, "xmc_file_loader::load_error - Unexpected end of file during XML parsing"},
        {2, "xmc_file_loader::load_error - Mismatched end element \"M\" was found"},
        {3, "xmc_file_loader::load_error - No root element was found"},
        {4, "xmc_file_loader::load_error - Valid XML header not found"},
        {5, "xmc_file_loader::load_error - Unexpected character \"M\" found while parsing"},
        {6, "xmc_file_loader::load_error - Missing \" while parsing attribute \"M\""},
        {7, "xmc_file_loader::load_error - Unknown enity being parsed"},
        {8, "xmc_file_loader::load_error - Missing = sign for attribute \"M\""},
        {9, "xmc_file_loader::load_error - attribute \"M\" is being redefined"},
        {10, "xmc_file_loader::load_error - Data found after root element"},
    };
    for (row const& expected : rows) {
        xml_error const error(static_cast<xml_error::error_type>(expected.type), 4294967295U, "M");
        std::string const message = std::string(expected.message) + "\n at line: \"4294967295\"";
        EXPECT_EQ(open_error::format_msg(loader_type::no_error, error), message);
        // Type and words are independent: the words follow the parser's error.
        load_error const made(loader_type::invalid_element, error);
        EXPECT_EQ(made.message(), message);
        EXPECT_EQ(made.type(), loader_type::invalid_element);
    }
    for (int const number : {0, 11, -1}) {
        xml_error const error(static_cast<xml_error::error_type>(number), 7, "M");
        EXPECT_EQ(open_error::format_msg(loader_type::xml_parse_error, error),
                  "xmc_file_loader::load_error - Unknown Parse error");
    }
}

TEST(load_error, names_the_places_around_the_error) {
    EXPECT_EQ(open_error::format_msg(load_error::in_message, "T"), "\n in message element: \"T\"");
    EXPECT_EQ(open_error::format_msg(load_error::in_catalog, "T"), "\n in catalog element: \"T\"");
    EXPECT_EQ(open_error::format_msg(load_error::in_file, "T"), "\n in file: \"T\"");
    EXPECT_EQ(open_error::format_msg(load_error::at_line, "T"), "\n at line: \"T\"");
    for (int const number : {0, 5, -1}) {
        EXPECT_EQ(open_error::format_msg(static_cast<load_error::append_type>(number), "T"),
                  "\n unknown, or unhandle case happened! " + std::to_string(number) + " str data=T");
    }
}

TEST(load_error, is_no_error_by_default) {
    EXPECT_EQ(load_error().type(), loader_type::no_error);
    EXPECT_EQ(load_error().message(), "xmc_file_loader::load_error - No Error");
}

TEST(load_error, collects_places_in_the_order_of_the_calls) {
    load_error error(loader_type::br_end_missing, ustring8());
    error.append_error_stack(load_error::in_message, "m");
    error.append_error_stack(load_error::at_line, "3");
    EXPECT_EQ(error.type(), loader_type::br_end_missing);
    EXPECT_EQ(error.message(), "xmc_file_loader::load_error - Expected BR end tag not found"
                               "\n in message element: \"m\"\n at line: \"3\"");
}

TEST(load_error, is_a_value) {
    load_error error(loader_type::bad_xmc_version, ustring8("9"));
    load_error const copy(error);
    error = load_error();
    EXPECT_EQ(copy.type(), loader_type::bad_xmc_version);
    EXPECT_EQ(copy.message(), "xmc_file_loader::load_error - XMC version \"9\" is not supported");
    EXPECT_EQ(error.type(), loader_type::no_error);
    EXPECT_EQ(error.message(), "xmc_file_loader::load_error - No Error");
}

// ----------------------------------------------------------------------------------------------------------
// Errors that files provoke
// ----------------------------------------------------------------------------------------------------------

struct bad_file {
    loader_type::error_type type;
    std::string contents;
    std::string message;
};

class xmc_file_loader_bad_files : public xmc_file_loader {
protected:
    void expect_errors(std::vector<bad_file> const& rows) {
        for (bad_file const& row : rows) {
            open_loader fresh;
            load_error const error = fresh.parse(directory.file("a.xmc", row.contents), "en");
            EXPECT_EQ(error.type(), row.type) << row.contents;
            EXPECT_EQ(message_of(error), "xmc_file_loader::load_error - " + row.message) << row.contents;
        }
    }
};

TEST_F(xmc_file_loader_bad_files, that_are_not_well_formed) {
    std::string const nul(1, '\0');
    expect_errors({
        {loader_type::xml_parse_error, "<?xml version='1.0'?>\n<xmc version='1.0'>\n  text",
         "Unexpected end of file during XML parsing\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?>\n<xmc>\n</catalog>",
         "Mismatched end element \"catalog\" was found\n at line: \"2\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml version='1.0'",
         "No root element was found\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<xmc version='1.0'></xmc>",
         "Valid XML header not found\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "",
         "Valid XML header not found\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?>\n<xmc:x/>",
         "Unexpected character \":\" found while parsing\n at line: \"1\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc",
         "Unexpected character \"" + nul + "\" found while parsing\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc version=1.0></xmc>",
         "Missing \" while parsing attribute \"\"\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc version='1.0></xmc>",
         "Unexpected character \"<\" found while parsing\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc version='1.0",
         "Missing \" while parsing attribute \"version\"\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc>&copy;</xmc>",
         "Unknown enity being parsed\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc version></xmc>",
         "Missing = sign for attribute \"version\"\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc version='1.0' version='1.1'></xmc>",
         "attribute \"version\" is being redefined\n at line: \"0\"\n in file: \"a.xmc\""},
        {loader_type::xml_parse_error, "<?xml?><xmc/>\n\n<xmc/>",
         "Data found after root element\n at line: \"2\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader_bad_files, that_end_in_the_middle_of_a_message_fail_in_the_xml) {
    expect_errors({
        {loader_type::xml_parse_error, "<?xml?><xmc version='1.0'><catalog lang='en'><msg name='m'>some te",
         "Unexpected end of file during XML parsing\n at line: \"0\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader_bad_files, whose_root_is_wrong) {
    expect_errors({
        {loader_type::not_xmc_file, "<?xml?><catalogs version='1.0'></catalogs>",
         "Not XMC file, root element is not XMC but \"catalogs\"\n in file: \"a.xmc\""},
        {loader_type::not_xmc_file, "<?xml?><XMC version='1.0'></XMC>",
         "Not XMC file, root element is not XMC but \"XMC\"\n in file: \"a.xmc\""},
        {loader_type::not_xmc_file, "<?xml?></xmc>",
         "Not XMC file, root element is not XMC but \"xmc\"\n in file: \"a.xmc\""},
        {loader_type::not_xmc_file, "<?xml?>  text <!-- and a comment -->",
         "Not XMC file, root element is not XMC but \"Value Not Defined\"\n in file: \"a.xmc\""},
        {loader_type::invalid_attribute, "<?xml?><xmc></xmc>", "Invalid attibute \"\"\n in file: \"a.xmc\""},
        {loader_type::invalid_attribute, "<?xml?><xmc encoding='x' version='1.0'></xmc>",
         "Invalid attibute \"encoding\"\n in file: \"a.xmc\""},
        {loader_type::invalid_attribute, "<?xml?><xmc><!--version--></xmc>",
         "Invalid attibute \"version\"\n in file: \"a.xmc\""},
        {loader_type::bad_xmc_version, "<?xml?><xmc version='2.0'></xmc>",
         "XMC version \"2.0\" is not supported\n in file: \"a.xmc\""},
        {loader_type::bad_xmc_version, "<?xml?><xmc version='1.00'></xmc>",
         "XMC version \"1.00\" is not supported\n in file: \"a.xmc\""},
        // A second attribute is not diagnosed as one: its name is swallowed.
        {loader_type::invalid_element, "<?xml?><xmc version='1.0' encoding='utf8'></xmc>",
         "Invalid element \"utf8\"\n in file: \"a.xmc\""},
        {loader_type::invalid_element, "<?xml?><xmc version='1.0'><!-- c --><catalog/></xmc>",
         "Invalid element \"\"\n in file: \"a.xmc\""},
        {loader_type::no_catalog_loaded, "<?xml?><xmc version='1.1'></xmc>",
         "No catalog was loaded in file: \"a.xmc\""},
        {loader_type::no_catalog_loaded, "<?xml?><xmc version='1.1'> text <!-- comment --> </xmc>",
         "No catalog was loaded in file: \"a.xmc\""},
        {loader_type::invalid_element, "<?xml?><xmc version='1.1'><msg/></xmc>",
         "Invalid element \"msg\"\n in file: \"a.xmc\""},
        {loader_type::invalid_element, "<?xml?><xmc version='1.1'><Catalog/></xmc>",
         "Invalid element \"Catalog\"\n in file: \"a.xmc\""},
        // A skipped catalogue ends at the first end tag of that name, wherever that stands.
        {loader_type::invalid_element,
         "<?xml?><xmc version='1.1'><catalog lang='de'><catalog></catalog></catalog></xmc>",
         "Invalid element \"catalog\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader_bad_files, with_something_wrong_in_a_catalogue) {
    auto const catalog = [](std::string const& element) {
        return "<?xml?><xmc version='1.1'>" + element + "</xmc>";
    };
    expect_errors({
        {loader_type::invalid_attribute, catalog("<catalog name='c' language='en'></catalog>"),
         "Invalid attibute \"language\"\n in catalog element: \"c\"\n in file: \"a.xmc\""},
        {loader_type::invalid_attribute, catalog("<catalog meta='c' name='c'></catalog>"),
         "Invalid attibute \"meta\"\n in catalog element: \"\"\n in file: \"a.xmc\""},
        {loader_type::invalid_attribute, catalog("<catalog name='c'><!-- why --></catalog>"),
         "Invalid attibute \" why \"\n in catalog element: \"c\"\n in file: \"a.xmc\""},
        {loader_type::catalog_end_missing, catalog("<catalog name='c' lang='en'><br/></catalog>"),
         "Expected catalog end tag not found for catalog \"c\"\n in catalog element: \"c\"\n in file: "
         "\"a.xmc\""},
        {loader_type::catalog_end_missing,
         catalog("<catalog name='c' lang='en'><msg name='m'>x</msg><catalog/></catalog>"),
         "Expected catalog end tag not found for catalog \"c\"\n in catalog element: \"c\"\n in file: "
         "\"a.xmc\""},
        // The comment is taken for an attribute, and so is every second token behind it.
        {loader_type::unexpected_parse_error,
         catalog("<catalog><!--lang--><name/></catalog>name") + "<!--lang-->",
         "Unexpected parse error happen!\n in catalog element: \"xmc\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader_bad_files, with_something_wrong_in_a_message) {
    auto const file = [](std::string const& messages) {
        return "<?xml?><xmc version='1.1'><catalog name='c' lang='en'>" + messages + "</catalog></xmc>";
    };
    std::string const in_message = "\n in message element: \"m\"";
    std::string const in_catalog = "\n in catalog element: \"c\"\n in file: \"a.xmc\"";
    expect_errors({
        {loader_type::invalid_attribute, file("<msg name='m' lang='en'>x</msg>"),
         "Invalid attibute \"lang\"" + in_message + in_catalog},
        {loader_type::invalid_attribute, file("<msg lang='en' name='m'>x</msg>"),
         "Invalid attibute \"lang\"\n in message element: \"\"" + in_catalog},
        {loader_type::invalid_attribute, file("<msg name='m'><!-- why -->x</msg>"),
         "Invalid attibute \" why \"" + in_message + in_catalog},
        {loader_type::invalid_element, file("<msg name='m'>x<b>y</b></msg>"),
         "Invalid element \"b\"" + in_message + in_catalog},
        {loader_type::invalid_element, file("<msg name='m'>x<BR/></msg>"),
         "Invalid element \"BR\"" + in_message + in_catalog},
        {loader_type::invalid_element, file("<msg name='m'>x<catalog/></msg>"),
         "Invalid element \"catalog\"" + in_message + in_catalog},
        {loader_type::br_end_missing, file("<msg name='m'>x<br>y</br></msg>"),
         "Expected BR end tag not found" + in_message + in_catalog},
        {loader_type::br_end_missing, file("<msg name='m'>x<br> </br></msg>"),
         "Expected BR end tag not found" + in_message + in_catalog},
        {loader_type::br_end_missing, file("<msg name='m'>x<br><b/></br></msg>"),
         "Expected BR end tag not found" + in_message + in_catalog},
        {loader_type::invalid_attribute, file("<msg name='m'>x<br clear='all'/></msg>"),
         "Invalid attibute \"clear\"" + in_message + in_catalog},
        {loader_type::invalid_attribute, file("<msg name='m'>x<br><!-- c --></br></msg>"),
         "Invalid attibute \" c \"" + in_message + in_catalog},
        // The argument ends at the inner end tag, the message at the argument's.
        {loader_type::catalog_end_missing, file("<msg name='m'><arg name='x'><b>y</b></arg></msg>"),
         "Expected catalog end tag not found for catalog \"c\"" + in_catalog},
        // Whatever reads "msg" ends the message: text, a comment, a start tag.
        {loader_type::catalog_end_missing, file("<msg name='m'>msg</msg>"),
         "Expected catalog end tag not found for catalog \"c\"" + in_catalog},
        {loader_type::catalog_end_missing, file("<msg name='m'>x<!--msg--></msg>"),
         "Expected catalog end tag not found for catalog \"c\"" + in_catalog},
        {loader_type::catalog_end_missing, file("<msg name='m'>x<msg></msg></msg>"),
         "Expected catalog end tag not found for catalog \"c\"" + in_catalog},
    });
}

TEST_F(xmc_file_loader_bad_files, with_something_wrong_in_an_include) {
    directory.file("good.xmc", "<?xml?><xmc version='1.1'><catalog/></xmc>");
    auto const file = [](std::string const& include) {
        return "<?xml?><xmc version='1.1'>" + include + "</xmc>";
    };
    expect_errors({
        {loader_type::file_not_found, file("<include file=''/>"),
         "File \"\" was not found on disk\n in file: \"a.xmc\""},
        {loader_type::file_not_found, file("<include file='missing.xmc'/>"),
         "File \"missing.xmc\" was not found on disk\n in file: \"a.xmc\""},
        {loader_type::include_end_missing, file("<include file='good.xmc'>text</include>"),
         "Expected \"include\" end tag not found\n in file: \"a.xmc\""},
        {loader_type::include_end_missing, file("<include file='good.xmc'><catalog/></include>"),
         "Expected \"include\" end tag not found\n in file: \"a.xmc\""},
        {loader_type::include_end_missing, file("<include> </include>"),
         "Expected \"include\" end tag not found\n in file: \"a.xmc\""},
        // A directory exists, but cannot be read: it parses as an empty file.
        {loader_type::xml_parse_error, file("<include file='.'/>"),
         "Valid XML header not found\n at line: \"0\"\n in file: \".\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader_bad_files, that_are_included_name_themselves_first) {
    directory.file("no_xml.xmc", "text");
    directory.file("empty.xmc", "<?xml?><xmc version='1.0'></xmc>");
    directory.file("middle.xmc", "<?xml?><xmc version='1.0'><include file='bad.xmc'/></xmc>");
    directory.file("bad.xmc", "<?xml?><xmc version='1.0'><catalog name='c' lang='en'><msg name='m'><b/></msg>"
                              "</catalog></xmc>");
    expect_errors({
        {loader_type::xml_parse_error, "<?xml?><xmc version='1.0'><include file='no_xml.xmc'/></xmc>",
         "Valid XML header not found\n at line: \"0\"\n in file: \"no_xml.xmc\"\n in file: \"a.xmc\""},
        {loader_type::no_catalog_loaded, "<?xml?><xmc version='1.0'><include file='empty.xmc'/></xmc>",
         "No catalog was loaded in file: \"empty.xmc\"\n in file: \"a.xmc\""},
        {loader_type::invalid_element, "<?xml?><xmc version='1.0'><include file='middle.xmc'/></xmc>",
         "Invalid element \"b\"\n in message element: \"m\"\n in catalog element: \"c\"\n in file: "
         "\"bad.xmc\"\n in file: \"middle.xmc\"\n in file: \"a.xmc\""},
    });
}

TEST_F(xmc_file_loader, reports_a_missing_file) {
    load_error const error = loader.parse(ustring8(directory.path("missing.xmc")), "en");
    EXPECT_EQ(error.type(), loader_type::file_not_found);
    EXPECT_EQ(message_of(error), "xmc_file_loader::load_error - File \"missing.xmc\" was not found on disk");
}

TEST_F(xmc_file_loader, takes_a_directory_for_an_empty_file) {
    load_error const error = loader.parse(ustring8(directory.path()), "en");
    EXPECT_EQ(error.type(), loader_type::xml_parse_error);
    EXPECT_EQ(error.message(), "xmc_file_loader::load_error - Valid XML header not found\n at line: \"0\""
                               "\n in file: \"" +
                                   directory.path() + "\"");
}

TEST_F(xmc_file_loader, keeps_what_was_read_before_a_failure) {
    load_error const error = parse("<?xml?><xmc version='1.1'><catalog name='c' lang='en'>"
                                   "<msg name='good'>x</msg><msg name='bad'><b/></msg></catalog></xmc>");
    EXPECT_EQ(error.type(), loader_type::invalid_element);
    EXPECT_EQ(shown(loader), "c/good=[0:x]\n");
}

// ----------------------------------------------------------------------------------------------------------
// What a file may hold
// ----------------------------------------------------------------------------------------------------------

TEST_F(xmc_file_loader, reads_catalogues_between_white_space_comments_and_stray_text) {
    EXPECT_EQ(parse("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- head --> text\n"
                    "<xmc version=\"1.1\">\n  <!-- in the root --> text\n"
                    "<catalog name='b' lang='en'> text <!-- in the catalogue -->\n"
                    "<msg name='2'>two</msg> text <!-- between messages --><msg name='1'>one</msg>\n"
                    "</catalog> text <!-- between catalogues -->\n"
                    "<catalog lang='en' name='a'><msg meta='told' name='3'>three</msg></catalog></xmc>\n"
                    "<!-- tail --> text")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "a/3=[0:three]\nb/1=[0:one]\nb/2=[0:two]\n");
    EXPECT_EQ(loader.catalog_map["a"]["3"].name(), "3");
    EXPECT_EQ(loader.catalog_map["a"]["3"].meta(), "told");
    EXPECT_EQ(loader.catalog_map["b"]["1"].meta(), "");
}

TEST_F(xmc_file_loader, reads_both_versions_alike) {
    for (std::string const version : {"1.0", "1.1"}) {
        open_loader fresh;
        std::string const path = directory.file("a.xmc", "<?xml?><xmc version='" + version +
                                                             "'><catalog name='c' lang='en'><msg name='m'>x"
                                                             "</msg></catalog></xmc>");
        load_error const error = fresh.parse(path, "en");
        EXPECT_EQ(error.type(), loader_type::no_error);
        EXPECT_EQ(error.message(), "xmc_file_loader::load_error - No Error");
        EXPECT_EQ(shown(fresh), "c/m=[0:x]\n");
    }
}

TEST_F(xmc_file_loader, reads_the_example_of_the_format) {
    directory.file("common.xmc", "<?xml?><xmc version='1.0'><catalog/></xmc>");
    EXPECT_EQ(parse("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                    "<xmc version=\"1.1\"><include file=\"common.xmc\"/>\n"
                    "<catalog name=\"status\" lang=\"en_US\">\n"
                    "<msg name=\"used\" meta=\"shown in the footer\">Used <arg name=\"n\" type=\"memory\" "
                    "precision=\"1\"/> <arg name=\"n\" type=\"memory_unit\"/><br/>of <arg name=\"total\" "
                    "type=\"int\" base=\"hex\"/>.</msg>\n"
                    "</catalog></xmc>\n",
                    "en_US")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "status/used=[0:Used ][7:n|precision|1][0: ][8:n][0:\nof ][3:total|base|hex]"
                             "[0:.]\n");
    i18n::message_t const& message = loader.catalog_map["status"]["used"];
    EXPECT_EQ(message.meta(), "shown in the footer");
    EXPECT_EQ(message._orginal_locale(), "en_US");
    EXPECT_EQ(
        message.as_utf8(generic::varg_list(generic::argument("n", 1536), generic::argument("total", 255))),
        "Used 1.5 KB\nof 0x00ff.");
}

TEST_F(xmc_file_loader, succeeds_where_every_catalogue_is_skipped) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='de'><msg name='m'>x</msg></catalog>"
                    "<catalog name='without a language'><msg name='m'>x</msg></catalog></xmc>")
                  .type(),
              loader_type::no_error);
    EXPECT_TRUE(loader.catalog_map.empty());
}

TEST_F(xmc_file_loader, does_not_look_into_a_skipped_catalogue) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='de'><msg bad='x'><b/></msg><include/>"
                    "</catalog></xmc>")
                  .type(),
              loader_type::no_error);
}

TEST_F(xmc_file_loader, keeps_no_catalogue_without_messages) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='en'></catalog></xmc>").type(),
              loader_type::no_error);
    EXPECT_TRUE(loader.catalog_map.empty());
}

TEST_F(xmc_file_loader, stops_at_the_end_of_the_root) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog/></xmc></anything> text").type(),
              loader_type::no_error);
}

TEST_F(xmc_file_loader, takes_missing_names_as_empty) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog lang='en'><msg>x</msg></catalog></xmc>").type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "/=[0:x]\n");
}

TEST_F(xmc_file_loader, accepts_comments_behind_a_blank) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'> <!-- c --><catalog name='c' lang='en'> <!-- c -->"
                    "<msg name='m'>\n<!-- c -->x<!-- c -->y</msg></catalog></xmc>")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/m=[0:xy]\n");
}

// ----------------------------------------------------------------------------------------------------------
// Messages
// ----------------------------------------------------------------------------------------------------------

TEST_F(xmc_file_loader, assembles_the_text_of_a_message) {
    struct row {
        std::string_view content;
        std::string_view items;
    };
    row const rows[] = {
        {"", ""},
        {"text", "[0:text]"},
        {"  text", "[0:text]"},
        {" \n\t ", ""},
        {"two words", "[0:two words]"},
        {"a\nb", "[0:a\nb]"},
        {"a \n b", "[0:a b]"},
        {"a \n ", "[0:a ]"},
        {"a ", "[0:a ]"},
        {"a <!-- c -->  b", "[0:a b]"},
        {"a  <!-- c -->  b", "[0:a b]"},
        {"a<!-- c -->b", "[0:ab]"},
        {"&lt;b&gt; &amp; &#65;", "[0:<b> & A]"},
        {"&#32;x", "[0: x]"},
        {"x<![CDATA[<b> & ]]>y", "[0:x<b> & y]"},
        {"a<br/>b", "[0:a\nb]"},
        {"a<br></br>b", "[0:a\nb]"},
        {"a<br/> b", "[0:a\n b]"},
        {"a <br/>b", "[0:a \nb]"},
        {"<br/><br/>", "[0:\n\n]"},
        {"<br/>  ", "[0:\n ]"},
        {"<arg name='x'/>", "[1:x]"},
        {"<argument name='x'/>", "[1:x]"},
        {"a<arg name='x'/>b", "[0:a][1:x][0:b]"},
        {"a <arg name='x'/> b", "[0:a ][1:x][0: b]"},
        {"  <arg name='x'/>", "[1:x]"},
        {"<arg name='x'/> ", "[1:x][0: ]"},
        {"<arg name='x'/>  \n", "[1:x][0: ]"},
        {"<arg name='x'/><arg name='y'/>", "[1:x][1:y]"},
        {"<arg name='x'/> <arg name='y'/>", "[1:x][0: ][1:y]"},
        // A comment and a line break leave the mark that an argument stood before, ...
        {"<arg name='x'/><!-- c --> b", "[1:x][0: b]"},
        {"<arg name='x'/><br/> b", "[1:x][0:\n b]"},
        // ... white space clears it even where it adds no blank, and text does.
        {"<arg name='x'/> <!-- c -->", "[1:x][0: ]"},
        {"<arg name='x'/><![CDATA[]]> b", "[1:x][0:b]"},
        {"  <!-- c -->  b", "[0:b]"},
    };
    for (row const& expected : rows) {
        EXPECT_EQ(items_of(expected.content), expected.items) << expected.content;
    }
}

TEST_F(xmc_file_loader, joins_the_attributes_of_an_argument) {
    struct row {
        std::string_view content;
        std::string_view items;
    };
    row const rows[] = {
        {"<arg/>", "[1:]"},
        {"<arg name='n' type='int' base='hex' fieldsize='8'/>", "[3:n|base|hex|fieldsize|8]"},
        {"<arg name='n' fieldsize='8' type='int' base='hex'/>", "[3:n|fieldsize|8|base|hex]"},
        {"<arg type='int' name='n'/>", "[3:n]"},
        {"<arg base='hex' name='n'/>", "[1:n]"},
        {"<arg base='hex'/>", "[1:|base|hex]"},
        {"<arg name='n' p=''/>", "[1:n|p|]"},
        {"<arg name='&lt;'/>", "[1:<]"},
        {"<arg name='n' type='value' x='y'/>", "[0:n|x|y]"},
        {"<arg name='x'></arg>", "[1:x]"},
        {"<arg name='x'>text</arg>y", "[1:x][0:y]"},
        {"<arg name='x'> <!-- c --> text &amp; more</arg>", "[1:x]"},
        {"<arg name='x'><!-- c --></arg>y", "[1:x][0:y]"},
        {"<arg name='x'><!--name--></arg>y", "[1:x][0:y]"},
        {"<argument name='x'>msg</argument>y", "[1:x][0:y]"},
    };
    for (row const& expected : rows) {
        EXPECT_EQ(items_of(expected.content), expected.items) << expected.content;
    }
}

TEST_F(xmc_file_loader, knows_the_argument_types_in_any_case) {
    struct row {
        ustring8 keyword;
        int type;
    };
    row const rows[] = {
        {"value", 0},        {"string", 1},    {"number", 2},
        {"int", 3},          {"double", 4},    {"time", 5},
        {"date", 6},         {"memory", 7},    {"mem", 7},
        {"memory_unit", 8},  {"mem_unit", 8},  {"metric", 9},
        {"metric_unit", 10}, {"duration", 11}, {"Memory", 7},
        {"METRIC_unit", 10}, {"bogus", 1},     {"", 1},
        {"int ", 1},         {"in", 1},
    };
    for (row const& expected : rows) {
        EXPECT_EQ(loader.parse_message_type(expected.keyword), expected.type) << expected.keyword;
        EXPECT_EQ(items_of("<arg name='x' type='" + expected.keyword + "'/>"),
                  "[" + std::to_string(expected.type) + ":x]");
    }
}

TEST_F(xmc_file_loader, ends_a_message_at_the_end_tag_of_an_argument) {
    // The argument's inner end tag ends the argument; what follows up to its own end tag is message text.
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='m'><arg name='x'><b>y"
                    "</b>z</arg></msg></catalog></xmc>")
                  .type(),
              loader_type::catalog_end_missing);
    EXPECT_EQ(shown(loader), "c/m=[1:x][0:z]\n");
}

TEST_F(xmc_file_loader, ends_a_message_at_a_text_that_reads_msg) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='m'>some<!-- c -->msg"
                    "</msg></catalog></xmc>")
                  .type(),
              loader_type::catalog_end_missing);
    EXPECT_EQ(shown(loader), "c/m=[0:some]\n");
    EXPECT_EQ(items_of("a msg"), "[0:a msg]");
}

// ----------------------------------------------------------------------------------------------------------
// Languages
// ----------------------------------------------------------------------------------------------------------

TEST_F(xmc_file_loader, lists_the_beginnings_of_a_language) {
    struct row {
        ustring8 lang;
        std::vector<ustring8> list;
    };
    row const rows[] = {
        {"", {".", "en"}},
        {"en", {".", "en"}},
        {"en_US", {".", "en", "en_US"}},
        {"fr", {".", "en", "fr"}},
        {"fr-CA", {".", "en", "fr", "fr_CA"}},
        {"fr.CA", {".", "en", "fr", "fr_CA"}},
        {"ja_JP.UTF-8", {".", "en", "ja", "ja_JP", "ja_JP_UTF", "ja_JP_UTF_8"}},
        {"fr_en", {".", "en", "fr", "fr_en"}},
        {"fr_", {".", "en", "fr"}},
        {"fr__CA", {".", "en", "fr", "fr_", "fr__CA"}},
        {"_fr", {".", "en", "", "_fr"}},
        // One character stands as it is.
        {".", {".", "en", "."}},
        {"-", {".", "en", "-"}},
        {"_", {".", "en", ""}},
        {"..", {".", "en", "", "_"}},
    };
    for (row const& expected : rows) {
        open_loader fresh;
        fresh.handle_language(expected.lang);
        EXPECT_EQ(fresh.locale_list, expected.list) << expected.lang;
    }
}

TEST_F(xmc_file_loader, extends_the_list_of_languages) {
    loader.handle_language("fr");
    loader.handle_language("de");
    EXPECT_EQ(loader.locale_list, (std::vector<ustring8>{".", "en", "fr", ".", "en", "de"}));
    EXPECT_EQ(loader.get_locale_weight("."), 1U);
    EXPECT_EQ(loader.get_locale_weight("en"), 2U);
    EXPECT_EQ(loader.get_locale_weight("de"), 6U);
}

TEST_F(xmc_file_loader, extends_the_list_of_languages_by_one_that_is_in_it) {
    ustring8 const lang(100, 'x');
    loader.locale_list = {lang};
    loader.locale_list.shrink_to_fit();
    loader.handle_language(loader.locale_list.front());
    EXPECT_EQ(loader.locale_list, (std::vector<ustring8>{lang, ".", "en", lang}));
}

TEST_F(xmc_file_loader, weighs_languages) {
    EXPECT_EQ(loader.get_locale_weight("."), 0U);
    EXPECT_FALSE(loader.is_lang_id_good("."));
    loader.handle_language("ja_JP.UTF-8");
    struct row {
        ustring8 lang;
        std::size_t weight;
    };
    row const rows[] = {
        {".", 1},
        {"en", 2},
        {"ja", 3},
        {"ja_JP", 4},
        {"ja-JP", 4},
        {"ja.JP", 4},
        {"ja_JP_UTF", 5},
        {"ja_JP.UTF-8", 6},
        {"ja_JP_UTF_8", 6},
        {"ja_jp", 0},
        {"JA", 0},
        {"de", 0},
        {"", 0},
        {"_", 0},
        {"-", 0},
        {"en_US", 0},
        {"ja_JP_UTF_8_x", 0},
    };
    for (row const& expected : rows) {
        EXPECT_EQ(loader.get_locale_weight(expected.lang), expected.weight) << expected.lang;
        EXPECT_EQ(loader.is_lang_id_good(expected.lang), expected.weight != 0) << expected.lang;
    }
}

// One message in neutral, English, French and Canadian French form, in the order given.
std::string variants(std::vector<std::string> const& languages) {
    std::string file = "<?xml?><xmc version='1.1'>";
    for (std::string const& lang : languages) {
        file += "<catalog name='c' lang='" + lang + "'><msg name='m'>" + lang + "</msg></catalog>";
    }
    return file + "</xmc>";
}

TEST_F(xmc_file_loader, takes_the_variant_of_the_greatest_weight_in_any_order) {
    struct row {
        std::vector<std::string> languages;
        ustring8 lang;
        std::string taken;
    };
    row const rows[] = {
        {{".", "en", "fr", "fr_CA"}, "fr_CA", "fr_CA"},
        {{"fr_CA", "fr", "en", "."}, "fr_CA", "fr_CA"},
        {{".", "en", "fr"}, "fr_CA", "fr"},
        {{"fr", ".", "en"}, "fr_CA", "fr"},
        {{".", "en"}, "fr_CA", "en"},
        {{"en", "."}, "fr_CA", "en"},
        {{"."}, "fr_CA", "."},
        {{"fr_CA", "fr"}, "fr", "fr"},
        {{"fr-CA", "fr"}, "fr_CA", "fr-CA"},
        {{"fr", "fr.CA"}, "fr_CA", "fr.CA"},
        // Of equal weight the first stays.
        {{"fr-CA", "fr_CA"}, "fr_CA", "fr-CA"},
        {{"fr_CA", "fr-CA"}, "fr_CA", "fr_CA"},
    };
    for (row const& expected : rows) {
        open_loader fresh;
        EXPECT_EQ(fresh.parse(directory.file("a.xmc", variants(expected.languages)), expected.lang).type(),
                  loader_type::no_error);
        EXPECT_EQ(shown(fresh), "c/m=[0:" + expected.taken + "]\n") << expected.taken;
        EXPECT_EQ(fresh.catalog_map["c"]["m"]._orginal_locale(), expected.taken);
    }
}

TEST_F(xmc_file_loader, keeps_the_first_of_two_messages_of_one_name) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='m'>first</msg>"
                    "<msg name='m'>second</msg></catalog></xmc>")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/m=[0:first]\n");
}

TEST_F(xmc_file_loader, stores_a_message_by_its_weight) {
    auto const message = [](char const* lang, char const* text) {
        i18n::message_t made("m", {i18n::message_item(text)});
        made._orginal_locale(lang);
        return made;
    };
    loader.handle_language("fr");
    loader.set_message(message("en", "first"), "c");
    EXPECT_EQ(shown(loader), "c/m=[0:first]\n");
    loader.set_message(message("en", "tie"), "c");
    EXPECT_EQ(shown(loader), "c/m=[0:first]\n");
    loader.set_message(message(".", "lighter"), "c");
    EXPECT_EQ(shown(loader), "c/m=[0:first]\n");
    loader.set_message(message("fr", "heavier"), "c");
    EXPECT_EQ(shown(loader), "c/m=[0:heavier]\n");
    loader.set_message(message("fr", "other"), "d");
    EXPECT_EQ(shown(loader), "c/m=[0:heavier]\nd/m=[0:other]\n");

    // A nil message gives way to any other.
    loader.set_message(i18n::message_t(), "e");
    i18n::message_t unnamed(std::vector<i18n::message_item>{i18n::message_item("x")});
    loader.set_message(unnamed, "e");
    EXPECT_EQ(shown(loader.catalog_map["e"][""]), "[0:x]");
}

// ----------------------------------------------------------------------------------------------------------
// The ways in
// ----------------------------------------------------------------------------------------------------------

TEST_F(xmc_file_loader, needs_a_language) {
    load_error const error = loader.parse(ustring8(directory.path("missing.xmc")), "");
    EXPECT_EQ(error.type(), loader_type::no_default_locale);
    EXPECT_EQ(error.message(), "xmc_file_loader::load_error - Default locale lookup not supported yet");
    EXPECT_TRUE(loader.locale_list.empty());
    EXPECT_EQ(loader.parse(ustring16(), ustring16()).type(), loader_type::no_default_locale);
    EXPECT_EQ(loader.parse(ustring32(), ustring32()).type(), loader_type::no_default_locale);
}

TEST_F(xmc_file_loader, takes_an_empty_language_with_a_catalogue) {
    std::string const path = directory.file(
        "a.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='.'><msg name='1'>neutral</msg></catalog>"
                 "<catalog name='c' lang='en'><msg name='2'>English</msg></catalog>"
                 "<catalog name='c' lang='fr'><msg name='3'>French</msg></catalog></xmc>");
    EXPECT_EQ(loader.parse(path, "", "c").type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/1=[0:neutral]\nc/2=[0:English]\n");
    EXPECT_EQ(loader.locale_list, (std::vector<ustring8>{".", "en", ".", "en"}));

    open_loader by_path;
    EXPECT_EQ(by_path.parse(ustring8(path)).type(), loader_type::no_error);
    EXPECT_EQ(shown(by_path), shown(loader));
    EXPECT_EQ(by_path.locale_list, (std::vector<ustring8>{".", "en"}));
}

TEST_F(xmc_file_loader, filters_by_the_name_of_the_catalogue) {
    std::string const path = directory.file(
        "a.xmc", "<?xml?><xmc version='1.1'><include file='b.xmc'/><catalog name='c' lang='fr'><msg name='1'>"
                 "x</msg></catalog><catalog name='d' lang='fr'><msg bad='2'>x</msg></catalog></xmc>");
    directory.file("b.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='fr'><msg name='3'>y</msg>"
                            "</catalog><catalog name='C' lang='fr'><msg name='4'>y</msg></catalog></xmc>");
    EXPECT_EQ(loader.parse(path, "fr", "c").type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/1=[0:x]\nc/3=[0:y]\n");
    EXPECT_EQ(loader.catalog_id, "c");
    EXPECT_EQ(loader.locale_list, (std::vector<ustring8>{".", "en", "fr", ".", "en"}));
}

TEST_F(xmc_file_loader, takes_every_catalogue_for_an_empty_name) {
    EXPECT_FALSE(loader.is_cat_id_set());
    EXPECT_TRUE(loader.is_catalog_matched("any"));
    EXPECT_TRUE(loader.is_catalog_matched(""));
    loader.catalog_id = "c";
    EXPECT_TRUE(loader.is_cat_id_set());
    EXPECT_TRUE(loader.is_catalog_matched("c"));
    EXPECT_FALSE(loader.is_catalog_matched("any"));
    EXPECT_FALSE(loader.is_catalog_matched(""));

    open_loader fresh;
    EXPECT_EQ(fresh.parse(directory.file("a.xmc", variants({"en"})), "fr", "").type(), loader_type::no_error);
    EXPECT_EQ(shown(fresh), "c/m=[0:en]\n");
}

template <class Text>
class xmc_file_loader_texts : public testing::Test {};
using all_texts = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(xmc_file_loader_texts, all_texts);

TYPED_TEST(xmc_file_loader_texts, are_all_taken) {
    support::temporary_directory const directory;
    TypeParam const path = text_of<TypeParam>(directory.file("a.xmc", variants({"fr_CA", "fr"})));
    open_loader loader;
    EXPECT_EQ(loader.parse(path, text_of<TypeParam>("fr_CA")).type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/m=[0:fr_CA]\n");
    open_loader filtered;
    EXPECT_EQ(filtered.parse(path, text_of<TypeParam>("fr"), text_of<TypeParam>("c")).type(),
              loader_type::no_error);
    EXPECT_EQ(shown(filtered), "c/m=[0:fr]\n");
    open_loader filtered_out;
    EXPECT_EQ(filtered_out.parse(path, text_of<TypeParam>("fr"), text_of<TypeParam>("d")).type(),
              loader_type::no_error);
    EXPECT_EQ(shown(filtered_out), "");
}

TEST_F(xmc_file_loader, accumulates_over_calls) {
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='fr'><msg name='1'>x</msg></catalog>"
                    "</xmc>",
                    "fr")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><catalog name='c' lang='fr'><msg name='2'>y</msg></catalog>"
                    "</xmc>",
                    "de")
                  .type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/1=[0:x]\nc/2=[0:y]\n");
    EXPECT_EQ(loader.locale_list, (std::vector<ustring8>{".", "en", "fr", ".", "en", "de"}));
}

TEST_F(xmc_file_loader, copies_all_that_it_holds) {
    EXPECT_TRUE(loader.locale_list.empty());
    EXPECT_TRUE(loader.catalog_map.empty());
    EXPECT_TRUE(loader.base_dir.empty());
    EXPECT_TRUE(loader.catalog_id.empty());
    loader.parse(directory.file("a.xmc", variants({"fr"})), "fr", "c");
    open_loader const copy(loader);
    open_loader assigned;
    assigned = loader;
    for (open_loader const& other : {copy, assigned}) {
        EXPECT_EQ(other.locale_list, (std::vector<ustring8>{".", "en", "fr", ".", "en"}));
        EXPECT_EQ(shown(other), "c/m=[0:fr]\n");
        EXPECT_EQ(other.base_dir, directory.path(""));
        EXPECT_EQ(other.catalog_id, "c");
    }
}

TEST_F(xmc_file_loader, resets_nothing) {
    parse(variants({"en"}));
    loader.reset();
    EXPECT_EQ(shown(loader), "c/m=[0:en]\n");
    EXPECT_EQ(loader.locale_list.size(), 2U);
}

TEST_F(xmc_file_loader, puts_a_nul_byte_behind_the_text_of_a_file) {
    // As a text, the header alone is no document; in a file the NUL stands behind it as stray text.
    EXPECT_EQ(loader.parse_string("<?xml?>", "f").message(),
              "xmc_file_loader::load_error - No root element was found\n at line: \"0\"\n in file: \"f\"");
    EXPECT_EQ(message_of(parse("<?xml?>")), "xmc_file_loader::load_error - Not XMC file, root element is not "
                                            "XMC but \"Value Not Defined\"\n in file: \"a.xmc\"");
}

TEST_F(xmc_file_loader, parses_a_string_under_the_name_of_a_file) {
    loader.handle_language("en");
    EXPECT_EQ(loader.parse_string(variants({"en"}), "f").type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/m=[0:en]\n");
    EXPECT_EQ(loader.base_dir, "");
    EXPECT_EQ(loader.parse_string("<?xml?><xmc version='3'/>", "f").message(),
              "xmc_file_loader::load_error - XMC version \"3\" is not supported\n in file: \"f\"");
}

// ----------------------------------------------------------------------------------------------------------
// Includes
// ----------------------------------------------------------------------------------------------------------

std::string message_file(std::string const& name, std::string const& includes = {}) {
    return "<?xml?><xmc version='1.1'>" + includes + "<catalog name='c' lang='en'><msg name='" + name + "'>" +
           name + "</msg></catalog></xmc>";
}

TEST_F(xmc_file_loader, includes_files_at_their_place) {
    directory.file("b.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='both'>b</msg>"
                            "<msg name='b'>b</msg></catalog></xmc>");
    std::string const own = "<catalog name='c' lang='en'><msg name='both'>a</msg></catalog>";
    std::string const include = "<include file='b.xmc'/>";
    open_loader before, behind;
    before.parse(directory.file("a.xmc", "<?xml?><xmc version='1.1'>" + include + own + "</xmc>"), "en");
    EXPECT_EQ(shown(before), "c/b=[0:b]\nc/both=[0:b]\n");
    behind.parse(directory.file("a.xmc", "<?xml?><xmc version='1.1'>" + own + include + "</xmc>"), "en");
    EXPECT_EQ(shown(behind), "c/b=[0:b]\nc/both=[0:a]\n");
}

TEST_F(xmc_file_loader, counts_an_include_as_something_seen) {
    directory.file("b.xmc", message_file("b"));
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'> <include file='b.xmc'/> </xmc>").type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/b=[0:b]\n");
}

TEST_F(xmc_file_loader, does_nothing_for_an_include_without_a_file) {
    for (std::string const include :
         {"<include/>", "<include></include>", "<include other='x'/>", "<include File='missing.xmc'/>",
          "<include other='file'/>", "<include><!-- c --></include>", "<include><!--file--></include>"}) {
        open_loader fresh;
        std::string const path = directory.file("a.xmc", "<?xml?><xmc version='1.1'>" + include + "</xmc>");
        EXPECT_EQ(fresh.parse(path, "en").type(), loader_type::no_error) << include;
        EXPECT_EQ(shown(fresh), "");
    }
}

TEST_F(xmc_file_loader, ignores_other_attributes_of_an_include) {
    directory.file("b.xmc", message_file("b"));
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><include x='y' file='b.xmc' z=''/></xmc>").type(),
              loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/b=[0:b]\n");
}

TEST_F(xmc_file_loader, includes_relative_to_the_including_file) {
    directory.file("sub/deeper/c.xmc", message_file("c"));
    directory.file("sub/b.xmc",
                   message_file("b", "<include file='deeper/c.xmc'/><include file='../d.xmc'/>"));
    directory.file("d.xmc", message_file("d"));
    directory.file("e.xmc", message_file("e"));
    std::string const main = message_file("a", "<include file='sub/b.xmc'/><include file='./e.xmc'/>");
    EXPECT_EQ(parse(main).type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/a=[0:a]\nc/b=[0:b]\nc/c=[0:c]\nc/d=[0:d]\nc/e=[0:e]\n");
    EXPECT_EQ(loader.base_dir, directory.path(""));
}

TEST_F(xmc_file_loader, includes_absolute_paths_as_they_stand) {
    std::string const absolute = directory.file("elsewhere/b.xmc", message_file("b"));
    EXPECT_EQ(parse(message_file("a", "<include file='" + absolute + "'/>")).type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/a=[0:a]\nc/b=[0:b]\n");
}

TEST_F(xmc_file_loader, tells_absolute_paths_by_their_first_characters) {
    struct row {
        std::string file;
        std::string read;
    };
    std::string const here = directory.path("");
    row const rows[] = {
        {"/no/such", "/no/such"},      {"\\no\\such", "\\no\\such"},
        {"C:no_such", "C:no_such"},    {"C:x", "C:x"},
        {"C:", here + "C:"},           {"no:such", here + "no:such"},
        {"no/such", here + "no/such"},
    };
    for (row const& expected : rows) {
        load_error const error =
            parse("<?xml?><xmc version='1.1'><include file='" + expected.file + "'/></xmc>");
        EXPECT_EQ(error.type(), loader_type::file_not_found);
        EXPECT_EQ(error.message(), "xmc_file_loader::load_error - File \"" + expected.read +
                                       "\" was not found on disk\n in file: \"" + here + "a.xmc\"");
    }
}

TEST_F(xmc_file_loader, understands_both_separators) {
    directory.file("sub/b.xmc", message_file("b", "<include file='c.xmc'/><include file='deeper\\d.xmc'/>"));
    directory.file("sub/c.xmc", message_file("c"));
    directory.file("sub/deeper/d.xmc", message_file("d", "<include file='..\\..\\e.xmc'/>"));
    directory.file("e.xmc", message_file("e"));
    EXPECT_EQ(parse(message_file("a", "<include file='sub\\b.xmc'/>")).type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/a=[0:a]\nc/b=[0:b]\nc/c=[0:c]\nc/d=[0:d]\nc/e=[0:e]\n");

    open_loader by_path;
    EXPECT_EQ(by_path.parse(ustring8(directory.path() + "\\sub\\b.xmc"), "en").type(), loader_type::no_error);
    EXPECT_EQ(by_path.base_dir, directory.path() + "\\sub\\");
}

TEST_F(xmc_file_loader, takes_a_backslash_for_part_of_a_name_where_that_exists) {
    directory.file("x\\b.xmc", message_file("b"));
    EXPECT_EQ(parse(message_file("a", "<include file='x\\b.xmc'/>")).type(), loader_type::no_error);
    EXPECT_EQ(shown(loader), "c/a=[0:a]\nc/b=[0:b]\n");
}

TEST_F(xmc_file_loader, starts_from_the_working_directory_for_a_bare_name) {
    support::temporary_working_directory const here;
    here->file("b.xmc", message_file("b"));
    here->file("a.xmc", message_file("a", "<include file='b.xmc'/>"));
    EXPECT_EQ(loader.parse(ustring8("a.xmc"), "en").type(), loader_type::no_error);
    EXPECT_EQ(loader.base_dir, "./");
    EXPECT_EQ(shown(loader), "c/a=[0:a]\nc/b=[0:b]\n");
}

TEST_F(xmc_file_loader, ends_a_file_that_includes_itself) {
    load_error const error = parse("<?xml?><xmc version='1.1'><include file='a.xmc'/></xmc>");
    EXPECT_EQ(error.type(), loader_type::unexpected_parse_error);
    std::string expected = "xmc_file_loader::load_error - Unexpected parse error happen!";
    for (int file = 0; file < 1 + 256; ++file) {
        expected += "\n in file: \"a.xmc\"";
    }
    EXPECT_EQ(message_of(error), expected);

    // The depth does not stay with the loader.
    EXPECT_EQ(parse(message_file("a", "<include/>")).type(), loader_type::no_error);
    directory.file("b.xmc", message_file("b"));
    EXPECT_EQ(parse(message_file("a", "<include file='b.xmc'/>")).type(), loader_type::no_error);
}

TEST_F(xmc_file_loader, leaves_an_include_through_an_exception_too) {
    // Longer than a string can be.
    std::filesystem::resize_file(directory.file("b.xmc"), 0x80000000U);
    for (int load = 0; load < 1 + 256; ++load) {
        EXPECT_THROW(parse("<?xml?><xmc version='1.1'><include file='b.xmc'/></xmc>"), std::length_error);
    }
    directory.file("b.xmc", message_file("b"));
    EXPECT_EQ(parse(message_file("a", "<include file='b.xmc'/>")).type(), loader_type::no_error);
}

TEST_F(xmc_file_loader, nests_includes_256_deep) {
    auto const write_chain = [&](int includes) {
        for (int file = 0; file <= includes; ++file) {
            std::string const next = std::to_string(file + 1) + ".xmc";
            directory.file(
                std::to_string(file) + ".xmc",
                message_file(std::to_string(file), file == includes ? "" : "<include file='" + next + "'/>"));
        }
    };
    write_chain(256);
    EXPECT_EQ(loader.parse(ustring8(directory.path("0.xmc")), "en").type(), loader_type::no_error);
    EXPECT_EQ(loader.catalog_map["c"].size(), 257U);
    write_chain(257);
    EXPECT_EQ(loader.parse(ustring8(directory.path("0.xmc")), "en").type(),
              loader_type::unexpected_parse_error);
}

TEST_F(xmc_file_loader, ends_two_files_that_include_each_other) {
    directory.file("b.xmc", "<?xml?><xmc version='1.1'><include file='a.xmc'/></xmc>");
    EXPECT_EQ(parse("<?xml?><xmc version='1.1'><include file='b.xmc'/></xmc>").type(),
              loader_type::unexpected_parse_error);
}

TEST_F(xmc_file_loader, reads_10000_includes_at_most) {
    auto const write = [&](int includes) {
        std::string content;
        for (int count = 0; count < includes; ++count) {
            content += "<include file='b.xmc'/>";
        }
        return "<?xml?><xmc version='1.1'>" + content + "</xmc>";
    };
    directory.file("b.xmc", message_file("b", ""));
    EXPECT_EQ(parse(write(10000)).type(), loader_type::no_error);
    loader_type other;
    EXPECT_EQ(other.parse(ustring8(directory.file("c.xmc", write(10001))), "en").type(),
              loader_type::unexpected_parse_error);
}

TEST_F(xmc_file_loader, ends_files_that_include_each_other_twice) {
    for (int file = 0; file < 40; ++file) {
        std::string const include = "<include file='" + std::to_string(file + 1) + ".xmc'/>";
        directory.file(std::to_string(file) + ".xmc", message_file("m", include + include));
    }
    directory.file("40.xmc", message_file("m", ""));
    EXPECT_EQ(loader.parse(ustring8(directory.path("0.xmc")), "en").type(),
              loader_type::unexpected_parse_error);
}

// ----------------------------------------------------------------------------------------------------------
// Productions over token lists of their own
// ----------------------------------------------------------------------------------------------------------

// Calls the production at the front of the list. Gives "reads N" for the tokens it took, or the error's
// number and text.
template <class Production>
std::string outcome_of(std::list<token> const& tokens, Production production) {
    auto position = tokens.begin();
    try {
        production(position, tokens.end());
        return "reads " + std::to_string(std::distance(tokens.begin(), position));
    } catch (load_error const& error) {
        std::string const prefix = "xmc_file_loader::load_error - ";
        return std::to_string(error.type()) + " " + error.message().substr(prefix.size());
    }
}

using position = open_loader::token_position;

std::string header(std::list<token> const& tokens) {
    return outcome_of(tokens,
                      [](position& at, position const& end) { open_loader().parse_xmc_header(at, end); });
}
std::string include(std::list<token> const& tokens) {
    return outcome_of(tokens,
                      [](position& at, position const& end) { open_loader().parse_include(at, end); });
}
std::string catalog(std::list<token> const& tokens) {
    return outcome_of(tokens, [](position& at, position const& end) {
        open_loader loader;
        loader.handle_language("en");
        loader.parse_catalog(at, end);
    });
}
std::string message(std::list<token> const& tokens) {
    return outcome_of(tokens,
                      [](position& at, position const& end) { open_loader().parse_message(at, end); });
}
std::string argument(std::list<token> const& tokens) {
    return outcome_of(tokens,
                      [](position& at, position const& end) { open_loader().parse_message_arg(at, end); });
}

token start(char const* name) { return {token::element_start, name}; }
token end_of(char const* name) { return {token::element_end, name}; }
token attribute(char const* name) { return {token::attribute_name, name}; }
token value(char const* text) { return {token::attribute_value, text}; }
token const attributes_end{token::attributes_end, ""};
token text(char const* characters) { return {token::character, characters}; }
token space() { return {token::space, " "}; }
token comment(char const* characters) { return {token::comment, characters}; }

std::list<token> first(std::size_t count, std::list<token> tokens) {
    tokens.resize(count, attributes_end);
    return tokens;
}

TEST(xmc_productions, ignorable_tokens_are_comments_space_and_text) {
    auto const ignorable = [](std::list<token> const& tokens) {
        return outcome_of(tokens,
                          [](position& at, position const& end) { open_loader().parse_ignorable(at, end); });
    };
    EXPECT_EQ(ignorable({}), "reads 0");
    EXPECT_EQ(ignorable({comment("c"), space(), text("t"), start("a"), space()}), "reads 3");
    EXPECT_EQ(ignorable({text("t"), comment("c")}), "reads 2");
    for (token const& other : {start("a"), end_of("a"), attribute("a"), value("a"), attributes_end}) {
        EXPECT_EQ(ignorable({other}), "reads 0");
    }
}

TEST(xmc_productions, header_at_the_end_of_the_list) {
    std::list<token> const whole{start("xmc"), attribute("version"), value("1.0"), attributes_end};
    EXPECT_EQ(header({}), "7 Not XMC file, root element is not XMC but \"Value Not Defined\"");
    for (std::size_t const count : {1U, 2U, 3U}) {
        EXPECT_EQ(header(first(count, whole)), "14 Unexpected parse error happen!") << count;
    }
    EXPECT_EQ(header(whole), "reads 4");
}

TEST(xmc_productions, header_looks_at_the_types_of_its_tokens) {
    EXPECT_EQ(header({end_of("xmc")}), "7 Not XMC file, root element is not XMC but \"xmc\"");
    EXPECT_EQ(header({start("xmc"), value("version")}), "5 Invalid attibute \"version\"");
    EXPECT_EQ(header({start("xmc"), attribute("version"), text("1.0")}),
              "8 XMC version \"1.0\" is not supported");
    EXPECT_EQ(header({start("xmc"), attribute("version"), text("1.1")}),
              "8 XMC version \"1.1\" is not supported");
    EXPECT_EQ(header({start("xmc"), attribute("version"), value("1.1"), text("anything"), text("x")}),
              "reads 4");
}

TEST(xmc_productions, include_at_the_end_of_the_list) {
    std::list<token> const whole{start("include"), attribute("other"), value("x"),
                                 attributes_end,   end_of("include"),  space()};
    for (std::size_t count = 0; count < 5; ++count) {
        EXPECT_EQ(include(first(count, whole)), "14 Unexpected parse error happen!") << count;
    }
    EXPECT_EQ(include(whole), "reads 5");
    EXPECT_EQ(include({start("include"), attribute("file")}), "14 Unexpected parse error happen!");
}

TEST(xmc_productions, include_starts_at_its_start_tag) {
    EXPECT_EQ(include({start("xmc")}), "6 Invalid element \"xmc\"");
    EXPECT_EQ(include({end_of("include")}), "6 Invalid element \"include\"");
    EXPECT_EQ(include({start("include"), attributes_end, end_of("xmc")}),
              "12 Expected \"include\" end tag not found");
    EXPECT_EQ(include({start("include"), attributes_end, start("include")}),
              "12 Expected \"include\" end tag not found");
}

TEST(xmc_productions, catalog_at_the_end_of_the_list) {
    std::list<token> const whole{start("catalog"), attribute("lang"), value("en"), attribute("name"),
                                 value("c"),       attributes_end,    space(),     start("msg"),
                                 attributes_end,   end_of("msg"),     text("t"),   end_of("catalog"),
                                 space()};
    for (std::size_t count = 0; count < 11; ++count) {
        std::string const in_message = count == 8 || count == 9 ? "\n in message element: \"\"" : "";
        EXPECT_EQ(catalog(first(count, whole)), "14 Unexpected parse error happen!" + in_message +
                                                    "\n in catalog element: \"" + (count < 5 ? "" : "c") +
                                                    "\"")
            << count;
    }
    EXPECT_EQ(catalog(whole), "reads 12");
}

TEST(xmc_productions, catalog_starts_at_its_start_tag) {
    EXPECT_EQ(catalog({start("msg")}), "6 Invalid element \"msg\"\n in catalog element: \"\"");
    EXPECT_EQ(catalog({end_of("catalog")}), "6 Invalid element \"catalog\"\n in catalog element: \"\"");
}

TEST(xmc_productions, skipped_catalog_at_the_end_of_the_list) {
    std::list<token> const whole{start("catalog"), attribute("name"), value("c"),       attributes_end,
                                 start("catalog"), text("catalog"),   end_of("catalog")};
    for (std::size_t count = 4; count < 7; ++count) {
        EXPECT_EQ(catalog(first(count, whole)),
                  "13 Expected catalog end tag not found for catalog \"c\"\n in catalog element: \"c\"");
    }
    EXPECT_EQ(catalog(whole), "reads 7");
}

TEST(xmc_productions, catalog_compares_attributes_by_value_alone) {
    // A start tag named "lang" is as good, and so is any token behind it.
    EXPECT_EQ(catalog({start("catalog"), start("lang"), text("de"), comment("name"), end_of("c"),
                       attributes_end, end_of("catalog")}),
              "reads 7");
    EXPECT_EQ(catalog({start("catalog"), comment("name"), text("c"), value("x")}),
              "5 Invalid attibute \"x\"\n in catalog element: \"c\"");
}

TEST(xmc_productions, message_at_the_end_of_the_list) {
    std::list<token> const whole{
        start("msg"), attribute("name"), value("m"),     attribute("meta"), value("x"),    attributes_end,
        text("t"),    start("br"),       attributes_end, end_of("br"),      comment("c"),  space(),
        start("arg"), attribute("name"), value("a"),     attributes_end,    end_of("arg"), end_of("msg")};
    for (std::size_t count = 0; count < whole.size(); ++count) {
        std::string const error = count == 16
                                      ? "11 Expected arg (argument) end tag not found for argument \"a\""
                                      : "14 Unexpected parse error happen!";
        EXPECT_EQ(message(first(count, whole)),
                  error + "\n in message element: \"" + (count < 3 ? "" : "m") + "\"")
            << count;
    }
    EXPECT_EQ(message(whole), "reads 18");
}

TEST(xmc_productions, message_starts_at_its_start_tag) {
    EXPECT_EQ(message({start("catalog")}), "14 Unexpected parse error happen!\n in message element: \"\"");
    EXPECT_EQ(message({end_of("msg")}), "14 Unexpected parse error happen!\n in message element: \"\"");
}

TEST(xmc_productions, message_ends_at_any_end_tag_and_at_any_token_that_reads_msg) {
    for (token const& last : {end_of("msg"), end_of("catalog"), start("msg"), text("msg"), comment("msg"),
                              attribute("msg"), value("msg")}) {
        EXPECT_EQ(message({start("msg"), attributes_end, text("t"), last, text("t")}), "reads 4");
    }
}

TEST(xmc_productions, line_break_ends_at_its_own_end_tag) {
    EXPECT_EQ(message({start("msg"), attributes_end, start("br"), attributes_end, end_of("msg"), space()}),
              "9 Expected BR end tag not found\n in message element: \"\"");
}

TEST(xmc_productions, message_drops_tokens_that_have_no_place_in_it) {
    std::list<token> const tokens{start("msg"), attributes_end, text("a"), attribute("x"),
                                  value("y"),   attributes_end, text("b"), end_of("msg")};
    auto at = tokens.begin();
    EXPECT_EQ(shown(open_loader().parse_message(at, tokens.end())), "[0:ab]");
}

TEST(xmc_productions, argument_at_the_end_of_the_list) {
    std::list<token> const whole{start("argument"), attribute("name"),  value("a"),
                                 attribute("base"), value("hex"),       attributes_end,
                                 text("t"),         end_of("argument"), space()};
    for (std::size_t const count : {1U, 2U, 3U, 4U, 5U, 8U}) {
        EXPECT_EQ(argument(first(count, whole)), "14 Unexpected parse error happen!") << count;
    }
    for (std::size_t const count : {6U, 7U}) {
        EXPECT_EQ(argument(first(count, whole)),
                  "11 Expected arg (argument) end tag not found for argument \"a\"")
            << count;
    }
    EXPECT_EQ(argument(whole), "reads 8");
}

TEST(xmc_productions, argument_anywhere_else_is_an_empty_string_item) {
    for (std::list<token> const& tokens :
         {std::list<token>{}, {start("msg")}, {end_of("arg")}, {text("arg")}}) {
        auto at = tokens.begin();
        i18n::message_item const item = open_loader().parse_message_arg(at, tokens.end());
        EXPECT_EQ(item.type(), i18n::message_item::string_type);
        EXPECT_EQ(item.data(), "");
        EXPECT_EQ(at, tokens.begin());
    }
}

// ----------------------------------------------------------------------------------------------------------
// Merging
// ----------------------------------------------------------------------------------------------------------

class xmc_merging : public xmc_file_loader {
protected:
    // Loads the text for the language into the store.
    std::size_t merge(std::string_view contents, ustring8 const& lang) {
        open_loader fresh;
        EXPECT_EQ(fresh.parse(directory.file("a.xmc", contents), lang).type(), loader_type::no_error);
        return fresh.combine_data(store);
    }

    std::string text() const {
        auto const found = store.find("c");
        return found == store.end() ? "" : found->second->message("m").as_string(generic::varg_list());
    }

    store_type store;
};

TEST_F(xmc_merging, makes_catalogues_and_counts_messages) {
    EXPECT_EQ(
        merge("<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='m'>x</msg><msg name='n'>"
              "y</msg></catalog><catalog name='d' lang='.'><msg name='m'>z</msg></catalog></xmc>",
              "en"),
        3U);
    ASSERT_EQ(store.size(), 2U);
    EXPECT_EQ(store["c"]->name(), "c");
    EXPECT_EQ(store["c"]->size(), 2U);
    EXPECT_EQ(store["d"]->name(), "d");
    EXPECT_EQ(store["d"]->size(), 1U);
    EXPECT_EQ(store["d"]->message("m")._orginal_locale(), ".");
    EXPECT_TRUE(store["c"]->is_created_dynamic());
}

TEST_F(xmc_merging, writes_nothing_for_nothing) {
    EXPECT_EQ(open_loader().combine_data(store), 0U);
    EXPECT_EQ(merge(variants({"de"}), "en"), 0U);
    EXPECT_TRUE(store.empty());
}

TEST_F(xmc_merging, replaces_on_equal_and_on_lesser_weight) {
    EXPECT_EQ(merge(variants({"en"}), "fr"), 1U);
    EXPECT_EQ(
        merge("<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='m'>again</msg></catalog>"
              "</xmc>",
              "fr"),
        1U);
    EXPECT_EQ(text(), "again");
    EXPECT_EQ(merge(variants({"fr"}), "fr"), 1U);
    EXPECT_EQ(text(), "fr");
}

TEST_F(xmc_merging, keeps_what_weighs_more) {
    EXPECT_EQ(merge(variants({"fr"}), "fr"), 1U);
    EXPECT_EQ(merge(variants({"en"}), "fr"), 0U);
    EXPECT_EQ(text(), "fr");
}

TEST_F(xmc_merging, weighs_by_the_list_of_this_load) {
    EXPECT_EQ(merge(variants({"fr_CA"}), "fr_CA"), 1U);
    // French weighs nothing for a German load.
    EXPECT_EQ(merge(variants({"."}), "de"), 1U);
    EXPECT_EQ(text(), ".");
}

TEST_F(xmc_merging, stores_what_was_missing_whatever_it_weighs) {
    // The list is ".", "en", "", "_x": the empty language of a missing message weighs more than ".".
    EXPECT_EQ(merge(variants({"."}), "_x"), 1U);
    EXPECT_EQ(text(), ".");
}

TEST_F(xmc_merging, counts_a_second_load_of_the_same_file) {
    EXPECT_EQ(merge(variants({"en"}), "en"), 1U);
    EXPECT_EQ(merge(variants({"en"}), "en"), 1U);
    EXPECT_EQ(store["c"]->size(), 1U);
}

TEST_F(xmc_merging, leaves_other_messages_and_catalogues) {
    i18n::message_t other("other", {i18n::message_item("o")});
    store["c"] = generic::abilities::make_dynamic<i18n::catalog_t>();
    store["c"]->message("other", other);
    store["d"] = generic::abilities::make_dynamic<i18n::catalog_t>();
    EXPECT_EQ(merge(variants({"en"}), "en"), 1U);
    EXPECT_EQ(store["c"]->size(), 2U);
    EXPECT_EQ(store["c"]->name(), "c");
    EXPECT_EQ(store["d"]->name(), "");
}

TEST_F(xmc_merging, stores_a_nil_message_each_time) {
    std::string_view const file =
        "<?xml?><xmc version='1.1'><catalog name='c' lang='.'><msg/></catalog></xmc>";
    EXPECT_EQ(merge(file, "en"), 1U);
    EXPECT_EQ(merge(file, "en"), 1U);
    EXPECT_TRUE(store["c"]->has_message(ustring8("")));
}

TEST_F(xmc_merging, fails_on_a_null_pointer_in_the_store) {
    store["c"];
    open_loader fresh;
    fresh.parse(directory.file("a.xmc", variants({"en"})), "en");
    try {
        fresh.combine_data(store);
        FAIL();
    } catch (char const* text) {
        EXPECT_STREQ(text, "unreferanced object");
    }
}

} // namespace
