#include "dialogs/ui/SliderDialog.h"

#include <algorithm>
#include <utility>

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>

#include "dialogs/PercentField.h"
#include "dialogs/PitchField.h"
#include "dialogs/StretchField.h"
#include "edit/LevelEffects.h"

namespace tembrel {

namespace {

constexpr int kPagesOfARange = 10;
constexpr int kSliderWidth = 220;
constexpr int kEditWidth = 80;

}  // namespace

SliderDialog::SliderDialog(QWidget* parent, const char* className, const SliderDialogTexts& texts,
                           std::unique_ptr<SliderField> valueField)
    : ParameterDialog(parent, className, texts.resource, texts.title), field(std::move(valueField)) {
  CreateControls(texts);
  ShowField();
  edit->selectAll();
  edit->setFocus();
  connect(slider, &QSlider::valueChanged, this, [this](int position) {
    field->Slide(position);
    ShowField();
  });
  connect(edit, &QLineEdit::textChanged, this, [this](const QString& text) {
    field->Type(text.toStdString());
    ShowField();
  });
}

void SliderDialog::CreateControls(const SliderDialogTexts& texts) {
  slider = new QSlider(Qt::Horizontal, this);
  SetControlId(slider, kSliderControl);
  slider->setRange(field->Minimum(), field->Maximum());
  slider->setPageStep(std::max(1, (field->Maximum() - field->Minimum()) / kPagesOfARange));
  slider->setMinimumWidth(kSliderWidth);
  slider->setAccessibleName(DialogText(texts.title));
  edit = new QLineEdit(this);
  SetControlId(edit, kSliderEditControl);
  edit->setMaximumWidth(kEditWidth);
  auto* label = new QLabel(DialogText(texts.label), this);
  label->setBuddy(edit);
  const auto [ok, cancel] = CreateButtons(kSliderOkControl);
  // The keyboard's way: from the field to the buttons, and round over the slider.
  setTabOrder(edit, ok);
  setTabOrder(ok, cancel);
  setTabOrder(cancel, slider);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  auto* grid = new QGridLayout(this);
  grid->addWidget(label, 0, 0);
  grid->addWidget(edit, 0, 1);
  grid->addWidget(new QLabel(DialogText(texts.unit), this), 0, 2);
  grid->setColumnStretch(2, 1);
  grid->addWidget(slider, 1, 0, 1, 3);
  grid->setRowMinimumHeight(2, kGapOverButtons);
  grid->addLayout(buttons, 3, 0, 1, 3);
  grid->setSizeConstraint(QLayout::SetFixedSize);
}

void SliderDialog::ShowField() {
  const QSignalBlocker quietSlider(slider);
  slider->setValue(field->Position());
  const QString text = QString::fromStdString(field->Text());
  if (text != edit->text()) {
    const QSignalBlocker quietEdit(edit);
    edit->setText(text);
  }
}

CtlScaleDialog::CtlScaleDialog(QWidget* parent, int percent)
    : SliderDialog(parent, "CtlScaleDialog", kAmplifyTexts,
                   std::make_unique<PercentField>(kLargestGainPercent, percent)) {}

StrengthDialog::StrengthDialog(QWidget* parent, int percent)
    : SliderDialog(parent, "StrengthDialog", kStrengthTexts,
                   std::make_unique<PercentField>(kLargestStrength, percent)) {}

DurationDialog::DurationDialog(QWidget* parent, int percent)
    : SliderDialog(parent, "DurationDialog", kDurationTexts, std::make_unique<StretchField>(percent)) {}

PitchDialog::PitchDialog(QWidget* parent, float semitones)
    : SliderDialog(parent, "PitchDialog", kPitchTexts, std::make_unique<PitchField>(semitones)) {}

float PitchDialog::Semitones() const {
  return static_cast<const PitchField&>(Field()).Semitones();
}

}  // namespace tembrel
