// A view without a window: nobody is told anything. Its selection stays until an edit uses it up.
#pragma once

#include "view/EditViewListener.h"

namespace tembrel {

class SilentViewListener final : public EditViewListener {
 public:
  void Repaint() override {}
  void CursorChanged(std::int64_t /*oldFrame*/, std::int64_t /*newFrame*/) override {}
  void ScrollBarChanged(int /*percent*/) override {}
  void VerticalScrollChanged(int /*topRow*/, int /*visibleRows*/, bool /*enabled*/) override {}
  void VerticalImageScroll(int /*pixels*/) override {}
  void CounterChanged(std::int64_t /*frame*/, std::optional<std::uint32_t> /*rate*/) override {}
  void CursorNotification(std::int64_t /*frame*/) override {}
  void ToolPressed(int /*index*/) override {}
  void SelectionStripChanged(int /*fromX*/, int /*toX*/) override {}
  void MovePointerTo(int /*x*/, int /*y*/) override {}
  void MouseReadout(std::int64_t /*frame*/) override {}
  void PointerShapeChanged() override {}
  bool PencilHit(int /*x*/, int /*y*/, std::int64_t /*frame*/) override { return false; }
  bool PencilBegin() override { return false; }
  void PencilDraw(int /*x*/, int /*y*/) override {}
  void PencilStripChanged(int /*fromX*/, int /*toX*/) override {}
  void PencilEnd() override {}
  void ActionMenuWanted(int /*x*/, int /*y*/) override {}
  void Relayout() override {}
};

}  // namespace tembrel
