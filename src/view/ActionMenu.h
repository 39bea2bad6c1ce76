// The action menu as data: what a finished selection offers. The window builds a fresh pop-up from it each
// time and sends the chosen id to the commands.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tembrel {

// The effects' ids stand in the effect table.
inline constexpr int kActionCut = 8246;
inline constexpr int kActionCopy = 8248;
inline constexpr int kActionInsert = 8249;  // silence of the selection's length
inline constexpr int kActionPitch = 8256;
inline constexpr int kActionPlay = 8260;
inline constexpr int kActionRemoveNoise = 8271;
inline constexpr int kActionDuration = 8338;
inline constexpr int kActionFirstPlugin = 8273;
inline constexpr int kMaxPluginActions = 24;

// The menu's top left corner from the mouse, logical pixels.
inline constexpr int kActionMenuRight = 28;
inline constexpr int kActionMenuDown = -1;

// A command (a text and an id) or a sub-menu (a text and items, id 0).
struct ActionItem {
  std::string text;  // with '&' before the letter of the entry; a plug-in's name has its own '&' doubled
  int id = 0;
  bool enabled = true;
  std::vector<ActionItem> popup;
};

// Whether choosing the entry does something in this version; the others stand in the menu, disabled.
bool IsActionBuilt(int id);

// A name as the text of a menu's entry, letter by letter: its '&' is doubled, and so marks no key.
std::string MenuName(std::string_view name);

// The entries in order. The plug-ins' sub-menu is there only when there are names, and holds the first 24.
// Nobody gives any as long as plug-ins are not built.
std::vector<ActionItem> ActionMenu(std::span<const std::string> pluginNames = {});

}  // namespace tembrel
