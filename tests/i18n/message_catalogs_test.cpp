#include "veldrin/i18n/message_catalogs.hpp"

#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "support/temporary_directory.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::catalog_t;
using i18n::message_catalogs;
using i18n::message_t;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using support::text_of;
using support::texts_of;
using result_type = message_catalogs::result_type;
using loader_type = i18n::_private::xmc_file_loader;
using load_error = loader_type::load_error;

struct open_result : result_type {
    using result_type::format_message;
    using result_type::result_type;
};

// A file with one catalogue of one message, whose text is "lang:text".
std::string file_of(std::string const& catalog, std::string const& lang, std::string const& message = "m",
                    std::string const& text = "text") {
    return "<?xml?><xmc version='1.1'><catalog name='" + catalog + "' lang='" + lang + "'><msg name='" +
           message + "'>" + lang + ":" + text + "</msg></catalog></xmc>";
}

std::string text_of_message(message_catalogs const& catalogs, char const* catalog, char const* key) {
    return catalogs.message(ustring8(catalog), ustring8(key)).as_string(generic::varg_list());
}

// Catalogues and messages, as "catalogue/message=text", separated by blanks.
std::string shown(message_catalogs const& catalogs) {
    std::string text;
    for (auto const& [name, catalog] : catalogs) {
        for (auto const& [key, message] : *catalog) {
            text +=
                (text.empty() ? "" : " ") + name + "/" + key + "=" + message.as_string(generic::varg_list());
        }
    }
    return text;
}

class catalogs_test : public testing::Test {
protected:
    std::string file(std::string_view name, std::string_view contents) const {
        return directory.file(name, contents);
    }

    support::temporary_directory directory;
    message_catalogs catalogs;
};

// ----------------------------------------------------------------------------------------------------------
// result_type
// ----------------------------------------------------------------------------------------------------------

static_assert(message_catalogs::no_error == 0 && message_catalogs::no_catalog_loaded == 1 &&
              message_catalogs::no_default_locale == 2 && message_catalogs::file_not_found == 3 &&
              message_catalogs::directory_not_found == 4 && message_catalogs::entity_not_found == 5 &&
              message_catalogs::xml_parse_error == 6 && message_catalogs::xmc_not_valid == 7 &&
              message_catalogs::unexpected_error == 8);

TEST(result_type, says_what_was_wrong) {
    struct row {
        int type;
        std::string_view message;
    };
    row const rows[] = {
        {0, "message_catalogs::result_type - No Error"},
        {1, "message_catalogs::result_type - No catalog was loaded in file: \"T\""},
        {2, "unknown, or unhandle case happened! 2 str data=T"},
        {3, "message_catalogs::result_type - File \"T\" was not found on disk"},
        {4, "message_catalogs::result_type - Directory \"T\" was not found on disk"},
        {5, "message_catalogs::result_type - Entity (file or directory) \"T\" was not found on disk"},
        {6, "unknown, or unhandle case happened! 6 str data=T"},
        {7, "unknown, or unhandle case happened! 7 str data=T"},
        {8, "unknown, or unhandle case happened! 8 str data=T"},
        {9, "unknown, or unhandle case happened! 9 str data=T"},
        {-1, "unknown, or unhandle case happened! -1 str data=T"},
    };
    for (row const& expected : rows) {
        auto const type = static_cast<message_catalogs::error_type>(expected.type);
        EXPECT_EQ(result_type(type, "T").type(), type);
        EXPECT_EQ(result_type(type, "T").message(), expected.message);
        open_result made(message_catalogs::unexpected_error, "");
        EXPECT_EQ(made.format_message(type, "T"), expected.message);
        EXPECT_EQ(made.type(), message_catalogs::unexpected_error);
    }
}

