#include "veldrin/config/config_manager.hpp"

#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/argument_vector.hpp"
#include "support/config_items.hpp"
#include "support/files.hpp"
#include "support/temporary_working_directory.hpp"
#include "veldrin/config/module_config_dispatch.hpp"
#include "veldrin/config/std_config_dispatch.hpp"
#include "veldrin/config/user_item.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::base_config_item;
using config::config_dispatch;
using config::config_manager;
using config::item_list;
using config::module_config_dispatch;
using config::std_config_dispatch;
using config::user_item;
using strings::ustring8;
using support::argument_vector;
using support::dump_of;
using support::shown;
using types::variant;
using held_item = memory::pointers::rc_pointer<base_config_item>;
using texts = std::vector<std::string>;

static_assert(std::has_virtual_destructor_v<config_manager>);

struct write {
    char const* key;
    variant value;
    unsigned int flags = 0;
};

// What one item holds.
using writes = std::vector<write>;

// Sets up items of the test's own and records what it is told.
class recording_dispatch : public config_dispatch {
public:
    explicit recording_dispatch(std::vector<writes> contents = {}) : m_contents(std::move(contents)) {}

    void setup(item_list& items) const override {
        *m_record += "setup" + std::to_string(items.size()) + " ";
        for (writes const& content : m_contents) {
            held_item const item(user_item().clone());
            for (write const& write : content) {
                item->set(write.key, write.value, write.flags);
            }
            items.push_back(item);
        }
    }
    void load(item_list& items) const override { *m_record += "load" + std::to_string(items.size()) + " "; }
    void unload(item_list& items) const override {
        *m_record += "unload" + std::to_string(items.size()) + " ";
    }
    void save(item_list& items) const override { *m_record += "save" + std::to_string(items.size()) + " "; }
    config_dispatch* clone() const override { return new recording_dispatch(*this); }

    std::string const& record() const { return *m_record; }

    // How many clones there are.
    long clones() const { return m_record.use_count() - 1; }

private:
    std::vector<writes> m_contents;
    std::shared_ptr<std::string> m_record = std::make_shared<std::string>();
};

config_manager manager_of(std::vector<writes> const& contents) {
    config_manager manager;
    manager.init(recording_dispatch(contents));
    return manager;
}

std::string shown(variant const& value) {
    return value == types::nil ? "nil" : std::string(value.as_string());
}

std::string array_of(config_manager const& manager, char const* key) {
    std::vector<variant> values;
    manager.get_array(key, values);
    std::string text;
    for (variant const& value : values) {
        text += "[" + shown(value) + "]";
    }
    return text;
}

std::string pairs_of(config_manager const& manager, char const* key, bool recursive) {
    std::vector<std::pair<ustring8, variant>> pairs;
    manager.get_key_value_array(key, pairs, recursive);
    std::string text;
    for (auto const& [name, value] : pairs) {
        text += (text.empty() ? "" : " ") + name + "=" + shown(value);
    }
    return text;
}

variant const nil_value;

// ----------------------------------------------------------------------------------------------------------
// States
// ----------------------------------------------------------------------------------------------------------

TEST(config_manager, knows_nothing_before_it_is_set_up) {
    config_manager manager;
    EXPECT_FALSE(manager.load());
    EXPECT_FALSE(manager.unload());
    EXPECT_FALSE(manager.save());
    EXPECT_EQ(manager.get_value("a", 5).as_int(), 5);
    EXPECT_FALSE(manager.value_exist("a"));
    EXPECT_FALSE(manager.is_array("a"));
    EXPECT_EQ(array_of(manager, "a"), "");
    EXPECT_EQ(pairs_of(manager, "a", true), "");
    EXPECT_TRUE(manager.get_config_item("command line").is_null());
    EXPECT_EQ(dump_of(manager), "config_manager:\n\nno more config_items!\n\nending output\n");
}

TEST(config_manager, hands_its_items_to_its_clone_of_the_dispatch) {
    recording_dispatch const dispatch({{}, {}});
    config_manager manager;
    manager.init(dispatch);
    EXPECT_EQ(dispatch.clones(), 1);
    EXPECT_EQ(dispatch.record(), "setup0 ");
    EXPECT_TRUE(manager.load());
    EXPECT_TRUE(manager.unload());
    EXPECT_TRUE(manager.save());
    EXPECT_TRUE(manager.load());
    EXPECT_EQ(dispatch.record(), "setup0 load2 unload2 save2 load2 ");
}

