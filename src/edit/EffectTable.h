// Every effect, once: its command, its names, what it asks for, and the function that makes its step. Menus,
// windows and scripts ask here; a further effect is one function and one row.
#pragma once

#include <span>
#include <string_view>

#include "audio/FormatChoice.h"
#include "edit/ClipChanges.h"
#include "edit/EditStep.h"

namespace tembrel {

// What a person is asked for before the effect runs.
enum class EffectParameter { None, Percent, FilterPreset, Format };

// The answer; an effect looks at the one member that it asked for. Answers out of range are taken: the step's
// check refuses them.
struct EffectParameters {
  int percent = 100;    // 0 to 1000
  int preset = 0;       // index into FilterPresets()
  FormatChoice format;  // rate above 0
};

struct EffectRow {
  int commandId = 0;
  std::string_view word;      // what scripts call it: "fade-in"
  std::string_view menuText;  // its entry in the action menu; empty: it has none
  EffectParameter parameter = EffectParameter::None;
  // The selection is a byte range and is cut down to the clip; an effect on the whole clip ignores it.
  EditStep (*make)(const ByteRange& selection, const EffectParameters& parameters) = nullptr;
};

// The rows that have a menu entry stand in the menu's order.
std::span<const EffectRow> EffectTable();

// Null when the command, or the word, is no effect.
const EffectRow* FindEffect(int commandId);
const EffectRow* FindEffect(std::string_view word);

}  // namespace tembrel
