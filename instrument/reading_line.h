// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "instrument/viscometer_options.h"

namespace quenlor::instrument {

// One reading as the instrument writes it, without the line's end. mPa.s and degrees Celsius,
// one decimal each.
std::string ReadingLine(LineForm form, std::int64_t number, double viscosity, double temperature);

}  // namespace quenlor::instrument