TEST(config_manager, a_second_dispatch_replaces_the_first_and_its_items) {
    recording_dispatch const first({{{"a", 1}}, {{"b", 2}}});
    recording_dispatch const second({{{"c", 3}}});
    config_manager manager;
    manager.init(first);
    held_item const kept = manager.get_config_item("user_item");
    manager.init(second);
    EXPECT_EQ(first.clones(), 0);
    EXPECT_EQ(second.clones(), 1);
    EXPECT_EQ(second.record(), "setup0 ");
    EXPECT_FALSE(manager.value_exist("a"));
    EXPECT_FALSE(manager.value_exist("b"));
    EXPECT_TRUE(manager.value_exist("c"));
    // The item lives on in the hands of who else holds it.
    EXPECT_EQ(shown(*kept), "a=1:1");
    manager.load();
    EXPECT_EQ(first.record(), "setup0 ");
    EXPECT_EQ(second.record(), "setup0 load1 ");
}

TEST(config_manager, lets_go_of_its_dispatch_and_items) {
    recording_dispatch const dispatch({{{"a", 1}}});
    std::optional<config_manager> manager(std::in_place);
    manager->init(dispatch);
    EXPECT_EQ(dispatch.clones(), 1);
    manager.reset();
    EXPECT_EQ(dispatch.clones(), 0);
}

std::string life;

class mortal_item : public user_item {
public:
    ~mortal_item() override { life += "item "; }
};

class mortal_dispatch : public config_dispatch {
public:
    ~mortal_dispatch() override { life += "dispatch "; }
    void setup(item_list& items) const override {
        life += "setup ";
        items.push_back(generic::abilities::make_dynamic<mortal_item>());
    }
    void load(item_list&) const override {}
    void unload(item_list&) const override {}
    void save(item_list&) const override {}
    config_dispatch* clone() const override {
        life += "clone ";
        return new mortal_dispatch(*this);
    }
};

TEST(config_manager, lets_go_of_the_dispatch_then_of_the_items_and_only_then_takes_new_ones) {
    mortal_dispatch const dispatch;
    std::optional<config_manager> manager(std::in_place);
    manager->init(dispatch);
    life.clear();
    manager->init(dispatch);
    EXPECT_EQ(life, "dispatch item clone setup ");
    life.clear();
    manager.reset();
    EXPECT_EQ(life, "dispatch item ");
}

TEST(config_manager, copies_share_items_and_dispatch) {
    recording_dispatch const dispatch({{{"a", 1}}});
    std::optional<config_manager> original(std::in_place);
    original->init(dispatch);
    std::optional<config_manager> copy(*original);
    config_manager assigned;
    EXPECT_EQ(&(assigned = *original), &assigned);
    EXPECT_EQ(dispatch.clones(), 1);
    copy->get_config_item("user_item")->set("a", 2, 0);
    EXPECT_EQ(original->get_value("a", nil_value).as_int(), 2);
    EXPECT_EQ(assigned.get_value("a", nil_value).as_int(), 2);
    EXPECT_EQ(copy->get_config_item("user_item"), original->get_config_item("user_item"));
    // Each can be used when the others are gone.
    original.reset();
    EXPECT_TRUE(copy->load());
    copy.reset();
    EXPECT_EQ(dispatch.clones(), 1);
    EXPECT_TRUE(assigned.save());
    EXPECT_EQ(dispatch.record(), "setup0 load1 save1 ");
    EXPECT_EQ(assigned.get_value("a", nil_value).as_int(), 2);
    assigned = config_manager();
    EXPECT_EQ(dispatch.clones(), 0);
    EXPECT_FALSE(assigned.load());
}

