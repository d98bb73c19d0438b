// The exact calls by which the composite operations reach the file system, on one that exists only here.

#include "veldrin/system/file_utility.hpp"

#include <algorithm>
#include <cstddef>
#include <istream>
#include <map>
#include <new>
#include <ostream>
#include <set>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/directory.hpp"
#include "platform/file_stream.hpp"
#include "platform/file_system.hpp"
#include "support/ascii_text.hpp"
#include "support/unit_texts.hpp"

namespace {

using namespace VELDRIN_2_18;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;

// Paths are written with "/" in these tests, whatever the platform's separator is.
std::string in_test_form(platform::path_text const& text) {
    std::string ascii;
    for (auto const unit : text) {
        ascii += unit == platform::path_separator ? '/' : static_cast<char>(unit);
    }
    return ascii;
}

template <class Text>
Text in_system_form(std::string_view ascii) {
    Text text = support::text_of<Text>(ascii);
    std::replace(text.begin(), text.end(), static_cast<typename Text::value_type>('/'),
                 static_cast<typename Text::value_type>(platform::path_separator));
    return text;
}

constexpr platform::entry_status readable_file = {true, false, true, true};
constexpr platform::entry_status unreadable_file = {true, false, true, false};
constexpr platform::entry_status readable_directory = {true, true, false, true};
constexpr platform::entry_status unreadable_directory = {true, true, false, false};
constexpr platform::entry_status device = {true, false, false, true};

struct fake_file_system {
    std::map<std::string, platform::entry_status> entries;
    std::map<std::string, platform::directory_identity> identities;
    std::map<std::string, std::vector<std::string>> names;
    std::set<std::string> can_be_made;
    int opens_that_succeed = 1000;
    // There is no memory for it.
    std::string const name_too_long = "too long";
    std::unique_ptr<std::istream> (*reader)() = nullptr;
    std::unique_ptr<std::ostream> (*writer)() = nullptr;

    struct enumeration {
        std::vector<std::string> names;
        std::size_t next;
    };
    std::vector<enumeration> enumerations;
    std::vector<std::string> calls;
};

fake_file_system* fake = nullptr;

std::string number_of(platform::directory_handle handle) {
    return std::to_string(static_cast<std::uint64_t>(handle));
}

bool deliver(platform::directory_handle handle, platform::path_text& entry) {
    fake_file_system::enumeration& current = fake->enumerations.at(static_cast<std::size_t>(handle) - 1);
    if (current.next == current.names.size()) {
        return false;
    }
    std::string const& name = current.names[current.next++];
    if (name == fake->name_too_long) {
        throw std::bad_alloc();
    }
    entry = support::text_of<platform::path_text>(name);
    return true;
}

} // namespace

namespace VELDRIN_2_18::platform {

entry_status status_of(path const& path) {
    fake->calls.push_back("status " + in_test_form(path.text()));
    auto const found = fake->entries.find(in_test_form(path.text()));
    return found == fake->entries.end() ? entry_status() : found->second;
}

std::optional<directory_identity> identity_of(path const& directory) {
    auto const found = fake->identities.find(in_test_form(directory.text()));
    return found == fake->identities.end() ? std::nullopt : std::optional(found->second);
}

bool create_directory(path const& path) {
    fake->calls.push_back("create " + in_test_form(path.text()));
    return fake->can_be_made.count(in_test_form(path.text())) != 0;
}

void make_directory(path const& path) { fake->calls.push_back("make " + in_test_form(path.text())); }

void rename_entry(path const& new_path, path const& old_path) {
    fake->calls.push_back("rename " + in_test_form(old_path.text()) + " to " + in_test_form(new_path.text()));
}

void remove_file(path const& path) { fake->calls.push_back("remove file " + in_test_form(path.text())); }

void remove_directory(path const& path) {
    fake->calls.push_back("remove directory " + in_test_form(path.text()));
}

directory_handle open_directory(path const& directory, path_text& entry) {
    std::string const name = in_test_form(directory.text());
    auto const found = fake->names.find(name);
    if (found == fake->names.end() || fake->opens_that_succeed-- <= 0) {
        fake->calls.push_back("open " + name + " fails");
        return directory_handle::none;
    }
    fake->enumerations.push_back({found->second, 0});
    directory_handle const handle{fake->enumerations.size()};
    fake->calls.push_back("open " + name + " as " + number_of(handle));
    deliver(handle, entry);
    return handle;
}

bool next_entry(directory_handle handle, path_text& entry) {
    fake->calls.push_back("next " + number_of(handle));
    return deliver(handle, entry);
}

void close_directory(directory_handle handle) { fake->calls.push_back("close " + number_of(handle)); }

std::unique_ptr<std::istream> open_for_reading(path const&) { return fake->reader(); }

std::unique_ptr<std::ostream> open_for_writing(path const&) { return fake->writer(); }

} // namespace VELDRIN_2_18::platform

