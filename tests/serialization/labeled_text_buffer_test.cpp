#include "veldrin/serialization/labeled_text_buffer.hpp"

#include <climits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <typeinfo>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/files.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"

namespace {

using namespace VELDRIN_2_18;
using namespace std::literals;
using serialization::labeled_serialize_buffer;
using serialization::labeled_text_buffer;
using types::variant;

// A string as a rendering holds it.
std::string framed(std::string const& text) { return std::to_string(text.size()) + '\1' + text + '\1'; }

template <class... Texts>
std::string framed(std::string const& first, Texts const&... others) {
    return framed(first) + framed(others...);
}

labeled_text_buffer& group_of(labeled_text_buffer& buffer, std::string const& label) {
    return dynamic_cast<labeled_text_buffer&>(*buffer.retrieve_group(label));
}

labeled_text_buffer& new_group(labeled_text_buffer& buffer, std::string const& label) {
    return dynamic_cast<labeled_text_buffer&>(*buffer.create_group(label));
}

std::string text_of(labeled_serialize_buffer& buffer, std::string const& label) {
    return buffer.retrieve_value(label).as_string();
}

// ---- Members -------------------------------------------------------------------------------------------

TEST(labeled_text_buffer, starts_empty) {
    labeled_text_buffer const buffer;
    EXPECT_TRUE(buffer.is_empty());
    EXPECT_EQ(buffer.as_str(), "");
    EXPECT_FALSE(buffer.has_label(""));
    EXPECT_FALSE(buffer.has_value(""));
    EXPECT_FALSE(buffer.has_group(""));
}

TEST(labeled_text_buffer, adds_and_replaces_values) {
    labeled_text_buffer buffer;
    EXPECT_EQ(buffer.add_value("a", 1), labeled_text_buffer::value_added);
    EXPECT_EQ(buffer.add_value("a", "two"), labeled_text_buffer::value_replaced);
    EXPECT_EQ(buffer.add_value("b", 3), labeled_text_buffer::value_added);
    EXPECT_EQ(text_of(buffer, "a"), "two");
    EXPECT_EQ(text_of(buffer, "b"), "3");
    EXPECT_FALSE(buffer.is_empty());
}

TEST(labeled_text_buffer, keeps_the_types_of_its_values) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    buffer.add_value("b", 2.5);
    EXPECT_EQ(buffer.retrieve_value("a").type(), typeid(int));
    EXPECT_EQ(buffer.retrieve_value("b").type(), typeid(double));
}

TEST(labeled_text_buffer, counts_a_nil_value_as_none) {
    labeled_text_buffer buffer;
    EXPECT_EQ(buffer.add_value("a", types::nil), labeled_text_buffer::value_added);
    EXPECT_TRUE(buffer.has_label("a"));
    EXPECT_FALSE(buffer.has_value("a"));
    EXPECT_EQ(buffer.add_value("a", types::nil), labeled_text_buffer::value_added);
    EXPECT_EQ(buffer.add_value("a", 1), labeled_text_buffer::value_added);
    EXPECT_TRUE(buffer.has_value("a"));
    EXPECT_EQ(buffer.add_value("a", types::nil), labeled_text_buffer::value_replaced);
    EXPECT_FALSE(buffer.has_value("a"));
    EXPECT_TRUE(buffer.retrieve_value("a") == types::nil);
    EXPECT_EQ(buffer.add_value("a", 2), labeled_text_buffer::value_added);
}

TEST(labeled_text_buffer, adds_the_first_value_to_a_label_that_has_a_group) {
    labeled_text_buffer buffer;
    buffer.create_group("a")->add_value("b", 1);
    EXPECT_EQ(buffer.add_value("a", 2), labeled_text_buffer::value_added);
    EXPECT_EQ(buffer.add_value("a", 3), labeled_text_buffer::value_replaced);
    EXPECT_EQ(text_of(*buffer.retrieve_group("a"), "b"), "1");
}

TEST(labeled_text_buffer, answers_for_unknown_labels) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    EXPECT_FALSE(buffer.has_label("b"));
    EXPECT_FALSE(buffer.has_value("b"));
    EXPECT_FALSE(buffer.has_group("b"));
    EXPECT_TRUE(buffer.retrieve_value("b") == types::nil);
    EXPECT_EQ(buffer.retrieve_group("b"), nullptr);
    EXPECT_EQ(std::as_const(buffer).retrieve_group("b"), nullptr);
    EXPECT_FALSE(buffer.has_label("b"));
}

