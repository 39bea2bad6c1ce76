// The accelerator table as data: which key stands for which command.
#pragma once

#include <span>
#include <string_view>

namespace tembrel {

struct Accelerator {
  std::string_view key;  // portable spelling: "Ctrl+O", "Shift+Del", "Space"
  int id;
  bool autoRepeat;  // false: a key held down gives the command once (playing must not restart over and over)
};

// In table order. A key appears once; two keys may stand for one command.
std::span<const Accelerator> AcceleratorTable();

}  // namespace tembrel