TEST(result_type, puts_a_first_line_in_front_of_the_error_of_a_load) {
    struct row {
        int error;
        int type;
        std::string_view first_line;
    };
    row const rows[] = {
        {0, 0, "No Error"},
        {1, 1, "No catalog was loaded"},
        {2, 2, "Default locale lookup not supported yet"},
        {3, 3, "File was not found on disk"},
        {4, 6, "XML parse error, XML file not well formed"},
        {5, 7, "XMC file is not valid"},
        {6, 7, "XMC file is not valid"},
        {7, 7, "XMC file is not valid"},
        {8, 7, "XMC file is not valid"},
        {9, 7, "XMC file is not valid"},
        {10, 7, "XMC file is not valid"},
        {11, 7, "XMC file is not valid"},
        {12, 7, "XMC file is not valid"},
        {13, 7, "XMC file is not valid"},
        {14, 8, "Unexpected error happened during loading"},
        {15, 8, "Unhandled case"},
        {-1, 8, "Unhandled case"},
    };
    for (row const& expected : rows) {
        load_error error(static_cast<loader_type::error_type>(expected.error), ustring8("T"));
        error.append_error_stack(load_error::in_file, "f");
        std::string const message =
            "message_catalogs::result_type - " + std::string(expected.first_line) + "\n " + error.message();
        EXPECT_EQ(result_type(error).type(), expected.type);
        EXPECT_EQ(result_type(error).message(), message);
        open_result made(message_catalogs::no_error, "");
        EXPECT_EQ(made.format_message(error), message);
        EXPECT_EQ(made.type(), expected.type);
    }
}

TEST(result_type, converts_to_its_type) {
    result_type const result(message_catalogs::file_not_found, "T");
    message_catalogs::error_type const type = result;
    EXPECT_EQ(type, message_catalogs::file_not_found);
    EXPECT_TRUE(result == message_catalogs::file_not_found);
    EXPECT_TRUE(result != message_catalogs::no_error);
}

TEST(result_type, streams_its_message) {
    result_type const result(message_catalogs::entity_not_found, "T");
    std::ostringstream stream;
    stream << result << '|' << result_type(message_catalogs::no_error, "");
    EXPECT_EQ(stream.str(),
              "message_catalogs::result_type - Entity (file or directory) \"T\" was not found on "
              "disk|message_catalogs::result_type - No Error");
}

TEST(result_type, is_a_value) {
    result_type result(message_catalogs::entity_not_found, "T");
    result_type const copy(result);
    result = result_type(message_catalogs::no_error, "");
    EXPECT_EQ(result.type(), message_catalogs::no_error);
    EXPECT_EQ(copy.type(), message_catalogs::entity_not_found);
    EXPECT_EQ(copy.message(), result_type(message_catalogs::entity_not_found, "T").message());
}

// ----------------------------------------------------------------------------------------------------------
// Every way to load, in every form of text
// ----------------------------------------------------------------------------------------------------------

template <class Text>
class catalogs_texts : public testing::Test {
protected:
    // Two files of two catalogues each, in French and in English.
    catalogs_texts()
        : one(directory.file("1.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='fr'><msg name='1'>cf"
                                      "</msg></catalog><catalog name='c' lang='en'><msg name='1'>ce</msg>"
                                      "</catalog><catalog name='d' lang='fr'><msg name='1'>df</msg></catalog>"
                                      "</xmc>")),
          two(directory.file("2.xmc", "<?xml?><xmc version='1.1'><catalog name='c' lang='fr'><msg name='2'>cf"
                                      "</msg></catalog><catalog name='d' lang='en'><msg name='2'>de</msg>"
                                      "</catalog></xmc>")) {}

    support::temporary_directory directory;
    std::string one;
    std::string two;
    message_catalogs catalogs;
};
using all_texts = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(catalogs_texts, all_texts);

