#include "veldrin/debug/assert.hpp"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace VELDRIN_2_18::debug {

namespace {

using hook_delegate = functor::delegate_t<assert_hook_function>;

// Constant-initialised, so that it can be asked before any other object of the program is built.
constinit hook_delegate const* assert_hook = nullptr;

// Nothing is held by the time that the old hook ends, so that its destructor cannot reach it.
void hold(hook_delegate const* hook) { delete std::exchange(assert_hook, hook); }

// The release at process exit. The pointer is no member: a compiler may drop what a destructor writes to its
// own object, and an assertion that fails later has to find no hook.
struct hook_release {
    ~hook_release() { hold(nullptr); }
} const release_at_exit;

void call_hook(char const* expression, char const* file, unsigned int line) {
    if (assert_hook != nullptr) {
        (*assert_hook)(expression, file, line);
    }
}

} // namespace

void set_assert_hook(functor::delegate_t<assert_hook_function> const& hook) {
    hold(nullptr);
    if (!hook.empty()) {
        hold(new hook_delegate(hook));
    }
}

void set_assert_hook(types::nil_t const&) { hold(nullptr); }

bool is_assert_hook_set() { return assert_hook != nullptr; }

namespace _private {

void ____________________ASSERT____________________(char const* const expression, char const* const file,
                                                    unsigned int line, char const* const) {
    call_hook(expression, file, line);
}

void _______________CONTEXT__ASSERT________________(char const* const expression, char const* const file,
                                                    unsigned int line, char const* const function, ...) {
    char text[256] = {};
    int const length =
        std::snprintf(text, sizeof text, "%s : ", expression == nullptr ? "(null)" : expression);

    std::va_list arguments;
    va_start(arguments, function);
    char const* const format = va_arg(arguments, char const*);
    if (length > 0 && length < static_cast<int>(sizeof text) && format != nullptr) {
        auto const used = static_cast<std::size_t>(length);
        std::vsnprintf(text + used, sizeof text - used, format, arguments);
    }
    va_end(arguments);

    call_hook(text, file, line);
}

} // namespace _private

} // namespace VELDRIN_2_18::debug
