// Texts as `main` gets them: an array of pointers, with a null pointer behind the last one.

#pragma once

#include <string>
#include <utility>
#include <vector>

namespace support {

class argument_vector {
public:
    argument_vector(std::vector<std::string> texts) : m_texts(std::move(texts)) {
        for (std::string const& text : m_texts) {
            m_pointers.push_back(text.c_str());
        }
        m_pointers.push_back(nullptr);
    }
    argument_vector(argument_vector const&) = delete;
    argument_vector& operator=(argument_vector const&) = delete;

    // Without the null pointer.
    int count() const { return static_cast<int>(m_texts.size()); }

    char const* const* data() const { return m_pointers.data(); }

private:
    std::vector<std::string> m_texts;
    std::vector<char const*> m_pointers;
};

} // namespace support