TYPED_TEST(catalogs_texts, load_a_file) {
    message_catalogs some;
    EXPECT_EQ(this->catalogs.load_file(text_of<TypeParam>(this->one), text_of<TypeParam>("fr")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "c/1=cf d/1=df");
    EXPECT_EQ(some.load_file(text_of<TypeParam>(this->one), text_of<TypeParam>("de"), text_of<TypeParam>("c"))
                  .type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(some), "c/1=ce");
}

TYPED_TEST(catalogs_texts, load_a_path) {
    message_catalogs some;
    EXPECT_EQ(this->catalogs.load(text_of<TypeParam>(this->two), text_of<TypeParam>("fr")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "c/2=cf d/2=de");
    EXPECT_EQ(
        some.load(text_of<TypeParam>(this->two), text_of<TypeParam>("de"), text_of<TypeParam>("d")).type(),
        message_catalogs::no_error);
    EXPECT_EQ(shown(some), "d/2=de");
}

TYPED_TEST(catalogs_texts, report_a_missing_directory) {
    ustring8 const missing = this->directory.path("missing");
    std::string const message =
        "message_catalogs::result_type - Directory \"" + missing + "\" was not found on disk";
    result_type const result =
        this->catalogs.load_directory(text_of<TypeParam>(missing), text_of<TypeParam>("fr"));
    EXPECT_EQ(result.type(), message_catalogs::directory_not_found);
    EXPECT_EQ(result.message(), message);
    result_type const filtered = this->catalogs.load_directory(
        text_of<TypeParam>(missing), text_of<TypeParam>(""), text_of<TypeParam>("c"));
    EXPECT_EQ(filtered.type(), message_catalogs::directory_not_found);
    EXPECT_EQ(filtered.message(), message);
}

TYPED_TEST(catalogs_texts, load_nothing_of_a_directory_that_is_a_file) {
    EXPECT_EQ(this->catalogs.load_directory(text_of<TypeParam>(this->one), text_of<TypeParam>("fr")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "");
}

TYPED_TEST(catalogs_texts, load_a_list_of_paths) {
    message_catalogs some;
    std::vector<TypeParam> const paths = texts_of<TypeParam>({this->one, this->two});
    EXPECT_EQ(this->catalogs.load(paths, text_of<TypeParam>("fr")).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "c/1=cf c/2=cf d/1=df d/2=de");
    EXPECT_EQ(some.load(paths, text_of<TypeParam>("fr"), text_of<TypeParam>("d")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(some), "d/1=df d/2=de");
}

TYPED_TEST(catalogs_texts, load_a_list_of_standard_strings) {
    message_catalogs some, wide, some_wide;
    std::vector<std::string> const paths{this->one, this->two};
    EXPECT_EQ(this->catalogs.load(paths, text_of<TypeParam>("fr")).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "c/1=cf c/2=cf d/1=df d/2=de");
    EXPECT_EQ(some.load(paths, text_of<TypeParam>("fr"), text_of<TypeParam>("d")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(some), "d/1=df d/2=de");

    std::vector<wide_string> const wide_paths = texts_of<wide_string>({this->one, this->two});
    EXPECT_EQ(wide.load(wide_paths, text_of<TypeParam>("fr")).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(wide), "c/1=cf c/2=cf d/1=df d/2=de");
    EXPECT_EQ(some_wide.load(wide_paths, text_of<TypeParam>(""), text_of<TypeParam>("c")).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(some_wide), "c/1=ce");
}

TYPED_TEST(catalogs_texts, look_up) {
    this->catalogs.load(text_of<TypeParam>(this->one), text_of<TypeParam>("fr"));
    message_catalogs const& store = this->catalogs;
    TypeParam const c = text_of<TypeParam>("c"), x = text_of<TypeParam>("x"), key = text_of<TypeParam>("1");

    EXPECT_TRUE(store.has_catalog(c));
    EXPECT_FALSE(store.has_catalog(x));
    EXPECT_TRUE(store.has_catalog(c, text_of<TypeParam>("fr")));
    EXPECT_FALSE(store.has_catalog(c, text_of<TypeParam>("en")));
    EXPECT_FALSE(store.has_catalog(x, text_of<TypeParam>("fr")));

    EXPECT_EQ(store.catalog(c).name(), "c");
    EXPECT_EQ(&store.catalog(c), &*store.begin()->second);
    EXPECT_EQ(&store.catalog(x), &message_catalogs::s_nil_catalog);

    EXPECT_EQ(store.size(c), 1U);
    EXPECT_EQ(store.count(c), 1U);
    EXPECT_EQ(store.size(x), 0U);
    EXPECT_EQ(store.count(x), 0U);

    EXPECT_EQ(store.begin(c)->first, "1");
    EXPECT_EQ(std::next(store.begin(c)), store.end(c));
    EXPECT_EQ(store.begin(x), message_catalogs::s_nil_catalog.begin());
    EXPECT_EQ(store.end(x), message_catalogs::s_nil_catalog.end());

    EXPECT_TRUE(store.has_message(c, key));
    EXPECT_FALSE(store.has_message(c, x));
    EXPECT_FALSE(store.has_message(x, key));
    EXPECT_EQ(store.message(c, key).as_string(generic::varg_list()), "cf");
    EXPECT_EQ(&store.message(c, x), &catalog_t::m_nil_message);
    EXPECT_EQ(&store.message(x, key), &message_catalogs::s_nil_message);
}

TYPED_TEST(catalogs_texts, erase_one_catalogue) {
    this->catalogs.load(text_of<TypeParam>(this->one), text_of<TypeParam>("fr"));
    this->catalogs.erase(text_of<TypeParam>("missing"));
    EXPECT_EQ(this->catalogs.size(), 2U);
    this->catalogs.erase(text_of<TypeParam>("c"));
    EXPECT_EQ(shown(this->catalogs), "d/1=df");
}

TYPED_TEST(catalogs_texts, need_a_language_unless_a_catalogue_is_named) {
    TypeParam const path = text_of<TypeParam>(this->one), empty, c = text_of<TypeParam>("c");
    std::vector<TypeParam> const paths{path};
    for (result_type const& result :
         {this->catalogs.load_file(path, empty), this->catalogs.load(path, empty),
          this->catalogs.load(paths, empty), this->catalogs.load(std::vector<std::string>{this->one}, empty),
          this->catalogs.load(texts_of<wide_string>({this->one}), empty)}) {
        EXPECT_EQ(result.type(), message_catalogs::no_default_locale);
        EXPECT_EQ(result.message(),
                  "message_catalogs::result_type - Default locale lookup not supported yet\n "
                  "xmc_file_loader::load_error - Default locale lookup not supported yet");
    }
    EXPECT_TRUE(this->catalogs == types::nil);
    EXPECT_EQ(this->catalogs.load_file(path, empty, c).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs), "c/1=ce");
}

// ----------------------------------------------------------------------------------------------------------
// load_file
// ----------------------------------------------------------------------------------------------------------

TEST_F(catalogs_test, load_file_says_that_all_went_well) {
    result_type const result = catalogs.load_file(ustring8(file("a.xmc", file_of("c", "en"))), "en");
    EXPECT_EQ(result.type(), message_catalogs::no_error);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - No Error\n "
                                "xmc_file_loader::load_error - No Error");
    EXPECT_EQ(shown(catalogs), "c/m=en:text");
}

TEST_F(catalogs_test, load_file_maps_the_errors_of_files) {
    struct row {
        std::string contents;
        message_catalogs::error_type type;
        std::string message;
    };
    row const rows[] = {
        {"<?xml?><xmc version='1.0'/>", message_catalogs::no_catalog_loaded,
         "No catalog was loaded\n xmc_file_loader::load_error - No catalog was loaded in file: \"F\""},
        {"<?xml?><xmc>", message_catalogs::xml_parse_error,
         "XML parse error, XML file not well formed\n xmc_file_loader::load_error - Unexpected end of file "
         "during XML parsing\n at line: \"0\"\n in file: \"F\""},
        {"<?xml?><xmc/>", message_catalogs::xmc_not_valid,
         "XMC file is not valid\n xmc_file_loader::load_error - Invalid attibute \"\"\n in file: \"F\""},
        {"<?xml?><xmc version='1.0'><catalog name='c' lang='en'><msg name='m'><b/></msg></catalog></xmc>",
         message_catalogs::xmc_not_valid,
         "XMC file is not valid\n xmc_file_loader::load_error - Invalid element \"b\"\n in message element: "
         "\"m\"\n in catalog element: \"c\"\n in file: \"F\""},
        {"<?xml?><xmc version='1.0'><include file=''/></xmc>", message_catalogs::file_not_found,
         "File was not found on disk\n xmc_file_loader::load_error - File \"\" was not found on disk\n in "
         "file: "
         "\"F\""},
    };
    for (row const& expected : rows) {
        std::string const path = file("a.xmc", expected.contents);
        result_type const result = catalogs.load_file(ustring8(path), "en");
        EXPECT_EQ(result.type(), expected.type);
        std::string message = "message_catalogs::result_type - " + expected.message;
        if (std::size_t const at = message.find("\"F\""); at != message.npos) {
            message.replace(at + 1, 1, path);
        }
        EXPECT_EQ(result.message(), message);
    }
    std::string const circular = file("a.xmc", "<?xml?><xmc version='1.0'><include file='a.xmc'/></xmc>");
    result_type const result = catalogs.load_file(ustring8(circular), "en");
    EXPECT_EQ(result.type(), message_catalogs::unexpected_error);
    EXPECT_EQ(
        result.message().find("message_catalogs::result_type - Unexpected error happened during loading\n "
                              "xmc_file_loader::load_error - Unexpected parse error happen!\n in file: "),
        0U);
}

TEST_F(catalogs_test, load_file_reports_a_missing_file) {
    ustring8 const missing = directory.path("missing.xmc");
    result_type const result = catalogs.load_file(missing, "en");
    EXPECT_EQ(result.type(), message_catalogs::file_not_found);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - File was not found on disk\n "
                                "xmc_file_loader::load_error - File \"" +
                                    missing + "\" was not found on disk");
}

TEST_F(catalogs_test, load_file_changes_nothing_when_it_fails) {
    catalogs.load_file(ustring8(file("a.xmc", file_of("c", "en"))), "en");
    std::string const bad = "<?xml?><xmc version='1.0'><catalog name='c' lang='en'><msg name='m'>new</msg>"
                            "</catalog><catalog name='d' lang='en'><msg name='m'><b/></msg></catalog></xmc>";
    EXPECT_EQ(catalogs.load_file(ustring8(file("b.xmc", bad)), "en").type(), message_catalogs::xmc_not_valid);
    EXPECT_EQ(shown(catalogs), "c/m=en:text");
}

TEST_F(catalogs_test, load_file_is_content_with_an_empty_store) {
    EXPECT_EQ(catalogs.load_file(ustring8(file("a.xmc", file_of("c", "de"))), "en").type(),
              message_catalogs::no_error);
    EXPECT_TRUE(catalogs == types::nil);
}

// ----------------------------------------------------------------------------------------------------------
// load
// ----------------------------------------------------------------------------------------------------------

TEST_F(catalogs_test, load_needs_a_file_or_a_directory) {
    for (ustring8 const path : {directory.path("missing"), std::string("/dev/null"), std::string()}) {
        result_type const result = catalogs.load(path, "en");
        EXPECT_EQ(result.type(), message_catalogs::entity_not_found);
        EXPECT_EQ(result.message(), "message_catalogs::result_type - Entity (file or directory) \"" + path +
                                        "\" was not found on disk");
    }
}

TEST_F(catalogs_test, load_takes_an_empty_directory) {
    result_type const result = catalogs.load_directory(ustring8(directory.path()), "en");
    EXPECT_EQ(result.type(), message_catalogs::no_error);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - No Error");
    result_type const empty = catalogs.load(ustring8(directory.path()), "en");
    EXPECT_EQ(empty.type(), message_catalogs::no_catalog_loaded);
    EXPECT_EQ(empty.message(),
              "message_catalogs::result_type - No catalog was loaded in file: \"" + directory.path() + "\"");
}

TEST_F(catalogs_test, load_reports_a_store_that_stays_empty) {
    ustring8 const german = file("a.xmc", file_of("c", "de"));
    result_type const result = catalogs.load(german, "en");
    EXPECT_EQ(result.type(), message_catalogs::no_catalog_loaded);
    EXPECT_EQ(result.message(),
              "message_catalogs::result_type - No catalog was loaded in file: \"" + german + "\"");

    catalogs.load(ustring8(file("b.xmc", file_of("c", "en"))), "en");
    EXPECT_EQ(catalogs.load(german, "en").type(), message_catalogs::no_error);
}

TEST_F(catalogs_test, load_reports_a_store_that_stays_empty_for_want_of_the_catalogue_named) {
    ustring8 const english = file("a.xmc", file_of("c", "en"));
    result_type const result = catalogs.load(english, "en", "d");
    EXPECT_EQ(result.type(), message_catalogs::no_catalog_loaded);
    EXPECT_EQ(result.message(),
              "message_catalogs::result_type - No catalog was loaded in file: \"" + english + "\"");
    EXPECT_EQ(catalogs.load_file(english, "en", "d").type(), message_catalogs::no_error);
    EXPECT_EQ(catalogs.load(std::vector<ustring8>{english}, "en", "d").type(), message_catalogs::no_error);
    EXPECT_TRUE(catalogs == types::nil);

    catalogs.load(english, "en", "c");
    EXPECT_EQ(catalogs.load(english, "en", "d").type(), message_catalogs::no_error);
}

TEST_F(catalogs_test, load_returns_the_result_of_the_file) {
    result_type const good = catalogs.load(ustring8(file("a.xmc", file_of("c", "en"))), "en");
    EXPECT_EQ(good.message(),
              "message_catalogs::result_type - No Error\n xmc_file_loader::load_error - No Error");
    EXPECT_EQ(catalogs.load(ustring8(file("b.xmc", "<?xml?><xmc/>")), "en").type(),
              message_catalogs::xmc_not_valid);
    EXPECT_EQ(message_catalogs().load(ustring8(file("b.xmc", "<?xml?><xmc/>")), "en").type(),
              message_catalogs::xmc_not_valid);
}

TEST_F(catalogs_test, load_takes_any_extension_of_a_file_that_is_named) {
    EXPECT_EQ(catalogs.load(ustring8(file("a.txt", file_of("c", "en"))), "en").type(),
              message_catalogs::no_error);
}

TEST_F(catalogs_test, list_is_loaded_in_order_up_to_the_first_failure) {
    ustring8 const first = file("1.xmc", file_of("c", "en", "1")), bad = file("2.xmc", "<?xml?><xmc/>"),
                   last = file("3.xmc", file_of("c", "en", "3"));
    result_type const result = catalogs.load(std::vector<ustring8>{first, bad, last}, "en");
    EXPECT_EQ(result.type(), message_catalogs::xmc_not_valid);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - XMC file is not valid\n "
                                "xmc_file_loader::load_error - Invalid attibute \"\"\n in file: \"" +
                                    bad + "\"");
    EXPECT_EQ(shown(catalogs), "c/1=en:text");
}

TEST_F(catalogs_test, list_reports_a_path_that_is_neither_file_nor_directory) {
    ustring8 const first = file("1.xmc", file_of("c", "en", "1")), missing = directory.path("missing"),
                   last = file("3.xmc", file_of("c", "en", "3"));
    result_type const result = catalogs.load(std::vector<ustring8>{first, missing, last}, "en");
    EXPECT_EQ(result.type(), message_catalogs::entity_not_found);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - Entity (file or directory) \"" + missing +
                                    "\" was not found on disk");
    EXPECT_EQ(shown(catalogs), "c/1=en:text");
}