TEST(labeled_text_buffer, trims_labels_on_entry_and_nowhere_else) {
    struct {
        std::string given;
        std::string kept;
    } const cases[] = {
        {"  a ", "a"},        {"\n\r\t a\t\r\n ", "a"}, {" a \t b ", "a \t b"},
        {"a", "a"},           {" \n\r\t", ""},          {"", ""},
        {"\va\f", "\va\f"},   {" a\0 "s, "a\0"s},       {"\0 a"s, "\0 a"s},
        {"\xA0 a", "\xA0 a"},
    };
    for (auto const& [given, kept] : cases) {
        SCOPED_TRACE(testing::PrintToString(given));
        labeled_text_buffer values;
        values.add_value(given, 1);
        EXPECT_EQ(values.as_str(), framed(kept, "1"));
        EXPECT_TRUE(values.has_label(kept));
        EXPECT_EQ(text_of(values, kept), "1");

        labeled_text_buffer groups;
        groups.create_group(given)->add_value("x", 1);
        EXPECT_EQ(groups.as_str(), framed(kept + ' ', framed("x", "1")));
        EXPECT_TRUE(groups.has_group(kept));

        if (given != kept) {
            EXPECT_FALSE(values.has_label(given));
            EXPECT_FALSE(values.has_value(given));
            EXPECT_TRUE(values.retrieve_value(given) == types::nil);
            EXPECT_EQ(values.retrieve_group(given), nullptr);
            EXPECT_FALSE(groups.has_group(given));
            EXPECT_EQ(std::as_const(groups).retrieve_group(given), nullptr);
        }
        EXPECT_EQ(values.add_value(given, 2), labeled_text_buffer::value_replaced);
        EXPECT_EQ(groups.create_group(given), groups.retrieve_group(kept));
    }
}

// ---- Groups --------------------------------------------------------------------------------------------

TEST(labeled_text_buffer, has_a_group_once_it_has_members) {
    labeled_text_buffer buffer;
    labeled_serialize_buffer* const group = buffer.create_group("a");
    ASSERT_NE(group, nullptr);
    EXPECT_TRUE(group->is_empty());
    EXPECT_TRUE(buffer.has_label("a"));
    EXPECT_FALSE(buffer.has_value("a"));
    EXPECT_FALSE(buffer.has_group("a"));
    group->add_value("b", types::nil);
    EXPECT_TRUE(buffer.has_group("a"));
    EXPECT_EQ(buffer.retrieve_group("a"), group);
    EXPECT_EQ(std::as_const(buffer).retrieve_group("a"), group);
}

TEST(labeled_text_buffer, empties_a_group_that_is_created_again) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    labeled_serialize_buffer* const group = buffer.create_group("a");
    group->add_value("b", 2);
    group->create_group("c")->add_value("d", 3);
    EXPECT_EQ(buffer.create_group("a"), group);
    EXPECT_TRUE(group->is_empty());
    EXPECT_FALSE(buffer.has_group("a"));
    EXPECT_EQ(text_of(buffer, "a"), "1");
}

TEST(labeled_text_buffer, gives_an_empty_group_for_a_label_with_a_value_only) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    EXPECT_FALSE(buffer.has_group("a"));
    ASSERT_NE(buffer.retrieve_group("a"), nullptr);
    EXPECT_TRUE(buffer.retrieve_group("a")->is_empty());
    buffer.retrieve_group("a")->add_value("b", 2);
    EXPECT_TRUE(buffer.has_group("a"));
}

TEST(labeled_text_buffer, keeps_its_groups_in_their_place) {
    labeled_text_buffer buffer;
    labeled_serialize_buffer* const group = buffer.create_group("m");
    for (char label = 'a'; label <= 'z'; ++label) {
        buffer.add_value(std::string(1, label), label - 'a');
    }
    EXPECT_EQ(buffer.retrieve_group("m"), group);
    EXPECT_EQ(text_of(buffer, "m"), "12");
}

// ---- Rendering -----------------------------------------------------------------------------------------

