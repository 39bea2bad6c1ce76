#include "view/ActionMenu.h"

#include <algorithm>
#include <array>

#include "edit/EffectTable.h"

namespace tembrel {

namespace {

struct ActionRow {
  std::string_view text;
  int id;
};

// The effects stand between these two.
constexpr std::array kEditing{
    ActionRow{"&Cut", kActionCut},
    ActionRow{"Co&py", kActionCopy},
    ActionRow{"&Insert", kActionInsert},
};
constexpr std::array kLater{
    ActionRow{"Remove N&oise", kActionRemoveNoise},
    ActionRow{"&Duration...", kActionDuration},
    ActionRow{"&Pitch...", kActionPitch},
};

ActionItem Item(std::string_view text, int id) {
  return {std::string(text), id, IsActionBuilt(id), {}};
}

ActionItem PluginMenu(std::span<const std::string> names) {
  ActionItem menu{"&VST Plugins...", 0, true, {}};
  const std::size_t count = std::min(names.size(), std::size_t{kMaxPluginActions});
  menu.popup.reserve(count);
  int id = kActionFirstPlugin;
  for (const std::string& name : names.first(count)) {
    menu.popup.push_back(Item(MenuName(name), id));
    ++id;
  }
  return menu;
}

}  // namespace

bool IsActionBuilt(int id) {
  return id == kActionCut || id == kActionCopy || id == kActionInsert || id == kActionPlay ||
         FindEffect(id) != nullptr;
}

std::string MenuName(std::string_view name) {
  std::string text;
  for (const char letter : name) {
    text.append(letter == '&' ? 2 : 1, letter);
  }
  return text;
}

std::vector<ActionItem> ActionMenu(std::span<const std::string> pluginNames) {
  std::vector<ActionItem> items;
  items.reserve(kEditing.size() + EffectTable().size() + kLater.size() + 2);
  for (const auto& [text, id] : kEditing) {
    items.push_back(Item(text, id));
  }
  for (const EffectRow& effect : EffectTable()) {
    if (!effect.menuText.empty()) {
      items.push_back(Item(effect.menuText, effect.commandId));
    }
  }
  for (const auto& [text, id] : kLater) {
    items.push_back(Item(text, id));
  }
  if (!pluginNames.empty()) {
    items.push_back(PluginMenu(pluginNames));
  }
  items.push_back(Item("&Play", kActionPlay));
  return items;
}

}  // namespace tembrel