TEST_F(catalogs_test, list_may_leave_the_store_empty) {
    EXPECT_EQ(catalogs.load(std::vector<ustring8>{file("1.xmc", file_of("c", "de"))}, "en").type(),
              message_catalogs::no_error);
    result_type const result = catalogs.load(std::vector<ustring8>(), "en");
    EXPECT_EQ(result.type(), message_catalogs::no_error);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - No Error");
    EXPECT_TRUE(catalogs == types::nil);
}

TEST_F(catalogs_test, list_takes_paths_beyond_ascii) {
    std::string const path = file("\xC3\xA9.xmc", file_of("c", "en"));
    EXPECT_EQ(catalogs.load(std::vector<std::string>{path}, ustring16()).type(),
              message_catalogs::no_default_locale);
    EXPECT_EQ(catalogs.load(std::vector<std::string>{path}, ustring16(), text_of<ustring16>("c")).type(),
              message_catalogs::no_error);
    wide_string wide = text_of<wide_string>(directory.path(""));
    wide.push_back(0xE9);
    wide += text_of<wide_string>(".xmc");
    EXPECT_EQ(catalogs.load(std::vector<wide_string>{wide}, ustring8("en")).type(),
              message_catalogs::no_error);
}

// ----------------------------------------------------------------------------------------------------------
// Loading again
// ----------------------------------------------------------------------------------------------------------

