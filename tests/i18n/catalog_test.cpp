#include "veldrin/i18n/catalog.hpp"

#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ascii_text.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/memory/pointers/shared_pointer.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::catalog_t;
using i18n::message_item;
using i18n::message_t;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using support::text_of;

message_t message(char const* name, char const* text, char const* lang) {
    message_t made(name, {message_item(text)});
    made._orginal_locale(lang);
    return made;
}

std::string text_of_message(message_t const& shown) { return shown.as_string(generic::varg_list()); }

std::vector<ustring8> languages(catalog_t const& catalog) {
    return {catalog.languages_begin(), catalog.languages_end()};
}

catalog_t two_messages() {
    return catalog_t("c", {}, {{"m", message("m", "one", "en")}, {"n", message("n", "two", "fr-CA")}});
}

TEST(catalog, is_nil_by_default) {
    catalog_t const catalog;
    EXPECT_EQ(catalog.name(), "");
    EXPECT_EQ(catalog.size(), 0U);
    EXPECT_EQ(catalog.begin(), catalog.end());
    EXPECT_EQ(catalog.languages_begin(), catalog.languages_end());
    EXPECT_TRUE(catalog == types::nil);
    EXPECT_FALSE(catalog != types::nil);
    EXPECT_TRUE(catalog_t(types::nil) == types::nil);
}

TEST(catalog, is_nil_only_if_name_languages_and_messages_are_empty) {
    EXPECT_TRUE(catalog_t("", {}, {}).equal(types::nil));
    EXPECT_FALSE(catalog_t("c", {}, {}).equal(types::nil));
    EXPECT_FALSE(catalog_t("", {"en"}, {}).equal(types::nil));
    EXPECT_FALSE(catalog_t("", {}, {{"m", message_t()}}).equal(types::nil));
    EXPECT_FALSE(two_messages() == types::nil);
    EXPECT_TRUE(two_messages() != types::nil);
}

TEST(catalog, takes_copies_of_name_languages_and_messages) {
    std::map<ustring8, message_t> messages{{"m", message("m", "text", "en")}};
    std::vector<ustring8> given{"fr", "de", "fr"};
    catalog_t const catalog("c", given, messages);
    messages.clear();
    given.clear();
    EXPECT_EQ(catalog.name(), "c");
    EXPECT_EQ(catalog.size(), 1U);
    EXPECT_EQ(languages(catalog), (std::vector<ustring8>{"de", "fr"}));
}

TEST(catalog, copies_all_but_the_count) {
    memory::pointers::shared_pointer<catalog_t> const source(generic::abilities::make_dynamic<catalog_t>(
        "c", std::vector<ustring8>{"fr"}, std::map<ustring8, message_t>{{"m", message_t()}}));
    catalog_t copy(*source);
    catalog_t assigned, by_name;
    EXPECT_EQ(&(assigned = *source), &assigned);
    EXPECT_EQ(&by_name.assign(*source), &by_name);
    for (catalog_t* other : {&copy, &assigned, &by_name}) {
        EXPECT_EQ(other->name(), "c");
        EXPECT_EQ(languages(*other), std::vector<ustring8>{"fr"});
        EXPECT_EQ(other->size(), 1U);
        EXPECT_FALSE(other->is_created_dynamic());
    }
    EXPECT_TRUE(source->is_created_dynamic());
}

TEST(catalog, keeps_its_own_flag_and_count_when_assigned) {
    memory::pointers::shared_pointer<catalog_t> held(generic::abilities::make_dynamic<catalog_t>());
    *held = two_messages();
    EXPECT_TRUE(held->is_created_dynamic());
    memory::pointers::shared_pointer<catalog_t> const second(held);
    held = nullptr;
    EXPECT_EQ(second->size(), 2U);
}

TEST(catalog, can_be_assigned_to_itself) {
    catalog_t catalog = two_messages();
    catalog_t const& same = catalog;
    catalog = same;
    EXPECT_EQ(catalog.size(), 2U);
    EXPECT_EQ(catalog.name(), "c");
}

TEST(catalog, is_emptied_by_nil) {
    catalog_t catalog("c", {"fr"}, {{"m", message_t()}});
    catalog_t assigned = catalog;
    EXPECT_EQ(&(catalog = types::nil), &catalog);
    EXPECT_EQ(&assigned.assign(types::nil), &assigned);
    EXPECT_TRUE(catalog == types::nil);
    EXPECT_TRUE(assigned == types::nil);
}

TEST(catalog, changes_its_name) {
    catalog_t catalog;
    catalog._name("new");
    EXPECT_EQ(catalog.name(), "new");
}

template <class Text>
class catalog_texts : public testing::Test {};
using all_texts = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(catalog_texts, all_texts);

TYPED_TEST(catalog_texts, find_messages) {
    catalog_t const catalog = two_messages();
    EXPECT_TRUE(catalog.has_message(text_of<TypeParam>("m")));
    EXPECT_FALSE(catalog.has_message(text_of<TypeParam>("M")));
    EXPECT_EQ(text_of_message(catalog.message(text_of<TypeParam>("m"))), "one");
    EXPECT_EQ(text_of_message(catalog.message(text_of<TypeParam>("n"))), "two");
    EXPECT_EQ(&catalog.message(text_of<TypeParam>("x")), &catalog_t::m_nil_message);
}

