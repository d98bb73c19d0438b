// File: veldrin/functor/delegate.hpp
//
// An owning holder of a callable: a value that deep-copies and may be empty.
//
//     functor::delegate_t<int(int)> twice = functor::function_t<int(int)>(&double_it);
//     twice(4);             // 8
//     twice = types::nil;   // empty again
//     twice(4);             // 0: a call of an empty delegate does nothing

#pragma once

#include <memory>
#include <utility>

#include "veldrin/functor/function_traits.hpp"
#include "veldrin/functor/function_type_interface.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::functor {

namespace _private {

template <class F>
class delegate_base;

template <class Result, class... Arguments>
class delegate_base<Result(Arguments...)> {
public:
    using callable_type = function_type_interface<Result(Arguments...)>;

    bool empty() const { return m_callable == nullptr; }
    explicit operator bool() const { return !empty(); }

    // An empty delegate does nothing and returns a value-initialised result, so only a delegate whose result
    // has such a value, or is void, can be called: not one that returns a reference. The callable may replace
    // or clear the delegate that calls it, but is destroyed then, and must not use itself any more.
    Result operator()(Arguments... arguments) const {
        if (empty()) {
            return Result();
        }
        return (*m_callable)(std::forward<Arguments>(arguments)...);
    }

protected:
    delegate_base() = default;
    explicit delegate_base(callable_type const& callable) : m_callable(callable.clone()) {}
    delegate_base(delegate_base const& other) : m_callable(clone_of(other)) {}
    delegate_base(delegate_base&&) noexcept = default;
    ~delegate_base() = default;

    delegate_base& operator=(delegate_base const& other) {
        if (this != &other) {
            m_callable = clone_of(other);
        }
        return *this;
    }
    delegate_base& operator=(delegate_base&&) noexcept = default;

    // What is held already cannot be released first: nothing would be left to clone.
    void hold(callable_type const& callable) {
        if (&callable != m_callable.get()) {
            release();
            m_callable.reset(callable.clone());
        }
    }
    void release() { m_callable.reset(); }

private:
    static std::unique_ptr<callable_type> clone_of(delegate_base const& other) {
        return std::unique_ptr<callable_type>(other.empty() ? nullptr : other.m_callable->clone());
    }

    std::unique_ptr<callable_type> m_callable;
};

} // namespace _private

// F is a function type or a pointer to one; either way the callable is a `function_type_interface` of the
// function type.
template <class F>
class delegate_t : public _private::delegate_base<typename traits::function_traits<F>::function_type> {
    using base = _private::delegate_base<typename traits::function_traits<F>::function_type>;

public:
    using callable_type = typename base::callable_type;

    delegate_t() = default;
    delegate_t(types::nil_t const&) {}

    // Holds a clone, so the argument may be a temporary. What the callable refers to must stay alive. The
    // callable held before is destroyed first: if the cloning throws, the delegate is left empty, and a
    // callable that is a part of it cannot be assigned. Assigning the held callable itself changes nothing.
    delegate_t(callable_type const& callable) : base(callable) {}

    delegate_t& operator=(callable_type const& callable) { return assign(callable); }
    delegate_t& operator=(types::nil_t const&) { return assign(types::nil); }

    delegate_t& assign(callable_type const& callable) {
        base::hold(callable);
        return *this;
    }
    delegate_t& assign(types::nil_t const&) {
        base::release();
        return *this;
    }

    // True for an empty delegate.
    bool equal(types::nil_t const&) const { return base::empty(); }

    friend bool operator==(delegate_t const& left, types::nil_t const&) { return left.empty(); }
    friend bool operator!=(delegate_t const& left, types::nil_t const&) { return !left.empty(); }
};

} // namespace VELDRIN_2_18::functor
