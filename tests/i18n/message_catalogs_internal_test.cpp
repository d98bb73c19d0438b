// Whole directories, over a listing whose order the tests choose; and the nil objects of the static library.

#include "veldrin/i18n/message_catalogs.hpp"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/directory.hpp"
#include "support/ascii_text.hpp"
#include "support/temporary_directory.hpp"

namespace {

// The names that stand in front of all others, which follow in byte order.
std::vector<std::string> names_in_front;

std::map<std::uint64_t, std::vector<std::string>> open_listings;
std::uint64_t last_handle = 0;

std::vector<std::string> listing_of(std::string const& directory) {
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(directory + "/")) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    names.insert(names.begin(), names_in_front.begin(), names_in_front.end());
    return names;
}

} // namespace

namespace VELDRIN_2_18::platform {

directory_handle open_directory(path const& directory, path_text& entry) {
    std::string const text = std::filesystem::path(directory.text()).string();
    if (!std::filesystem::is_directory(text)) {
        return directory_handle::none;
    }
    open_listings[++last_handle] = listing_of(text);
    auto const handle = static_cast<directory_handle>(last_handle);
    return next_entry(handle, entry) ? handle : directory_handle::none;
}

bool next_entry(directory_handle handle, path_text& entry) {
    std::vector<std::string>& names = open_listings[static_cast<std::uint64_t>(handle)];
    if (names.empty()) {
        return false;
    }
    entry = std::filesystem::path(names.front()).native();
    names.erase(names.begin());
    return true;
}

void close_directory(directory_handle handle) { open_listings.erase(static_cast<std::uint64_t>(handle)); }

} // namespace VELDRIN_2_18::platform

namespace {

using namespace VELDRIN_2_18;
using i18n::message_catalogs;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using support::text_of;
using result_type = message_catalogs::result_type;

std::string const bad_file = "<?xml?><xmc/>";

std::string message_file(std::string const& message) {
    return "<?xml?><xmc version='1.1'><catalog name='c' lang='en'><msg name='" + message +
           "'>x</msg></catalog><catalog name='d' lang='.'><msg name='" + message +
           "'>x</msg></catalog></xmc>";
}

// The messages of the catalogue, separated by blanks.
std::string shown(message_catalogs const& catalogs, ustring8 const& catalog = "c") {
    std::string text;
    for (auto const& [key, message] : catalogs.catalog(catalog)) {
        text += (text.empty() ? "" : " ") + key;
    }
    return text;
}

class load_directory : public testing::Test {
protected:
    load_directory() { names_in_front = {".", ".."}; }

    result_type load() { return catalogs.load_directory(ustring8(directory.path()), "en"); }

    support::temporary_directory directory;
    message_catalogs catalogs;
};

TEST_F(load_directory, takes_files_by_their_extension_in_any_case) {
    for (std::string const name : {"1.xmc", "2.xml", "3.XMC", "4.Xml", ".xmc", "5.x.xmc"}) {
        directory.file(name, message_file(name));
    }
    for (std::string const name :
         {"a.xmc.bak", "b.txt", "c", "xmc", "d.xmcx", "exmc", ".bak", "e.xmc~", "g"}) {
        directory.file(name, bad_file);
    }
    EXPECT_EQ(load().type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), ".xmc 1.xmc 2.xml 3.XMC 4.Xml 5.x.xmc");
}

TEST_F(load_directory, takes_no_file_whose_name_ends_in_a_dot) {
    directory.file("1.xmc", message_file("1"));
    directory.file("2.xmc.", bad_file);
    EXPECT_EQ(load().type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "1");
}

TEST_F(load_directory, walks_subdirectories_where_they_are_met) {
    directory.file("1.xmc", message_file("1"));
    directory.file("2/deeper/2.xmc", message_file("2"));
    directory.file("2/empty/text", "");
    directory.file("3.xmc", bad_file);
    directory.file("4/4.xmc", message_file("4"));
    EXPECT_EQ(load().type(), message_catalogs::xmc_not_valid);
    EXPECT_EQ(shown(catalogs), "1 2");
}

TEST_F(load_directory, stops_at_the_first_failure_and_returns_it) {
    directory.file("1.xmc", message_file("1"));
    std::string const bad = directory.file("2/2.xmc", bad_file);
    directory.file("2/3.xmc", message_file("3"));
    directory.file("4.xmc", message_file("4"));
    result_type const result = load();
    EXPECT_EQ(result.type(), message_catalogs::xmc_not_valid);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - XMC file is not valid\n "
                                "xmc_file_loader::load_error - Invalid attibute \"\"\n in file: \"" +
                                    bad + "\"");
    EXPECT_EQ(shown(catalogs), "1");
}

TEST_F(load_directory, returns_the_result_of_the_last_file) {
    directory.file("1.xmc", message_file("1"));
    directory.directory("2");
    directory.file("3.txt", "");
    EXPECT_EQ(load().message(), "message_catalogs::result_type - No Error\n "
                                "xmc_file_loader::load_error - No Error");
}

