// File: veldrin/generic/varg_list.hpp
//
// A variable number of values for an operation: arguments in order, those with a name unique by it. A list is
// built in one expression; a nil argument ends it.
//
//     generic::varg_list list({"file", "notes.txt"}, {"size", 512});
//     list["size"].value().as_int();          // 512
//     list["owner"] == types::nil;            // true: there is none
//     list.push_back("size", 1024);           // false: the first value stays
//
// Names match byte for byte: no case folding, no normalisation. A lookup is a scan from the front. The empty
// name finds the first argument without a name. When memory runs out, the list is as it was.

#pragma once

#include <cstdint>
#include <vector>

#include "veldrin/export.hpp"
#include "veldrin/generic/argument.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"
#include "veldrin/types/nil.hpp"
#include "veldrin/types/variant.hpp"

namespace VELDRIN_2_18::generic {

namespace _private {

// The one shared nil argument.
VELDRIN_EXPORT argument const& nil_argument();

// Static objects of a file that includes this header are built after the shared nil argument and destroyed
// before it.
inline argument const& built_before_its_users = nil_argument();

} // namespace _private

class VELDRIN_EXPORT varg_list {
public:
    using iterator = std::vector<argument>::iterator;
    using const_iterator = std::vector<argument>::const_iterator;

    varg_list() = default;
    varg_list(varg_list const&) = default;
    varg_list(varg_list&&) noexcept = default;
    varg_list(types::nil_t const&);

    // The arguments up to the first nil one: that one and all behind it are dropped. Of several with one name
    // the first is taken.
    varg_list(argument const& a1, argument const& a2 = _private::nil_argument(),
              argument const& a3 = _private::nil_argument(), argument const& a4 = _private::nil_argument(),
              argument const& a5 = _private::nil_argument(), argument const& a6 = _private::nil_argument(),
              argument const& a7 = _private::nil_argument(), argument const& a8 = _private::nil_argument(),
              argument const& a9 = _private::nil_argument(), argument const& a10 = _private::nil_argument(),
              argument const& a11 = _private::nil_argument(), argument const& a12 = _private::nil_argument(),
              argument const& a13 = _private::nil_argument(), argument const& a14 = _private::nil_argument(),
              argument const& a15 = _private::nil_argument(), argument const& a16 = _private::nil_argument(),
              argument const& a17 = _private::nil_argument(), argument const& a18 = _private::nil_argument(),
              argument const& a19 = _private::nil_argument(), argument const& a20 = _private::nil_argument(),
              argument const& a21 = _private::nil_argument(), argument const& a22 = _private::nil_argument(),
              argument const& a23 = _private::nil_argument(), argument const& a24 = _private::nil_argument(),
              argument const& a25 = _private::nil_argument(), argument const& a26 = _private::nil_argument());

    bool has_argument(strings::ustring8 const& name) const;

    iterator begin() { return m_arguments.begin(); }
    iterator end() { return m_arguments.end(); }
    const_iterator begin() const { return m_arguments.begin(); }
    const_iterator end() const { return m_arguments.end(); }

    // The argument of that name, or the shared nil argument.
    argument const& at(strings::ustring8 const& name) const;
    argument const& operator[](strings::ustring8 const& name) const { return at(name); }

    // Both throw `std::out_of_range` "invalid vector<T> subscript" for an index not below the count.
    argument& at(std::uint64_t index);
    argument const& at(std::uint64_t index) const;
    argument& operator[](std::uint64_t index) { return at(index); }
    argument const& operator[](std::uint64_t index) const { return at(index); }

    // `end()` if there is no argument of that name.
    iterator find(strings::ustring8 const& name);
    const_iterator find(strings::ustring8 const& name) const;

    bool empty() const { return m_arguments.empty(); }

    // True for an empty list. A list that holds one nil argument is not nil.
    bool equal(types::nil_t const&) const { return empty(); }
    bool operator==(types::nil_t const&) const { return empty(); }
    bool operator!=(types::nil_t const&) const { return !empty(); }

    void clear();
    void erase();

    // The iterators must be valid. The order of the rest is kept.
    void erase(iterator position);
    void erase(iterator first, iterator last);

    // No effect if there is no such argument.
    void erase(strings::ustring8 const& name);
    void erase(std::uint64_t index);

    std::uint64_t count() const { return m_arguments.size(); }
    std::uint64_t size() const { return count(); }

    // Replaces the whole content. A list that is assigned to itself, by a move too, keeps what it has.
    varg_list& operator=(varg_list const& other);
    varg_list& operator=(varg_list&& other) noexcept;
    varg_list const& assign(varg_list const& other) { return *this = other; }

    // Appends. False, with the list unchanged, if an argument of that name is there already. An argument
    // without a name always goes in, a nil one too. What is passed may be part of this list.
    bool push_back(argument const& value);
    bool push_back(strings::ustring8 const& name, types::variant const& value);

private:
    std::vector<argument> m_arguments;
};

} // namespace VELDRIN_2_18::generic