TEST(labeled_text_buffer, renders_each_kind_of_member) {
    std::string const group_text = framed("x", "1");
    struct {
        variant value;
        bool has_members;
        std::string text;
    } const cases[] = {
        {5, false, framed("L", "5")},
        {"", false, framed("L", "")},
        {types::nil, false, framed("L", "")},
        {types::nil, true, framed("L ", group_text)},
        {5, true, framed("L", "5", "L ", group_text)},
        {"", true, framed("L", "", "L ", group_text)},
        {true, false, framed("L", "1")},
        {-2.5, false, framed("L", "-2.5")},
        {"a\1b\0c\n"s, false, framed("L", "a\1b\0c\n"s)},
    };
    for (auto const& [value, has_members, text] : cases) {
        labeled_text_buffer buffer;
        buffer.add_value("L", value);
        labeled_serialize_buffer* const group = buffer.create_group("L");
        if (has_members) {
            group->add_value("x", 1);
        }
        EXPECT_EQ(buffer.as_str(), text);
    }
}

TEST(labeled_text_buffer, renders_its_members_in_byte_order_of_their_labels) {
    labeled_text_buffer buffer;
    for (char const* const label : {"\xC3\xA4", "b", "a b", "a", "B", "10", "9", "a\x01"}) {
        buffer.add_value(label, "");
    }
    EXPECT_EQ(buffer.as_str(), framed("10", "", "9", "", "B", "", "a", "", "a\x01", "", "a b", "", "b", "") +
                                   framed("\xC3\xA4", ""));
}

TEST(labeled_text_buffer, renders_anew_at_every_call) {
    labeled_text_buffer buffer;
    labeled_serialize_buffer* const group = buffer.create_group("g");
    std::string const& text = buffer.as_str();
    EXPECT_EQ(text, framed("g", ""));
    group->add_value("x", 1);
    EXPECT_EQ(text, framed("g", ""));
    EXPECT_EQ(&buffer.as_str(), &text);
    EXPECT_EQ(text, framed("g ", framed("x", "1")));
    EXPECT_EQ(group->as_str(), framed("x", "1"));
    EXPECT_EQ(text, framed("g ", framed("x", "1")));
}

// ---- Reading back --------------------------------------------------------------------------------------

TEST(labeled_text_buffer, reads_its_rendering_with_all_values_as_text) {
    labeled_text_buffer buffer;
    buffer.add_value("number", 640);
    buffer.add_value("nothing", types::nil);
    buffer.add_value("bytes", "a\1b\0c\n "s);
    buffer.create_group("empty");
    labeled_serialize_buffer* const group = buffer.create_group("number");
    group->add_value("real", -0.5);
    group->create_group("deeper")->create_group("deepest")->add_value("flag", true);

    labeled_text_buffer read(buffer.as_str());
    EXPECT_EQ(read.as_str(), buffer.as_str());
    EXPECT_EQ(read.retrieve_value("number").type(), typeid(std::string));
    EXPECT_EQ(text_of(read, "number"), "640");
    EXPECT_EQ(text_of(read, "bytes"), "a\1b\0c\n "s);
    for (char const* const label : {"nothing", "empty"}) {
        EXPECT_EQ(read.retrieve_value(label).type(), typeid(std::string));
        EXPECT_EQ(text_of(read, label), "");
        EXPECT_FALSE(read.has_group(label));
    }
    labeled_serialize_buffer* const read_group = read.retrieve_group("number");
    EXPECT_EQ(text_of(*read_group, "real"), "-0.5");
    EXPECT_FALSE(read_group->has_value("deeper"));
    labeled_serialize_buffer* const deepest = read_group->retrieve_group("deeper")->retrieve_group("deepest");
    EXPECT_EQ(text_of(*deepest, "flag"), "1");
}

TEST(labeled_text_buffer, reads_the_two_records_of_a_label_in_either_order) {
    std::string const value = framed("a", "1");
    std::string const group = framed("a ", framed("b", "2"));
    for (std::string const& text : {value + group, group + value}) {
        labeled_text_buffer buffer(text);
        EXPECT_EQ(buffer.as_str(), value + group);
    }
}

TEST(labeled_text_buffer, reads_the_last_of_two_records_of_a_kind) {
    labeled_text_buffer buffer(framed("a", "1", "a", "2", "b ", framed("c", "3"), "b ", framed("d", "4")));
    EXPECT_EQ(buffer.as_str(), framed("a", "2", "b ", framed("d", "4")));
    buffer = framed("b ", framed("c", "3"), "b ", "");
    EXPECT_TRUE(buffer.has_label("b"));
    EXPECT_FALSE(buffer.has_group("b"));
}

TEST(labeled_text_buffer, trims_the_labels_that_it_reads) {
    labeled_text_buffer buffer(framed(" a\n", "1", "\tb \t ", framed("c", "2"), "\n", "3"));
    EXPECT_EQ(text_of(buffer, "a"), "1");
    EXPECT_EQ(text_of(*buffer.retrieve_group("b"), "c"), "2");
    EXPECT_EQ(text_of(buffer, ""), "3");
}

