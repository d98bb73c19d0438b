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

bool load(message_catalogs& catalogs, std::vector<text> const& files, text const& language) {
    message_catalogs::result_type const result = catalogs.load(files, language);
    if (result.type() != message_catalogs::no_error) {
        std::cerr << result << '\n';
        return false;
    }
    return true;
}

// A line break in a message goes on below the start of its text.
void print_message(std::ostream& out, message_t const& message, text const& indentation) {
    text written = message.as_utf8(situation());
    veldrin::strings::replace_all(written, text("\n"), text("\n" + indentation));
    out << written << '\n';
}

} // namespace

std::vector<text> catalog_files(text const& directory) {
    std::vector<text> files;
    veldrin::system::get_directory_files(directory, files);
    auto const unwanted = [](text const& path) {
        bool const shared = path.find("/shared/") != text::npos || path.find("\\shared\\") != text::npos;
        return shared || path.size() < 4 || path.compare(path.size() - 4, 4, ".xmc") != 0;
    };
    files.erase(std::remove_if(files.begin(), files.end(), unwanted), files.end());
    std::sort(files.begin(), files.end());
    return files;
}

bool print_situation(std::ostream& out, std::vector<text> const& files, text const& language) {
    message_catalogs catalogs;
    if (!load(catalogs, files, language)) {
        return false;
    }
    for (auto const& [name, catalog] : catalogs) {
        out << name << '\n';
        for (auto const& [key, message] : *catalog) {
            out << "  " << std::left << std::setw(14) << key;
            print_message(out, message, text(16, ' '));
        }
    }
    return true;
}

bool print_table(std::ostream& out, std::vector<text> const& files) {
    std::set<text> languages;
    for (text const& file : files) {
        languages.merge(languages_of(file));
    }
    std::vector<std::pair<text, message_catalogs>> stores;
    for (text const& language : languages) {
        stores.emplace_back(language, message_catalogs());
        if (!load(stores.back().second, files, language)) {
            return false;
        }
    }

    // Each language has at least the English and the neutral texts, so the first store names all that there
    // is.
    message_catalogs everything;
    for (text const& language : languages) {
        if (!load(everything, files, language)) {
            return false;
        }
    }
    for (auto const& [name, catalog] : everything) {
        for (auto const& [key, any] : *catalog) {
            out << name << '.' << key << '\n';
            for (auto const& [language, store] : stores) {
                message_t const& message = store.message(name, key);
                text const origin =
                    message._orginal_locale() == language ? text() : message._orginal_locale();
                out << "  " << std::left << std::setw(7) << language << std::setw(4) << origin;
                print_message(out, message, text(13, ' '));
            }
        }
    }
    return true;
}
