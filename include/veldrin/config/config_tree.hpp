// File: veldrin/config/config_tree.hpp
//
// The store behind every configuration source: named nodes, each with one entry (a flag word and a value) and
// any number of children.
//
//     config::config_tree tree;
//     tree.set_node("Window.Width", 640, 0);
//     tree.get_node("window/width")->second.as_int();     // 640
//     tree.get_node("window")->first;                     // 0: only passed through, its value is true
//     tree.get_node("height");                            // null
//
// A key is a sequence of segments. Each of ".", "/" and "\" ends one, and nothing escapes them. Segments are
// lowered byte by byte by the process's `tolower`, so keys have no case. One separator at the very end adds
// nothing; one at the start, and each further one in a row, makes a segment with an empty name: "a." is "a",
// "a.." is "a" and an empty segment below it. The empty key is one empty segment. Any bytes are a key, of any
// length and any number of segments: no operation recurses into the depth of a tree.

#pragma once

#include <iosfwd>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::config {

namespace _private {
class cfg_writer;
}

class VELDRIN_EXPORT config_tree : public generic::abilities::reference_count_pointer_ability<config_tree>,
                                   public generic::abilities::clone_ability {
public:
    // The bits of a flag word: the node was written, as `set_node` notes at every write; it is the head of an
    // array, whose elements are the children 0, 1, ...; its value is the text of another key. Further bits
    // are kept and mean nothing.
    static constexpr unsigned int flag_set = 1;
    static constexpr unsigned int flag_array = 2;
    static constexpr unsigned int flag_alias = 4;

    // Flag word and value.
    using entry_type = std::pair<unsigned int, types::variant>;

    // Names with their entries.
    using entry_list = std::vector<std::pair<strings::ustring8, entry_type>>;

    // No children. The tree's own entry is that of a node which is only passed through: 0 and true.
    config_tree();

    // Copies are deep. Either side of an assignment may be a node of the other. The pointers that `get_node`
    // gave into an assigned tree are no longer good.
    config_tree(config_tree const& other);
    config_tree& operator=(config_tree const& other);

    ~config_tree() override;

    // A copy on the heap: give it to an `rc_pointer` or delete it.
    config_tree* clone() const;

    // Drops all children. The tree's own entry stays.
    void erase();

    // Gives the node of that key a copy of the value and the flag word `flags | flag_set`, in place of what
    // it had. Its children stay. Nodes missing on the way are made, with the flag word 0 and the value true;
    // those that are there keep their entries. If memory runs out, the tree is left as far as it had come.
    void set_node(strings::ustring8 const& key, types::variant const& value, unsigned int flags);

    // Null if there is no such node. The pointer is good until the node is erased, and shows what is written
    // to it later.
    entry_type const* get_node(strings::ustring8 const& key) const;

    // Appends the elements of the array at `key`, named "0", "1", ..., in this order and up to the first gap.
    // Appends nothing if there is no such node or its flag word lacks `flag_array`.
    void get_array(strings::ustring8 const& key, entry_list& out);

    // Appends the children of the node at `key`, siblings in byte order of their names ("10" before "2"), and
    // if `recursive` is true each one's subtree right behind it. Names are relative to the node:
    // "width", "width.minimum". Appends nothing if there is no such node.
    //
    // Here the empty key means the tree itself, and then `prefix`, unless it is empty, and a "." stand in
    // front of each name. With any other key `prefix` is ignored. Below a node whose relative name is empty,
    // names have nothing in front.
    void get_value_pair_array(strings::ustring8 const& key, entry_list& out, bool recursive,
                              strings::ustring8 const& prefix);

    // Writes the subtree for a reader, each line behind `depth` times "|\t\t". A node with the flag word 0
    // shows as "name : true", any other with flag word and text: "name : 1 640". The stream's flags, width
    // and locale have no influence.
    void dump(std::ostream& os, int depth);

protected:
    // `head` becomes the first segment of the key, lowered; `tail` what stands behind the separator that ends
    // it, unchanged, or nothing.
    void parse_string(strings::ustring8 const& key, strings::ustring8& head, strings::ustring8& tail) const;

    using child_map = std::map<strings::ustring8, memory::pointers::rc_pointer<config_tree>>;

    child_map children;
    entry_type entry;

private:
    friend class base_config_item;
    friend class file_item;
    friend class _private::cfg_writer;

    template <class Enter, class Leave>
    static void walk(config_tree const& top, Enter enter, Leave leave);

    config_tree const* find(std::string_view key) const;
    config_tree& node_at(std::string_view key);
    config_tree& child_named(strings::ustring8 const& name);
    void copy_children(config_tree const& source);
};

// `tree.dump(os, 0)`.
VELDRIN_EXPORT std::ostream& operator<<(std::ostream& os, config_tree& tree);

} // namespace VELDRIN_2_18::config
