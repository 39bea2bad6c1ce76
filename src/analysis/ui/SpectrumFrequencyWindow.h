// The frequency axis below a spectrum.
#pragma once

#include <QWidget>

#include "analysis/Spectrum.h"
#include "analysis/SpectrumView.h"

namespace tembrel {

class SpectrumFrequencyWindow : public QWidget {
 public:
  // Both outlive the axis.
  SpectrumFrequencyWindow(const Spectrum& shownSpectrum, const SpectrumView& shownView, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const Spectrum& spectrum;
  const SpectrumView& view;
};

}  // namespace tembrel
