#include "platform/directory.hpp"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/temporary_directory.hpp"

namespace {

std::atomic<long> live_allocations{0};

} // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++live_allocations;
    return memory;
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    live_allocations -= memory != nullptr ? 1 : 0;
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }

namespace {

using namespace VELDRIN_2_18;
using platform::directory_handle;

class enumeration : public testing::Test {
protected:
    enumeration() {
        m_directory.file("a name that is too long to be kept inside the string object");
        m_directory.file("b");
    }

    platform::path path() const { return platform::path(strings::ustring8(m_directory.path())); }

    static platform::path_text name_of(std::string const& text) {
        return platform::path(strings::ustring8(text)).text();
    }

    std::vector<platform::path_text> names_from(directory_handle handle, platform::path_text name) const {
        std::vector<platform::path_text> names = {name};
        while (platform::next_entry(handle, name)) {
            names.push_back(name);
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::vector<platform::path_text> const all_names = {
        name_of("."), name_of(".."), name_of("a name that is too long to be kept inside the string object"),
        name_of("b")};

    support::temporary_directory m_directory;
};

TEST_F(enumeration, delivers_every_entry_the_special_ones_included) {
    platform::path_text name;
    directory_handle const handle = platform::open_directory(path(), name);
    EXPECT_NE(handle, directory_handle::none);
    EXPECT_EQ(names_from(handle, name), all_names);
}

TEST_F(enumeration, stays_at_its_end) {
    platform::path_text name;
    directory_handle const handle = platform::open_directory(path(), name);
    names_from(handle, name);
    name = name_of("untouched");
    EXPECT_FALSE(platform::next_entry(handle, name));
    EXPECT_FALSE(platform::next_entry(handle, name));
    EXPECT_EQ(name, name_of("untouched"));
    platform::close_directory(handle);
}

TEST_F(enumeration, is_over_once_closed) {
    platform::path_text name;
    directory_handle const handle = platform::open_directory(path(), name);
    platform::close_directory(handle);
    EXPECT_FALSE(platform::next_entry(handle, name));
    platform::close_directory(handle);
}

TEST_F(enumeration, is_independent_of_another_one) {
    platform::path_text first_name;
    platform::path_text second_name;
    directory_handle const first = platform::open_directory(path(), first_name);
    directory_handle const second = platform::open_directory(path(), second_name);
    EXPECT_NE(first, second);
    EXPECT_EQ(names_from(second, second_name), all_names);
    platform::close_directory(second);
    EXPECT_EQ(names_from(first, first_name), all_names);
}

TEST_F(enumeration, handle_none_stands_for_nothing) {
    platform::path_text name = name_of("untouched");
    EXPECT_FALSE(platform::next_entry(directory_handle::none, name));
    platform::close_directory(directory_handle::none);
    EXPECT_EQ(name, name_of("untouched"));
}

TEST_F(enumeration, of_no_directory_does_not_start) {
    platform::path_text name = name_of("untouched");
    for (std::string const& bad :
         {m_directory.path("missing"), m_directory.path("b"), m_directory.path() + '\0'}) {
        EXPECT_EQ(platform::open_directory(platform::path(strings::ustring8(bad)), name),
                  directory_handle::none);
    }
    EXPECT_EQ(name, name_of("untouched"));
}

TEST_F(enumeration, costs_nothing_once_read_to_its_end) {
    platform::path const directory = path();
    platform::path_text name(100, ' ');
    auto const read_all = [&] {
        directory_handle const handle = platform::open_directory(directory, name);
        while (platform::next_entry(handle, name)) {
        }
    };
    read_all();
    long const before = live_allocations;
    for (int round = 0; round < 100; ++round) {
        read_all();
    }
    EXPECT_EQ(live_allocations, before);
}

} // namespace