TEST_F(load_directory, returns_no_error_where_nothing_was_loaded) {
    directory.file("1.txt", "");
    directory.directory("2");
    result_type const result = load();
    EXPECT_EQ(result.type(), message_catalogs::no_error);
    EXPECT_EQ(result.message(), "message_catalogs::result_type - No Error");
    EXPECT_EQ(catalogs.load(ustring8(directory.path()), "en").type(), message_catalogs::no_catalog_loaded);
}

TEST_F(load_directory, misses_the_first_entry_of_the_listing) {
    names_in_front = {};
    directory.file("1.xmc", bad_file);
    directory.file("2.xmc", message_file("2"));
    directory.file("3/31.xmc", bad_file);
    directory.file("3/32.xmc", message_file("32"));
    EXPECT_EQ(load().type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "2 32");
}

TEST_F(load_directory, does_not_follow_a_link_back_to_where_it_is) {
    directory.file("1/1.xmc", message_file("1"));
    std::filesystem::create_directory_symlink(directory.path(), directory.path("1/up"));
    std::filesystem::create_directory_symlink(directory.path("1"), directory.path("1/same"));
    std::filesystem::create_directory_symlink(directory.path("1"), directory.path("2"));
    EXPECT_EQ(load().type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "1");
}

TEST_F(load_directory, passes_by_what_is_neither_file_nor_directory) {
    std::filesystem::create_symlink(directory.path("missing"), directory.path("1.xmc"));
    std::filesystem::create_symlink("/dev/null", directory.path("2.xmc"));
    directory.file("3.xmc", message_file("3"));
    EXPECT_EQ(load().type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "3");
}

TEST_F(load_directory, is_what_load_does_for_a_directory) {
    directory.file("1.xmc", message_file("1"));
    directory.file("2/2.xmc", message_file("2"));
    EXPECT_EQ(catalogs.load(ustring8(directory.path()), "en").type(), message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs), "1 2");

    message_catalogs by_list;
    std::vector<ustring8> const list{directory.path("2"), directory.path("1.xmc")};
    EXPECT_EQ(by_list.load(list, "en").type(), message_catalogs::no_error);
    EXPECT_EQ(shown(by_list), "1 2");
}

TEST_F(load_directory, finds_nothing_in_a_file) {
    EXPECT_EQ(catalogs.load_directory(ustring8(directory.file("1.xmc", message_file("1"))), "en").type(),
              message_catalogs::no_error);
    EXPECT_TRUE(catalogs == types::nil);
}

TEST_F(load_directory, needs_a_language_unless_a_catalogue_is_named) {
    directory.file("1.xmc", message_file("1"));
    EXPECT_EQ(catalogs.load_directory(ustring8(directory.path()), "").type(),
              message_catalogs::no_default_locale);
    EXPECT_EQ(catalogs.load_directory(ustring8(directory.path()), "", "d").type(),
              message_catalogs::no_error);
    EXPECT_EQ(shown(catalogs, "d"), "1");
    EXPECT_FALSE(catalogs.has_catalog(ustring8("c")));
}

template <class Text>
class load_directory_texts : public load_directory {};
using all_texts = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(load_directory_texts, all_texts);

TYPED_TEST(load_directory_texts, are_all_taken) {
    this->directory.file("1.xmc", message_file("1"));
    this->directory.file("2/2.xmc", message_file("2"));
    TypeParam const path = text_of<TypeParam>(this->directory.path()), en = text_of<TypeParam>("en");
    EXPECT_EQ(this->catalogs.load_directory(path, en).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(this->catalogs, "c"), "1 2");
    EXPECT_EQ(shown(this->catalogs, "d"), "1 2");

    message_catalogs some, by_path;
    EXPECT_EQ(some.load_directory(path, en, text_of<TypeParam>("d")).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(some, "d"), "1 2");
    EXPECT_FALSE(some.has_catalog(ustring8("c")));
    EXPECT_EQ(by_path.load(path, en, text_of<TypeParam>("d")).type(), message_catalogs::no_error);
    EXPECT_EQ(shown(by_path, "d"), "1 2");
    EXPECT_FALSE(by_path.has_catalog(ustring8("c")));
}

// Asked as early as a program can, before the objects of the standard library's own priorities end.
struct early_look {
    bool all_nil = message_catalogs::s_nil_message == types::nil &&
                   message_catalogs::s_nil_catalog == types::nil &&
                   i18n::catalog_t::m_nil_message == types::nil &&
                   message_catalogs().message(ustring8("c"), ustring8("m")).as_string({}).empty();
};
[[gnu::init_priority(102)]] early_look const look;

TEST(nil_objects, are_valid_before_other_static_objects) { EXPECT_TRUE(look.all_nil); }

} // namespace
