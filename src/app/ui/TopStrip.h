// What stands in the top strip: the transport's buttons, the position buttons with their scroller, the
// position counter.
#pragma once

#include <QList>

#include "view/ui/GrayStatic.h"

class QToolButton;

namespace tembrel {

class CountWin;
class ScrollerWindow;
class ToolTipWindow;

class TopStrip : public GrayStatic {
  Q_OBJECT

 public:
  // The tool tips of the transport's buttons appear in `tips`, which outlives the strip.
  TopStrip(ToolTipWindow* tips, QWidget* parent);

  CountWin* Counter() { return counter; }
  ScrollerWindow* Scroller() { return scroller; }
  // Whether there is a document to scroll.
  void EnablePosition(bool enabled);

 Q_SIGNALS:
  // A horizontal scroll request for the active document.
  void scrollRequested(int code, int value);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void CreateTransport(ToolTipWindow* tips);
  void CreatePosition();
  QToolButton* CreateButton(std::string_view icon, std::string_view name, const QRect& place);
  void RefreshIcons();

  CountWin* counter;
  ScrollerWindow* scroller;
  QList<QToolButton*> buttons;
  QList<QToolButton*> positionButtons;
};

}  // namespace tembrel
