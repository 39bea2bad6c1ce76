#include <gtest/gtest.h>
#include <set>

#include "view/StripButtons.h"
#include "view/ToolButtons.h"

namespace tembrel {
namespace {

TEST(ToolButtons, HaveOneControlIdAnIndex) {
  int id = 8224;
  for (const ToolButton& button : ToolButtons()) {
    EXPECT_EQ(button.controlId, id++);
  }
}

TEST(ToolButtons, OnlyTheFirstPromisesToSelect) {
  for (const ToolButton& button : ToolButtons()) {
    EXPECT_EQ(button.tip.starts_with("Select"), button.controlId == kFirstToolButton) << button.tip;
    EXPECT_EQ(button.tip.starts_with("Place the cursor"), button.controlId != kFirstToolButton) << button.tip;
  }
}

TEST(ToolButtons, CanBeToldApart) {
  std::set<std::string_view> names;
  std::set<std::string_view> tips;
  std::set<PointerShape> pointers;
  for (const ToolButton& button : ToolButtons()) {
    names.insert(button.name);
    tips.insert(button.tip);
    pointers.insert(button.pointer);
  }
  EXPECT_EQ(names.size(), kToolCount);
  EXPECT_EQ(tips.size(), kToolCount);
  EXPECT_EQ(pointers.size(), kToolCount);
}

TEST(ToolButtons, TwoAndFiveDoNotScrollSideways) {
  for (const ToolButton& button : ToolButtons()) {
    const int index = button.controlId - kFirstToolButton;
    EXPECT_EQ(button.scrollsSideways, index != 2 && index != 5) << index;
  }
}

TEST(ToolButtons, ThePointerIsThePencilWhereverItDraws) {
  EXPECT_EQ(PointerOf(0, false), PointerShape::IBeam);
  EXPECT_EQ(PointerOf(3, false), PointerShape::Cross);
  EXPECT_EQ(PointerOf(3, true), PointerShape::Pencil);
  EXPECT_EQ(PointerOf(-1, false), PointerShape::IBeam);
  EXPECT_EQ(PointerOf(8, false), PointerShape::IBeam);
}

TEST(StripButtons, AreNamedByTheirToolTips) {
  std::set<std::string_view> names;
  for (const StripButton& button : StripButtons()) {
    names.insert(StripButtonName(button));
  }
  EXPECT_EQ(names, (std::set<std::string_view>{"Play", "Pause", "Stop", "Record", "Rewind", "Move In Time",
                                               "Time Display"}));
}

TEST(PositionButtons, SendTheirScrollCodes) {
  std::set<int> codes;
  for (const PositionButton& button : PositionButtons()) {
    codes.insert(static_cast<int>(button.code));
    EXPECT_EQ(button.value, button.code == ScrollCode::RightEnd ? 100 : 0);
    EXPECT_FALSE(button.name.empty());
  }
  EXPECT_EQ(codes, (std::set<int>{0, 1, 6, 7}));
}

}  // namespace
}  // namespace tembrel
