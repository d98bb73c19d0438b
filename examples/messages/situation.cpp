#include "situation.hpp"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <set>

#include "check.hpp"
#include "veldrin/generic/varg_list.hpp"
#include "veldrin/i18n/message_catalogs.hpp"
#include "veldrin/strings/replace.hpp"
#include "veldrin/system/file_utility.hpp"

using veldrin::generic::argument;
using veldrin::i18n::message_catalogs;
using veldrin::i18n::message_t;

namespace {

veldrin::generic::varg_list const& situation() {
    static veldrin::generic::varg_list const arguments(
        argument("source", "/home/ada/photos"), argument("target", "backup:/photos"),
        argument("file", "mountain.raw"), argument("done", 1284), argument("total", 12840),
        argument("percent", 10.0), argument("bytes", 1610612736LL), argument("rate", 2500000),
        argument("elapsed", 3725.0), argument("expected", 0x1badcafeLL), argument("actual", 0x1badbabeLL),
        argument("mode", 0444), argument("flags", 5), argument("code", 23), argument("needed", 2147483648LL),
        argument("free", 734003200LL));
    return arguments;
}

bool load(message_catalogs& catalogs, std::vector<ustring8> const& files, ustring8 const& language) {
    message_catalogs::result_type const result = catalogs.load(files, language);
    if (result.type() != message_catalogs::no_error) {
        std::cerr << result << '\n';
        return false;
    }
    return true;
}

// A line break in a message goes on below the start of its text.
void print_message(std::ostream& out, message_t const& message, ustring8 const& indentation) {
    ustring8 written = message.as_utf8(situation());
    veldrin::strings::replace_all(written, ustring8("\n"), ustring8("\n" + indentation));
    out << written << '\n';
}

} // namespace

std::vector<ustring8> catalog_files(ustring8 const& directory) {
    std::vector<ustring8> files;
    veldrin::system::get_directory_files(directory, files);
    auto const unwanted = [](ustring8 const& path) {
        bool const shared =
            path.find("/shared/") != ustring8::npos || path.find("\\shared\\") != ustring8::npos;
        return shared || path.size() < 4 || path.compare(path.size() - 4, 4, ".xmc") != 0;
    };
    files.erase(std::remove_if(files.begin(), files.end(), unwanted), files.end());
    std::sort(files.begin(), files.end());
    return files;
}

bool print_situation(std::ostream& out, std::vector<ustring8> const& files, ustring8 const& language) {
    message_catalogs catalogs;
    if (!load(catalogs, files, language)) {
        return false;
    }
    for (auto const& [name, catalog] : catalogs) {
        out << name << '\n';
        for (auto const& [key, message] : *catalog) {
            out << "  " << std::left << std::setw(14) << key;
            print_message(out, message, ustring8(16, ' '));
        }
    }
    return true;
}

bool print_table(std::ostream& out, std::vector<ustring8> const& files) {
    std::set<ustring8> languages;
    for (ustring8 const& file : files) {
        languages.merge(languages_of(file));
    }
    std::vector<std::pair<ustring8, message_catalogs>> stores;
    for (ustring8 const& language : languages) {
        stores.emplace_back(language, message_catalogs());
        if (!load(stores.back().second, files, language)) {
            return false;
        }
    }

    // A message may stand in one language alone, so the names come from a store that has them all.
    message_catalogs everything;
    for (ustring8 const& language : languages) {
        if (!load(everything, files, language)) {
            return false;
        }
    }
    for (auto const& [name, catalog] : everything) {
        for (auto const& [key, any] : *catalog) {
            out << name << '.' << key << '\n';
            for (auto const& [language, store] : stores) {
                message_t const& message = store.message(name, key);
                ustring8 const& origin = message._orginal_locale();
                ustring8 const fallback = origin == language ? ustring8() : ustring8("(" + origin + ")");
                out << "  " << std::left << std::setw(7) << language << std::setw(6) << fallback;
                print_message(out, message, ustring8(15, ' '));
            }
        }
    }
    return true;
}
