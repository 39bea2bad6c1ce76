// Asks for one of the equaliser's presets. Run with exec(); the preset counts when that says
// QDialog::Accepted.
#pragma once

#include "dialogs/ui/ParameterDialog.h"

class QComboBox;

namespace tembrel {

class FilterDialog final : public ParameterDialog {
  Q_OBJECT

 public:
  // Selects the preset `start`, an index into FilterPresetNames().
  FilterDialog(QWidget* parent, int start);

  int Preset() const;

 private:
  QComboBox* presets;
};

}  // namespace tembrel
