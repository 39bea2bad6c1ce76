// What all parameter dialogs share: a title and a number, controls that carry their numbers, OK and Cancel,
// and a place over the middle of the parent.
#pragma once

#include <string_view>

#include <QDialog>

class QPushButton;

namespace tembrel {

class ParameterDialog : public QDialog {
  Q_OBJECT

 protected:
  // Between what is asked and the buttons, in pixels.
  static constexpr int kGapOverButtons = 6;

  // `className` becomes the object name, `resource` the property "resourceId".
  ParameterDialog(QWidget* parent, const char* className, int resource, std::string_view title);

  // Gives a control its number, as the property "controlId".
  static void SetControlId(QWidget* control, int id);
  // OK and Cancel in a row; OK is the default button.
  struct Buttons {
    QPushButton* ok;
    QPushButton* cancel;
  };
  Buttons CreateButtons(int okId);

  void showEvent(QShowEvent* event) override;
};

// A text of the dialogs' tables for Qt.
QString DialogText(std::string_view text);

}  // namespace tembrel