TEST(config_manager, a_copy_that_is_set_up_anew_leaves_the_original_alone) {
    recording_dispatch const dispatch({{{"a", 1}}});
    config_manager original;
    original.init(dispatch);
    config_manager copy(original);
    copy.init(recording_dispatch({{{"b", 2}}}));
    EXPECT_EQ(dispatch.clones(), 1);
    EXPECT_TRUE(original.value_exist("a"));
    EXPECT_FALSE(original.value_exist("b"));
    EXPECT_TRUE(copy.value_exist("b"));
    EXPECT_TRUE(original.load());
    EXPECT_EQ(dispatch.record(), "setup0 load1 ");
}

// ----------------------------------------------------------------------------------------------------------
// Questions
// ----------------------------------------------------------------------------------------------------------

TEST(config_manager, the_first_item_with_a_node_answers) {
    struct row {
        std::vector<writes> items;
        char const* key;
        std::string value; // "default" if no item answers
        bool exists;
        bool is_array;
        std::string array;
    };
    writes const array{{"a", types::nil, 2}, {"a.0", "x"}, {"a.1", "y"}};
    row const rows[] = {
        {{{{"a", 1}}}, "a", "1", true, false, ""},
        {{{{"a", 1}}}, "b", "default", false, false, ""},
        {{{{"a", 1}}, {{"a", 2}}}, "a", "1", true, false, ""},
        {{{{"b", 1}}, {{"a", 2}}}, "a", "2", true, false, ""},
        {{{}, {}, {{"a", 3}}}, "a", "3", true, false, ""},
        {{{{"a.b", 1}}}, "A/B", "1", true, false, ""},
        {{{{"a.b", 1}}}, "a.b.", "1", true, false, ""},
        {{{{"a", ""}}}, "a", "", true, false, ""},
        {{{{"a", false}}}, "a", "0", true, false, ""},
        // A node that is only passed through counts, and hides what is behind it.
        {{{{"a.b", 1}}, {{"a", 2}}}, "a", "1", true, false, ""},
        {{{{"a.b", 1}}, {{"a", 2}}}, "a.b", "1", true, false, ""},
        {{{{"a", 2}}, {{"a.b", 1}}}, "a", "2", true, false, ""},
        {{{{"a", 2}}, {{"a.b", 1}}}, "a.b", "1", true, false, ""},
        // A value that is nil is found, and hides what is behind it.
        {{{{"a", types::nil}}}, "a", "nil", false, false, ""},
        {{{{"a", types::nil}}, {{"a", 2}}}, "a", "nil", false, false, ""},
        // Flags without a meaning.
        {{{{"a", 1, 8}}}, "a", "1", true, false, ""},
        // Arrays.
        {{array}, "a", "x", true, true, "[x][y]"},
        {{array}, "a.1", "y", true, false, ""},
        {{array, {{"a", 1}}}, "a", "x", true, true, "[x][y]"},
        {{{{"a", 1}}, array}, "a", "1", true, true, "[x][y]"},
        {{{{"a.b", 1}}, array}, "a", "1", true, true, "[x][y]"},
        {{{{"a", types::nil, 2}, {"a.0", 1}}, array}, "a", "1", true, true, "[1]"},
        {{{{"a", types::nil, 2}, {"a.1", 1}}}, "a", "nil", false, true, ""},
        {{{{"a", types::nil, 2}}, array}, "a", "nil", false, true, ""},
        {{{{"a", types::nil, 2}, {"a.0", 1}, {"a.1", 2}, {"a.3", 4}}}, "a", "1", true, true, "[1][2]"},
        {{{{"a", types::nil, 2}, {"a.0", types::nil}}}, "a", "nil", false, true, "[nil]"},
        // The element 0 is asked for under the key as it was written.
        {{array}, "a.", "nil", false, true, "[x][y]"},
        // An array that is an alias too is an array.
        {{{{"a", "b", 6}, {"a.0", 1}, {"b", 2}}}, "a", "1", true, true, "[1]"},
        // Element 0 is not followed, neither as an alias nor as an array.
        {{{{"a", types::nil, 2}, {"a.0", "b", 4}, {"b", 2}}}, "a", "b", true, true, "[b]"},
        {{{{"a", types::nil, 2}, {"a.0", types::nil, 2}, {"a.0.0", 1}}}, "a", "nil", false, true, "[nil]"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(&row - rows);
        config_manager const manager = manager_of(row.items);
        EXPECT_EQ(shown(manager.get_value(row.key, "default")), row.value);
        EXPECT_EQ(manager.value_exist(row.key), row.exists);
        EXPECT_EQ(manager.is_array(row.key), row.is_array);
        EXPECT_EQ(array_of(manager, row.key), row.array);
    }
}

TEST(config_manager, the_value_of_a_node_passed_through_is_a_boolean) {
    config_manager const manager = manager_of({{{"a.b", 1}}});
    variant const value = manager.get_value("a", nil_value);
    EXPECT_EQ(value.type(), typeid(bool));
    EXPECT_TRUE(value.as_bool());
}

TEST(config_manager, the_default_comes_back_as_it_is) {
    config_manager const manager = manager_of({{{"a", 1}}});
    EXPECT_EQ(manager.get_value("b", -2.5).type(), typeid(double));
    EXPECT_EQ(manager.get_value("b", -2.5).as_double(), -2.5);
    EXPECT_EQ(manager.get_value("b", types::nil), types::nil);
}

TEST(config_manager, follows_aliases_from_the_first_item_on) {
    struct row {
        std::vector<writes> items;
        char const* key;
        std::string value;
        bool exists;
    };
    row const rows[] = {
        {{{{"a", "b", 4}, {"b", 1}}}, "a", "1", true},
        {{{{"a", "B", 4}, {"b", 1}}}, "A", "1", true},
        {{{{"a", "b.c", 4}, {"b.c", 1}}}, "a", "1", true},
        {{{{"a", "b", 4}, {"b", "c", 4}, {"c", 1}}}, "a", "1", true},
        // Across items, from either side.
        {{{{"a", "b", 4}}, {{"b", 1}}}, "a", "1", true},
        {{{{"b", 1}}, {{"a", "b", 4}}}, "a", "1", true},
        {{{{"b", 1}}, {{"a", "b", 4}, {"b", 2}}}, "a", "1", true},
        {{{{"c", 1}}, {{"a", "b", 4}}, {{"b", "c", 4}}}, "a", "1", true},
        // No target.
        {{{{"a", "b", 4}}}, "a", "default", false},
        {{{{"a", "b", 4}}, {{"a", 1}}}, "a", "default", false},
        {{{{"a", "", 4}}}, "a", "default", false},
        // A target of each kind.
        {{{{"a", "b", 4}, {"b.c", 1}}}, "a", "1", true},
        {{{{"a", "b", 4}, {"b", types::nil}}}, "a", "nil", false},
        {{{{"a", "b", 4}, {"b", types::nil, 2}, {"b.0", 1}}}, "a", "1", true},
        {{{{"a", "b", 4}, {"b", types::nil, 2}}}, "a", "nil", false},
        {{{{"a", 5, 4}, {"5", 1}}}, "a", "1", true},
        {{{{"a", "", 4}, {"", 1}}}, "a", "1", true},
        // Circles.
        {{{{"a", "a", 4}}}, "a", "a", true},
        {{{{"a", "b", 4}, {"b", "a", 4}}}, "a", "a", true},
        {{{{"a", "b", 4}, {"b", "a", 4}}}, "b", "b", true},
        {{{{"a", "b", 4}}, {{"b", "c", 4}}, {{"c", "b", 4}}}, "a", "b", true},
        // Keys are compared as they are written: the first turn with another case is none yet.
        {{{{"a", "B", 4}, {"b", "A", 4}}}, "a", "B", true},
        {{{{"a", "a", 4}}}, "A", "a", true},
        {{{{"a", "a.", 4}}}, "a", "a.", true},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(&row - rows);
        config_manager const manager = manager_of(row.items);
        EXPECT_EQ(shown(manager.get_value(row.key, "default")), row.value);
        EXPECT_EQ(manager.value_exist(row.key), row.exists);
    }
}

TEST(config_manager, the_value_of_a_circle_is_the_last_alias_as_it_is) {
    config_manager const manager = manager_of({{{"5", 5, 4}}});
    EXPECT_EQ(manager.get_value("5", nil_value).type(), typeid(int));
}

TEST(config_manager, long_chains_of_aliases_come_to_their_end) {
    int const length = 20000;
    config_manager const manager = manager_of({{}});
    held_item const item = manager.get_config_item("user_item");
    for (int number = 0; number < length; ++number) {
        item->set("k" + std::to_string(number), "k" + std::to_string(number + 1), 4);
    }
    std::string const last = "k" + std::to_string(length);
    EXPECT_EQ(shown(manager.get_value("k0", "default")), "default");
    item->set(last, "end", 0);
    EXPECT_EQ(shown(manager.get_value("k0", "default")), "end");
    item->set(last, "k0", 4);
    EXPECT_EQ(shown(manager.get_value("k0", "default")), "k0");
}

TEST(config_manager, only_values_follow_aliases) {
    config_manager const manager =
        manager_of({{{"a", "b", 4}, {"b", types::nil, 2}, {"b.0", 1}, {"b.1", 2}}});
    EXPECT_FALSE(manager.is_array("a"));
    EXPECT_EQ(array_of(manager, "a"), "");
    EXPECT_EQ(pairs_of(manager, "a", true), "");
    EXPECT_TRUE(manager.is_array("b"));
}

TEST(config_manager, arrays_are_appended) {
    config_manager const manager = manager_of({{{"a", types::nil, 2}, {"a.0", "x"}, {"a.1", "y"}}});
    std::vector<variant> values{variant(5)};
    manager.get_array("a", values);
    manager.get_array("missing", values);
    manager.get_array("A", values);
    ASSERT_EQ(values.size(), 5U);
    EXPECT_EQ(values[0].as_int(), 5);
    EXPECT_EQ(shown(values[1]) + shown(values[2]) + shown(values[3]) + shown(values[4]), "xyxy");
}

TEST(config_manager, arrays_are_in_the_order_of_their_numbers) {
    generic::varg_list elements;
    for (int number = 0; number < 12; ++number) {
        elements.push_back(variant(number));
    }
    config_manager const manager = manager_of({{}});
    manager.get_config_item("user_item")->set_array("a", elements, generic::varg_list());
    EXPECT_EQ(array_of(manager, "a"), "[0][1][2][3][4][5][6][7][8][9][10][11]");
    EXPECT_EQ(pairs_of(manager, "a", false), "0=0 1=1 10=10 11=11 2=2 3=3 4=4 5=5 6=6 7=7 8=8 9=9");
}

TEST(config_manager, names_what_is_below_a_key) {
    struct row {
        std::vector<writes> items;
        char const* key;
        std::string below;
        std::string direct;
    };
    row const rows[] = {
        {{{{"w.b", 2}, {"w.a", 1}}}, "w", "a=1 b=2", "a=1 b=2"},
        {{{{"W.A.B", 1}, {"w.c", 2}}}, "W", "a=1 a.b=1 c=2", "a=1 c=2"},
        {{{{"w.a.b.c", 1}}}, "w/a", "b=1 b.c=1", "b=1"},
        {{{{"w", 1}}}, "w", "", ""},
        {{{{"w.a", 1}}}, "v", "", ""},
        // The first item with a node there, and no other.
        {{{{"w.a", 1}}, {{"w.b", 2}}}, "w", "a=1", "a=1"},
        {{{{"v.a", 1}}, {{"w.b", 2}}}, "w", "b=2", "b=2"},
        {{{{"w", 1}}, {{"w.b", 2}}}, "w", "", ""},
        // Flags go, values stay.
        {{{{"w.a", types::nil, 2}, {"w.a.0", 1}, {"w.b", "x", 4}}}, "w", "a=nil a.0=1 b=x", "a=nil b=x"},
        // The empty key.
        {{{{"w.a", 1}}}, "", "", ""},
        {{{{"w.a", 1}}, {{".a", 2}, {"v", 3}}}, "", "=1 a=2 v=3", "=1 v=3"},
    };
    for (row const& row : rows) {
        SCOPED_TRACE(&row - rows);
        config_manager const manager = manager_of(row.items);
        EXPECT_EQ(pairs_of(manager, row.key, true), row.below);
        EXPECT_EQ(pairs_of(manager, row.key, false), row.direct);
    }
}

TEST(config_manager, key_value_pairs_are_appended) {
    config_manager const manager = manager_of({{{"w.a", 1}}});
    std::vector<std::pair<ustring8, variant>> pairs{{"first", 5}};
    manager.get_key_value_array("w", pairs, true);
    ASSERT_EQ(pairs.size(), 2U);
    EXPECT_EQ(pairs[0].first, "first");
    EXPECT_EQ(pairs[1].first, "a");
}

TEST(config_manager, finds_the_first_item_of_an_id) {
    config_manager const manager = manager_of({{{"a", 1}}, {{"a", 2}}});
    EXPECT_EQ(shown(*manager.get_config_item("user_item")), "a=1:1");
    EXPECT_TRUE(manager.get_config_item("user item").is_null());
    EXPECT_TRUE(manager.get_config_item("USER_ITEM").is_null());
    EXPECT_TRUE(manager.get_config_item("").is_null());
}

TEST(config_manager, dumps_all_items) {
    config_manager manager = manager_of({{{"a", 1}}, {}});
    std::string const dump = "config_manager:\n"
                             "\nconfig_item:\n"
                             "object : user_item\n|---------------\\\n|\t\ta : 1 1\n|\t\t|\n|\t\tend\nend\n"
                             "\nconfig_item:\n"
                             "object : user_item\n|---------------\\\n|\t\tend\nend\n"
                             "\nno more config_items!\n\nending output\n";
    EXPECT_EQ(dump_of(manager), dump);
    std::ostringstream stream;
    stream.width(60);
    EXPECT_EQ(&(stream << manager), &stream);
    EXPECT_EQ(stream.str(), dump);
}

// ----------------------------------------------------------------------------------------------------------
// With the dispatches of the library
// ----------------------------------------------------------------------------------------------------------

class managed_sources : public testing::Test {
protected:
    void start_program(std::vector<std::string> const& arguments, std::vector<std::string> const& environment,
                       std::string const& file) {
        m_arguments.emplace(arguments);
        m_environment.emplace(environment);
        directory->file("test.cfg", file);
        manager.init(std_config_dispatch(m_arguments->count(), m_arguments->data(), m_environment->data(),
                                         "test.cfg", ""));
    }

    std::string value(char const* key) const { return shown(manager.get_value(key, "default")); }

    support::temporary_working_directory const directory;
    std::optional<argument_vector> m_arguments;
    std::optional<argument_vector> m_environment;
    config_manager manager;
};

TEST_F(managed_sources, the_command_line_goes_before_the_file_and_that_before_the_environment) {
    start_program({"tool", "-a=1"}, {"A=3", "B=3", "C=3"}, "a = 2\nb = 2\n");
    EXPECT_EQ(value("a"), "default");
    EXPECT_TRUE(manager.load());
    EXPECT_EQ(value("a"), "1");
    EXPECT_EQ(value("b"), "2");
    EXPECT_EQ(value("c"), "3");
    EXPECT_EQ(value("d"), "default");
    EXPECT_EQ(manager.get_value("a", nil_value).type(), typeid(std::string));
}

TEST_F(managed_sources, a_prefix_of_a_longer_key_hides_the_value_of_the_file) {
    start_program({"tool", "-a.b=1"}, {}, "a = 2");
    manager.load();
    EXPECT_EQ(manager.get_value("a", nil_value).type(), typeid(bool));
    EXPECT_EQ(value("a"), "1");
}

TEST_F(managed_sources, an_array_in_the_file_behind_a_plain_value) {
    start_program({"tool", "-a=1"}, {}, "a[] = 2, 3");
    manager.load();
    EXPECT_EQ(value("a"), "1");
    EXPECT_TRUE(manager.is_array("a"));
    EXPECT_EQ(array_of(manager, "a"), "[2][3]");
    EXPECT_EQ(value("a.1"), "3");
}

TEST_F(managed_sources, an_alias_of_the_application_reaches_all_sources) {
    start_program({"tool", "-size=1"}, {}, "size = 2\nwidth = 3");
    manager.load();
    manager.get_config_item("enviroment")->set("s", "size", 4);
    manager.get_config_item("enviroment")->set("w = width", 4);
    EXPECT_EQ(value("s"), "1");
    EXPECT_EQ(value("w"), "3");
}

TEST_F(managed_sources, the_items_of_a_program_have_these_ids) {
    start_program({"tool"}, {}, "");
    for (char const* const id : {"command line", "standard file", "enviroment"}) {
        ASSERT_FALSE(manager.get_config_item(id).is_null()) << id;
        EXPECT_EQ(manager.get_config_item(id)->get_id(), id);
    }
    EXPECT_TRUE(manager.get_config_item("user_item").is_null());
}

TEST_F(managed_sources, the_items_of_a_module_have_these_ids) {
    manager.init(module_config_dispatch(generic::varg_list({"first.cfg"}, {"second.cfg"}), nullptr));
    EXPECT_TRUE(manager.get_config_item("user item").is_null());
    for (char const* const id : {"user_item", "standard file", "enviroment"}) {
        ASSERT_FALSE(manager.get_config_item(id).is_null()) << id;
    }
    EXPECT_TRUE(manager.get_config_item("command line").is_null());
}

TEST_F(managed_sources, what_the_user_sets_for_a_module_is_a_fallback_that_stays) {
    argument_vector const environment({"B=2"});
    directory->file("first.cfg", "a = 1");
    manager.init(module_config_dispatch(generic::varg_list({"first.cfg"}), environment.data()));
    held_item const user = manager.get_config_item("user_item");
    user->set("a", "x", 0);
    user->set("b", "x", 0);
    user->set("c", "x", 0);
    EXPECT_EQ(value("a"), "x");
    manager.load();
    EXPECT_EQ(value("a") + value("b") + value("c"), "12x");
    EXPECT_TRUE(manager.unload());
    EXPECT_EQ(value("a") + value("b") + value("c"), "xxx");
    EXPECT_TRUE(manager.load());
    EXPECT_EQ(value("a") + value("b") + value("c"), "12x");
}

TEST_F(managed_sources, unloaded_items_stay_and_load_again) {
    start_program({"tool", "-a=1"}, {"C=3"}, "b = 2");
    manager.load();
    std::string const dump = dump_of(manager);
    EXPECT_TRUE(manager.unload());
    EXPECT_EQ(value("a") + value("b") + value("c"), "defaultdefaultdefault");
    EXPECT_FALSE(manager.get_config_item("standard file").is_null());
    EXPECT_TRUE(manager.load());
    EXPECT_EQ(dump_of(manager), dump);
}

TEST_F(managed_sources, dumps_its_sources_in_their_order) {
    start_program({"", "-a"}, {"C=3"}, "b = 2");
    manager.load();
    EXPECT_EQ(dump_of(manager), "config_manager:\n"
                                "\nconfig_item:\nobject : command line\n|---------------\\\n"
                                "|\t\ta : 1 \n|\t\t|\n"
                                "|\t\tapplication : true\n|\t\t|---------------\\\n"
                                "|\t\t|\t\tname : 1 \n|\t\t|\t\t|---------------\\\n"
                                "|\t\t|\t\t|\t\traw : 1 \n|\t\t|\t\t|\t\t|\n"
                                "|\t\t|\t\t|\t\tend\n|\t\t|\t\tend\n|\t\tend\nend\n"
                                "\nconfig_item:\nobject : standard file\n|---------------\\\n"
                                "|\t\tb : 1 2\n|\t\t|\n|\t\tend\nend\n"
                                "\nconfig_item:\nobject : enviroment\n|---------------\\\n"
                                "|\t\tc : 1 3\n|\t\t|\n|\t\tend\nend\n"
                                "\nno more config_items!\n\nending output\n");
}

TEST_F(managed_sources, saving_writes_no_file) {
    start_program({"tool"}, {}, "s.a = 1 // as it was");
    manager.load();
    EXPECT_TRUE(manager.save());
    EXPECT_EQ(support::bytes_of("test.cfg"), "s.a = 1 // as it was");
    manager.init(module_config_dispatch(generic::varg_list({"test.cfg"}), nullptr));
    manager.load();
    EXPECT_TRUE(manager.save());
    EXPECT_EQ(support::bytes_of("test.cfg"), "s.a = 1 // as it was");
    // The item does.
    EXPECT_TRUE(manager.get_config_item("standard file")->save());
    EXPECT_EQ(support::bytes_of("test.cfg"), "[s]\r\na=1\r\n\r\n");
}

} // namespace
