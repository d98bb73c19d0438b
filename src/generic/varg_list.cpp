#include "veldrin/generic/varg_list.hpp"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace VELDRIN_2_18::generic {

namespace {

template <class Iterator>
Iterator find_name(Iterator first, Iterator last, strings::ustring8 const& name) {
    return std::find_if(first, last, [&](argument const& candidate) { return candidate.name() == name; });
}

// Appends an argument made of `parts`, unless one of that name is there.
template <class... Parts>
bool append(std::vector<argument>& arguments, strings::ustring8 const& name, Parts const&... parts) {
    if (!name.empty() && find_name(arguments.begin(), arguments.end(), name) != arguments.end()) {
        return false;
    }
    arguments.emplace_back(parts...);
    return true;
}

template <class Arguments>
auto& checked_at(Arguments& arguments, std::uint64_t index) {
    if (index >= arguments.size()) {
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return arguments[index];
}

} // namespace

argument const& _private::nil_argument() {
    static argument const shared;
    return shared;
}

varg_list::varg_list(types::nil_t const&) {}

varg_list::varg_list(argument const& a1, argument const& a2, argument const& a3, argument const& a4,
                     argument const& a5, argument const& a6, argument const& a7, argument const& a8,
                     argument const& a9, argument const& a10, argument const& a11, argument const& a12,
                     argument const& a13, argument const& a14, argument const& a15, argument const& a16,
                     argument const& a17, argument const& a18, argument const& a19, argument const& a20,
                     argument const& a21, argument const& a22, argument const& a23, argument const& a24,
                     argument const& a25, argument const& a26) {
    std::initializer_list<argument const*> const pack = {&a1,  &a2,  &a3,  &a4,  &a5,  &a6,  &a7,  &a8,  &a9,
                                                         &a10, &a11, &a12, &a13, &a14, &a15, &a16, &a17, &a18,
                                                         &a19, &a20, &a21, &a22, &a23, &a24, &a25, &a26};
    auto const pack_end = std::find_if(pack.begin(), pack.end(),
                                       [](argument const* candidate) { return *candidate == types::nil; });
    m_arguments.reserve(static_cast<std::size_t>(pack_end - pack.begin()));
    std::for_each(pack.begin(), pack_end, [this](argument const* next) { push_back(*next); });
}

bool varg_list::has_argument(strings::ustring8 const& name) const { return find(name) != end(); }

argument const& varg_list::at(strings::ustring8 const& name) const {
    auto const found = find(name);
    return found != end() ? *found : _private::nil_argument();
}

argument& varg_list::at(std::uint64_t index) { return checked_at(m_arguments, index); }

argument const& varg_list::at(std::uint64_t index) const { return checked_at(m_arguments, index); }

varg_list::iterator varg_list::find(strings::ustring8 const& name) { return find_name(begin(), end(), name); }

varg_list::const_iterator varg_list::find(strings::ustring8 const& name) const {
    return find_name(begin(), end(), name);
}

void varg_list::clear() { m_arguments.clear(); }

void varg_list::erase() { clear(); }

void varg_list::erase(iterator position) { m_arguments.erase(position); }

void varg_list::erase(iterator first, iterator last) { m_arguments.erase(first, last); }

void varg_list::erase(strings::ustring8 const& name) {
    auto const found = find(name);
    if (found != end()) {
        erase(found);
    }
}

void varg_list::erase(std::uint64_t index) {
    if (index < count()) {
        erase(begin() + static_cast<std::ptrdiff_t>(index));
    }
}

// The copy comes first: once it is made, nothing can fail.
varg_list& varg_list::operator=(varg_list const& other) {
    if (this != &other) {
        m_arguments = std::vector<argument>(other.m_arguments);
    }
    return *this;
}

varg_list& varg_list::operator=(varg_list&& other) noexcept {
    std::vector<argument> taken(std::move(other.m_arguments));
    m_arguments.swap(taken);
    return *this;
}

bool varg_list::push_back(argument const& value) { return append(m_arguments, value.name(), value); }

bool varg_list::push_back(strings::ustring8 const& name, types::variant const& value) {
    return append(m_arguments, name, name, value);
}

} // namespace VELDRIN_2_18::generic