TEST(labeled_text_buffer, reads_back_empty_with_a_value_under_the_empty_label) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    buffer.create_group("g")->add_value("b", 2);
    buffer.add_value(" \t", 3);
    EXPECT_TRUE(buffer.has_label(""));
    EXPECT_EQ(buffer.as_str(), framed("", "3", "a", "1", "g ", framed("b", "2")));
    EXPECT_TRUE(labeled_text_buffer(buffer.as_str()).is_empty());

    buffer.create_group("")->add_value("c", 4);
    EXPECT_TRUE(labeled_text_buffer(buffer.as_str()).is_empty());
    buffer.add_value("", types::nil);
    buffer.create_group("");
    EXPECT_TRUE(labeled_text_buffer(buffer.as_str()).is_empty());
}

TEST(labeled_text_buffer, reads_back_a_mere_group_under_the_empty_label) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    buffer.create_group("")->add_value("b", 2);
    EXPECT_EQ(buffer.as_str(), framed(" ", framed("b", "2"), "a", "1"));
    EXPECT_EQ(labeled_text_buffer(buffer.as_str()).as_str(), buffer.as_str());
}

TEST(labeled_text_buffer, reads_malformed_text_as_far_as_it_makes_sense) {
    std::string const good = framed("a", "1");
    struct {
        std::string text;
        std::string read;
    } const cases[] = {
        // Nothing, and what is no rendering at all.
        {"", ""},
        {"abc", ""},
        {"\1", ""},
        {"\1\1\1\1", ""},
        {"5", ""},
        {"0", ""},
        // An empty label ends the reading.
        {good + framed("", "2", "c", "3"), good},
        {good + "x\1" + framed("c", "3"), good},
        // So does a label with nothing behind it, which stays with an empty text or group.
        {good + framed("b"), good + framed("b", "")},
        {good + framed("b "), good + framed("b", "")},
        {good + framed("a"), framed("a", "")},
        {good + framed("a "), good},
        {good + "1\1b", good + framed("b", "")},
        {good + "9\1b", good + framed("b", "")},
        // A string that is cut off gives what is there.
        {good + framed("b") + "9\1xyz", good + framed("b", "xyz")},
        {good + framed("b") + "3\1xyz", good + framed("b", "xyz")},
        {good + framed("b") + "0\1", good + framed("b", "")},
        {good + framed("b ") + "99\1" + framed("x", "2"), good + framed("b ", framed("x", "2"))},
        // A length with nothing behind it, not even its end.
        {good + "1", good},
        {good + "0", good},
        {good + framed("b") + "1", good},
        {good + framed("b") + "0", good},
        {good + framed("b") + "xyz", good},
        {good + framed("b ") + "1", good + framed("b", "")},
        {good + framed("b ") + "0", good + framed("b", "")},
        // A negative length takes all that is left,
        {good + "-1\1" + good, framed(good, "") + good},
        {good + framed("b") + "-1\1" + good, good + framed("b", good)},
        {good + framed("b ") + "-1\1" + good, good + framed("b ", good)},
        {good + framed("b") + "-3\1" + good, good + framed("b", good)},
        {good + framed("b") + "-1\1xy", good + framed("b", "xy")},
        {good + framed("b") + "-1\1xyz", good + framed("b", "xyz")},
        // however many digits the length has,
        {"-00000001\1" + framed("b", "c"), framed(framed("b", "c"), "")},
        {framed("b") + "-0x0000000001\1" + framed("c", "d"), framed("b", framed("c", "d"))},
        // or leads back to where it stands, or further, or in front of the data.
        {good + "-4\1" + good, good},
        {good + "-5\1" + good, good},
        {good + framed("b") + "-4\1" + good, good},
        {good + framed("b") + "-7\1" + good, good},
        {good + framed("b ") + "-4\1" + good, good + framed("b", "")},
        {"-100\1b", framed("b", "")},
        {framed("b") + "-100\1c", framed("b", "c")},
        // Lengths at the ends of their range, and in other bases.
        {"2147483647\1b", framed("b", "")},
        {"9999999999\1b", framed("b", "")},
        {"-2147483648\1b", framed("b", "")},
        {"0x1\1b\1"
         "01\1"
         "2\1",
         framed("b", "2")},
        // The closing bytes are stepped over, whatever they are.
        {"1\1bX1\1cX", framed("b", "c")},
    };
    for (auto const& [text, read] : cases) {
        SCOPED_TRACE(testing::PrintToString(text));
        labeled_text_buffer buffer;
        buffer.add_value("before", 1);
        EXPECT_NO_THROW(buffer.assign(text));
        EXPECT_EQ(buffer.as_str(), read);
    }
}

