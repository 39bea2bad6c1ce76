#include "analysis/SpectrumView.h"

#include <algorithm>

namespace tembrel {

namespace {

constexpr int kFirstZoom = 8;
constexpr int kSmallestZoom = 2;
constexpr int kLargestZoom = 512;
constexpr int kPercent = 100;

}  // namespace

// The marker stays where it can be seen.
void SpectrumView::Show(int bin) {
  firstBin = std::clamp(bin, 0, LastFirstBin());
  if (markerBin < firstBin || markerBin >= firstBin + VisibleBins()) {
    markerBin = firstBin;
  }
}

void SpectrumView::SetZoom(int newZoom) {
  zoom = std::clamp(newZoom, kSmallestZoom, kLargestZoom);
  Show(firstBin);
}

bool SpectrumView::RunCommand(int command) {
  switch (command) {
    case kSpectrumZoomIn:
      SetZoom(zoom * 2);
      return true;
    case kSpectrumZoomOut:
      SetZoom(zoom / 2);
      return true;
    case kSpectrumZoomReset:
      SetZoom(kFirstZoom);
      return true;
    default:
      return false;
  }
}

bool SpectrumView::Scroll(SpectrumScroll code, std::uint32_t position) {
  switch (code) {
    case SpectrumScroll::LineLeft:
      Show(firstBin - VisibleBins() / 4);
      return true;
    case SpectrumScroll::LineRight:
      Show(firstBin + VisibleBins() / 4);
      return true;
    case SpectrumScroll::PageLeft:
      Show(firstBin - VisibleBins());
      return true;
    case SpectrumScroll::PageRight:
      Show(firstBin + VisibleBins());
      return true;
    case SpectrumScroll::ThumbPosition:
    case SpectrumScroll::LeftEnd:
    case SpectrumScroll::RightEnd: {
      // The product is one of 32 bits and wraps.
      const auto room = static_cast<std::uint32_t>(LastFirstBin());
      Show(static_cast<int>(std::min(room * position / kPercent, room)));
      return true;
    }
    case SpectrumScroll::ThumbTrack:
      return true;
  }
  return false;
}

void SpectrumView::MoveMarker(MarkerMove move) {
  const int visible = VisibleBins();
  int shown = firstBin;
  int marker = markerBin;
  switch (move) {
    case MarkerMove::Left:
      --marker;
      break;
    case MarkerMove::Right:
      ++marker;
      break;
    case MarkerMove::PageLeft:
      marker -= visible;
      shown -= visible;
      break;
    case MarkerMove::PageRight:
      marker += visible;
      shown += visible;
      break;
    case MarkerMove::First:
      marker = 0;
      break;
    case MarkerMove::Last:
      marker = kBinRange - 1;
      break;
  }
  markerBin = std::clamp(marker, 0, kBinRange - 1);
  Show(std::clamp(std::clamp(shown, 0, LastFirstBin()), markerBin - visible + 1, markerBin));
}

void SpectrumView::PlaceMarker(int bin) {
  markerBin = std::clamp(bin, firstBin, firstBin + VisibleBins() - 1);
}

int SpectrumView::ScrollPosition() const {
  const int room = LastFirstBin();
  return firstBin * kPercent / (room == 0 ? kBinRange : room);
}

}  // namespace tembrel
