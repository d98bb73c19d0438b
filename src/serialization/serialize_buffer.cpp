#include "veldrin/serialization/serialize_buffer.hpp"

namespace VELDRIN_2_18::serialization {

serialize_buffer::serialize_buffer() = default;

serialize_buffer::serialize_buffer(serialize_buffer const& other) = default;

serialize_buffer::~serialize_buffer() = default;

} // namespace VELDRIN_2_18::serialization
