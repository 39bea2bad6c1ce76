// Asks for one of the equaliser's presets. Run with exec(); the preset counts when that says
// QDialog::Accepted.
#pragma once

#include <functional>

#include "dialogs/ui/ParameterDialog.h"

class QComboBox;

namespace tembrel {

class FilterDialog final : public ParameterDialog {
  Q_OBJECT

 public:
  // Selects the preset `start`, an index into FilterPresetNames(). `audition` is told the selected preset
  // when the user wants to hear it; empty when nothing can be heard.
  FilterDialog(QWidget* parent, int start, std::function<void(int preset)> audition = {});

  int Preset() const;

 private:
  QComboBox* presets;
};

}  // namespace tembrel
