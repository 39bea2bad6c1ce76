#include <gmock/gmock.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "app/AcceleratorTable.h"

namespace tembrel {
namespace {

TEST(AcceleratorTable, HoldsTheKeysInOrder) {
  std::vector<std::pair<std::string, int>> rows;
  for (const Accelerator& accelerator : AcceleratorTable()) {
    rows.emplace_back(accelerator.key, accelerator.id);
  }
  const std::vector<std::pair<std::string, int>> expected{
      {"Ctrl+O", 24332},        {"Ctrl+S", 24333},   {"Ctrl+Q", 24310},    {"Ctrl+V", 24324},
      {"Ctrl+Z", 24321},        {"Ctrl+Y", 24329},   {"Ctrl+A", 700},      {"F1", 800},
      {"Space", 900},           {"Shift+P", 901},    {"P", 902},           {"Del", 24325},
      {"Shift+Del", 24322},     {"Ctrl+Ins", 24323}, {"Shift+Ins", 24324}, {"Ctrl+Del", 24326},
      {"Alt+Backspace", 24321}, {"F3", 24353},
  };
  EXPECT_EQ(rows, expected);
}

TEST(AcceleratorTable, NoKeyStandsTwice) {
  std::set<std::string_view> keys;
  for (const Accelerator& accelerator : AcceleratorTable()) {
    EXPECT_TRUE(keys.insert(accelerator.key).second) << accelerator.key;
  }
}

TEST(AcceleratorTable, ShiftInsertPastesLikeControlV) {
  std::vector<std::string> keys;
  for (const Accelerator& accelerator : AcceleratorTable()) {
    if (accelerator.id == 24324) {
      keys.emplace_back(accelerator.key);
    }
  }
  EXPECT_THAT(keys, testing::ElementsAre("Ctrl+V", "Shift+Ins"));
}

TEST(AcceleratorTable, OnlyPasteUndoAndRedoRepeatWhileTheKeyIsHeld) {
  for (const Accelerator& accelerator : AcceleratorTable()) {
    const bool repeats = accelerator.id == 24324 || accelerator.id == 24321 || accelerator.id == 24329;
    EXPECT_EQ(accelerator.autoRepeat, repeats) << accelerator.key;
  }
}

}  // namespace
}  // namespace tembrel
