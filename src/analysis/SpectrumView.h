// Which bins the spectrum window shows and where its marker is, and what its zoom buttons, its scroll bar and
// the keys do to them. It holds no spectrum and draws nothing.
#pragma once

#include <cstdint>

namespace tembrel {

inline constexpr int kBinRange = 1024;  // bins that can be shown: up to half the sampling rate

// The zoom commands by their numbers, as the buttons send them.
inline constexpr int kSpectrumZoomOut = 8193;
inline constexpr int kSpectrumZoomIn = 8194;
inline constexpr int kSpectrumZoomReset = 8195;

// Scroll requests with their message numbers.
enum class SpectrumScroll {
  LineLeft = 0,       // a quarter of the visible bins
  LineRight = 1,      //
  PageLeft = 2,       // all of them
  PageRight = 3,      //
  ThumbPosition = 4,  // the position: 0..100 percent of what can be scrolled
  ThumbTrack = 5,     // ignored: the plot moves when the thumb is released
  LeftEnd = 6,        // as ThumbPosition; senders give 0
  RightEnd = 7,       // as ThumbPosition; senders give 100
};

enum class MarkerMove { Left, Right, PageLeft, PageRight, First, Last };

class SpectrumView {
 public:
  int Zoom() const { return zoom; }                // 2, 4, 8 ... 512
  int VisibleBins() const { return 2048 / zoom; }  // 4..1024
  int FirstBin() const { return firstBin; }        // 0..kBinRange - VisibleBins()
  int MarkerBin() const { return markerBin; }      // one of the visible bins

  // False for any other number.
  bool RunCommand(int command);
  // The position counts for the codes that take one. A code that is none of the enumeration's does nothing
  // and gives false.
  bool Scroll(SpectrumScroll code, std::uint32_t position = 0);
  // Moves the marker by a bin, by the visible bins, or to the first or last bin there is; the view follows.
  void MoveMarker(MarkerMove move);
  // Puts the marker on a visible bin; on the nearest one for any other.
  void PlaceMarker(int bin);

  // What the scroll bar shows, 0..100.
  int ScrollPosition() const;
  // How much of the range is visible, above 0 to 1.
  double VisibleShare() const { return static_cast<double>(VisibleBins()) / kBinRange; }

 private:
  int LastFirstBin() const { return kBinRange - VisibleBins(); }
  void Show(int bin);
  void SetZoom(int newZoom);

  int zoom = 8;
  int firstBin = 0;
  int markerBin = 0;
};

}  // namespace tembrel