TEST_F(catalogs_test, second_load_replaces_on_a_tie) {
    catalogs.load(ustring8(file("1.xmc", file_of("c", "en", "m", "first"))), "en");
    catalogs.load(ustring8(file("2.xmc", file_of("c", "en", "m", "second"))), "en");
    EXPECT_EQ(shown(catalogs), "c/m=en:second");
}

TEST_F(catalogs_test, second_load_keeps_what_weighs_more) {
    catalogs.load(ustring8(file("1.xmc", file_of("c", "fr"))), "fr");
    catalogs.load(ustring8(file("2.xmc", file_of("c", "en"))), "fr");
    EXPECT_EQ(shown(catalogs), "c/m=fr:text");
}

// The first file that is merged drops the set in which the catalogue keeps its languages.
TEST_F(catalogs_test, names_of_a_load_may_lie_in_the_store) {
    std::string const lang = "fr_" + std::string(100, 'x');
    std::vector<ustring8> const paths = {file("a.xmc", file_of("status", lang, "a")),
                                         file("b.xmc", file_of("status", lang, "b"))};
    catalogs.load_file(paths[0], lang);
    catalog_t const& status = catalogs.catalog(ustring8("status"));
    EXPECT_EQ(catalogs.load(paths, *status.languages_begin()).type(), message_catalogs::no_error);
    EXPECT_EQ(status.size(), 2U);
    EXPECT_EQ(catalogs.load(paths, *status.languages_begin(), catalogs.begin()->first).type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "status/a=" + lang + ":text status/b=" + lang + ":text");
}

