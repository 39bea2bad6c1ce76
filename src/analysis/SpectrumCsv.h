// The numbers of a spectrum as a table.
#pragma once

#include <string>

#include "analysis/Spectrum.h"

namespace tembrel {

// The header "bin,hz,power", with ",power_right" for both channels, and a line for each of the 2048 bins. The
// numbers have as many digits as tell every one from its neighbours, and a point whatever the locale.
std::string SpectrumCsv(const Spectrum& spectrum);

}  // namespace tembrel
