#include <gtest/gtest.h>
#include <optional>
#include <sstream>

#include "document/StringTable.h"
#include "view/ToolTipRules.h"

namespace tembrel {
namespace {

// A window with a clock that only moves when told to; a letter is ten pixels wide.
class ToolTips : public testing::Test, protected ToolTipListener {
 protected:
  void Show(int id, int x = 100, int y = 20) { rules.Show(id, x, y); }

  void Pass(int milliseconds) {
    for (int i = 0; i < milliseconds; ++i) {
      ++now;
      if (tipDue == now) {
        tipDue.reset();
        rules.TipTimeOver();
      }
      if (endDue == now) {
        endDue.reset();
        rules.EndTimeOver();
      }
    }
  }

  // The mouse has rested on a button before, and left it.
  void Arm() {
    Show(kToolTipNoText);
    Pass(200);
    ASSERT_TRUE(rules.Armed());
  }

  ToolTipRules rules{*this};
  std::string tip;  // text and place; empty while there is none on the screen

 private:
  void StartTipTimer(int milliseconds) override { tipDue = now + milliseconds; }
  void StopTipTimer() override { tipDue.reset(); }
  void StartEndTimer(int milliseconds) override { endDue = now + milliseconds; }
  void StopEndTimer() override { endDue.reset(); }
  int TextWidth(std::string_view text) override { return static_cast<int>(text.size()) * 10; }
  void ShowTip(std::string_view text, int x, int y, int width, int height) override {
    std::ostringstream line;
    line << text << ' ' << x << ' ' << y << ' ' << width << ' ' << height;
    tip = line.str();
  }
  void HideTip() override { tip.clear(); }

  int now = 0;
  std::optional<int> tipDue;
  std::optional<int> endDue;
};

TEST_F(ToolTips, ButtonsHaveTheirTexts) {
  EXPECT_EQ(StringResource(833), "Play");
  EXPECT_EQ(StringResource(834), "Stop");
  EXPECT_EQ(StringResource(835), "Pause");
  EXPECT_EQ(StringResource(836), "Record");
  EXPECT_EQ(StringResource(837), "Time Display");
  EXPECT_EQ(StringResource(845), "Rewind");
  EXPECT_EQ(StringResource(846), "Move In Time");
  EXPECT_EQ(StringResource(800), "");
}

TEST_F(ToolTips, TheFirstTipComesAfterBothDelays) {
  Show(33);
  Pass(199);
  EXPECT_FALSE(rules.Armed());
  Pass(1);
  EXPECT_TRUE(rules.Armed());
  EXPECT_TRUE(rules.Shown());
  Pass(999);
  EXPECT_EQ(tip, "");
  Pass(1);
  EXPECT_EQ(tip, "Play 100 36 46 16");
}

TEST_F(ToolTips, OnceArmedATipComesAfterASecond) {
  Arm();
  Show(34, 50, 10);
  Pass(999);
  EXPECT_EQ(tip, "");
  Pass(1);
  EXPECT_EQ(tip, "Stop 50 26 46 16");
}

TEST_F(ToolTips, APassingMouseGetsNone) {
  Show(33);
  Pass(100);
  Show(kNoToolTip);
  Pass(5000);
  EXPECT_EQ(tip, "");
  EXPECT_FALSE(rules.Shown());
}

TEST_F(ToolTips, LeavingDuringTheSecondDelayEndsIt) {
  Arm();
  Show(33);
  Pass(500);
  Show(kToolTipNoText);
  Pass(5000);
  EXPECT_EQ(tip, "");
  EXPECT_FALSE(rules.Shown());
}

TEST_F(ToolTips, MinusOneHides) {
  Arm();
  Show(33);
  Pass(1000);
  EXPECT_NE(tip, "");
  Show(kNoToolTip);
  EXPECT_EQ(tip, "");
  EXPECT_FALSE(rules.Shown());
}

TEST_F(ToolTips, AControlWithoutATextHides) {
  Arm();
  Show(33);
  Pass(1000);
  Show(99);
  EXPECT_EQ(tip, "");
  EXPECT_FALSE(rules.Shown());
}

TEST_F(ToolTips, AnotherTextMovesTheTipAtOnce) {
  Arm();
  Show(33);
  Pass(1000);
  Show(45, 300, 20);
  EXPECT_EQ(tip, "Rewind 300 36 66 16");
}

TEST_F(ToolTips, TheSameTextStaysWhereItIs) {
  Arm();
  Show(33);
  Pass(1000);
  Show(33, 110, 25);
  Pass(100);
  EXPECT_EQ(tip, "Play 100 36 46 16");
}

TEST_F(ToolTips, MovingOnTheSameButtonBeginsTheDelayAnew) {
  Arm();
  Show(33);
  Pass(900);
  Show(33, 110, 20);
  Pass(999);
  EXPECT_EQ(tip, "");
  Pass(1);
  EXPECT_EQ(tip, "Play 110 36 46 16");
}

TEST_F(ToolTips, OnceReadATipGoesByItself) {
  Arm();
  Show(33);
  Pass(1000);
  Pass(kToolTipEndTime - 1);
  EXPECT_NE(tip, "");
  Pass(1);
  EXPECT_EQ(tip, "");
  EXPECT_FALSE(rules.Shown());
  EXPECT_FALSE(rules.Armed());
}

TEST_F(ToolTips, AMovedTipHasItsFullTime) {
  Arm();
  Show(33);
  Pass(1000 + kToolTipEndTime - 1);
  Show(34);
  Pass(kToolTipEndTime - 1);
  EXPECT_EQ(tip, "Stop 100 36 46 16");
}

TEST_F(ToolTips, AHiddenTipsEndDoesNotTouchTheNext) {
  Arm();
  Show(33);
  Pass(1000);
  Show(kNoToolTip);
  Show(34);
  Pass(kToolTipEndTime - 1);
  EXPECT_NE(tip, "");
  EXPECT_TRUE(rules.Armed());
}

}  // namespace
}  // namespace tembrel
