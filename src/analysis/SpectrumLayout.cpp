#include "analysis/SpectrumLayout.h"

#include <algorithm>

namespace tembrel {

SpectrumLayout LayOutSpectrum(int width, int height) {
  const int axisTop = std::max(height - kSpectrumBottom - kSpectrumAxisHeight, kSpectrumReadoutHeight);
  const int barTop = height - kSpectrumBarSize;
  SpectrumLayout layout;
  const auto buttonsWidth = static_cast<int>(layout.buttons.size()) * kSpectrumBarSize;
  layout.readout = {0, 0, width, kSpectrumReadoutHeight};
  layout.display = {0, kSpectrumReadoutHeight, width, axisTop - kSpectrumReadoutHeight};
  layout.axis = {kSpectrumBorder, axisTop, std::max(width - 2 * kSpectrumBorder, 0), kSpectrumAxisHeight};
  layout.scrollBar = {0, barTop, std::max(width - buttonsWidth, 0), kSpectrumBarSize};
  int left = width - buttonsWidth;
  for (PixelRect& button : layout.buttons) {
    button = {left, barTop, kSpectrumBarSize, kSpectrumBarSize};
    left += kSpectrumBarSize;
  }
  return layout;
}

}  // namespace tembrel
