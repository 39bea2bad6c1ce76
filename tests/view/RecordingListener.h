// Writes down what a view tells its window, one short text a call.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "view/EditViewListener.h"

namespace tembrel {

class RecordingListener : public EditViewListener {
 public:
  std::vector<std::string> calls;
  std::int64_t readout = -1;  // the last mouse read-out
  // What the pencil's questions are answered with.
  bool pencilHits = false;
  bool pencilBegins = true;

  // The calls since the last time, forgotten here.
  std::vector<std::string> Take() {
    std::vector<std::string> taken;
    taken.swap(calls);
    return taken;
  }
  bool Heard(const std::string& call) const {
    return std::find(calls.begin(), calls.end(), call) != calls.end();
  }
  // How many calls begin with this.
  std::ptrdiff_t Count(const std::string& name) const {
    return std::count_if(calls.begin(), calls.end(),
                         [&](const std::string& call) { return call.starts_with(name); });
  }

  void Repaint() override { Note("repaint"); }
  void CursorChanged(std::int64_t oldFrame, std::int64_t newFrame) override {
    Note("cursor ", oldFrame, ' ', newFrame);
  }
  void ScrollBarChanged(int percent) override { Note("bar ", percent); }
  void VerticalScrollChanged(int topRow, int visibleRows, bool enabled) override {
    Note("rows ", topRow, ' ', visibleRows, enabled ? " on" : " off");
  }
  void VerticalImageScroll(int pixels) override { Note("image ", pixels); }
  void CounterChanged(std::int64_t frame, std::optional<std::uint32_t> rate) override {
    if (rate) {
      Note("counter ", frame, ' ', *rate);
    } else {
      Note("counter ", frame, " none");
    }
  }
  void CursorNotification(std::int64_t frame) override { Note("notify ", frame); }
  void ToolPressed(int index) override { Note("tool ", index); }
  void SelectionStripChanged(int fromX, int toX) override { Note("strip ", fromX, ' ', toX); }
  void MovePointerTo(int x, int y) override { Note("pointer ", x, ' ', y); }
  void MouseReadout(std::int64_t frame) override { readout = frame; }
  void PointerShapeChanged() override { Note("shape"); }
  bool PencilHit(int x, int y, std::int64_t frame) override {
    Note("hit? ", x, ' ', y, ' ', frame);
    return pencilHits;
  }
  bool PencilBegin() override {
    Note("pencil begins");
    return pencilBegins;
  }
  void PencilDraw(int x, int y) override { Note("draw ", x, ' ', y); }
  void PencilStripChanged(int fromX, int toX) override { Note("drawn ", fromX, ' ', toX); }
  void PencilEnd() override { Note("pencil ends"); }
  void ActionMenuWanted(int x, int y) override { Note("menu ", x, ' ', y); }
  void Relayout() override { Note("relayout"); }

 private:
  template <typename... Parts>
  void Note(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    calls.push_back(text.str());
  }
};

using Calls = std::vector<std::string>;

}  // namespace tembrel
