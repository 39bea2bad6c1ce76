#include "dialogs/ui/FormatDialog.h"

#include <optional>
#include <span>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "dialogs/DialogTexts.h"
#include "dialogs/FormatLists.h"

namespace tembrel {

namespace {

constexpr int kListLetters = 12;

void Fill(QComboBox& list, std::span<const std::string_view> entries, std::optional<int> selected) {
  for (const std::string_view entry : entries) {
    list.addItem(DialogText(entry));
  }
  list.setCurrentIndex(selected.value_or(-1));
}

}  // namespace

FormatDialog::FormatDialog(QWidget* parent, const FormatChoice& start)
    : ParameterDialog(parent, "FormatDialog", kFormatResource, "Format"),
      startFormat(start),
      rate(new QComboBox(this)),
      resolution(new QComboBox(this)),
      channels(new QComboBox(this)) {
  const FormatSelections selections = SelectionsOf(start);
  Fill(*rate, kRateEntries, selections.rate);
  Fill(*resolution, kResolutionEntries, selections.resolution);
  Fill(*channels, kChannelEntries, selections.channels);
  rate->setPlaceholderText(QString::number(start.rate) + " Hz");  // what stays when none is chosen

  struct Row {
    QComboBox* list;
    int controlId;
    const char* label;
  };
  auto* grid = new QGridLayout(this);
  int line = 0;
  for (const auto& [list, controlId, text] :
       {Row{rate, kFormatRateControl, "&Rate"}, Row{resolution, kFormatResolutionControl, "R&esolution"},
        Row{channels, kFormatChannelsControl, "&Channels"}}) {
    SetControlId(list, controlId);
    auto* label = new QLabel(text, this);
    label->setBuddy(list);
    grid->addWidget(label, line, 0);
    grid->addWidget(list, line, 1);
    ++line;
  }
  for (QComboBox* list : {rate, resolution, channels}) {
    list->setMinimumContentsLength(kListLetters);
  }
  grid->setRowMinimumHeight(line++, kGapOverButtons);
  const auto [ok, cancel] = CreateButtons(kOkControl);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  grid->addLayout(buttons, line, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  grid->setSizeConstraint(QLayout::SetFixedSize);
}

FormatChoice FormatDialog::Choice() const {
  const int selectedRate = rate->currentIndex();
  return ChoiceOf({selectedRate < 0 ? std::nullopt : std::optional(selectedRate), resolution->currentIndex(),
                   channels->currentIndex()},
                  startFormat);
}

}  // namespace tembrel
