#include "device/RecordingSetup.h"

#include <algorithm>
#include <utility>

#include "device/RecordingSource.h"

namespace tembrel {

namespace {

constexpr int kNoLine = -1;
constexpr std::int64_t kPages = 10;
constexpr std::int64_t kLineSteps = 100;
constexpr std::int64_t kPercent = 100;

std::int32_t Narrow(std::int64_t value) {
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, INT32_MIN, INT32_MAX));
}

// Slider and volume run against each other on the second line; both ways lead through the minimum.
std::int64_t PositionOf(SetupLine which, const VolumeControl& control, std::int64_t volume) {
  return which == SetupLine::Recording ? control.minimum + volume
                                       : std::int64_t{control.maximum} - volume + control.minimum;
}

std::int64_t VolumeAt(SetupLine which, const VolumeSlider& slider) {
  return which == SetupLine::Recording ? std::int64_t{slider.position} + slider.minimum
                                       : std::int64_t{slider.maximum} - slider.position + slider.minimum;
}

VolumeSlider SliderOver(const VolumeControl& control, std::int64_t position) {
  const std::int64_t range = std::int64_t{control.maximum} - control.minimum;
  VolumeSlider slider;
  slider.exists = true;
  slider.minimum = control.minimum;
  slider.maximum = control.maximum;
  slider.position = Narrow(std::clamp<std::int64_t>(position, control.minimum, control.maximum));
  slider.pageStep = Narrow(std::max<std::int64_t>(range / kPages, 1));
  slider.lineStep = Narrow(std::max<std::int64_t>(range / kLineSteps, 1));
  return slider;
}

}  // namespace

RecordingSetup::RecordingSetup(Mixer& machineMixer, const Settings& settings)
    : mixer(machineMixer),
      startFormat(settings.playback),
      mixerNumber(settings.recording.mixer),
      showDialog(settings.recording.showDialog),
      format(SelectionsOf(startFormat)) {
  for (int number = 0; number < mixer.DeviceCount(); ++number) {
    if (std::optional<std::string> name = mixer.DeviceName(number)) {
      mixerNames.push_back(*std::move(name));
    }
  }
  OpenMixer();
  const RecordingSettings& stored = settings.recording;
  const std::array numbers{stored.recordingLine, stored.savingLine};
  const std::array volumes{stored.recordingVolume, stored.savingVolume};
  for (const SetupLine which : {SetupLine::Recording, SetupLine::Saving}) {
    const auto index = static_cast<std::size_t>(which);
    Line& line = Of(which);
    line.number = numbers.at(index);
    line.selected = Entry(line.number);
    if (line.number == kNoLine) {
      // Nothing is chosen: the slider shows the line that would be recorded from as things stand.
      ReadSlider(which, CurrentRecordingSource(mixer, mixerNumber), std::nullopt);
    } else {
      ReadSlider(which, line.number, volumes.at(index));
    }
  }
}

void RecordingSetup::OpenMixer() {
  lineNames.clear();
  device = mixer.Open(mixerNumber);
  waveIn = device == nullptr ? std::nullopt : FindWaveIn(*device);
  if (!waveIn) {
    return;
  }
  const int count = device->SourceCount(*waveIn);
  for (int source = 0; source < count; ++source) {
    // A line that does not tell its name keeps its place: its position is its number.
    lineNames.push_back(device->SourceName(*waveIn, source).value_or("Line " + std::to_string(source + 1)));
  }
}

std::optional<int> RecordingSetup::SelectedMixer() const {
  const bool listed = mixerNumber >= 0 && std::cmp_less(mixerNumber, mixerNames.size());
  return listed ? std::optional(mixerNumber) : std::nullopt;
}

std::optional<int> RecordingSetup::Entry(int line) const {
  return line >= 0 && std::cmp_less(line, lineNames.size()) ? std::optional(line) : std::nullopt;
}

void RecordingSetup::ReadSlider(SetupLine which, int line, std::optional<std::int32_t> storedVolume) {
  Line& shown = Of(which);
  shown.slider = {};
  shown.sliderMixer = mixerNumber;
  shown.sliderLine = line;
  const std::optional<VolumeControl> control = waveIn ? device->SourceVolume(*waveIn, line) : std::nullopt;
  if (control && control->minimum <= control->maximum) {
    shown.slider = SliderOver(*control, PositionOf(which, *control, storedVolume.value_or(control->value)));
  }
}

int RecordingSetup::Percent(SetupLine which) const {
  const VolumeSlider& slider = Slider(which);
  const std::int64_t range = std::int64_t{slider.maximum} - slider.minimum;
  if (range == 0) {
    return 0;
  }
  const std::int64_t above = which == SetupLine::Recording ? std::int64_t{slider.position} - slider.minimum
                                                           : std::int64_t{slider.maximum} - slider.position;
  return static_cast<int>((above * kPercent + range / 2) / range);
}

std::string RecordingSetup::Hint() const {
  if (!lineNames.empty()) {
    return "";
  }
  if (mixer.Hangs()) {
    return "The sound server does not answer. Only the format can be chosen.";
  }
  if (mixerNames.empty()) {
    return "No sound server was found. Only the format can be chosen.";
  }
  return "This mixer has no line to record from.";
}

void RecordingSetup::ChooseMixer(int entry) {
  if (entry == SelectedMixer() || entry < 0 || std::cmp_greater_equal(entry, mixerNames.size())) {
    return;
  }
  mixerNumber = entry;
  OpenMixer();
  Line& recording = Of(SetupLine::Recording);
  Line& saving = Of(SetupLine::Saving);
  recording.selected = Entry(saving.number);
  saving.selected = Entry(recording.number);
}

void RecordingSetup::ChooseLine(SetupLine which, int entry) {
  if (!Entry(entry)) {
    return;
  }
  Line& line = Of(which);
  line.number = entry;
  line.selected = entry;
  // Choosing the same line again must not undo a move of its slider.
  if (line.sliderMixer != mixerNumber || line.sliderLine != entry) {
    ReadSlider(which, entry, std::nullopt);
  }
}

void RecordingSetup::MoveSlider(SetupLine which, std::int32_t position) {
  VolumeSlider& slider = Of(which).slider;
  slider.position = std::clamp(position, slider.minimum, slider.maximum);
}

void RecordingSetup::Accept(Settings& settings) {
  RecordingSettings& stored = settings.recording;
  // Empty lists of the stored mixer say nothing about its lines: it, or its server, may be back later.
  if (!lineNames.empty() || mixerNumber != stored.mixer) {
    stored.recordingLine = SelectedLine(SetupLine::Recording).value_or(kNoLine);
    stored.savingLine = SelectedLine(SetupLine::Saving).value_or(kNoLine);
  }
  stored.mixer = mixerNumber;
  if (Slider(SetupLine::Recording).exists) {
    stored.recordingVolume = Narrow(VolumeAt(SetupLine::Recording, Slider(SetupLine::Recording)));
  }
  if (Slider(SetupLine::Saving).exists) {
    stored.savingVolume = Narrow(VolumeAt(SetupLine::Saving, Slider(SetupLine::Saving)));
  }
  stored.showDialog = showDialog;
  settings.playback = ChoiceOf(format, startFormat);
  device.reset();
  waveIn.reset();
}

}  // namespace tembrel