TEST_F(catalogs_test, second_language_overlays_the_first) {
    ustring8 const french =
        file("fr.xmc", "<?xml?><xmc version='1.0'><catalog name='c' lang='fr'><msg name='1'>"
                       "un</msg><msg name='2'>deux</msg></catalog></xmc>");
    ustring8 const german =
        file("de.xmc", "<?xml?><xmc version='1.0'><catalog name='c' lang='de'><msg name='2'>"
                       "zwei</msg></catalog></xmc>");
    catalogs.load(french, "fr");
    catalogs.load(german, "de");
    EXPECT_EQ(shown(catalogs), "c/1=un c/2=zwei");
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c"), ustring8("fr")));
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c"), ustring8("de")));

    catalogs.erase();
    catalogs.load(german, "de");
    EXPECT_EQ(shown(catalogs), "c/2=zwei");
    EXPECT_FALSE(catalogs.has_catalog(ustring8("c"), ustring8("fr")));
}

// ----------------------------------------------------------------------------------------------------------
// The store
// ----------------------------------------------------------------------------------------------------------

TEST_F(catalogs_test, starts_nil) {
    EXPECT_EQ(catalogs.size(), 0U);
    EXPECT_EQ(catalogs.count(), 0U);
    EXPECT_EQ(catalogs.begin(), catalogs.end());
    EXPECT_TRUE(catalogs.equal(types::nil));
    EXPECT_TRUE(catalogs == types::nil);
    EXPECT_FALSE(catalogs != types::nil);
    EXPECT_TRUE(message_catalogs(types::nil) == types::nil);
}

