#include "app/ui/VAboutDialog.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QVBoxLayout>

#include "app/AboutText.h"
#include "app/VersionInfo.h"

namespace tembrel {

namespace {

constexpr int kIconSize = 64;
constexpr int kNamePointSizeMore = 6;

// From the top down. They are filled in another order.
constexpr std::array kShownOrder{kAboutApplicationName, kAboutVersion,   kAboutComments,
                                 kAboutCopyright,       kAboutBuildDate, kAboutPrivateBuild,
                                 kAboutSpecialBuild,    kAboutTrademarks};

std::vector<AboutField> InShownOrder(std::vector<AboutField> fields) {
  std::ranges::sort(fields, {}, [](const AboutField& field) {
    return std::ranges::find(kShownOrder, field.controlId) - kShownOrder.begin();
  });
  return fields;
}

}  // namespace

VAboutDialog::VAboutDialog(QWidget* parent) : QDialog(parent) {
  setObjectName("VAboutDialog");
  setProperty("controlId", kAboutDialogResource);
  setWindowTitle("About Tembrel");
  auto* fields = new QVBoxLayout;
  for (const AboutField& field : InShownOrder(AboutFields(CVersionInfo()))) {
    auto* label = new QLabel(QString::fromStdString(field.text), this);
    label->setTextFormat(Qt::PlainText);
    label->setProperty("controlId", field.controlId);
    label->setVisible(!field.text.empty());
    if (field.controlId == kAboutApplicationName) {
      QFont font = label->font();
      font.setPointSize(font.pointSize() + kNamePointSizeMore);
      font.setBold(true);
      label->setFont(font);
    }
    if (field.controlId == kAboutBuildDate) {
      auto* line = new QHBoxLayout;
      auto* caption = new QLabel("Built", this);
      caption->setVisible(!field.text.empty());
      line->setSpacing(fontMetrics().horizontalAdvance(' '));
      line->addWidget(caption);
      line->addWidget(label, 1);
      fields->addLayout(line);
    } else {
      fields->addWidget(label);
    }
  }
  fields->addStretch();
  auto* icon = new QLabel(this);
  icon->setPixmap(QIcon(":/tembrel.svg").pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
  auto* top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(icon, 0, Qt::AlignTop);
  top->addLayout(fields);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(20, 20, 20, 14);
  layout->setSpacing(16);
  layout->addLayout(top);
  layout->addWidget(buttons);
}

// Centred on the frame.
void VAboutDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  move(parentWidget()->frameGeometry().center() - rect().center());
}

}  // namespace tembrel