TEST(labeled_text_buffer, reads_malformed_groups_as_it_reads_a_buffer) {
    labeled_text_buffer buffer(
        framed("a ", "5", "b ", framed("c", "1", "", "2"), "d ", framed("e "), "f", "3"));
    EXPECT_EQ(buffer.as_str(), framed("a", "", "b ", framed("c", "1"), "d ", framed("e", ""), "f", "3"));
}

TEST(labeled_text_buffer, reads_no_bytes_over_and_over) {
    // Each negative length stands for all the bytes behind it: read again as labels of groups within groups,
    // they would double with every one.
    std::string lengths;
    std::string groups;
    for (int count = 0; count < 10000; ++count) {
        lengths += "-1\1";
        groups += framed("g ") + "-1\1";
    }
    for (std::string const& text : {lengths, lengths + ' ', framed("a ", lengths + ' '), groups}) {
        labeled_text_buffer const buffer(text);
        EXPECT_FALSE(buffer.is_empty());
        EXPECT_LE(buffer.as_str().size(), text.size() + 20);
    }
}

std::string nested(int depth) {
    std::string text = framed("x", "1");
    for (; depth > 0; --depth) {
        text = framed("g ", text);
    }
    return text;
}

TEST(labeled_text_buffer, reads_groups_1000_deep) {
    labeled_text_buffer const buffer(nested(1000));
    EXPECT_EQ(buffer.as_str(), nested(1000));
    labeled_text_buffer const copy(buffer);
    EXPECT_EQ(copy.as_str(), nested(1000));
}

TEST(labeled_text_buffer, leaves_a_group_that_is_nested_deeper_empty) {
    for (int const depth : {1001, 1002, 3000}) {
        labeled_text_buffer const buffer(nested(depth));
        labeled_serialize_buffer const* group = &buffer;
        for (int level = 0; level < 1000; ++level) {
            ASSERT_TRUE(group->has_group("g"));
            group = group->retrieve_group("g");
        }
        EXPECT_TRUE(group->has_label("g"));
        EXPECT_FALSE(group->has_group("g"));
    }
}

TEST(labeled_text_buffer, reads_every_beginning_of_a_rendering) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 12);
    buffer.create_group("b")->add_value("c", "text");
    buffer.add_value("b", 3);
    std::string const text = buffer.as_str();
    for (std::size_t length = 0; length <= text.size(); ++length) {
        labeled_text_buffer const cut(text.substr(0, length));
        // At 5 the length of the value has lost its end.
        EXPECT_EQ(cut.has_label("a"), length > 2 && length != 5) << length;
        EXPECT_LE(cut.as_str().size(), text.size() + 2) << length;
    }
}

// ---- Construction and assignment -----------------------------------------------------------------------

TEST(labeled_text_buffer, takes_a_text_of_a_given_size) {
    std::string const text = framed("a", "1", "b", "2");
    labeled_text_buffer buffer;
    labeled_serialize_buffer const* const self = &buffer;
    EXPECT_EQ(&buffer.assign(text.data(), 8), self);
    EXPECT_EQ(buffer.as_str(), framed("a", "1"));
    EXPECT_EQ(&buffer.assign(text), self);
    EXPECT_EQ(buffer.as_str(), text);
    for (int const size : {0, -1, INT_MIN}) {
        buffer.assign(text);
        buffer.assign(text.data(), size);
        EXPECT_TRUE(buffer.is_empty());
    }
    buffer.assign(text);
    buffer.assign(nullptr, 0);
    EXPECT_TRUE(buffer.is_empty());
}

TEST(labeled_text_buffer, loses_what_it_had_when_a_text_is_assigned) {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    buffer.create_group("a")->add_value("b", 2);
    buffer = framed("a", "3");
    EXPECT_EQ(buffer.as_str(), framed("a", "3"));
    buffer = std::string();
    EXPECT_TRUE(buffer.is_empty());
}

labeled_text_buffer sample() {
    labeled_text_buffer buffer;
    buffer.add_value("a", 1);
    buffer.create_group("g")->add_value("b", 2);
    return buffer;
}

