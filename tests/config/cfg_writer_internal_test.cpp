#include "config/cfg_writer.hpp"

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/config_items.hpp"
#include "veldrin/generic/convert/str_to_x.hpp"
#include "veldrin/strings/split.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_tree;
using config::_private::cfg_writer;
using strings::ustring8;

// The plain way to the same text: a walk through all entries for each section.
class model {
public:
    explicit model(config_tree& tree) { tree.get_value_pair_array("", m_entries, true, ""); }

    std::string text() {
        for (auto const& [name, entry] : m_entries) {
            if (entry.first == 0) {
                m_text += "[" + quoted(name) + "]\r\n";
                write_members(name);
                m_text += "\r\n";
            }
        }
        return m_text;
    }

private:
    static std::string last_segment(ustring8 const& name) {
        std::vector<ustring8> const parts = strings::split_string(name, ".", 0);
        return parts.empty() ? "" : parts.back();
    }

    static std::string quoted(std::string const& text) {
        return text.find_first_of(" \r\t\n") == text.npos ? text : '"' + text + '"';
    }

    static int number(std::string const& text) {
        return generic::convert::str_to_int(text.c_str(), text.size(), types::radix_t::detect, false);
    }

    std::string last_segment(std::size_t index) const { return last_segment(m_entries[index].first); }
    std::string value(std::size_t index) const { return quoted(m_entries[index].second.second.as_utf8()); }

    void write_members(ustring8 const& section) {
        for (std::size_t index = 0; index < m_entries.size(); ++index) {
            auto const& [name, entry] = m_entries[index];
            if (entry.first == 0 || section.size() >= name.size() ||
                name.substr(section.size() + 1) != last_segment(name)) {
                continue;
            }
            if (entry.first != 3) {
                m_text += quoted(last_segment(name)) + "=" + value(index) + "\r\n";
                continue;
            }
            m_text += quoted(last_segment(name)) + "[]=";
            ++index;
            if (index < m_entries.size() && last_segment(index) == "0") {
                m_text += value(index);
                for (++index; index < m_entries.size() && number(last_segment(index)) != 0; ++index) {
                    m_text += "," + value(index);
                }
            }
            m_text += "\r\n";
        }
    }

    config_tree::entry_list m_entries;
    std::string m_text;
};

TEST(cfg_writer, an_empty_tree_is_an_empty_text) {
    config_tree const tree;
    EXPECT_EQ(cfg_writer(tree).text(), "");
}

TEST(cfg_writer, writes_the_same_text_again) {
    config_tree tree;
    tree.set_node("s.a", 1, 0);
    cfg_writer writer(tree);
    EXPECT_EQ(writer.text(), "[s]\r\na=1\r\n\r\n");
    EXPECT_EQ(writer.text(), "[s]\r\na=1\r\n\r\n");
}

class generated_tree : public config_tree {
public:
    explicit generated_tree(unsigned int seed) : m_random(seed) {
        static std::vector<std::string> const segments{"",  "",   "a",   "b",  "aa",  "0", "1",  "2",
                                                       "9", "10", "01x", "08", "0b1", "!", "-1", "x y"};
        static std::vector<unsigned int> const flags{0, 0, 0, 0, 2, 2, 2, 4, 6};
        static std::vector<types::variant> const values{"", "v", "x y", "a\tb", 5, -2.5, types::nil, true};
        for (std::size_t writes = below(25); writes != 0; --writes) {
            ustring8 key = one_of(segments);
            for (std::size_t depth = below(4); depth != 0; --depth) {
                key += '.' + one_of(segments);
            }
            set_node(key, one_of(values), one_of(flags));
        }
    }

private:
    std::size_t below(std::size_t bound) { return m_random() % bound; }

    template <class Value>
    Value const& one_of(std::vector<Value> const& values) {
        return values[below(values.size())];
    }

    std::mt19937 m_random;
};

TEST(cfg_writer, writes_what_the_plain_walk_writes) {
    std::size_t written = 0;
    for (unsigned int seed = 0; seed < 5000; ++seed) {
        generated_tree tree(seed);
        std::string const text = cfg_writer(tree).text();
        ASSERT_EQ(text, model(tree).text()) << seed;
        written += text.size();
    }
    EXPECT_GT(written, 300000U);
}

// A thousand keys in a section whose name has a million bytes: their full names would take a gigabyte.
TEST(cfg_writer, long_names_do_not_multiply) {
    config_tree tree;
    ustring8 const section(1000000, 's');
    std::string expected = "[" + section + "]\r\n";
    for (int number = 1000; number < 2000; ++number) {
        tree.set_node(section + ".k" + std::to_string(number), number, 0);
        expected += "k" + std::to_string(number) + "=" + std::to_string(number) + "\r\n";
    }
    EXPECT_EQ(cfg_writer(tree).text(), expected + "\r\n");
}

// Below empty names in front, all sections have the empty name.
TEST(cfg_writer, a_deep_tree_of_empty_names_is_written_section_by_section) {
    std::size_t const depth = 100000;
    config_tree tree;
    tree.set_node(ustring8(depth, '.') + "a", 1, 0);
    std::string expected;
    for (std::size_t level = 0; level < depth; ++level) {
        expected += "[]\r\n\r\n";
    }
    EXPECT_EQ(cfg_writer(tree).text(), expected);
}

} // namespace
