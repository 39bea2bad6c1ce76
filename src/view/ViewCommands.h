// The view's zoom commands by their numbers, as buttons and keys send them.
#pragma once

namespace tembrel {

class EditView;

inline constexpr int kViewZoomOut = 8193;
inline constexpr int kViewZoomIn = 8194;
inline constexpr int kViewZoomAll = 8195;
inline constexpr int kViewVerticalZoomOut = 8212;
inline constexpr int kViewVerticalZoomIn = 8214;

// Runs the command; false for any other number.
bool RunViewCommand(EditView& view, int command);

}  // namespace tembrel
