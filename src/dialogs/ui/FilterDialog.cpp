#include "dialogs/ui/FilterDialog.h"

#include <utility>

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "dialogs/DialogTexts.h"
#include "edit/FilterPresets.h"

namespace tembrel {

FilterDialog::FilterDialog(QWidget* parent, int start, std::function<void(int preset)> audition)
    : ParameterDialog(parent, "FilterDialog", kFilterResource, "Filter"), presets(new QComboBox(this)) {
  for (const std::string_view name : FilterPresetNames()) {
    presets->addItem(DialogText(name));
  }
  presets->setCurrentIndex(start);
  SetControlId(presets, kFilterListControl);
  auto* label = new QLabel("&Preset:", this);
  label->setBuddy(presets);
  auto* play = new QPushButton("&Audition", this);
  SetControlId(play, kFilterAuditionControl);
  play->setToolTip("Plays the first six seconds of the selection through this preset");
  play->setEnabled(static_cast<bool>(audition));
  connect(play, &QPushButton::clicked, this, [this, hear = std::move(audition)] { hear(Preset()); });
  const auto [ok, cancel] = CreateButtons(kOkControl);

  auto* grid = new QGridLayout(this);
  grid->addWidget(label, 0, 0);
  grid->addWidget(presets, 0, 1, 1, 3);
  grid->setRowMinimumHeight(1, kGapOverButtons);
  grid->addWidget(play, 2, 1);
  grid->addWidget(ok, 2, 2);
  grid->addWidget(cancel, 2, 3);
  grid->setSizeConstraint(QLayout::SetFixedSize);
}

int FilterDialog::Preset() const {
  return presets->currentIndex();
}

}  // namespace tembrel
