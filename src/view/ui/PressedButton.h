// How a button that is down looks, in the strip and among the tools.
#pragma once

class QToolButton;

namespace tembrel {

// Paints the button down: on the colour of a selection, with the icon's form for buttons that are down.
void PaintPressedButton(QToolButton& button);

}  // namespace tembrel
