// The program's line icons in the colours of the desktop theme.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace tembrel {

// What a button that is down is painted on: a button's ground, or the colour of highlights.
enum class PressedLook { Plain, Highlighted };

// The icon ":/icons/<name>.svg" drawn in the palette's button text colour, crisp at every scale factor, with
// a pale form for disabled buttons and the highlight's text colour for buttons that are down on it.
QIcon ThemedIcon(const QString& name, const QPalette& palette, PressedLook look = PressedLook::Plain);

}  // namespace tembrel
