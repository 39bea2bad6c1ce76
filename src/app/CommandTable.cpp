#include "app/CommandTable.h"

#include <algorithm>
#include <array>

#include "app/CommandIds.h"

namespace tembrel {

namespace {

using enum CommandHandler;

constexpr std::array kCommands{
    CommandRow{kCommandNew, NewDocument, EnableRule::Always},
    CommandRow{kCommandOpen, Open, EnableRule::Always},
    CommandRow{kCommandClose, Close, EnableRule::DocumentsCounted},
    CommandRow{kCommandSave, Save, EnableRule::DocumentsCounted},
    CommandRow{kCommandSaveAs, SaveAs, EnableRule::DocumentsCounted},
    CommandRow{kCommandRecentFile1, OpenRecent, EnableRule::Always},
    CommandRow{kCommandRecentFile2, OpenRecent, EnableRule::Always},
    CommandRow{kCommandRecentFile3, OpenRecent, EnableRule::Always},
    CommandRow{kCommandRecentFile4, OpenRecent, EnableRule::Always},
    CommandRow{kCommandUndo, Undo, EnableRule::CanUndo},
    CommandRow{kCommandRedo, Redo, EnableRule::CanRedo},
    CommandRow{kCommandPasteInsert, PasteInsert, EnableRule::CanPaste},
    CommandRow{kCommandPasteMerge, PasteMerge, EnableRule::CanPaste},
    CommandRow{kCommandPasteOverwrite, PasteOverwrite, EnableRule::CanPaste},
    CommandRow{kCommandFormat, Format, EnableRule::AudioDocument},
    CommandRow{kCommandSelectAll, SelectAll, EnableRule::AudioDocument},
    CommandRow{kCommandSelectLastRange, SelectLastRange, EnableRule::LastRangeRemembered},
    CommandRow{kCommandPlay, Play, EnableRule::AudioDocument},
    CommandRow{kCommandPlayFromCursor, PlayFromCursor, EnableRule::AudioDocument},
    CommandRow{kCommandPlayScreen, PlayScreen, EnableRule::AudioDocument},
    CommandRow{kCommandAudioSpectrum, AudioSpectrum, EnableRule::CanOpenSpectrum},
    CommandRow{kCommandAudioSetup, AudioSetup, EnableRule::Always},
    CommandRow{kCommandHelpContents, HelpContents, EnableRule::Always},
    CommandRow{kCommandWebsite, Website, EnableRule::Always},
    CommandRow{kCommandAbout, About, EnableRule::Always},
    CommandRow{kCommandExit, Exit, EnableRule::Always},
    CommandRow{kCommandCascade, Cascade, EnableRule::DocumentsCounted},
    CommandRow{kCommandTile, Tile, EnableRule::DocumentsCounted},
    CommandRow{kCommandArrangeIcons, ArrangeIcons, EnableRule::DocumentsCounted},
    CommandRow{kCommandCloseAll, CloseAll, EnableRule::DocumentsCounted},
};

constexpr std::array kConsumed{kCommandCut, kCommandCopy, kCommandDeleteSelection, kCommandClear,
                               kCommandFindNext};

}  // namespace

std::span<const CommandRow> CommandTable() {
  return kCommands;
}

const CommandRow* FindCommand(int id) {
  const auto* row = std::ranges::find(kCommands, id, &CommandRow::id);
  return row == kCommands.end() ? nullptr : row;
}

bool RuleHolds(EnableRule rule, const CommandContext& context) {
  const bool audioDocument = context.activeAudioDocument && !context.activeIsSpectrum;
  switch (rule) {
    case EnableRule::Always:
      return true;
    case EnableRule::DocumentsCounted:
      return context.documentCount != 0;
    case EnableRule::CanUndo:
      return context.activeAudioDocument && context.canUndo;
    case EnableRule::CanRedo:
      return context.activeAudioDocument && context.canRedo;
    case EnableRule::CanPaste:
      return audioDocument && context.clipboardHasData;
    case EnableRule::AudioDocument:
      return audioDocument;
    case EnableRule::LastRangeRemembered:
      return audioDocument && context.lastRangeRemembered;
    case EnableRule::CanOpenSpectrum:
      return context.documentCount != 0 && !context.spectrumOpen;
  }
  return false;
}

bool IsEnabled(const CommandRow& row, const CommandContext& context) {
  return row.handler != CommandHandler::NotBuilt && RuleHolds(row.rule, context);
}

std::span<const int> ConsumedCommands() {
  return kConsumed;
}

}  // namespace tembrel
