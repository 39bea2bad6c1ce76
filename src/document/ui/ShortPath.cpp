#include "document/ui/ShortPath.h"

namespace tembrel {

namespace {

constexpr QChar kEllipsis(0x2026);

// No half of a character that is written as two.
QString Beginning(const QString& text, qsizetype length) {
  const QString part = text.left(length);
  return part.isEmpty() || !part.back().isHighSurrogate() ? part : part.chopped(1);
}

QString Ending(const QString& text, qsizetype length) {
  const QString part = text.right(length);
  return part.isEmpty() || !part.front().isLowSurrogate() ? part : part.sliced(1);
}

// The longest of `make(0)` to `make(most)` that fits; `make(0)` when none does.
QString Longest(qsizetype most, const std::function<QString(qsizetype)>& make,
                const std::function<bool(const QString&)>& fits) {
  qsizetype least = 0;
  while (least < most) {
    const qsizetype middle = (least + most + 1) / 2;
    if (fits(make(middle))) {
      least = middle;
    } else {
      most = middle - 1;
    }
  }
  return make(least);
}

}  // namespace

QString ShortPath(const QString& path, const std::function<bool(const QString&)>& fits) {
  if (fits(path)) {
    return path;
  }
  const qsizetype slash = path.lastIndexOf('/');
  QString name = path.mid(slash + 1);
  const QString end = kEllipsis + path.mid(slash);
  if (slash > 0 && fits(end)) {
    return Longest(
        slash, [&](qsizetype kept) { return Beginning(path, kept) + end; }, fits);
  }
  if (fits(name)) {
    return name;
  }
  return Longest(
      name.size(),
      [&](qsizetype kept) { return Beginning(name, (kept + 1) / 2) + kEllipsis + Ending(name, kept / 2); },
      fits);
}

QString ShortPath(const QString& path, qsizetype longest) {
  return ShortPath(path, [longest](const QString& text) { return text.size() <= longest; });
}

}  // namespace tembrel
