#include "view/Scroller.h"

#include <algorithm>

namespace tembrel {

namespace {

constexpr int kFirstThumb = 1;
constexpr int kLastThumb = kScrollerTrack - kScrollerThumb;

}  // namespace

int Scroller::Percent() const {
  return thumb == kFirstThumb ? 0 : std::clamp(thumb * 100 / kLastThumb, 0, 100);
}

bool Scroller::SetPercent(int percent) {
  if (dragging || percent == released) {
    return false;  // the mouse has it, or has just put it there
  }
  released.reset();
  const int old = thumb;
  thumb = std::clamp(std::clamp(percent, 0, 100) * kLastThumb / 100, kFirstThumb, kLastThumb);
  return thumb != old;
}

std::optional<ScrollerRequest> Scroller::Press(int x, int y) {
  if (x < thumb) {
    return ScrollerRequest{ScrollCode::PageLeft, Percent()};
  }
  if (x > thumb + kScrollerThumb) {
    return ScrollerRequest{ScrollCode::PageRight, Percent()};
  }
  if (y >= kScrollerThumbTop && y <= kScrollerThumbBottom) {
    dragging = true;
    grabOffset = x - thumb;
  }
  return std::nullopt;
}

std::optional<ScrollerRequest> Scroller::Move(int x) {
  if (!dragging) {
    return std::nullopt;
  }
  const int old = thumb;
  thumb = std::clamp(x, grabOffset + kFirstThumb, grabOffset + kLastThumb) - grabOffset;
  if (thumb == old) {
    return std::nullopt;
  }
  return ScrollerRequest{ScrollCode::ThumbTrack, Percent()};
}

std::optional<ScrollerRequest> Scroller::Release() {
  if (!dragging) {
    return std::nullopt;
  }
  dragging = false;
  released = Percent();
  return ScrollerRequest{ScrollCode::ThumbPosition, Percent()};
}

}  // namespace tembrel
