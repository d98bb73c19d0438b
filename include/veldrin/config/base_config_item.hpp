// File: veldrin/config/base_config_item.hpp
//
// One source of configuration values: a name, a tree of its own, and the loading and saving that the classes
// of sources fill in.
//
//     item.set("Window.Width = 640", 0);                                   // an item of any class
//     item.get_value("window.width")->second.as_int();                    // 640
//     item.set_array("colors", generic::varg_list({"red"}, {"blue"}), {});
//     item.get_value("colors.1")->second.as_string();                     // "blue"
//
// Keys are those of `config_tree`. In an item the last write of a key wins; which of several items answers is
// decided by their order in a list alone.

#pragma once

#include <iosfwd>
#include <list>
#include <utility>

#include "veldrin/config/config_token.hpp"
#include "veldrin/config/config_tree.hpp"
#include "veldrin/export.hpp"
#include "veldrin/generic/abilities/clone_ability.hpp"
#include "veldrin/generic/abilities/reference_count_pointer_ability.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/memory/pointers/rc_pointer.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::config {

class base_config_item;

// The items of a manager, in the order in which they are loaded and asked.
using item_list = std::list<memory::pointers::rc_pointer<base_config_item>>;

// Whether a byte ends a word in configuration text: one of " +-*^/%=;(),<>~&|{}\n\t[]?$" or a carriage
// return. The lexer itself does not ask.
VELDRIN_EXPORT bool is_token_delimiter(char byte);

class VELDRIN_EXPORT base_config_item
    : public generic::abilities::reference_count_pointer_ability<base_config_item>,
      public generic::abilities::clone_ability {
public:
    // No id, an empty tree.
    base_config_item() = default;

    // Both copy the id and, node by node, the tree.
    base_config_item(base_config_item const& other) = default;
    base_config_item& operator=(base_config_item const& other);

    ~base_config_item() override;

    // Fills the tree from the item's source, writing over what is there. The list holds the items that the
    // manager has; the loaded ones can tell a source where to look. True, here and in every class of items.
    virtual bool load();                       // here: nothing happens
    virtual bool load(item_list const& items); // here: `load()`

    // Writes the tree to the item's source. True, here and in every class of items.
    virtual bool save();                       // here: nothing happens
    virtual bool save(item_list const& items); // here: nothing happens

    // Empties the tree, in the classes that have a source to load it from again.
    virtual void unload(); // here: nothing happens

    // A copy on the heap: give it to an `rc_pointer` or delete it.
    virtual base_config_item* clone() const = 0;

    strings::ustring8 get_id();

    // As in `config_tree`: null if there is no such node; good until the node is erased.
    config_tree::entry_type const* get_value(strings::ustring8 const& key) const;

    // As in `config_tree`, names being relative to `key`.
    void get_array(strings::ustring8 const& key, config_tree::entry_list& out);
    void get_value_pair_array(strings::ustring8 const& key, config_tree::entry_list& out, bool recursive);

    // Splits a text at the first token of the type `delimiter`. The key is all tokens in front of it, without
    // blanks, tabs and line ends between them; the value, always a `ustring8`, all tokens behind it up to the
    // line end, without blanks and tabs between them. Strings lose their quotes and keep what they hold:
    // "a b = c \"d e\"" gives "ab" and "cd e". Without a delimiter all of the text is the key.
    std::pair<strings::ustring8, types::variant> make_key_value(strings::ustring8 const& text,
                                                                config_token::tok_types delimiter);

    // Sets one value. `flags` is 0, or `config_tree::flag_alias` for a value that names another key.
    void set(std::pair<strings::ustring8, types::variant> const& key_value, unsigned int flags);
    void set(strings::ustring8 const& key, types::variant const& value, unsigned int flags);

    // Sets what `make_key_value` splits at "=". A text without "=" is a key with an empty value.
    void set(strings::ustring8 const& text, unsigned int flags);

    // Makes `key` the head of an array, whose own value is nil, and sets the elements "key.0", "key.1", ...
    // to the values, names not regarded, with the flags of the same position. With no flags at all they are
    // 0. If there are some, but fewer than values, the elements behind them have the flags 0 and are stored
    // as the number that `as_uint32` makes of the value. Higher elements of a longer array that was there
    // stay.
    void set_array(strings::ustring8 const& key, generic::varg_list const& values,
                   generic::varg_list const& element_flags);

    // Writes id and tree for a reader.
    void dump(std::ostream& os);

protected:
    // Reads the token at the byte position `pos`, moves `pos` behind it, fills `tok` and returns its type.
    // Never fails: at or behind the end of the text the answer is `T_END`. `T_SPACE` and `T_END` leave
    // `tok.text` as it was. For a star and a slash the answer is `T_FSFS` while `tok.type` says `T_TIMESDIV`.
    // A position has 32 bits: a text ends for the lexer 3 bytes short of 4 GiB.
    static config_token::tok_types get_token(strings::ustring8 const& text, unsigned int& pos,
                                             config_token& tok);

    strings::ustring8 id;
    config_tree tree;

private:
    friend class file_item;

    static void set_elements(config_tree& parent, generic::varg_list const& values,
                             generic::varg_list const& element_flags);
};

// `item.dump(os)`.
VELDRIN_EXPORT std::ostream& operator<<(std::ostream& os, base_config_item& item);

} // namespace VELDRIN_2_18::config
