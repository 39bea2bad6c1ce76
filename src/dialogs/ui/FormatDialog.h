// Asks for a new format: rate, resolution and channels, each from a list. Run with exec(); the choice counts
// when that says QDialog::Accepted.
#pragma once

#include "audio/FormatChoice.h"
#include "dialogs/ui/ParameterDialog.h"

class QComboBox;

namespace tembrel {

class FormatDialog final : public ParameterDialog {
  Q_OBJECT

 public:
  // Selects the entries of `start`; a rate without an entry selects none and stays when none is chosen.
  FormatDialog(QWidget* parent, const FormatChoice& start);

  FormatChoice Choice() const;

 private:
  FormatChoice startFormat;
  QComboBox* rate;
  QComboBox* resolution;
  QComboBox* channels;
};

}  // namespace tembrel
