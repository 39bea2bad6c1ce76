#include "view/Selection.h"

#include <algorithm>
#include <utility>

namespace tembrel {

std::int64_t ClickFrames(std::int64_t framesOnScreen, int clientWidth) {
  return std::max<std::int64_t>(4, 4 * framesOnScreen / std::max(clientWidth, 1));
}

void Selection::SetRaw(std::int64_t anchor, std::int64_t end) {
  anchorFrame = anchor;
  endFrame = end;
  valid = false;
}

bool Selection::Normalise(std::int64_t total) {
  if (anchorFrame > endFrame + 1) {
    std::swap(anchorFrame, endFrame);
  }
  valid = anchorFrame < total && endFrame > 0 && endFrame > anchorFrame + 1;
  if (valid) {
    remembered = FrameRange{std::max<std::int64_t>(anchorFrame, 0), std::min(endFrame, total)};
  }
  return valid;
}

void Selection::Clear() {
  SetRaw(-1, -1);
}

}  // namespace tembrel
