#include "veldrin/debug/assert.hpp"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

namespace VELDRIN_2_18::debug {

namespace {

using hook_delegate = functor::delegate_t<assert_hook_function>;

// Constant-initialised, so that it can be asked before any other object of the program is built; the
// destructor is the release at process exit, after which an assertion finds no hook.
class hook_holder {
public:
    constexpr hook_holder() = default;
    hook_holder(hook_holder const&) = delete;
    hook_holder& operator=(hook_holder const&) = delete;
    ~hook_holder() { hold(nullptr); }

    hook_delegate const* get() const { return m_hook; }

    void hold(hook_delegate const* hook) {
        delete m_hook;
        m_hook = hook;
    }

private:
    hook_delegate const* m_hook = nullptr;
};

constinit hook_holder assert_hook;

void call_hook(char const* expression, char const* file, unsigned int line) {
    if (assert_hook.get() != nullptr) {
        (*assert_hook.get())(expression, file, line);
    }
}

} // namespace

void set_assert_hook(functor::delegate_t<assert_hook_function> const& hook) {
    assert_hook.hold(nullptr);
    if (!hook.empty()) {
        assert_hook.hold(new hook_delegate(hook));
    }
}

void set_assert_hook(types::nil_t const&) { assert_hook.hold(nullptr); }

bool is_assert_hook_set() { return assert_hook.get() != nullptr; }

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
