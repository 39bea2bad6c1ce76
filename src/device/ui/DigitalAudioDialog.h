// The recording setup dialog: mixer, recording line and its volume, a second line and its volume, and the
// format of recordings. Run with exec(); accept the setup when that says QDialog::Accepted.
#pragma once

#include "device/RecordingSetup.h"
#include "dialogs/ui/ParameterDialog.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QSlider;

namespace tembrel {

class DigitalAudioDialog final : public ParameterDialog {
  Q_OBJECT

 public:
  // Shows `setup`, which outlives the dialog, and tells it what is chosen.
  DigitalAudioDialog(QWidget* parent, RecordingSetup& setup);

 Q_SIGNALS:
  void helpRequested();

 private:
  struct LineControls {
    QComboBox* list;
    QSlider* slider;
    QLabel* percent;
  };

  LineControls CreateLine(int listId, int sliderId, Qt::Orientation orientation);
  QComboBox* CreateList(int controlId);
  QGroupBox* CreateRecordingGroup();
  QGroupBox* CreateSavingGroup();
  QGroupBox* CreateFormatGroup();
  QLayout* CreateButtonRow();
  void Listen(SetupLine which);
  void SetTabOrder();
  void ShowLines();
  void ShowSlider(SetupLine which);
  void EnableSlider(SetupLine which);
  void ShowPercent(SetupLine which);
  void TakeFormat();
  const LineControls& Of(SetupLine which) const { return which == SetupLine::Recording ? recording : saving; }

  RecordingSetup& shown;
  QComboBox* mixers;
  LineControls recording;
  LineControls saving;
  QComboBox* rate;
  QComboBox* resolution;
  QComboBox* channels;
  QCheckBox* dontShow;
  QLabel* hint;
  Buttons buttons{};
};

}  // namespace tembrel
