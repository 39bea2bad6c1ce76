#include <gtest/gtest.h>
#include <set>

#include "view/ActionMenu.h"

namespace tembrel {
namespace {

using Entry = std::pair<std::string, int>;

std::vector<Entry> EntriesOf(const std::vector<ActionItem>& items) {
  std::vector<Entry> entries;
  entries.reserve(items.size());
  for (const ActionItem& item : items) {
    entries.emplace_back(item.text, item.id);
  }
  return entries;
}

TEST(ActionMenu, EntriesStandInTheirOrder) {
  EXPECT_EQ(EntriesOf(ActionMenu()), (std::vector<Entry>{{"&Cut", 8246},
                                                         {"Co&py", 8248},
                                                         {"&Insert", 8249},
                                                         {"&Amplify...", 8262},
                                                         {"Si&lence", 8268},
                                                         {"Fade &In", 8264},
                                                         {"Fade &Out", 8266},
                                                         {"&Normalize", 8267},
                                                         {"&Compress", 8261},
                                                         {"&Reverb", 8263},
                                                         {"&Filter...", 8269},
                                                         {"Remove N&oise", 8271},
                                                         {"&Duration...", 8338},
                                                         {"&Pitch...", 8256},
                                                         {"&Play", 8260}}));
}

TEST(ActionMenu, WhatIsBuiltCanBeChosen) {
  const std::set<int> notBuilt{8271, 8338, 8256};
  for (const ActionItem& item : ActionMenu()) {
    EXPECT_EQ(item.enabled, !notBuilt.contains(item.id)) << item.text;
    EXPECT_EQ(item.enabled, IsActionBuilt(item.id));
  }
}

TEST(ActionMenu, PluginsStandInASubMenuBeforePlay) {
  const std::vector<std::string> names{"Echo", "Rock & Roll"};
  const std::vector<ActionItem> items = ActionMenu(names);
  ASSERT_EQ(items.size(), 16U);
  EXPECT_EQ(items[14].text, "&VST Plugins...");
  EXPECT_EQ(items[14].id, 0);
  EXPECT_EQ(EntriesOf(items[14].popup), (std::vector<Entry>{{"Echo", 8273}, {"Rock && Roll", 8274}}));
  EXPECT_EQ(items[15].id, 8260);
}

TEST(ActionMenu, AtMostTwentyFourPluginsAreListed) {
  const std::vector<std::string> names(30, "Echo");
  const std::vector<ActionItem> items = ActionMenu(names);
  ASSERT_EQ(items.at(14).popup.size(), 24U);
  EXPECT_EQ(items[14].popup.front().id, 8273);
  EXPECT_EQ(items[14].popup.back().id, 8296);
}

}  // namespace
}  // namespace tembrel
