// The main menu as data: the main window builds its menu bar from it, texts letter by letter.
#pragma once

#include <string_view>
#include <vector>

namespace tembrel {

// A command (a text and an id), a separator (neither) or a popup (a text and items). What follows a tab in
// the text is the key as shown; the keys that work are those of the accelerator table.
struct MenuItem {
  std::string_view text;
  int id = 0;
  std::vector<MenuItem> popup;

  bool IsSeparator() const { return text.empty(); }
};

// What the window appends below the fixed items of a menu.
enum class MenuTail {
  None,
  RecentFiles,  // a separator and the recent files, when there are any
  WindowList,   // the open document windows
};

struct Menu {
  std::string_view text;
  MenuTail tail = MenuTail::None;
  std::vector<MenuItem> items;
};

// The menus from left to right.
std::vector<Menu> MainMenu();

}  // namespace tembrel
