// A configuration tree and a plain model of it, driven by the lines of the input and compared after each. The
// first byte of a line says what to do, the rest is a key:
//
//     g  read the node        a  read the array       p, r  walk the children, the subtree
//     e  erase all            c  go on with a copy    any other byte  write, with that byte as flags

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "require.hpp"
#include "text_of_bytes.hpp"
#include "veldrin/config/config_tree.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/variant.hpp"

namespace {

using namespace VELDRIN_2_18;
using config::config_tree;
using strings::ustring8;

// Names of nodes and dumps grow with the square of the depth.
constexpr std::size_t longest_input = 1024;

struct model {
    unsigned int flags = 0;
    std::string value = "1";
    std::map<std::string, model> children;
};

struct model_entry {
    std::string name;
    unsigned int flags;
    std::string value;
};

std::vector<std::string> segments_of(std::string const& key) {
    std::vector<std::string> segments(1);
    for (std::size_t index = 0; index < key.size(); ++index) {
        char const byte = key[index];
        if (byte == '.' || byte == '/' || byte == '\\') {
            if (index + 1 < key.size()) {
                segments.emplace_back();
            }
        } else {
            segments.back() += byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
        }
    }
    return segments;
}

void write(model& root, std::string const& key, std::string const& value, unsigned int flags) {
    model* node = &root;
    for (std::string const& segment : segments_of(key)) {
        node = &node->children[segment];
    }
    node->flags = flags | 1U;
    node->value = value;
}

model const* find(model const& root, std::string const& key) {
    model const* node = &root;
    for (std::string const& segment : segments_of(key)) {
        auto const found = node->children.find(segment);
        if (found == node->children.end()) {
            return nullptr;
        }
        node = &found->second;
    }
    return node;
}

void walk(model const& node, std::string const& prefix, bool recursive, std::vector<model_entry>& out) {
    for (auto const& [own_name, child] : node.children) {
        std::string const name = prefix.empty() ? own_name : prefix + "." + own_name;
        out.push_back({name, child.flags, child.value});
        if (recursive) {
            walk(child, name, recursive, out);
        }
    }
}

void dump(model const& node, std::string const& bars, std::string& out) {
    for (auto const& [name, child] : node.children) {
        out += bars + name + " : ";
        out += child.flags != 0 ? std::to_string(child.flags) + " " + child.value + "\n" : "true\n";
        out += bars;
        if (child.children.empty()) {
            out += "|\n";
        } else {
            out += "|---------------\\\n";
            dump(child, bars + "|\t\t", out);
        }
    }
    out += bars + "end\n";
}

void require_same(config_tree::entry_type const& entry, unsigned int flags, std::string const& value) {
    require(entry.first == flags && entry.second.as_string() == value);
}

void require_same(config_tree::entry_list const& entries, std::vector<model_entry> const& expected) {
    require(entries.size() == expected.size());
    for (std::size_t index = 0; index < entries.size(); ++index) {
        require(entries[index].first == expected[index].name);
        require_same(entries[index].second, expected[index].flags, expected[index].value);
    }
}

void require_same_node(config_tree const& tree, model const& root, ustring8 const& key) {
    config_tree::entry_type const* const entry = tree.get_node(key);
    model const* const expected = find(root, key);
    require((entry == nullptr) == (expected == nullptr));
    if (entry != nullptr) {
        require_same(*entry, expected->flags, expected->value);
    }
}

void require_same_array(config_tree& tree, model const& root, ustring8 const& key) {
    std::vector<model_entry> expected;
    model const* const head = find(root, key);
    if (head != nullptr && (head->flags & 2U) != 0) {
        auto element = head->children.find("0");
        while (element != head->children.end()) {
            expected.push_back({element->first, element->second.flags, element->second.value});
            element = head->children.find(std::to_string(expected.size()));
        }
    }
    config_tree::entry_list entries;
    tree.get_array(key, entries);
    require_same(entries, expected);
}

void require_same_walk(config_tree& tree, model const& root, ustring8 const& key, bool recursive) {
    std::vector<model_entry> expected;
    model const* const top = key.empty() ? &root : find(root, key);
    if (top != nullptr) {
        walk(*top, key.empty() ? "prefix" : "", recursive, expected);
    }
    config_tree::entry_list entries;
    tree.get_value_pair_array(key, entries, recursive, "prefix");
    require_same(entries, expected);
}

void require_same_dump(config_tree& tree, model const& root) {
    std::string expected;
    dump(root, "", expected);
    std::ostringstream stream;
    stream << tree;
    require(stream.str() == expected);
}

void apply(config_tree& tree, model& root, ustring8 const& line) {
    char const command = line.front();
    ustring8 const key = line.substr(1);
    switch (command) {
    case 'g':
        require_same_node(tree, root, key);
        break;
    case 'a':
        require_same_array(tree, root, key);
        break;
    case 'p':
    case 'r':
        require_same_walk(tree, root, key, command == 'r');
        break;
    case 'e':
        tree.erase();
        root.children.clear();
        break;
    case 'c': {
        memory::pointers::rc_pointer<config_tree> const copy(tree.clone());
        tree.set_node(key, "not in the copy", 0);
        tree = *copy;
        break;
    }
    default: {
        unsigned int const flags = static_cast<unsigned char>(command);
        tree.set_node(key, key, flags);
        write(root, key, key, flags);
        require_same_node(tree, root, key);
    }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
    if (size > longest_input) {
        return 0;
    }
    config_tree tree;
    model root;
    std::istringstream lines(text_of_bytes<ustring8>(data, size));
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty()) {
            apply(tree, root, line);
        }
    }
    require_same_walk(tree, root, {}, true);
    require_same_dump(tree, root);
    return 0;
}
