// A view of 500 × 200 pixels on a sound of 10,000 frames of 4 bytes, showing the first 1,000: two frames a
// pixel.
#pragma once

#include <gtest/gtest.h>

#include "tests/view/RecordingListener.h"
#include "view/EditView.h"

namespace tembrel {

class MouseFixture : public testing::Test {
 protected:
  MouseFixture() {
    view.SetClientSize(500, 200);
    view.SetSound(10'000, 44100, 4);
    view.Show(0, 1000);
    listener.Take();
  }

  void Press(double x, double y = 50) { EXPECT_TRUE(view.Press(MouseButton::Left, {x, y})); }
  void Release(double x, double y = 50) { EXPECT_TRUE(view.Release(MouseButton::Left, {x, y})); }
  void Drag(double from, double to) {
    Press(from);
    view.Move({to, 50});
    Release(to);
  }

  RecordingListener listener;
  EditView view{listener};
};

}  // namespace tembrel