TEST_F(catalogs_test, is_emptied_by_nil_and_by_erase) {
    ustring8 const path = file("a.xmc", file_of("c", "en"));
    catalogs.load(path, "en");
    EXPECT_FALSE(catalogs.equal(types::nil));
    EXPECT_FALSE(catalogs == types::nil);
    EXPECT_TRUE(catalogs != types::nil);
    EXPECT_EQ(&(catalogs = types::nil), &catalogs);
    EXPECT_TRUE(catalogs == types::nil);

    catalogs.load(path, "en");
    EXPECT_EQ(&catalogs.assign(types::nil), &catalogs);
    EXPECT_TRUE(catalogs == types::nil);

    catalogs.load(path, "en");
    catalogs.erase();
    EXPECT_TRUE(catalogs == types::nil);

    catalogs.load(path, "en");
    catalogs.remove();
    EXPECT_TRUE(catalogs == types::nil);
}

TEST_F(catalogs_test, has_nil_objects) {
    EXPECT_TRUE(message_catalogs::s_nil_message == types::nil);
    EXPECT_TRUE(message_catalogs::s_nil_catalog == types::nil);
    EXPECT_NE(&message_catalogs::s_nil_message, &catalog_t::m_nil_message);
    EXPECT_EQ(text_of_message(catalogs, "c", "m"), "");
}

TEST_F(catalogs_test, lists_catalogues_in_byte_order) {
    for (std::string const name : {"b", "B", "a"}) {
        catalogs.load(ustring8(file("x.xmc", file_of(name, "en"))), "en");
    }
    EXPECT_EQ(catalogs.size(), 3U);
    EXPECT_EQ(catalogs.count(), 3U);
    EXPECT_EQ(shown(catalogs), "B/m=en:text a/m=en:text b/m=en:text");
    EXPECT_EQ(std::distance(catalogs.begin(), catalogs.end()), 3);
    static_assert(!std::is_same_v<decltype(catalogs.begin()), message_catalogs::const_iterator>);
}

TEST_F(catalogs_test, copies_share_their_catalogues) {
    catalogs.load(ustring8(file("1.xmc", file_of("c", "en", "1"))), "en");
    message_catalogs copy(catalogs);
    message_catalogs assigned, by_name;
    EXPECT_EQ(&(assigned = catalogs), &assigned);
    EXPECT_EQ(&by_name.assign(catalogs), &by_name);
    catalogs.load(ustring8(file("2.xmc", file_of("c", "en", "2"))), "en");
    catalogs.load(ustring8(file("3.xmc", file_of("d", "en", "3"))), "en");
    for (message_catalogs* other : {&copy, &assigned, &by_name}) {
        EXPECT_EQ(&other->catalog(ustring8("c")), &catalogs.catalog(ustring8("c")));
        EXPECT_EQ(shown(*other), "c/1=en:text c/2=en:text");
    }
    EXPECT_EQ(catalogs.size(), 2U);
}

