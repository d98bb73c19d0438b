#include "veldrin/config/config_tree.hpp"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>

#include "config/config_tree_walk.hpp"
#include "veldrin/generic/abilities/make_dynamic.hpp"

namespace VELDRIN_2_18::config {

namespace {

using strings::ustring8;

// Takes the first segment, and the separator that ends it, off the key.
ustring8 take_segment(std::string_view& key) {
    std::size_t const length = std::min(key.find_first_of("./\\"), key.size());
    ustring8 segment(key.substr(0, length));
    for (char& byte : segment) {
        byte = static_cast<char>(std::tolower(static_cast<unsigned char>(byte)));
    }
    key.remove_prefix(std::min(length + 1, key.size()));
    return segment;
}

// The number is not left to the stream, which may be set to another base or to a locale with separators.
std::string node_line(ustring8 const& name, config_tree::entry_type const& entry) {
    auto const& [flags, value] = entry;
    return name + " : " + (flags != 0 ? std::to_string(flags) + ' ' + value.as_string() : "true") + '\n';
}

} // namespace

config_tree::config_tree() : entry(0U, true) {}

config_tree::config_tree(config_tree const& other)
    : reference_count_pointer_ability<config_tree>(other), clone_ability(other), entry(other.entry) {
    copy_children(other);
}

// The copy is whole before anything here changes: the source may be part of this tree.
config_tree& config_tree::operator=(config_tree const& other) {
    config_tree copy(other);
    children.swap(copy.children);
    entry = copy.entry;
    return *this;
}

config_tree::~config_tree() { erase(); }

config_tree* config_tree::clone() const { return generic::abilities::make_dynamic<config_tree>(*this); }

// A subtree is taken apart level by level: a chain of destructors could be as deep as a key is long. The
// nodes only change hands, so that nothing can fail. A node that somebody else holds keeps its children.
void config_tree::erase() {
    std::multimap<ustring8, memory::pointers::rc_pointer<config_tree>> orphans;
    auto const take_children = [&](config_tree& node) {
        if (node.get_ref_count() == 1) {
            orphans.merge(node.children);
        }
    };
    for (auto const& [name, child] : children) {
        take_children(*child);
    }
    children.clear();
    while (!orphans.empty()) {
        auto const orphan = orphans.extract(orphans.begin());
        take_children(*orphan.mapped());
    }
}

void config_tree::set_node(ustring8 const& key, types::variant const& value, unsigned int flags) {
    node_at(key).entry = entry_type(flags | flag_set, value);
}

config_tree::entry_type const* config_tree::get_node(ustring8 const& key) const {
    config_tree const* const node = find(key);
    return node != nullptr ? &node->entry : nullptr;
}

void config_tree::get_array(ustring8 const& key, entry_list& out) {
    config_tree const* const head = find(key);
    if (head == nullptr || (head->entry.first & flag_array) == 0) {
        return;
    }
    for (std::size_t index = 0;; ++index) {
        auto const element = head->children.find(std::to_string(index));
        if (element == head->children.end()) {
            return;
        }
        out.emplace_back(element->first, element->second->entry);
    }
}

void config_tree::get_value_pair_array(ustring8 const& key, entry_list& out, bool recursive,
                                       ustring8 const& prefix) {
    config_tree const* const top = key.empty() ? this : find(key);
    if (top == nullptr) {
        return;
    }
    std::vector<ustring8> prefixes = {key.empty() ? prefix : ustring8()};
    walk(
        *top,
        [&](ustring8 const& name, config_tree const& node) {
            ustring8 const& in_front = prefixes.back();
            out.emplace_back(in_front.empty() ? name : ustring8(in_front + '.' + name), node.entry);
            if (recursive) {
                prefixes.push_back(out.back().first);
            }
            return recursive;
        },
        [&] { prefixes.pop_back(); });
}

void config_tree::dump(std::ostream& os, int depth) {
    constexpr std::string_view bar = "|\t\t";
    std::string bars;
    std::int64_t level = depth;
    os.width(0);
    auto const write_bars = [&] {
        std::size_t const length = bar.size() * static_cast<std::size_t>(std::max<std::int64_t>(level, 0));
        while (bars.size() < length) {
            bars += bar;
        }
        os << std::string_view(bars).substr(0, length);
    };
    walk(
        *this,
        [&](ustring8 const& name, config_tree const& node) {
            bool const has_children = !node.children.empty();
            write_bars();
            os << node_line(name, node.entry);
            write_bars();
            os << (has_children ? "|---------------\\\n" : "|\n");
            level += has_children ? 1 : 0;
            return has_children;
        },
        [&] {
            write_bars();
            os << "end\n";
            --level;
        });
}

std::ostream& operator<<(std::ostream& os, config_tree& tree) {
    tree.dump(os, 0);
    return os;
}

void config_tree::parse_string(ustring8 const& key, ustring8& head, ustring8& tail) const {
    ustring8 const whole = key;
    std::string_view rest = whole;
    head = take_segment(rest);
    tail = rest;
}

config_tree const* config_tree::find(std::string_view key) const {
    config_tree const* node = this;
    do {
        auto const found = node->children.find(take_segment(key));
        if (found == node->children.end()) {
            return nullptr;
        }
        node = found->second.get();
    } while (!key.empty());
    return node;
}

// Makes the nodes that are missing.
config_tree& config_tree::node_at(std::string_view key) {
    config_tree* node = this;
    do {
        node = &node->child_named(take_segment(key));
    } while (!key.empty());
    return *node;
}

// Nothing is inserted before there is a node.
config_tree& config_tree::child_named(ustring8 const& name) {
    auto place = children.lower_bound(name);
    if (place == children.end() || place->first != name) {
        child_map::mapped_type const node(generic::abilities::make_dynamic<config_tree>());
        place = children.emplace_hint(place, name, node);
    }
    return *place->second;
}

void config_tree::copy_children(config_tree const& source) {
    std::vector<config_tree*> targets = {this};
    walk(
        source,
        [&](ustring8 const& name, config_tree const& node) {
            config_tree& copy = targets.back()->child_named(name);
            copy.entry = node.entry;
            targets.push_back(&copy);
            return true;
        },
        [&] { targets.pop_back(); });
}

} // namespace VELDRIN_2_18::config
