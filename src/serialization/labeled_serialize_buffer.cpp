#include "veldrin/serialization/labeled_serialize_buffer.hpp"

namespace VELDRIN_2_18::serialization {

labeled_serialize_buffer::labeled_serialize_buffer() = default;
labeled_serialize_buffer::labeled_serialize_buffer(labeled_serialize_buffer const&) = default;
labeled_serialize_buffer::~labeled_serialize_buffer() = default;

} // namespace VELDRIN_2_18::serialization
