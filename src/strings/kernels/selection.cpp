#include "strings/kernels/transcoding_kernels.hpp"

namespace VELDRIN_2_18::strings::_private {

transcoding_kernels const& selected_transcoding_kernels() { return scalar_transcoding_kernels; }

} // namespace VELDRIN_2_18::strings::_private