TEST_F(catalogs_test, assigned_store_takes_the_place_of_what_was_there) {
    catalogs.load(ustring8(file("1.xmc", file_of("c", "en"))), "en");
    message_catalogs assigned, by_name;
    for (message_catalogs* other : {&assigned, &by_name}) {
        other->load(ustring8(file("2.xmc", file_of("c", "de"))), "de");
        other->load(ustring8(file("3.xmc", file_of("d", "de"))), "de");
    }
    assigned = catalogs;
    by_name.assign(catalogs);
    EXPECT_EQ(shown(assigned), "c/m=en:text");
    EXPECT_EQ(shown(by_name), "c/m=en:text");

    message_catalogs const& same = catalogs;
    catalogs = same;
    EXPECT_EQ(shown(catalogs), "c/m=en:text");
}

TEST_F(catalogs_test, erasing_leaves_the_catalogue_to_other_stores) {
    catalogs.load(ustring8(file("a.xmc", file_of("x", "en"))), "en");
    message_catalogs const copy(catalogs);
    catalogs.erase(ustring8("x"));
    EXPECT_FALSE(catalogs.has_catalog(ustring8("x")));
    EXPECT_EQ(shown(copy), "x/m=en:text");
    catalogs = copy;
    catalogs.erase();
    EXPECT_EQ(shown(copy), "x/m=en:text");
}

TEST_F(catalogs_test, looks_languages_of_a_catalogue_up_with_underscores) {
    catalogs.load(ustring8(file("1.xmc", file_of("c", "fr_CA"))), "fr_CA");
    catalogs.load(ustring8(file("2.xmc", file_of("d", "fr-CA"))), "fr_CA");
    catalogs.load(ustring8(file("3.xmc", file_of("e", "."))), "fr_CA");
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c"), ustring8("fr_CA")));
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c"), ustring8("fr-CA")));
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c"), ustring8("fr.CA")));
    EXPECT_FALSE(catalogs.has_catalog(ustring8("c"), ustring8("fr")));
    EXPECT_FALSE(catalogs.has_catalog(ustring8("d"), ustring8("fr_CA")));
    EXPECT_FALSE(catalogs.has_catalog(ustring8("d"), ustring8("fr-CA")));
    EXPECT_FALSE(catalogs.has_catalog(ustring8("e"), ustring8(".")));
}

TEST_F(catalogs_test, takes_an_entry_without_a_catalogue_for_a_missing_one) {
    catalogs.load(ustring8(file("a.xmc", file_of("c", "en"))), "en");
    catalogs.begin()->second = nullptr;
    EXPECT_EQ(&catalogs.catalog(ustring8("c")), &message_catalogs::s_nil_catalog);
    EXPECT_EQ(&catalogs.message(ustring8("c"), ustring8("m")), &message_catalogs::s_nil_message);
    EXPECT_EQ(catalogs.size(ustring8("c")), 0U);
}

TEST_F(catalogs_test, has_a_catalogue_that_was_emptied) {
    catalogs.load(ustring8(file("a.xmc", file_of("c", "en"))), "en");
    *catalogs.begin()->second = types::nil;
    EXPECT_TRUE(catalogs.has_catalog(ustring8("c")));
    EXPECT_FALSE(catalogs == types::nil);
    EXPECT_NE(&catalogs.catalog(ustring8("c")), &message_catalogs::s_nil_catalog);
    EXPECT_EQ(&catalogs.message(ustring8("c"), ustring8("m")), &catalog_t::m_nil_message);
}

TEST_F(catalogs_test, finds_names_beyond_ascii_in_every_form) {
    catalogs.load(ustring8(file("a.xmc", file_of("\xC3\xA9", "en"))), "en");
    EXPECT_TRUE(catalogs.has_catalog(ustring8("\xC3\xA9")));
    EXPECT_TRUE(catalogs.has_catalog(ustring16(1, strings::utf16_unit{0xE9})));
    EXPECT_TRUE(catalogs.has_catalog(ustring32(1, strings::utf32_unit{0xE9})));
}

} // namespace
