// The program's line icons in the colours of the desktop theme.
#pragma once

#include <QIcon>
#include <QPalette>
#include <QString>

namespace tembrel {

// The icon ":/icons/<name>.svg" drawn in the palette's button text colour, crisp at every scale factor, with
// a pale form for disabled buttons.
QIcon ThemedIcon(const QString& name, const QPalette& palette);

}  // namespace tembrel
