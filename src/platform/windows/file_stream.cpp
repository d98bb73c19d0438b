#include "platform/file_stream.hpp"

#include <filesystem>
#include <fstream>

namespace VELDRIN_2_18::platform {

namespace {

// A file system path keeps the UTF-16 text as it is, and the stream opens it with nobody else shut out.
template <class Stream>
std::unique_ptr<Stream> opened(path const& path) {
    auto stream = std::make_unique<Stream>(std::filesystem::path(path.text()), std::ios_base::binary);
    return stream->fail() ? nullptr : std::move(stream);
}

} // namespace

std::unique_ptr<std::istream> open_for_reading(path const& path) { return opened<std::ifstream>(path); }

std::unique_ptr<std::ostream> open_for_writing(path const& path) { return opened<std::ofstream>(path); }

} // namespace VELDRIN_2_18::platform
