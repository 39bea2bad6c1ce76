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
