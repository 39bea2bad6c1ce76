// The dialogs that ask for one number: a slider and an edit field kept in step, OK and Cancel. Run with
// exec(); the value counts when that says QDialog::Accepted.
#pragma once

#include <memory>

#include "dialogs/DialogTexts.h"
#include "dialogs/SliderField.h"
#include "dialogs/ui/ParameterDialog.h"

class QLineEdit;
class QSlider;

namespace tembrel {

class SliderDialog : public ParameterDialog {
  Q_OBJECT

 protected:
  SliderDialog(QWidget* parent, const char* className, const SliderDialogTexts& texts,
               std::unique_ptr<SliderField> valueField);

  const SliderField& Field() const { return *field; }

 private:
  void CreateControls(const SliderDialogTexts& texts);
  void ShowField();

  std::unique_ptr<SliderField> field;
  QSlider* slider = nullptr;
  QLineEdit* edit = nullptr;
};

// Amplify: 0 to 1000 percent.
class CtlScaleDialog final : public SliderDialog {
  Q_OBJECT

 public:
  explicit CtlScaleDialog(QWidget* parent, int percent = kAmplifyStart);
  int Percent() const { return Field().Position(); }
};

// The next three wait for their effects.

// The strength of the noise filter: 0 to 100 percent.
class StrengthDialog final : public SliderDialog {
  Q_OBJECT

 public:
  explicit StrengthDialog(QWidget* parent, int percent = kStrengthStart);
  int Percent() const { return Field().Position(); }
};

// A new duration: 25 to 400 percent of the old one.
class DurationDialog final : public SliderDialog {
  Q_OBJECT

 public:
  explicit DurationDialog(QWidget* parent, int percent = kDurationStart);
  int Percent() const { return Field().Position(); }
};

// A change of pitch: -24.0 to 24.0 semitones.
class PitchDialog final : public SliderDialog {
  Q_OBJECT

 public:
  explicit PitchDialog(QWidget* parent, float semitones = kPitchStart);
  float Semitones() const;
};

}  // namespace tembrel
