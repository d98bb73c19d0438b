#include "platform/path.hpp"

namespace VELDRIN_2_18::platform {

path::path(std::optional<path_text> text)
    : m_names_something(text.has_value() && text->find(path_text::value_type{}) == path_text::npos) {
    if (m_names_something) {
        m_text = std::move(*text);
    }
}

} // namespace VELDRIN_2_18::platform
