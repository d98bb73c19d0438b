#include "veldrin/types/device_unit.hpp"

#include "types/truncated.hpp"

namespace VELDRIN_2_18::types {

device_unit::device_unit(std::int32_t pixels) : m_pixels(pixels) {}
device_unit::device_unit(double pixels) : m_pixels(_private::truncated<std::int32_t>(pixels)) {}
device_unit::device_unit(float pixels) : device_unit(static_cast<double>(pixels)) {}

device_unit::unit_types device_unit::do_type() const { return dpx; }
std::int32_t device_unit::do_as_int32() const { return m_pixels; }
float device_unit::do_as_float() const { return static_cast<float>(m_pixels); }
double device_unit::do_as_double() const { return m_pixels; }

} // namespace VELDRIN_2_18::types