TEST(labeled_text_buffer, copies_deeply_and_keeps_the_types) {
    labeled_text_buffer original = sample();
    labeled_text_buffer constructed(original);
    labeled_text_buffer assigned(framed("x", "1"));
    EXPECT_EQ(&(assigned = original), &assigned);
    labeled_text_buffer named(framed("x", "1"));
    EXPECT_EQ(&named.assign(original), &named);
    std::string const text = original.as_str();
    original.add_value("a", 5);
    original.retrieve_group("g")->add_value("b", 6);

    for (labeled_text_buffer* const copy : {&constructed, &assigned, &named}) {
        EXPECT_EQ(copy->as_str(), text);
        EXPECT_EQ(copy->retrieve_value("a").type(), typeid(int));
        EXPECT_EQ(copy->retrieve_group("g")->retrieve_value("b").type(), typeid(int));
    }
}

TEST(labeled_text_buffer, takes_another_kind_of_buffer_as_its_text) {
    labeled_text_buffer const original = sample();
    labeled_serialize_buffer const& other = original;
    labeled_text_buffer named;
    EXPECT_EQ(&named.assign(other), &static_cast<labeled_serialize_buffer&>(named));
    labeled_text_buffer assigned;
    assigned = other;
    for (labeled_text_buffer* const copy : {&named, &assigned}) {
        EXPECT_EQ(copy->as_str(), original.as_str());
        EXPECT_EQ(copy->retrieve_value("a").type(), typeid(std::string));
    }
}

TEST(labeled_text_buffer, stays_as_it_is_when_assigned_to_itself) {
    labeled_text_buffer buffer = sample();
    labeled_serialize_buffer const* const group = buffer.retrieve_group("g");
    labeled_text_buffer const& self = buffer;
    buffer = self;
    EXPECT_EQ(buffer.retrieve_group("g"), group);
    buffer.assign(self);
    EXPECT_EQ(buffer.retrieve_group("g"), group);
    EXPECT_EQ(buffer.as_str(), sample().as_str());
    EXPECT_EQ(buffer.retrieve_value("a").type(), typeid(int));

    buffer = buffer.as_str();
    EXPECT_EQ(buffer.as_str(), sample().as_str());
    EXPECT_EQ(buffer.retrieve_value("a").type(), typeid(std::string));
}

TEST(labeled_text_buffer, takes_its_own_group_and_is_taken_by_it) {
    labeled_text_buffer buffer = sample();
    buffer = group_of(buffer, "g");
    EXPECT_EQ(buffer.as_str(), framed("b", "2"));

    buffer = sample();
    buffer = buffer.retrieve_group("g")->as_str();
    EXPECT_EQ(buffer.as_str(), framed("b", "2"));

    buffer = sample();
    group_of(buffer, "g") = buffer;
    EXPECT_EQ(buffer.as_str(), framed("a", "1", "g ", sample().as_str()));
}

TEST(labeled_text_buffer, creates_and_clones_counted_objects_on_the_heap) {
    using pointer = memory::pointers::rc_pointer<labeled_serialize_buffer>;
    labeled_text_buffer buffer = sample();
    pointer const created(buffer.create());
    EXPECT_TRUE(created->is_created_dynamic());
    EXPECT_TRUE(created->is_empty());
    EXPECT_NE(dynamic_cast<labeled_text_buffer*>(&*created), nullptr);
    pointer const cloned(buffer.clone());
    EXPECT_TRUE(cloned->is_created_dynamic());
    buffer.retrieve_group("g")->add_value("b", 6);
    EXPECT_EQ(cloned->as_str(), sample().as_str());
    EXPECT_EQ(cloned->retrieve_value("a").type(), typeid(int));
    std::unique_ptr<labeled_serialize_buffer> const owned(buffer.clone());
    EXPECT_EQ(owned->as_str(), buffer.as_str());
    // A pointer to what is not on the heap deletes nothing.
    pointer const to_group(buffer.retrieve_group("g"));
    EXPECT_EQ(text_of(*to_group, "b"), "6");
}

