#include "app/MenuTable.h"

#include "app/CommandIds.h"

namespace tembrel {

namespace {

MenuItem Item(std::string_view text, int id) {
  return {text, id, {}};
}

MenuItem Separator() {
  return {};
}

MenuItem Popup(std::string_view text, std::vector<MenuItem> items) {
  return {text, 0, std::move(items)};
}

}  // namespace

std::vector<Menu> MainMenu() {
  return {
      {"&File",
       MenuTail::RecentFiles,
       {Item("&Open...\tCtl+O", kCommandOpen), Item("&Close", kCommandClose), Separator(),
        Item("&Save\tCtl+S", kCommandSave), Item("Save &As...", kCommandSaveAs), Separator(),
        Item("E&xit\tCtl+Q", kCommandExit)}},
      {"&Edit",
       MenuTail::None,
       {Item("&Undo\tCtl+Z", kCommandUndo), Item("&Redo\tCtrl+Y", kCommandRedo), Separator(),
        Popup("Paste...", {Item("&Insert\tCtl+V", kCommandPasteInsert), Item("&Merge", kCommandPasteMerge),
                           Item("&Overwrite", kCommandPasteOverwrite)}),
        Separator(), Item("&Select All\tCtrl+A", kCommandSelectAll),
        Item("&Select Last Range", kCommandSelectLastRange), Separator(),
        Item("&Format...", kCommandFormat)}},
      {"&Play",
       MenuTail::None,
       {Item("&Play\tSPACE", kCommandPlay), Item("Play From &Cursor\tSHIFT+P", kCommandPlayFromCursor),
        Item("Play &Screen\tP", kCommandPlayScreen)}},
      {"&Analysis", MenuTail::None, {Item("&Audio Spectrum...", kCommandAudioSpectrum)}},
      {"&Options", MenuTail::None, {Item("&Audio Setup...", kCommandAudioSetup)}},
      {"&Window",
       MenuTail::WindowList,
       {Item("&Cascade", kCommandCascade), Item("&Tile", kCommandTile),
        Item("Arrange &Icons", kCommandArrangeIcons), Item("C&lose All", kCommandCloseAll)}},
      {"&Help",
       MenuTail::None,
       {Item("&Contents...\tF1", kCommandHelpContents), Item("&Website", kCommandWebsite), Separator(),
        Item("&About...", kCommandAbout)}},
  };
}

}  // namespace tembrel