namespace {

template <class Text>
class file_utility_calls : public testing::Test {
protected:
    file_utility_calls() { fake = &m_fake; }
    ~file_utility_calls() override { fake = nullptr; }

    static Text path(std::string_view ascii) { return in_system_form<Text>(ascii); }

    static std::vector<Text> paths(std::vector<std::string_view> const& ascii) {
        std::vector<Text> texts;
        for (std::string_view const text : ascii) {
            texts.push_back(path(text));
        }
        return texts;
    }

    std::vector<std::string> const& calls() const { return m_fake.calls; }

    // The calls of the enumeration alone.
    std::vector<std::string> walk_calls() const {
        std::vector<std::string> calls = m_fake.calls;
        std::erase_if(calls, [](std::string const& call) { return call.starts_with("status "); });
        return calls;
    }

    fake_file_system m_fake;
};

using text_classes = testing::Types<ustring8, ustring16, ustring32>;
TYPED_TEST_SUITE(file_utility_calls, text_classes);

using call_list = std::vector<std::string>;

// ------------------------------------------------------------------------------------------------------------
// create_directory
// ------------------------------------------------------------------------------------------------------------

TYPED_TEST(file_utility_calls, create_directory_of_a_directory_makes_nothing) {
    this->m_fake.entries["a/b"] = readable_directory;
    EXPECT_TRUE(system::create_directory(this->path("a/b")));
    EXPECT_EQ(this->calls(), call_list{"status a/b"});
}

TYPED_TEST(file_utility_calls, create_directory_looks_for_a_directory_and_not_for_a_file) {
    this->m_fake.entries["a"] = readable_file;
    EXPECT_FALSE(system::create_directory(this->path("a")));
    EXPECT_EQ(this->calls(), (call_list{"status a", "create ", "create a"}));
}

struct chain_case {
    char const* path;
    std::set<std::string> can_be_made;
    call_list made;
    bool result;
};

chain_case const chains[] = {
    {"a", {"a"}, {"create ", "create a"}, true},
    {"a/b/c", {"a", "a/b", "a/b/c"}, {"create ", "create a", "create a/b", "create a/b/c"}, true},
    // Only the outcome of the last level counts.
    {"a/b/c", {"a/b/c"}, {"create ", "create a", "create a/b", "create a/b/c"}, true},
    {"a/b/c", {"", "a", "a/b"}, {"create ", "create a", "create a/b", "create a/b/c"}, false},
    // With a separator at the end it was made as part of the walk.
    {"a/b/", {"a/b"}, {"create ", "create a", "create a/b"}, true},
    {"a/b/", {"a", "a/b/"}, {"create ", "create a", "create a/b"}, false},
    {"a/b//", {"a/b"}, {"create ", "create a", "create a/b", "create a/b/"}, false},
    {"a/", {"a"}, {"create ", "create a"}, true},
    // The prefix of length 0 gives the first outcome.
    {"", {}, {"create "}, false},
    {"", {""}, {"create "}, true},
    // A separator at index 0 never ends a component.
    {"/", {}, {"create "}, false},
    {"/", {""}, {"create "}, true},
    {"/a", {"/a"}, {"create ", "create /a"}, true},
    {"/a/b", {"/a/b"}, {"create ", "create /a", "create /a/b"}, true},
    {"//a", {"//a"}, {"create ", "create /", "create //a"}, true},
    {"//", {"/"}, {"create ", "create /"}, true},
    {"a//b", {"a//b"}, {"create ", "create a", "create a/", "create a//b"}, true},
    {"c:/a", {"c:/a"}, {"create ", "create c:", "create c:/a"}, true},
    {"./a", {"./a"}, {"create ", "create .", "create ./a"}, true},
};

TYPED_TEST(file_utility_calls, create_directory_makes_every_prefix) {
    for (chain_case const& current : chains) {
        this->m_fake.calls.clear();
        this->m_fake.can_be_made = current.can_be_made;
        EXPECT_EQ(system::create_directory(this->path(current.path)), current.result) << current.path;
        call_list expected = {std::string("status ") + current.path};
        expected.insert(expected.end(), current.made.begin(), current.made.end());
        EXPECT_EQ(this->calls(), expected) << current.path;
    }
}

TYPED_TEST(file_utility_calls, create_directory_knows_one_separator) {
    // The other platform's is a character like any other.
    std::string const other = platform::path_separator == '/' ? "a\\b" : "a|b";
    this->m_fake.can_be_made = {other};
    EXPECT_TRUE(system::create_directory(support::text_of<TypeParam>(other)));
    EXPECT_EQ(this->calls(), (call_list{"status " + other, "create ", "create " + other}));
}

TEST(file_utility_bad_path, create_directory_makes_nothing) {
    fake_file_system files;
    fake = &files;
    EXPECT_FALSE(system::create_directory(support::utf32({0x61, platform::path_separator, 0xD800})));
    EXPECT_EQ(files.calls, (call_list{"status ", "create "}));
    fake = nullptr;
}

// ------------------------------------------------------------------------------------------------------------
// get_directory_files
// ------------------------------------------------------------------------------------------------------------

TYPED_TEST(file_utility_calls, get_directory_files_closes_a_second_enumeration) {
    this->m_fake.names["top"] = {".", "..", "b", "sub", "a"};
    this->m_fake.names["top/sub"] = {"x", ".", ".."};
    this->m_fake.entries = {{"top/b", readable_file},
                            {"top/a", readable_file},
                            {"top/sub", readable_directory},
                            {"top/sub/x", readable_file}};
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    // In the order of delivery, a subdirectory's files where it was met.
    EXPECT_EQ(files, this->paths({"top/b", "top/sub/x", "top/a"}));
    EXPECT_EQ(this->calls(),
              (call_list{"open top as 1", "next 1", "next 1", "status top/b", "next 1", "status top/sub",
                         // The walk inside; its handle 2 is never given back, but handle 3 is.
                         "open top/sub as 2", "status top/sub/x", "next 2", "next 2", "next 2",
                         "open top/sub as 3", "close 3",
                         // And the same for the walk outside, with handle 1 and handle 4.
                         "next 1", "status top/a", "next 1", "open top as 4", "close 4"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_takes_the_first_entry_too) {
    this->m_fake.names["top"] = {"a"};
    this->m_fake.entries["top/a"] = readable_file;
    std::vector<TypeParam> files = this->paths({"earlier"});
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"earlier", "top/a"}));
    EXPECT_EQ(this->walk_calls(), (call_list{"open top as 1", "next 1", "open top as 2", "close 2"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_closes_its_walks_when_memory_runs_out) {
    this->m_fake.names["top"] = {"sub"};
    this->m_fake.names["top/sub"] = {"a", "too long", "b"};
    this->m_fake.entries = {{"top/sub", readable_directory}, {"top/sub/a", readable_file}};
    std::vector<TypeParam> files;
    EXPECT_THROW(system::get_directory_files(this->path("top"), files), std::bad_alloc);
    EXPECT_EQ(this->walk_calls(),
              (call_list{"open top as 1", "open top/sub as 2", "next 2", "close 2", "close 1"}));
    EXPECT_EQ(files, std::vector<TypeParam>());
}

TYPED_TEST(file_utility_calls, get_directory_files_ends_at_once_if_the_first_opening_fails) {
    std::vector<TypeParam> files = this->paths({"earlier"});
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"earlier"}));
    EXPECT_EQ(this->calls(), call_list{"open top fails"});
}

TYPED_TEST(file_utility_calls, get_directory_files_keeps_its_files_if_the_second_opening_fails) {
    this->m_fake.names["top"] = {"a"};
    this->m_fake.entries["top/a"] = readable_file;
    this->m_fake.opens_that_succeed = 1;
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"top/a"}));
    EXPECT_EQ(this->walk_calls(), (call_list{"open top as 1", "next 1", "open top fails", "close 0"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_skips_what_it_may_not_read) {
    this->m_fake.names["top"] = {"file", "locked", "secret", "device", "gone", "open"};
    this->m_fake.names["top/secret"] = {"inner"};
    this->m_fake.names["top/device"] = {"inner"};
    this->m_fake.names["top/open"] = {"inner", "..", "."};
    this->m_fake.entries = {{"top/file", unreadable_file},        {"top/locked", unreadable_file},
                            {"top/secret", unreadable_directory}, {"top/device", device},
                            {"top/open", readable_directory},     {"top/secret/inner", readable_file},
                            {"top/device/inner", readable_file},  {"top/open/inner", readable_file}};
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"top/open/inner"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_skips_the_two_special_names_alone) {
    this->m_fake.names["top"] = {"..", "...", ".a", "..a", "a.", ".", "-1"};
    for (char const* const path : {"top/.", "top/..", "top/...", "top/.a", "top/..a", "top/a.", "top/-1"}) {
        this->m_fake.entries[path] = readable_file;
    }
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"top/...", "top/.a", "top/..a", "top/a.", "top/-1"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_takes_the_directory_as_it_stands) {
    this->m_fake.names["top/"] = {"a"};
    this->m_fake.names[""] = {"a"};
    this->m_fake.entries = {{"top//a", readable_file}, {"/a", readable_file}};
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top/"), files);
    system::get_directory_files(this->path(""), files);
    EXPECT_EQ(files, this->paths({"top//a", "/a"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_does_not_enter_a_directory_that_it_is_inside_of) {
    this->m_fake.names["top"] = {"a", "self"};
    this->m_fake.names["top/a"] = {"up", "upper", "file"};
    this->m_fake.names["top/self"] = {"file"};
    this->m_fake.names["top/a/up"] = {"file"};
    this->m_fake.names["top/a/upper"] = {"file"};
    for (char const* const path : {"top/a", "top/self", "top/a/up", "top/a/upper"}) {
        this->m_fake.entries[path] = readable_directory;
    }
    this->m_fake.entries["top/a/file"] = readable_file;
    this->m_fake.identities = {{"top", {1, 2}},
                               {"top/self", {1, 2}},
                               {"top/a", {1, 3}},
                               {"top/a/up", {1, 3}},
                               {"top/a/upper", {1, 2}}};
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"top/a/file"}));
    EXPECT_EQ(this->walk_calls(),
              (call_list{"open top as 1", "open top/a as 2", "next 2", "next 2", "next 2", "open top/a as 3",
                         "close 3", "next 1", "next 1", "open top as 4", "close 4"}));
}

TYPED_TEST(file_utility_calls, get_directory_files_enters_a_directory_again_from_beside_it) {
    // The same number on another device is another directory, and one without identity is never known.
    this->m_fake.names["top"] = {"a", "a_again", "other_device", "unknown"};
    this->m_fake.identities = {
        {"top", {1, 2}}, {"top/a", {1, 3}}, {"top/a_again", {1, 3}}, {"top/other_device", {2, 2}}};
    for (std::string const path : {"top/a", "top/a_again", "top/other_device", "top/unknown"}) {
        this->m_fake.entries[path] = readable_directory;
        this->m_fake.names[path] = {"file"};
        this->m_fake.entries[path + "/file"] = readable_file;
    }
    this->m_fake.names["top/unknown"] = {"file", "unknown"};
    this->m_fake.names["top/unknown/unknown"] = {"file"};
    this->m_fake.entries["top/unknown/unknown"] = readable_directory;
    this->m_fake.entries["top/unknown/unknown/file"] = readable_file;
    std::vector<TypeParam> files;
    system::get_directory_files(this->path("top"), files);
    EXPECT_EQ(files, this->paths({"top/a/file", "top/a_again/file", "top/other_device/file",
                                  "top/unknown/file", "top/unknown/unknown/file"}));
}

// ------------------------------------------------------------------------------------------------------------
// list_directory
// ------------------------------------------------------------------------------------------------------------

TYPED_TEST(file_utility_calls, list_directory_drops_the_first_entry_whatever_it_is) {
    this->m_fake.names["top"] = {"first", ".", "b", "..", "a"};
    EXPECT_EQ(system::list_directory(this->path("top")), this->paths({"top/b", "top/a"}));
    // The enumeration is the one that is closed, and no entry is looked at.
    EXPECT_EQ(this->calls(),
              (call_list{"open top as 1", "next 1", "next 1", "next 1", "next 1", "next 1", "close 1"}));
}

TYPED_TEST(file_utility_calls, list_directory_with_a_special_name_in_front_lists_the_rest) {
    this->m_fake.names["top"] = {".", "..", "a", ".b", "...", "..c", "-1"};
    EXPECT_EQ(system::list_directory(this->path("top")),
              this->paths({"top/a", "top/.b", "top/...", "top/..c", "top/-1"}));
}

TYPED_TEST(file_utility_calls, list_directory_of_a_single_entry_is_empty) {
    this->m_fake.names["top"] = {"only"};
    EXPECT_EQ(system::list_directory(this->path("top")), std::vector<TypeParam>());
    EXPECT_EQ(this->calls(), (call_list{"open top as 1", "next 1", "close 1"}));
}

TYPED_TEST(file_utility_calls, list_directory_closes_its_walk_when_memory_runs_out) {
    this->m_fake.names["top"] = {".", "a", "too long", "b"};
    EXPECT_THROW(system::list_directory(this->path("top")), std::bad_alloc);
    EXPECT_EQ(this->calls(), (call_list{"open top as 1", "next 1", "next 1", "close 1"}));
}

TYPED_TEST(file_utility_calls, list_directory_closes_nothing_if_the_opening_fails) {
    EXPECT_EQ(system::list_directory(this->path("top")), std::vector<TypeParam>());
    EXPECT_EQ(this->calls(), call_list{"open top fails"});
}

TYPED_TEST(file_utility_calls, list_directory_takes_the_directory_as_it_stands) {
    this->m_fake.names["top/"] = {".", "a"};
    this->m_fake.names[""] = {".", "a"};
    EXPECT_EQ(system::list_directory(this->path("top/")), this->paths({"top//a"}));
    EXPECT_EQ(system::list_directory(this->path("")), this->paths({"/a"}));
}

// ------------------------------------------------------------------------------------------------------------
// load_file, store_file
// ------------------------------------------------------------------------------------------------------------

// Announces ten bytes and has four.
class cut_buffer : public std::streambuf {
public:
    cut_buffer() { setg(m_bytes, m_bytes, m_bytes + 4); }

private:
    pos_type seekoff(off_type, std::ios_base::seekdir direction, std::ios_base::openmode) override {
        return direction == std::ios_base::end || (direction == std::ios_base::cur && m_at_end)
                   ? (m_at_end = true, pos_type(10))
                   : (m_at_end = false, pos_type(0));
    }
    pos_type seekpos(pos_type, std::ios_base::openmode) override {
        m_at_end = false;
        return pos_type(0);
    }

    bool m_at_end = false;
    char m_bytes[4] = {'a', '\0', 'b', 'c'};
};

// Has bytes but no positions, and does not take any.
class pipe_buffer : public std::streambuf {
public:
    pipe_buffer() { setg(m_bytes, m_bytes, m_bytes + 4); }

private:
    char m_bytes[4] = {'a', 'b', 'c', 'd'};
};

template <class Buffer, class Stream>
class stream_over : private Buffer, public Stream {
public:
    stream_over() : Stream(static_cast<Buffer*>(this)) {}
};

TYPED_TEST(file_utility_calls, load_file_leaves_zero_bytes_after_a_short_read) {
    this->m_fake.reader = [] {
        return std::unique_ptr<std::istream>(new stream_over<cut_buffer, std::istream>);
    };
    for (std::string const earlier : {"", "XXXXX", "XXXXXXXXXX", "XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX"}) {
        ustring8 text = earlier;
        EXPECT_EQ(system::load_file(this->path("file"), text), 0);
        EXPECT_EQ(text, std::string("a\0bc\0\0\0\0\0\0", 10));
        std::string bytes = earlier;
        EXPECT_EQ(system::load_file(this->path("file"), bytes), 0);
        EXPECT_EQ(bytes, std::string("a\0bc\0\0\0\0\0\0", 10));
    }
}

TYPED_TEST(file_utility_calls, load_file_without_a_size_ends_in_the_failure_of_the_string) {
    this->m_fake.reader = [] {
        return std::unique_ptr<std::istream>(new stream_over<pipe_buffer, std::istream>);
    };
    ustring8 text = "earlier text";
    EXPECT_THROW(system::load_file(this->path("file"), text), std::length_error);
    EXPECT_EQ(text, "earlier text");
    std::string bytes;
    EXPECT_THROW(system::load_file(this->path("file"), bytes), std::length_error);
}

TYPED_TEST(file_utility_calls, store_file_does_not_report_a_failed_write) {
    this->m_fake.writer = [] {
        return std::unique_ptr<std::ostream>(new stream_over<pipe_buffer, std::ostream>);
    };
    EXPECT_EQ(system::store_file(this->path("file"), "text"), 0);
}

} // namespace
