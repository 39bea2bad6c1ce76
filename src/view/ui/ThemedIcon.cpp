#include "view/ui/ThemedIcon.h"

#include <array>

#include <QFile>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace tembrel {

namespace {

constexpr std::array kSizes{16, 20, 24, 32, 48, 64};

QPixmap Render(QByteArray svg, const QColor& color, int size) {
  svg.replace("#303030", color.name().toLatin1());
  QSvgRenderer renderer(svg);
  QPixmap pixmap(size, size);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  renderer.render(&painter);
  return pixmap;
}

}  // namespace

QIcon ThemedIcon(const QString& name, const QPalette& palette, PressedLook look) {
  QFile file(":/icons/" + name + ".svg");
  if (!file.open(QIODevice::ReadOnly)) {
    return {};
  }
  const QByteArray svg = file.readAll();
  QIcon icon;
  for (const int size : kSizes) {
    icon.addPixmap(Render(svg, palette.color(QPalette::Active, QPalette::ButtonText), size), QIcon::Normal);
    icon.addPixmap(Render(svg, palette.color(QPalette::Disabled, QPalette::ButtonText), size),
                   QIcon::Disabled);
    if (look == PressedLook::Highlighted) {
      icon.addPixmap(Render(svg, palette.color(QPalette::Active, QPalette::HighlightedText), size),
                     QIcon::Normal, QIcon::On);
    }
  }
  return icon;
}

}  // namespace tembrel
