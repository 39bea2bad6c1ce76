// The About box: the program's icon and the values of its version record.
#pragma once

#include <QDialog>

namespace tembrel {

class VAboutDialog : public QDialog {
 public:
  explicit VAboutDialog(QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;
};

}  // namespace tembrel
