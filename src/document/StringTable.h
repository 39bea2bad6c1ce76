// The program's numbered texts. Every text that carries an id stands here, once; look it up by that id.
#pragma once

#include <string_view>

namespace tembrel {

inline constexpr int kStringWaveFilter = 3;     // filter of the recording save dialog
inline constexpr int kStringSaveFilter = 4;     // filter of Save As, one entry a format
inline constexpr int kStringOpenFilter = 5;     // filter of Open
inline constexpr int kStringToolTips = 800;     // plus the number of the tool tip
inline constexpr int kStringSaveWarning = 908;  // a recording's extension will be changed
inline constexpr int kStringSaveTitle = 1003;
inline constexpr int kStringLeavingTitle = 1014;  // title of the save prompt
inline constexpr int kStringNewDocument = 32550;  // title of a new document, before its number

// The program's name, the title of every message box that has no title of its own.
inline constexpr std::string_view kProgramName = "Tembrel";

// The text with this id; empty when there is none.
std::string_view StringResource(int id);

}  // namespace tembrel
