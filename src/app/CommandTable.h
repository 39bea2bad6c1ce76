// The command table: for every command the handler that answers it and the rule by which it is enabled. The
// main window asks it whenever a menu opens, a key is pressed or the active document changes.
#pragma once

#include <span>

namespace tembrel {

enum class CommandHandler {
  NotBuilt,  // stands in the menus, always disabled
  NewDocument,
  Open,
  Close,
  Save,
  SaveAs,
  OpenRecent,
  Exit,
  Undo,
  Redo,
  PasteInsert,
  PasteMerge,
  PasteOverwrite,
  Format,
  SelectAll,
  SelectLastRange,
  AudioSpectrum,
  Play,
  PlayFromCursor,
  PlayScreen,
  Cascade,
  Tile,
  ArrangeIcons,
  CloseAll,
  HelpContents,
  Website,
  About,
  AudioSetup,
};

enum class EnableRule {
  Always,
  DocumentsCounted,     // the document count is not zero
  CanUndo,              // the active audio document has something to undo
  CanRedo,              // the active audio document has something to redo
  CanPaste,             // as AudioDocument, and the clipboard holds data
  AudioDocument,        // an active audio document that is not the spectrum window
  LastRangeRemembered,  // as AudioDocument, and a last range is remembered
  CanOpenSpectrum,      // the document count is not zero and no spectrum window is open
};

struct CommandRow {
  int id;
  CommandHandler handler;
  EnableRule rule;
};

// What the enabling rules look at. Undo, redo and the last range are those of the active audio document.
struct CommandContext {
  long documentCount = 0;
  bool activeAudioDocument = false;
  bool activeIsSpectrum = false;
  bool canUndo = false;
  bool canRedo = false;
  bool clipboardHasData = false;
  bool lastRangeRemembered = false;
  bool spectrumOpen = false;
};

std::span<const CommandRow> CommandTable();

// The row of a command, null when no handler is listed for it.
const CommandRow* FindCommand(int id);

bool RuleHolds(EnableRule rule, const CommandContext& context);

// The row's rule holds and the command is built.
bool IsEnabled(const CommandRow& row, const CommandContext& context);

// Commands that only accelerators name and no handler answers: their keys are consumed and do nothing.
std::span<const int> ConsumedCommands();

}  // namespace tembrel
