// What stands in the top strip: the transport's buttons, the position buttons with their scroller, the
// position counter.
#pragma once

#include <QHash>
#include <QList>

#include "app/StripState.h"
#include "view/ui/GrayStatic.h"

class QToolButton;

namespace tembrel {

class CountWin;
class ScrollerWindow;
class ToggleButton;
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
  // Shows the transport's buttons as they stand, at once.
  void ShowTransport(const StripContext& context);

 Q_SIGNALS:
  // The transport's button with this tool tip was let go.
  void transportRequested(int tipId);
  // A horizontal scroll request for the active document.
  void scrollRequested(int code, int value);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void CreateTransport(ToolTipWindow* tips);
  void CreatePosition();
  void Place(QToolButton& button, std::string_view icon, std::string_view name, const QRect& place);
  void RefreshIcons();

  CountWin* counter;
  ScrollerWindow* scroller;
  QList<QToolButton*> buttons;
  QList<QToolButton*> positionButtons;
  QHash<int, ToggleButton*> transportButtons;  // by their tool tips
};

}  // namespace tembrel
