// The plot of a spectrum. It paints and tells where the mouse is.
#pragma once

#include <QImage>
#include <QWidget>

#include "analysis/Spectrum.h"
#include "analysis/SpectrumView.h"

namespace tembrel {

class SpectrumDisplayWin : public QWidget {
  Q_OBJECT

 public:
  // Both outlive the display.
  SpectrumDisplayWin(const Spectrum& shownSpectrum, const SpectrumView& shownView, QWidget* parent);

  void ShowMarker(bool show);
  bool MarkerShown() const { return markerShown; }

 Q_SIGNALS:
  // The mouse is over this column, logical pixels.
  void mouseMoved(double x);
  // The left button was pressed there.
  void mousePressed(double x);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  const Spectrum& spectrum;
  const SpectrumView& view;
  QImage picture;  // painted anew each time; kept for its memory, which is slow to get
  bool markerShown = false;
};

}  // namespace tembrel
