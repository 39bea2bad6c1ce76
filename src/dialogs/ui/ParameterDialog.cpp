#include "dialogs/ui/ParameterDialog.h"

#include <QPushButton>

#include "dialogs/DialogTexts.h"

namespace tembrel {

QString DialogText(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

ParameterDialog::ParameterDialog(QWidget* parent, const char* className, int resource, std::string_view title)
    : QDialog(parent) {
  setObjectName(className);
  setProperty("resourceId", resource);
  setWindowTitle(DialogText(title));
}

void ParameterDialog::SetControlId(QWidget* control, int id) {
  control->setProperty("controlId", id);
}

ParameterDialog::Buttons ParameterDialog::CreateButtons(int okId) {
  auto* ok = new QPushButton("OK", this);
  auto* cancel = new QPushButton("Cancel", this);
  SetControlId(ok, okId);
  SetControlId(cancel, kCancelControl);
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  return {ok, cancel};
}

void ParameterDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (const QWidget* parent = parentWidget()) {
    const QRect over = parent->window()->frameGeometry();
    move(over.center() - QPoint(frameGeometry().width() / 2, frameGeometry().height() / 2));
  }
}

}  // namespace tembrel
