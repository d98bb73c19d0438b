// File: veldrin/config/commandline_item.hpp
//
// The source of what stands on the command line: the program's own name and its options.
//
//     // tool.exe -size=640 -include a b -verbose
//     config::commandline_item item(argc, argv);
//     item.load();
//     item.get_value("size")->second.as_int();             // 640
//     item.get_value("include.1")->second.as_string();     // "b"
//     item.get_value("verbose")->second.as_string();       // ""

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"

namespace VELDRIN_2_18::config {

// The id is "command line". What `load` understands:
//
//     -key=text       a value; ":" and ":=" separate as "=" does
//     -key=a,b,c      an array
//     -key$text       a value in which commas are plain text
//     -key            an empty value
//     -key text       a value in which commas are plain text
//     -key a b c      an array, which goes on up to an argument that starts with "-"
//
// "/" starts an option as "-" does: an absolute path is one, unless it stands behind the first value of an
// array. Exactly one such byte is taken off, so "--key" has the key "-key". Of ">=", "<=", "+=", "-=", "*="
// and "/=" the first byte stays on the key; "==" separates nothing. An argument that is neither an option nor
// a value is reported on the standard output and skipped. An option given twice is written twice.
//
// All values are texts, held as a `std::string` where the option has a value. They lose their double quotes.
// A run of blanks in an argument counts as the token in front of it once more: "a b" is the key or value
// "aab".
class VELDRIN_EXPORT commandline_item : public base_config_item {
public:
    // `argv` is null or ends in a null pointer, as `main` has it; nothing is read behind that one, whatever
    // `argc` says. The texts are not copied: they must outlive the item and its copies.
    commandline_item(unsigned int argc, char const* const* argv);

    commandline_item(commandline_item const& other);
    commandline_item& operator=(commandline_item const& other);

    ~commandline_item() override;

    // What was passed.
    int get_argc() const;
    char const* const* get_argv() const;

    // Sets, unless `argv` is null, from `argv[0]`
    //     application.name              what stands behind the last backslash: "my.app.exe"
    //     application.name.extention    what stands behind the last dot of that: "exe"; not set without a dot
    //     application.name.raw          what stands in front of it, without the dots: "myapp"
    // Only the backslash separates, so "./tool" has the extension "/tool" and an empty raw name; a name
    // without a dot has an empty raw name too. One backslash at the very end, or one dot, separates nothing.
    // Then it reads the options.
    bool load() override;

    // The list is not looked at.
    bool load(item_list const& items) override;

    void unload() override;

    base_config_item* clone() const override;

private:
    class option_reader;

    void set_application_name(char const* path);

    unsigned int m_argc;
    char const* const* m_argv;
};

} // namespace VELDRIN_2_18::config
