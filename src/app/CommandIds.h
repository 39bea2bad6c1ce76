// The numbers of the program's commands. Menus, accelerators, buttons and the command table refer to a
// command by these names only.
#pragma once

namespace tembrel {

// File
inline constexpr int kCommandExit = 24310;
inline constexpr int kCommandNew = 24331;
inline constexpr int kCommandOpen = 24332;
inline constexpr int kCommandSave = 24333;
inline constexpr int kCommandSaveAs = 24334;
inline constexpr int kCommandClose = 24339;
inline constexpr int kCommandRecentFile1 = 600;  // the newest of the recent files
inline constexpr int kCommandRecentFile2 = 601;
inline constexpr int kCommandRecentFile3 = 602;
inline constexpr int kCommandRecentFile4 = 603;

// Edit
inline constexpr int kCommandUndo = 24321;
inline constexpr int kCommandCut = 24322;
inline constexpr int kCommandCopy = 24323;
inline constexpr int kCommandPasteInsert = 24324;
inline constexpr int kCommandDeleteSelection = 24325;
inline constexpr int kCommandClear = 24326;
inline constexpr int kCommandRedo = 24329;
inline constexpr int kCommandFindNext = 24353;
inline constexpr int kCommandSelectAll = 700;
inline constexpr int kCommandSelectLastRange = 701;
inline constexpr int kCommandPasteMerge = 702;
inline constexpr int kCommandPasteOverwrite = 703;
inline constexpr int kCommandFormat = 704;

// Play, Analysis, Options
inline constexpr int kCommandPlay = 900;
inline constexpr int kCommandPlayFromCursor = 901;
inline constexpr int kCommandPlayScreen = 902;
inline constexpr int kCommandAudioSpectrum = 400;
inline constexpr int kCommandAudioSetup = 500;

// Window
inline constexpr int kCommandCascade = 24361;
inline constexpr int kCommandTile = 24362;
inline constexpr int kCommandArrangeIcons = 24364;
inline constexpr int kCommandCloseAll = 24365;

// Help
inline constexpr int kCommandHelpContents = 800;
inline constexpr int kCommandWebsite = 801;
inline constexpr int kCommandAbout = 2009;

}  // namespace tembrel
