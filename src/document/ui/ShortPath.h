// Paths for places too narrow for them.
#pragma once

#include <functional>

#include <QString>

namespace tembrel {

// The path, or as much of it as `fits`: first the end of its folders gives way to "…", then the middle of the
// file's name. `fits` accepts every text that is shorter than one it accepts.
QString ShortPath(const QString& path, const std::function<bool(const QString&)>& fits);

// The same for at most `longest` characters.
QString ShortPath(const QString& path, qsizetype longest);

}  // namespace tembrel
