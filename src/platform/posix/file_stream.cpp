#include "platform/file_stream.hpp"

#include <fstream>

#include "platform/file_system.hpp"

namespace VELDRIN_2_18::platform {

namespace {

template <class Stream>
std::unique_ptr<Stream> opened(path const& path) {
    auto stream = std::make_unique<Stream>(path.text(), std::ios_base::binary);
    return stream->fail() ? nullptr : std::move(stream);
}

} // namespace

std::unique_ptr<std::istream> open_for_reading(path const& path) {
    // The system would open it, and only the reading would fail.
    if (status_of(path).is_directory) {
        return nullptr;
    }
    return opened<std::ifstream>(path);
}

std::unique_ptr<std::ostream> open_for_writing(path const& path) { return opened<std::ofstream>(path); }

} // namespace VELDRIN_2_18::platform
