#include "app/AcceleratorTable.h"

#include <array>

#include "app/CommandIds.h"

namespace tembrel {

namespace {

constexpr bool kRepeats = true;
constexpr bool kOnce = false;

constexpr std::array kAccelerators{
    Accelerator{"Ctrl+O", kCommandOpen, kOnce},
    Accelerator{"Ctrl+S", kCommandSave, kOnce},
    Accelerator{"Ctrl+Q", kCommandExit, kOnce},
    Accelerator{"Ctrl+V", kCommandPasteInsert, kRepeats},
    Accelerator{"Ctrl+Z", kCommandUndo, kRepeats},
    Accelerator{"Ctrl+Y", kCommandRedo, kRepeats},
    Accelerator{"Ctrl+A", kCommandSelectAll, kOnce},
    Accelerator{"F1", kCommandHelpContents, kOnce},
    Accelerator{"Space", kCommandPlay, kOnce},
    Accelerator{"Shift+P", kCommandPlayFromCursor, kOnce},
    Accelerator{"P", kCommandPlayScreen, kOnce},
    Accelerator{"Del", kCommandDeleteSelection, kOnce},
    Accelerator{"Shift+Del", kCommandCut, kOnce},
    Accelerator{"Ctrl+Ins", kCommandCopy, kOnce},
    Accelerator{"Shift+Ins", kCommandPasteInsert, kRepeats},
    Accelerator{"Ctrl+Del", kCommandClear, kOnce},
    Accelerator{"Alt+Backspace", kCommandUndo, kRepeats},
    Accelerator{"F3", kCommandFindNext, kOnce},
};

}  // namespace

std::span<const Accelerator> AcceleratorTable() {
  return kAccelerators;
}

}  // namespace tembrel
