// File: veldrin/debug/assert.hpp
//
// Internal consistency checks. A failed one calls the process-wide hook, if there is one, and goes on: it
// never stops the program, unless the hook itself throws or exits.
//
//     debug::set_assert_hook(functor::function_t<debug::assert_hook_function>(&report));
//     VELDRIN_ASSERT(count <= capacity, "app::buffer::append");
//
// The hook is an unguarded global: `set_assert_hook` must not race with a failing assertion.

#pragma once

#include "veldrin/export.hpp"
#include "veldrin/functor/delegate.hpp"
#include "veldrin/functor/function.hpp"
#include "veldrin/types/nil.hpp"

namespace VELDRIN_2_18::debug {

// Takes the expression, the file and the line. What the hook writes to the line is dropped.
using assert_hook_function = void (*)(char const* const, char const* const, unsigned int&);

// Replaces the hook by a clone of the delegate's callable; an empty delegate clears it. What the callable
// refers to must outlive the hook, which is destroyed at process exit. A hook may replace or clear itself;
// its callable is destroyed by that and must not use itself any more.
VELDRIN_EXPORT void set_assert_hook(functor::delegate_t<assert_hook_function> const& hook);

// Clears the hook.
VELDRIN_EXPORT void set_assert_hook(types::nil_t const&);

// True while a hook is held.
VELDRIN_EXPORT bool is_assert_hook_set();

namespace _private {

// Hands the expression to the hook as it is.
VELDRIN_EXPORT void ____________________ASSERT____________________(char const* const expression,
                                                                   char const* const file, unsigned int line,
                                                                   char const* const function);

// The first variadic argument is a `char const*` in the form of `printf`, the others are its arguments. The
// hook gets "expression : formatted context", cut to 255 bytes; with a null format it gets "expression : ".
// The hook gets "(null)" for a null expression.
VELDRIN_EXPORT void _______________CONTEXT__ASSERT________________(char const* const expression,
                                                                   char const* const file, unsigned int line,
                                                                   char const* const function, ...);

} // namespace _private

} // namespace VELDRIN_2_18::debug

// The condition is evaluated once, in every build.
#define VELDRIN_ASSERT(condition, function_literal)                                                          \
    ((condition) ? static_cast<void>(0)                                                                      \
                 : ::VELDRIN_2_18::debug::_private::____________________ASSERT____________________(          \
                       #condition, __FILE__, __LINE__, function_literal))
