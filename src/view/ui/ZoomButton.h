// One of the small buttons at the end of a scroll bar. It keeps its icon in the colours of the theme.
#pragma once

#include <QString>
#include <QToolButton>

namespace tembrel {

// What a zoom button is: its command, its icon's name, and its name, which is its tool tip too.
struct ZoomButtonRow {
  int id;
  const char* icon;
  const char* name;
};

class ZoomButton : public QToolButton {
  Q_OBJECT

 public:
  ZoomButton(const ZoomButtonRow& row, QWidget* parent);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  QString iconName;
};

}  // namespace tembrel