// A copy is an object of its own, whose last pointer must not take it for one on the heap, nor the other way.
TEST(labeled_text_buffer, keeps_its_own_count_and_flag) {
    std::unique_ptr<labeled_serialize_buffer> const heap(sample().clone());
    auto const& dynamic = dynamic_cast<labeled_text_buffer const&>(*heap);
    EXPECT_FALSE(heap->retrieve_group("g")->is_created_dynamic());
    labeled_text_buffer copy(dynamic);
    EXPECT_FALSE(copy.is_created_dynamic());
    copy = dynamic;
    EXPECT_FALSE(copy.is_created_dynamic());
    static_cast<labeled_serialize_buffer&>(copy) = dynamic;
    EXPECT_FALSE(copy.is_created_dynamic());
    group_of(copy, "g") = dynamic;
    EXPECT_FALSE(copy.retrieve_group("g")->is_created_dynamic());
    copy.overlay(dynamic);
    EXPECT_FALSE(copy.is_created_dynamic());
    *heap = copy;
    EXPECT_TRUE(heap->is_created_dynamic());
}

// ---- Overlay -------------------------------------------------------------------------------------------

TEST(labeled_text_buffer, overlays_values_and_groups) {
    // What both buffers hold under one label: no entry, or a value and a group with one member.
    struct side {
        bool has_entry;
        variant value;
        char const* member;
    };
    side const none = {false, types::nil, nullptr};
    side const nothing = {true, types::nil, nullptr};
    side const value = {true, 1, nullptr};
    side const other_value = {true, 2, nullptr};
    side const group = {true, types::nil, "x"};
    side const other_group = {true, types::nil, "y"};
    side const both = {true, 1, "x"};
    side const other_both = {true, 2, "y"};
    std::string const x = framed("x", "v");
    std::string const y = framed("y", "v");
    struct {
        side here;
        side there;
        std::string result;
    } const cases[] = {
        {none, none, ""},
        {none, nothing, framed("L", "")},
        {none, value, framed("L", "1")},
        {none, both, framed("L", "1", "L ", x)},
        {value, none, framed("L", "1")},
        {both, none, framed("L", "1", "L ", x)},
        // Without members in the other's group its value wins, even if it is nil.
        {value, other_value, framed("L", "2")},
        {value, nothing, framed("L", "")},
        {nothing, value, framed("L", "1")},
        {both, other_value, framed("L", "2", "L ", x)},
        {both, nothing, framed("L ", x)},
        {group, value, framed("L", "1", "L ", x)},
        // With members, nil does not win, and the groups are merged.
        {value, group, framed("L", "1", "L ", x)},
        {value, other_both, framed("L", "2", "L ", y)},
        {nothing, both, framed("L", "1", "L ", x)},
        {both, other_group, framed("L", "1", "L ", x + y)},
        {both, other_both, framed("L", "2", "L ", x + y)},
        {group, other_group, framed("L ", x + y)},
        {group, group, framed("L ", x)},
    };
    auto const fill = [](labeled_text_buffer& buffer, side const& from) {
        if (from.has_entry) {
            buffer.add_value("L", from.value);
        }
        if (from.member != nullptr) {
            buffer.create_group("L")->add_value(from.member, "v");
        }
    };
    int row = 0;
    for (auto const& [here, there, result] : cases) {
        SCOPED_TRACE(row++);
        labeled_text_buffer target;
        fill(target, here);
        labeled_text_buffer source;
        fill(source, there);
        std::string const source_text = source.as_str();
        target.overlay(source);
        EXPECT_EQ(target.as_str(), result);
        EXPECT_EQ(source.as_str(), source_text);
    }
}

TEST(labeled_text_buffer, overlays_a_nil_value) {
    labeled_text_buffer target;
    target.add_value("a", 1);
    labeled_text_buffer source;
    source.add_value("a", types::nil);
    target.overlay(source);
    EXPECT_TRUE(target.has_label("a"));
    EXPECT_FALSE(target.has_value("a"));
}

TEST(labeled_text_buffer, overlays_with_copies_that_keep_their_types) {
    labeled_text_buffer source = sample();
    labeled_text_buffer target;
    target.add_value("only here", 3);
    target.overlay(source);
    EXPECT_EQ(target.as_str(), sample().as_str() + framed("only here", "3"));
    EXPECT_EQ(target.retrieve_group("g")->retrieve_value("b").type(), typeid(int));
    source.retrieve_group("g")->add_value("b", 4);
    EXPECT_EQ(text_of(*target.retrieve_group("g"), "b"), "2");
}

