// File: veldrin/config/file_item.hpp
//
// The source of what stands in a `.cfg` file.
//
//     # sync.cfg
//     target = "D:\my files"
//     [limits]
//     size = 640            // in the section: limits.size
//     [filter]
//     include[] = *.cpp,
//                 *.hpp     // the array filter.include
//
//     config::file_item item("sync.cfg");
//     item.load();
//     item.get_value("limits.size")->second.as_int();     // 640

#pragma once

#include "veldrin/config/base_config_item.hpp"
#include "veldrin/export.hpp"
#include "veldrin/namespace.hpp"
#include "veldrin/strings/ustring.hpp"

namespace VELDRIN_2_18::config {

// The id is "standard file", for every item of this class. What a file holds:
//
//     # text, // text       a comment up to the line end, in front of a key or in a value
//     [name]                puts "name." in front of all keys that follow
//     []                    nothing in front of the keys any more
//     key = value           a text, up to the line end; an empty one is not stored
//     key[] = a, b, c       an array; it goes on behind a comma at the line end
//     "any text"            in a key, a name or a value: keeps its blanks, loses its quotes
//
// Blanks and tabs outside of quotes are dropped, in keys and names line ends too: a line without a "=" is the
// start of the next key. Nothing is unescaped. A comment is cut into tokens like everything else, so a double
// quote in it swallows all up to the next one, on whatever line that is. An array whose last element is empty
// is not stored; the elements in front of that one become the first of the next array.
class VELDRIN_EXPORT file_item : public base_config_item {
public:
    file_item(strings::ustring8 const& filename);

    file_item(file_item const& other);
    file_item& operator=(file_item const& other);

    ~file_item() override;

    // The file that is loaded and saved: the one passed or, after `load(items)`, the one chosen.
    strings::ustring8 get_filename() const;

    // Chooses the file and loads it. The choice falls on the first of these:
    // - the value of "cfg_file" in one of the items, from the front, if it names a file that can be opened;
    // - the name that this item has, whether there is such a file or not;
    // - the value of "application.name.raw" in one of the items and ".cfg", if that can be opened.
    bool load(item_list const& items) override;

    // Loads the file. What the tree holds stays, if the file does not set it anew, and so does all of it if
    // the file cannot be read. For files of 2 GiB and more see `system::load_file`.
    bool load() override;

    // Replaces the file by one that holds what is written of the tree; what cannot be written is lost without
    // a word. Each node that is only passed through, of flag word 0, becomes a section with the nodes right
    // below it that have a value. Not everything is written, and not everything written reads back:
    // - a key is written in every section whose name is as long as what stands in front of its last segment:
    //   a key of one segment in none, one below a key with a value only where another section fits;
    // - the key behind an array is not written in the section of that array;
    // - array elements are in byte order of their names: 0, 1, 10, 2;
    // - behind the element 0 of an array all keys are written as elements, wherever they belong, up to the
    //   first whose last segment does not start with a number, in the radix that its start tells, or with 0;
    // - a name or value with a blank, a tab or a line end is quoted, no other: a value with "#", "//" or, in
    //   an array, a comma reads back cut;
    // - a double quote is written as it is, and a backslash, at the end of a quoted value too;
    // - the "=" behind a key makes one operator with a "=" at the front of the value, and with one of the
    //   bytes "=+-*<>:" at the end of the key;
    // - neither does a key that starts with "#" or "[", ends in "[]" or holds a "=" read back as it was, nor
    //   a section with a "]" in its name;
    // - an empty value and a nil one read back as none; an array whose last element is empty runs on into the
    //   next line;
    // - of the flags only those of an array read back: an alias becomes a text.
    bool save() override;

    // Writes nothing.
    bool save(item_list const& items) override;

    // The name of the file stays.
    void unload() override;

    base_config_item* clone() const override;

protected:
    // As `load()`.
    void load_file();

    // Moves `pos`, behind the token that starts a comment, to the line end, which is left, or to the end of
    // the text.
    void parse_comment(strings::ustring8 const& text, unsigned int& pos);

private:
    class reader;

    strings::ustring8 m_filename;
};

} // namespace VELDRIN_2_18::config
