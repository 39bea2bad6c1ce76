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
    label->setAccessibleName(kGadgets.at(i).name);
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
  labels[0]->setText(QString::fromStdString(texts.rate));
  labels[1]->setText(QString::fromStdString(texts.bits));
  labels[2]->setText(QString::fromStdString(texts.channels));
}

}  // namespace tembrel