TEST(labeled_text_buffer, overlays_groups_at_any_depth) {
    labeled_text_buffer target;
    new_group(new_group(target, "g"), "h").add_value("here", 1);
    target.retrieve_group("g")->add_value("both", 2);
    labeled_serialize_buffer const* const inner = target.retrieve_group("g")->retrieve_group("h");
    labeled_text_buffer source;
    new_group(new_group(source, "g"), "h").add_value("there", 3);
    source.retrieve_group("g")->add_value("both", 4);
    target.overlay(source);
    EXPECT_EQ(target.as_str(), framed("g ", framed("both", "4", "h ", framed("here", "1", "there", "3"))));
    EXPECT_EQ(target.retrieve_group("g")->retrieve_group("h"), inner);
}

TEST(labeled_text_buffer, overlays_itself_its_group_and_its_parent) {
    labeled_text_buffer buffer = sample();
    buffer.overlay(std::as_const(buffer));
    EXPECT_EQ(buffer.as_str(), sample().as_str());

    group_of(buffer, "g").add_value("a", 5);
    buffer.overlay(group_of(buffer, "g"));
    std::string const group_text = framed("a", "5", "b", "2");
    EXPECT_EQ(buffer.as_str(), framed("a", "5", "b", "2", "g ", group_text));

    buffer = sample();
    group_of(buffer, "g").overlay(buffer);
    EXPECT_EQ(buffer.as_str(), framed("a", "1", "g ", framed("a", "1", "b", "2", "g ", framed("b", "2"))));
}

// ---- Generated buffers ---------------------------------------------------------------------------------

class generator {
public:
    explicit generator(unsigned int seed) : m_random(seed) {}

    labeled_text_buffer buffer(int depth = 0) {
        labeled_text_buffer result;
        for (std::size_t count = below(5); count > 0; --count) {
            std::string const label = 'l' + bytes(3) + 'l';
            if (below(3) != 0) {
                result.add_value(label, value());
            }
            if (depth < 4 && below(3) == 0) {
                new_group(result, label) = buffer(depth + 1);
            }
        }
        return result;
    }

private:
    std::size_t below(std::size_t limit) { return m_random() % limit; }

    std::string bytes(std::size_t limit) {
        std::string result(below(limit), '\0');
        for (char& byte : result) {
            byte = "\1\0 ab0\n\xFF"[below(8)];
        }
        return result;
    }

    variant value() {
        switch (below(4)) {
        case 0:
            return static_cast<int>(m_random());
        case 1:
            return below(2) == 0;
        case 2:
            return types::nil;
        default:
            return bytes(12);
        }
    }

    std::mt19937 m_random;
};

TEST(labeled_text_buffer, reads_back_generated_buffers) {
    for (unsigned int seed = 0; seed < 2000; ++seed) {
        labeled_text_buffer const buffer = generator(seed).buffer();
        ASSERT_EQ(labeled_text_buffer(buffer.as_str()).as_str(), buffer.as_str()) << seed;
    }
}

TEST(labeled_text_buffer, overlays_generated_buffers_twice_as_once) {
    for (unsigned int seed = 0; seed < 2000; ++seed) {
        labeled_text_buffer target = generator(seed).buffer();
        labeled_text_buffer const source = generator(seed + 5000).buffer();
        target.overlay(source);
        std::string const once = target.as_str();
        target.overlay(source);
        ASSERT_EQ(target.as_str(), once) << seed;
        labeled_text_buffer empty;
        empty.overlay(source);
        ASSERT_EQ(empty.as_str(), source.as_str()) << seed;
    }
}

// ---- The committed byte form ---------------------------------------------------------------------------

TEST(labeled_text_buffer, has_the_byte_form_that_it_always_had) {
    labeled_text_buffer buffer;
    buffer.add_value("title", "Log\n\1\0end"s);
    buffer.add_value("\xC3\xA4", strings::ustring8("\xE2\x82\xAC"));
    buffer.add_value("count", 640);
    buffer.add_value("greatest", 18446744073709551615ULL);
    buffer.add_value("real", -0.5);
    buffer.add_value("flag", true);
    buffer.add_value("nothing", types::nil);
    buffer.create_group("no members");
    buffer.add_value("both", "value");
    buffer.create_group("both")->add_value("inner", 1);
    labeled_serialize_buffer* const group = buffer.create_group("group");
    group->add_value("a b", "");
    group->create_group("deeper")->create_group("deepest")->add_value("x", 2);

    std::string const committed =
        support::bytes_of(VELDRIN_TEST_DATA "/serialization/labeled_text_buffer.bin");
    ASSERT_FALSE(committed.empty());
    EXPECT_EQ(buffer.as_str(), committed);
    EXPECT_EQ(labeled_text_buffer(committed).as_str(), committed);
}

} // namespace
