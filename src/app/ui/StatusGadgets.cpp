#include "app/ui/StatusGadgets.h"

#include <QLabel>
#include <QStatusBar>

namespace tembrel {

namespace {

constexpr int kPointSize = 10;
constexpr int kPadding = 8;

struct GadgetRow {
  int id;
  int characters;
  const char* name;
};

constexpr std::array<GadgetRow, 3> kGadgets{
    GadgetRow{0, 10, "Sample rate"},
    GadgetRow{1, 8, "Resolution"},
    GadgetRow{2, 8, "Channels"},
};

}  // namespace

StatusGadgets::StatusGadgets(QStatusBar* bar) : QObject(bar), labels{} {
  QFont font = bar->font();
  font.setPointSize(kPointSize);
  for (std::size_t i = 0; i < kGadgets.size(); ++i) {
    auto* label = new QLabel(bar);
    label->setObjectName("TTextGadget");
    label->setProperty("controlId", kGadgets.at(i).id);
    label->setToolTip(kGadgets.at(i).name);
    label->setFont(font);
    label->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setMargin(2);
    label->setFixedWidth(QFontMetrics(font).horizontalAdvance('0') * kGadgets.at(i).characters + kPadding);
    bar->addWidget(label);
    labels.at(i) = label;
  }
  Show(InitialStatusTexts());
}

void StatusGadgets::Show(const StatusTexts& texts) {
  const std::array shown{texts.rate, texts.bits, texts.channels};
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const QString text = QString::fromStdString(shown.at(i));
    labels.at(i)->setText(text);
    labels.at(i)->setAccessibleName(QString(kGadgets.at(i).name) + ": " + text);
  }
}

}  // namespace tembrel