TYPED_TEST(catalog_texts, find_languages) {
    catalog_t const catalog = two_messages();
    EXPECT_TRUE(catalog.is_language_loaded(text_of<TypeParam>("en")));
    EXPECT_FALSE(catalog.is_language_loaded(text_of<TypeParam>("de")));
}

TEST(catalog, finds_keys_beyond_ascii_in_every_form) {
    catalog_t catalog;
    catalog.message("\xC3\xA9", message("m", "text", "en"));
    EXPECT_TRUE(catalog.has_message(ustring16(1, strings::utf16_unit{0xE9})));
    EXPECT_TRUE(catalog.has_message(ustring32(1, strings::utf32_unit{0xE9})));
}

TEST(catalog, has_a_nil_message) {
    EXPECT_TRUE(catalog_t::m_nil_message == types::nil);
    EXPECT_EQ(text_of_message(catalog_t().message(ustring8("any"))), "");
}

TEST(catalog, inserts_and_overwrites_messages) {
    catalog_t catalog;
    message_t const& stored = catalog.message("k", message("m", "one", "en"));
    EXPECT_EQ(text_of_message(stored), "one");
    EXPECT_EQ(&stored, &catalog.message(ustring8("k")));
    EXPECT_EQ(&catalog.message("k", message("m", "two", "en")), &stored);
    EXPECT_EQ(text_of_message(stored), "two");
    EXPECT_EQ(catalog.size(), 1U);
}

TEST(catalog, takes_a_message_of_its_own) {
    catalog_t catalog = two_messages();
    EXPECT_EQ(text_of_message(catalog.message("copy", catalog.message(ustring8("m")))), "one");
    EXPECT_EQ(text_of_message(catalog.message("m", catalog.message(ustring8("m")))), "one");
}

TEST(catalog, lists_the_languages_of_its_messages_as_they_are_written) {
    catalog_t catalog = two_messages();
    catalog.message("o", message("o", "three", "en"));
    EXPECT_EQ(languages(catalog), (std::vector<ustring8>{"en", "fr-CA"}));
}

TEST(catalog, forgets_its_languages_when_a_message_is_written) {
    catalog_t catalog("c", {"ja"}, {{"m", message("m", "one", "en")}});
    EXPECT_EQ(languages(catalog), std::vector<ustring8>{"ja"});
    EXPECT_FALSE(catalog.is_language_loaded(ustring8("en")));
    catalog.message("m", message("m", "two", "de"));
    EXPECT_EQ(languages(catalog), std::vector<ustring8>{"de"});
    catalog.message("n", message("n", "three", "fr"));
    EXPECT_TRUE(catalog.is_language_loaded(ustring8("fr")));
    EXPECT_TRUE(catalog.is_language_loaded(ustring8("de")));
}

TEST(catalog, takes_one_of_its_languages_as_the_key) {
    char const* const lang = "a language whose name has storage of its own";
    catalog_t catalog("c", {}, {{"m", message("m", "one", lang)}});
    catalog.message(*catalog.languages_begin(), message("n", "two", "fr"));
    EXPECT_EQ(text_of_message(catalog.message(ustring8(lang))), "two");
    EXPECT_EQ(languages(catalog), (std::vector<ustring8>{lang, "fr"}));
}

TEST(catalog, looks_languages_up_with_underscores) {
    catalog_t catalog;
    struct row {
        char const* written;
        char const* asked;
        bool loaded;
    };
    row const rows[] = {
        {"fr_CA", "fr_CA", true},
        {"fr_CA", "fr-CA", true},
        {"fr_CA", "fr.CA", true},
        {"fr-CA", "fr-CA", false},
        {"fr-CA", "fr_CA", false},
        {"fr_CA", "fr", false},
        {"fr", "fr_CA", false},
        {"fr_CA", "fr_ca", false},
        {".", ".", false},
        {"_", ".", true},
        {"_", "-", true},
        {"en", "en", true},
        {"ja_JP_UTF_8", "ja_JP.UTF-8", true},
        {"", "", true},
    };
    for (row const& expected : rows) {
        catalog.message("m", message("m", "text", expected.written));
        EXPECT_EQ(catalog.is_language_loaded(ustring8(expected.asked)), expected.loaded)
            << expected.written << " " << expected.asked;
    }
}

TEST(catalog, has_no_language_without_messages) {
    EXPECT_FALSE(catalog_t().is_language_loaded(ustring8("en")));
    EXPECT_FALSE(catalog_t().is_language_loaded(ustring8("")));
}

TEST(catalog, lists_its_messages_in_byte_order_of_the_keys) {
    catalog_t catalog;
    for (char const* key : {"b", "\xC3\xA9", "B", "", "a"}) {
        catalog.message(key, message(key, key, "en"));
    }
    std::vector<ustring8> keys;
    for (auto const& [key, value] : catalog) {
        EXPECT_EQ(value.name(), key);
        keys.push_back(key);
    }
    EXPECT_EQ(keys, (std::vector<ustring8>{"", "B", "a", "b", "\xC3\xA9"}));
    EXPECT_EQ(catalog.size(), 5U);
}

TEST(catalog, generates_languages_on_top_of_those_that_are_there) {
    struct open_catalog : catalog_t {
        using catalog_t::catalog_t;
        using catalog_t::gen_lang_set;
    };
    open_catalog const catalog("c", {"ja"}, {{"m", message("m", "one", "en")}});
    catalog.gen_lang_set();
    EXPECT_EQ(languages(catalog), (std::vector<ustring8>{"en", "ja"}));
}

} // namespace
