#include <gmock/gmock.h>
#include <string>
#include <vector>

#include "app/CommandTable.h"
#include "app/MenuTable.h"

namespace tembrel {
namespace {

// One line an entry: "text (id)", "-" for a separator, popup items indented.
void Describe(const std::vector<MenuItem>& items, const std::string& indent,
              std::vector<std::string>& lines) {
  for (const MenuItem& item : items) {
    if (item.IsSeparator()) {
      lines.push_back(indent + "-");
    } else if (!item.popup.empty()) {
      lines.push_back(indent + std::string(item.text));
      Describe(item.popup, indent + "  ", lines);
    } else {
      lines.push_back(indent + std::string(item.text) + " (" + std::to_string(item.id) + ")");
    }
  }
}

void CollectIds(const std::vector<MenuItem>& items, std::vector<int>& ids) {
  for (const MenuItem& item : items) {
    if (item.popup.empty() && !item.IsSeparator()) {
      ids.push_back(item.id);
    }
    CollectIds(item.popup, ids);
  }
}

TEST(MenuTable, HoldsEveryMenuAndItemInOrderLetterByLetter) {
  std::vector<std::string> lines;
  for (const Menu& menu : MainMenu()) {
    lines.emplace_back(menu.text);
    Describe(menu.items, "  ", lines);
  }
  EXPECT_THAT(lines, testing::ElementsAre("&File",                               //
                                          "  &Open...\tCtl+O (24332)",           //
                                          "  &Close (24339)",                    //
                                          "  -",                                 //
                                          "  &Save\tCtl+S (24333)",              //
                                          "  Save &As... (24334)",               //
                                          "  -",                                 //
                                          "  E&xit\tCtl+Q (24310)",              //
                                          "&Edit",                               //
                                          "  &Undo\tCtl+Z (24321)",              //
                                          "  &Redo\tCtrl+Y (24329)",             //
                                          "  -",                                 //
                                          "  Paste...",                          //
                                          "    &Insert\tCtl+V (24324)",          //
                                          "    &Merge (702)",                    //
                                          "    &Overwrite (703)",                //
                                          "  -",                                 //
                                          "  &Select All\tCtrl+A (700)",         //
                                          "  &Select Last Range (701)",          //
                                          "  -",                                 //
                                          "  &Format... (704)",                  //
                                          "&Play",                               //
                                          "  &Play\tSPACE (900)",                //
                                          "  Play From &Cursor\tSHIFT+P (901)",  //
                                          "  Play &Screen\tP (902)",             //
                                          "&Analysis",                           //
                                          "  &Audio Spectrum... (400)",          //
                                          "&Options",                            //
                                          "  &Audio Setup... (500)",             //
                                          "&Window",                             //
                                          "  &Cascade (24361)",                  //
                                          "  &Tile (24362)",                     //
                                          "  Arrange &Icons (24364)",            //
                                          "  C&lose All (24365)",                //
                                          "&Help",                               //
                                          "  &Contents...\tF1 (800)",            //
                                          "  &Website (801)",                    //
                                          "  -",                                 //
                                          "  &About... (2009)"));
}

TEST(MenuTable, TheFileMenuHasSevenFixedItemsAndTheRecentFilesBelow) {
  const std::vector<Menu> menus = MainMenu();
  EXPECT_EQ(menus[0].items.size(), 7U);
  EXPECT_EQ(menus[0].tail, MenuTail::RecentFiles);
}

TEST(MenuTable, TheWindowListFollowsInTheWindowMenuAlone) {
  for (const Menu& menu : MainMenu()) {
    EXPECT_EQ(menu.tail == MenuTail::WindowList, menu.text == "&Window") << menu.text;
    EXPECT_EQ(menu.tail == MenuTail::RecentFiles, menu.text == "&File") << menu.text;
  }
}

TEST(MenuTable, EveryItemIsInTheCommandTable) {
  std::vector<int> ids;
  for (const Menu& menu : MainMenu()) {
    CollectIds(menu.items, ids);
  }
  EXPECT_EQ(ids.size(), 25U);
  for (const int id : ids) {
    EXPECT_NE(FindCommand(id), nullptr) << id;
  }
}

}  // namespace
}  // namespace tembrel
