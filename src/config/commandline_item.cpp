#include "veldrin/config/commandline_item.hpp"

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

#include "veldrin/generic/abilities/make_dynamic.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/strings/split.hpp"

namespace VELDRIN_2_18::config {

using generic::varg_list;
using strings::ustring8;

namespace {

constexpr char const* own_id = "command line";

bool is_option(char const* argument) { return *argument == '-' || *argument == '/'; }

bool is_byte(config_token const& token, char byte) {
    return token.type == config_token::T_NON_ALPHA_NUM && token.text.front() == byte;
}

void warn(char const* argument) {
    // In the static library an object of the program may be built, and load, before this file's own
    // <iostream>.
    std::ios_base::Init const console;
    std::cout << "Warning! unknown key:" << argument << "\nIgnoring key and continuing\n";
}

} // namespace

// One function a production. Each one that reads tokens has a token of its own: a run of blanks leaves the
// token's text as it was and it is appended once more, but the text of a key never gets into its value.
class commandline_item::option_reader {
public:
    explicit option_reader(commandline_item& item) : m_item(item) {}

    // arguments: {option | any other argument}
    void read() {
        while (has_argument()) {
            char const* const argument = take_argument();
            if (is_option(argument)) {
                read_option(argument);
            } else {
                warn(argument);
            }
        }
    }

private:
    enum class key_end { separator, literal, argument };

    bool has_argument() const { return m_index < m_item.m_argc && m_item.m_argv[m_index] != nullptr; }
    char const* argument() const { return m_item.m_argv[m_index]; }
    char const* take_argument() { return m_item.m_argv[m_index++]; }

    // option: prefix key "$" text | prefix key separator elements | prefix key [values]
    void read_option(ustring8 const& argument) {
        unsigned int position = 1;
        ustring8 key;
        switch (read_key(argument, position, key)) {
        case key_end::literal:
            m_item.set(key, read_text(argument, position), 0);
            break;
        case key_end::separator:
            store(key, read_elements(argument, position));
            break;
        case key_end::argument:
            if (has_argument() && !is_option(this->argument())) {
                store(key, read_values());
            } else {
                m_item.set(key, 1);
            }
            break;
        }
    }

    // key: {token}; what ends it is taken too.
    static key_end read_key(ustring8 const& text, unsigned int& position, ustring8& key) {
        config_token token;
        while (get_token(text, position, token) != config_token::T_END) {
            switch (token.type) {
            case config_token::T_EQ:
            case config_token::T_COLON:
            case config_token::T_COLONEQ:
                return key_end::separator;
            case config_token::T_GTEQ:
            case config_token::T_LTEQ:
            case config_token::T_PLUSEQ:
            case config_token::T_MINUSEQ:
            case config_token::T_TIMESEQ:
            case config_token::T_DIVEQ:
                key += token.text.front();
                return key_end::separator;
            default:
                if (is_byte(token, '$')) {
                    return key_end::literal;
                }
                key += token.text;
            }
        }
        return key_end::argument;
    }

    // text: {token}
    static std::string read_text(ustring8 const& text, unsigned int position) {
        std::string value;
        config_token token;
        while (get_token(text, position, token) != config_token::T_END) {
            value += token.text;
        }
        return value;
    }

    // elements: text {"," text}
    static varg_list read_elements(ustring8 const& text, unsigned int position) {
        varg_list elements;
        std::string value;
        config_token token;
        while (get_token(text, position, token) != config_token::T_END) {
            if (is_byte(token, ',')) {
                elements.push_back(types::variant(value));
                value.clear();
            } else {
                value += token.text;
            }
        }
        elements.push_back(types::variant(value));
        return elements;
    }

    // values: argument {argument}; behind the first one only a "-" starts an option.
    varg_list read_values() {
        varg_list values;
        do {
            values.push_back(types::variant(read_text(take_argument(), 0)));
        } while (has_argument() && *argument() != '-');
        return values;
    }

    void store(ustring8 const& key, varg_list const& values) {
        if (values.count() > 1) {
            m_item.set_array(key, values, varg_list());
        } else {
            m_item.set(key, values[0].value(), 0);
        }
    }

    commandline_item& m_item;
    unsigned int m_index = 1;
};

commandline_item::commandline_item(unsigned int argc, char const* const* argv) : m_argc(argc), m_argv(argv) {
    id = own_id;
}

commandline_item::commandline_item(commandline_item const& other)
    : base_config_item(other), m_argc(other.m_argc), m_argv(other.m_argv) {
    id = own_id;
}

commandline_item& commandline_item::operator=(commandline_item const& other) = default;

commandline_item::~commandline_item() = default;

int commandline_item::get_argc() const { return static_cast<int>(m_argc); }

char const* const* commandline_item::get_argv() const { return m_argv; }

bool commandline_item::load() {
    if (m_argv != nullptr) {
        set_application_name(m_argv[0]);
        option_reader(*this).read();
    }
    return true;
}

bool commandline_item::load(item_list const&) { return load(); }

void commandline_item::unload() { tree.erase(); }

base_config_item* commandline_item::clone() const {
    return generic::abilities::make_dynamic<commandline_item>(*this);
}

void commandline_item::set_application_name(char const* path) {
    std::vector<std::string> const folders =
        strings::split_string(std::string(path != nullptr ? path : ""), "\\", 0);
    std::string const base = folders.empty() ? "" : folders.back();
    set("application.name", base, 0);
    std::vector<std::string> const parts = strings::split_string(base, ".", 0);
    if (parts.size() > 1) {
        set("application.name.extention", parts.back(), 0);
    }
    std::string raw;
    for (std::size_t index = 0; index + 1 < parts.size(); ++index) {
        raw += parts[index];
    }
    set("application.name.raw", raw, 0);
}

} // namespace VELDRIN_2_18::config
