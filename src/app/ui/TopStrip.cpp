#include "app/ui/TopStrip.h"

#include <QEvent>
#include <QToolButton>

#include "view/StripButtons.h"
#include "view/ui/CountWin.h"
#include "view/ui/ScrollerWindow.h"
#include "view/ui/ThemedIcon.h"
#include "view/ui/ToggleButton.h"
#include "view/ui/ToolTipWindow.h"

namespace tembrel {

namespace {

constexpr int kMargin = 8;
constexpr int kButton = 32;
constexpr int kButtonIcon = 22;
constexpr int kPositionButton = 24;
constexpr int kPositionIcon = 16;
constexpr int kGap = 20;
constexpr char kIconName[] = "iconName";

QString ToText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

int Centred(int height) {
  return (GrayStatic::kHeight - height) / 2;
}

}  // namespace

TopStrip::TopStrip(ToolTipWindow* tips, QWidget* parent)
    : GrayStatic(parent), counter(new CountWin(this)), scroller(new ScrollerWindow(this)) {
  CreateTransport(tips);
  CreatePosition();
  RefreshIcons();
}

void TopStrip::Place(QToolButton& button, std::string_view icon, std::string_view name, const QRect& place) {
  button.setProperty(kIconName, ToText(icon));
  button.setAccessibleName(ToText(name));
  button.setGeometry(place);
  buttons << &button;
}

void TopStrip::CreateTransport(ToolTipWindow* tips) {
  int x = kMargin;
  for (const StripButton& row : StripButtons()) {
    auto* button = new ToggleButton(this);
    Place(*button, row.icon, StripButtonName(row), {x, Centred(kButton), kButton, kButton});
    button->setIconSize({kButtonIcon, kButtonIcon});
    button->setEnabled(false);
    if (row.built) {
      if (!row.key.empty()) {
        button->setAccessibleDescription("Key: " + ToText(row.key));
      }
      connect(button, &QToolButton::clicked, this, [this, row] { Q_EMIT transportRequested(row.tipId); });
      transportButtons[row.tipId] = button;
    }
    tips->Watch(button, row.tipId);
    x += kButton + 2;
  }
}

// Start, a step left, the scroller, a step right, end; then the counter.
void TopStrip::CreatePosition() {
  int x = buttons.last()->geometry().right() + kGap;
  const auto Add = [this, &x](ScrollCode code) {
    for (const PositionButton& row : PositionButtons()) {
      if (row.code != code) {
        continue;
      }
      auto* button = new QToolButton(this);
      button->setObjectName("ZoomButton");
      button->setFocusPolicy(Qt::NoFocus);
      button->setAutoRaise(true);
      Place(*button, row.icon, row.name, {x, Centred(kPositionButton), kPositionButton, kPositionButton});
      button->setIconSize({kPositionIcon, kPositionIcon});
      button->setToolTip(ToText(row.name));
      button->setAutoRepeat(code == ScrollCode::LineLeft || code == ScrollCode::LineRight);
      connect(button, &QToolButton::clicked, this,
              [this, row] { Q_EMIT scrollRequested(static_cast<int>(row.code), row.value); });
      positionButtons << button;
      x += kPositionButton + 2;
    }
  };
  Add(ScrollCode::LeftEnd);
  Add(ScrollCode::LineLeft);
  scroller->move(x + 2, Centred(scroller->height()));
  x += scroller->width() + 6;
  Add(ScrollCode::LineRight);
  Add(ScrollCode::RightEnd);
  connect(scroller, &ScrollerWindow::scrollRequested, this, &TopStrip::scrollRequested);
  counter->move(x + kGap, Centred(counter->height()));
}

void TopStrip::EnablePosition(bool enabled) {
  scroller->setEnabled(enabled);
  for (QToolButton* button : positionButtons) {
    button->setEnabled(enabled);
  }
}

void TopStrip::ShowTransport(const StripContext& context) {
  for (auto it = transportButtons.cbegin(); it != transportButtons.cend(); ++it) {
    const StripButtonState state = StripButtonStateOf(it.key(), context);
    it.value()->setEnabled(state.enabled);
    it.value()->SetPressed(state.down);
  }
}

void TopStrip::RefreshIcons() {
  for (QToolButton* button : buttons) {
    button->setIcon(ThemedIcon(button->property(kIconName).toString(), palette(), PressedLook::Highlighted));
  }
}

void TopStrip::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    RefreshIcons();
  }
  GrayStatic::changeEvent(event);
}

}  // namespace tembrel
