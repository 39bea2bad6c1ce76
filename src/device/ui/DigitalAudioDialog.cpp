#include "device/ui/DigitalAudioDialog.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionComboBox>

#include "dialogs/DialogTexts.h"

namespace tembrel {

namespace {

constexpr int kResource = 3747;
constexpr int kMixerControl = 103;
constexpr int kRecordingLineControl = 104;
constexpr int kDontShowControl = 105;
constexpr int kSavingLineControl = 106;
constexpr int kRateControl = 108;
constexpr int kBitsControl = 109;
constexpr int kChannelsControl = 110;
constexpr int kRecordingVolumeControl = 101;
constexpr int kSavingVolumeControl = 102;
constexpr int kHelpControl = 9;

constexpr int kListLetters = 26;
constexpr int kShortestSlider = 110;
constexpr int kTextMargin = 4;

// A list whose closed form cuts a long name in the middle: what tells two of them apart stands at the ends.
class NameList : public QComboBox {
 public:
  using QComboBox::QComboBox;

 protected:
  void initStyleOption(QStyleOptionComboBox* option) const override {
    QComboBox::initStyleOption(option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText =
        fontMetrics().elidedText(option->currentText, Qt::ElideMiddle, field.width() - kTextMargin);
  }
};

// What the list opens to is wide enough for whole names.
void Fill(QComboBox& list, std::span<const std::string> entries, std::optional<int> selected) {
  const QSignalBlocker quiet(&list);
  list.clear();
  for (const std::string& entry : entries) {
    list.addItem(DialogText(entry));
  }
  list.setCurrentIndex(selected.value_or(-1));
  list.setEnabled(!entries.empty());
  list.setPlaceholderText(entries.empty() ? "None found" : "None chosen");
  const int widest = list.view()->sizeHintForColumn(0) + list.view()->verticalScrollBar()->sizeHint().width();
  list.view()->setMinimumWidth(std::min(widest, list.screen()->availableGeometry().width() / 2));
}

void Fill(QComboBox& list, std::span<const std::string_view> entries, int selected) {
  for (const std::string_view entry : entries) {
    list.addItem(DialogText(entry));
  }
  list.setCurrentIndex(selected);
}

// The second line's position falls with the volume, the value of an upright slider rises towards its top:
// from one to the other, both ways.
int Turned(SetupLine which, int value, const VolumeSlider& slider) {
  const auto mirrored = std::int64_t{slider.minimum} + slider.maximum - value;
  return which == SetupLine::Recording ? value : static_cast<int>(mirrored);
}

// A label before the control, which its letter leads to.
void AddRow(QGridLayout& grid, const char* text, QWidget* control, int columns = 1) {
  const int line = grid.rowCount();
  auto* label = new QLabel(text, control->parentWidget());
  label->setBuddy(control);
  grid.addWidget(label, line, 0);
  grid.addWidget(control, line, 1, 1, columns);
}

}  // namespace

DigitalAudioDialog::DigitalAudioDialog(QWidget* parent, RecordingSetup& setup)
    : ParameterDialog(parent, "DigitalAudioDialog", kResource, "Recording Audio Setup"),
      shown(setup),
      mixers(CreateList(kMixerControl)),
      recording(CreateLine(kRecordingLineControl, kRecordingVolumeControl, Qt::Horizontal)),
      saving(CreateLine(kSavingLineControl, kSavingVolumeControl, Qt::Vertical)),
      rate(new QComboBox(this)),
      resolution(new QComboBox(this)),
      channels(new QComboBox(this)),
      dontShow(new QCheckBox("&Don't show when recording", this)),
      hint(new QLabel(this)) {
  SetControlId(dontShow, kDontShowControl);
  dontShow->setChecked(!shown.ShowsBeforeRecording());
  connect(dontShow, &QCheckBox::toggled, this, [this](bool on) { shown.ShowBeforeRecording(!on); });
  hint->setTextFormat(Qt::PlainText);
  hint->setWordWrap(true);
  hint->setObjectName("hint");

  auto* grid = new QGridLayout(this);
  grid->addWidget(CreateRecordingGroup(), 0, 0);
  grid->addWidget(CreateFormatGroup(), 1, 0);
  grid->addWidget(CreateSavingGroup(), 0, 1, 2, 1);
  grid->addWidget(hint, 2, 0, 1, 2);
  grid->addWidget(dontShow, 3, 0, 1, 2);
  grid->addLayout(CreateButtonRow(), 4, 0, 1, 2);
  grid->setSizeConstraint(QLayout::SetFixedSize);

  Fill(*mixers, shown.MixerNames(), shown.SelectedMixer());
  ShowLines();
  const auto chooseMixer = [this](int entry) {
    shown.ChooseMixer(entry);
    ShowLines();
  };
  connect(mixers, &QComboBox::currentIndexChanged, this, chooseMixer);
  for (const SetupLine which : {SetupLine::Recording, SetupLine::Saving}) {
    ShowSlider(which);
    Listen(which);
  }
  SetTabOrder();
}

QComboBox* DigitalAudioDialog::CreateList(int controlId) {
  auto* list = new NameList(this);
  SetControlId(list, controlId);
  list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  list->setMinimumContentsLength(kListLetters);
  return list;
}

DigitalAudioDialog::LineControls DigitalAudioDialog::CreateLine(int listId, int sliderId,
                                                                Qt::Orientation orientation) {
  LineControls line{CreateList(listId), new QSlider(orientation, this), new QLabel(this)};
  SetControlId(line.slider, sliderId);
  if (orientation == Qt::Vertical) {
    line.slider->setMinimumHeight(kShortestSlider);
  }
  line.percent->setMinimumWidth(line.percent->fontMetrics().horizontalAdvance("100 %"));
  return line;
}

QGroupBox* DigitalAudioDialog::CreateRecordingGroup() {
  auto* group = new QGroupBox("Recording", this);
  auto* grid = new QGridLayout(group);
  AddRow(*grid, "&Mixer:", mixers, 2);
  AddRow(*grid, "&Line:", recording.list, 2);
  AddRow(*grid, "&Volume:", recording.slider);
  grid->addWidget(recording.percent, grid->rowCount() - 1, 2);
  return group;
}

QGroupBox* DigitalAudioDialog::CreateSavingGroup() {
  auto* group = new QGroupBox("Second line", this);
  auto* grid = new QGridLayout(group);
  AddRow(*grid, "L&ine:", saving.list, 2);
  AddRow(*grid, "V&olume:", saving.slider);
  grid->setAlignment(saving.slider, Qt::AlignLeft);
  const int line = grid->rowCount() - 1;
  grid->itemAtPosition(line, 0)->setAlignment(Qt::AlignTop);
  grid->addWidget(saving.percent, line, 2, Qt::AlignTop);
  grid->setColumnStretch(2, 1);
  return group;
}

QGroupBox* DigitalAudioDialog::CreateFormatGroup() {
  auto* group = new QGroupBox("Format", this);
  auto* grid = new QGridLayout(group);
  const FormatSelections& format = shown.Format();
  Fill(*rate, kRateEntries, format.rate.value_or(-1));
  Fill(*resolution, kResolutionEntries, format.resolution);
  Fill(*channels, kChannelEntries, format.channels);
  SetControlId(rate, kRateControl);
  SetControlId(resolution, kBitsControl);
  SetControlId(channels, kChannelsControl);
  AddRow(*grid, "&Rate:", rate);
  AddRow(*grid, "R&esolution:", resolution);
  AddRow(*grid, "&Channels:", channels);
  grid->setColumnStretch(1, 1);
  for (QComboBox* list : {rate, resolution, channels}) {
    connect(list, &QComboBox::currentIndexChanged, this, &DigitalAudioDialog::TakeFormat);
  }
  return group;
}

QLayout* DigitalAudioDialog::CreateButtonRow() {
  buttons = CreateButtons(kOkControl);
  auto* help = new QPushButton("&Help", this);
  SetControlId(help, kHelpControl);
  connect(help, &QPushButton::clicked, this, &DigitalAudioDialog::helpRequested);
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          &DigitalAudioDialog::helpRequested);
  auto* row = new QHBoxLayout;
  row->addStretch();
  row->addWidget(buttons.ok);
  row->addWidget(buttons.cancel);
  row->addWidget(help);
  return row;
}

void DigitalAudioDialog::Listen(SetupLine which) {
  const LineControls& controls = Of(which);
  const auto chooseLine = [this, which](int entry) {
    shown.ChooseLine(which, entry);
    ShowSlider(which);
  };
  connect(controls.list, &QComboBox::currentIndexChanged, this, chooseLine);
  // The entry that is shown counts as chosen too once the mixer is another.
  connect(controls.list, &QComboBox::activated, this, chooseLine);
  connect(controls.slider, &QSlider::valueChanged, this, [this, which](int value) {
    shown.MoveSlider(which, Turned(which, value, shown.Slider(which)));
    ShowPercent(which);
  });
}

void DigitalAudioDialog::SetTabOrder() {
  QWidget* before = mixers;
  for (QWidget* control :
       std::initializer_list<QWidget*>{recording.list, recording.slider, rate, resolution, channels,
                                       saving.list, saving.slider, dontShow, buttons.ok, buttons.cancel}) {
    setTabOrder(before, control);
    before = control;
  }
}

void DigitalAudioDialog::ShowLines() {
  for (const SetupLine which : {SetupLine::Recording, SetupLine::Saving}) {
    Fill(*Of(which).list, shown.LineNames(), shown.SelectedLine(which));
    EnableSlider(which);
  }
  hint->setText(QString::fromStdString(shown.Hint()));
  hint->setVisible(!hint->text().isEmpty());
}

void DigitalAudioDialog::ShowSlider(SetupLine which) {
  const VolumeSlider& volume = shown.Slider(which);
  QSlider& slider = *Of(which).slider;
  const QSignalBlocker quiet(&slider);
  // An empty range would be painted as a full one.
  slider.setRange(volume.minimum, volume.exists ? volume.maximum : 1);
  slider.setPageStep(volume.pageStep);
  slider.setSingleStep(volume.lineStep);
  slider.setValue(Turned(which, volume.position, volume));
  EnableSlider(which);
  ShowPercent(which);
}

// Without a line that is chosen a volume would be set on none.
void DigitalAudioDialog::EnableSlider(SetupLine which) {
  Of(which).slider->setEnabled(shown.Slider(which).exists && shown.SelectedLine(which).has_value());
}

void DigitalAudioDialog::ShowPercent(SetupLine which) {
  const bool exists = shown.Slider(which).exists;
  Of(which).percent->setText(exists ? QString::number(shown.Percent(which)) + " %" : QString());
}

void DigitalAudioDialog::TakeFormat() {
  const int selectedRate = rate->currentIndex();
  shown.ChooseFormat({selectedRate < 0 ? std::nullopt : std::optional(selectedRate),
                      resolution->currentIndex(), channels->currentIndex()});
}

}  // namespace tembrel
