// A catalogue when memory runs out.

#include "veldrin/i18n/catalog.hpp"

#include <cstddef>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "support/allocations.hpp"

namespace {

using namespace VELDRIN_2_18;
using i18n::catalog_t;
using i18n::message_item;
using i18n::message_t;
using strings::ustring8;

// Too long to be stored inside a string object.
ustring8 long_name(char letter) { return ustring8(40, letter); }

message_t message(char letter) {
    message_t made(long_name(letter), {message_item(long_name(letter))}, long_name(letter));
    made._orginal_locale(long_name(letter));
    return made;
}

catalog_t catalog_of(char const* letters) {
    catalog_t catalog;
    for (; *letters != '\0'; ++letters) {
        catalog._name(long_name(*letters));
        catalog.message(long_name(*letters), message(*letters));
    }
    return catalog;
}

// Whole messages: their keys, texts and languages.
std::string shown(catalog_t const& catalog) {
    std::string text = catalog.name();
    for (auto const& [key, message] : catalog) {
        text += ' ' + key + ' ' + message.name() + ' ' + message.as_string({}) + ' ' + message.meta() + ' ' +
                message._orginal_locale();
    }
    return text;
}

// Each run of `change` on a fresh catalogue has memory for one allocation more, until it needs no more. The
// catalogue must be as it was after each run but the last, which must bring it to `changed`.
template <class Change>
void expect_all_or_nothing(catalog_t const& changed, Change change) {
    for (std::size_t available = 0;; ++available) {
        catalog_t catalog = catalog_of("abc");
        if (support::succeeds_with(available, [&] { change(catalog); })) {
            EXPECT_GT(available, 0U);
            EXPECT_EQ(shown(catalog), shown(changed));
            return;
        }
        ASSERT_EQ(shown(catalog), shown(catalog_of("abc")));
    }
}

TEST(catalog, is_as_it_was_when_memory_runs_out) {
    message_t const new_message = message('d');
    catalog_t written = catalog_of("abcd");
    written._name(long_name('c'));
    expect_all_or_nothing(written, [&](catalog_t& catalog) { catalog.message(long_name('d'), new_message); });

    catalog_t overwritten = catalog_of("abc");
    overwritten.message(long_name('b'), new_message);
    expect_all_or_nothing(overwritten,
                          [&](catalog_t& catalog) { catalog.message(long_name('b'), new_message); });

    catalog_t const other = catalog_of("xyb");
    expect_all_or_nothing(other, [&](catalog_t& catalog) { catalog = other; });
}

TEST(catalog, knows_all_of_its_languages_or_none) {
    catalog_t const catalog = catalog_of("abc");
    std::size_t available = 0;
    while (!support::succeeds_with(available, [&] { catalog.languages_begin(); })) {
        ++available;
    }
    EXPECT_GT(available, 0U);
    EXPECT_EQ(std::distance(catalog.languages_begin(), catalog.languages_end()), 3);
}

} // namespace
