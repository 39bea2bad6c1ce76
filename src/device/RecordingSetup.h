// What the recording setup dialog shows and stores: the machine's mixers, the lines of the chosen one, the
// volumes of two of them, and the format of recordings. It changes nothing in a mixer.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "audio/Settings.h"
#include "device/Mixer.h"
#include "dialogs/FormatLists.h"

namespace tembrel {

// The two lines that are chosen, each from a list and with a slider of its own.
enum class SetupLine {
  Recording,  // its slider rises with the volume
  Saving,     // its slider falls with the volume: the minimum is the loudest
};

struct VolumeSlider {
  bool exists = false;  // false: the line has no volume control, and what is stored stays
  std::int32_t minimum = 0;
  std::int32_t maximum = 0;
  std::int32_t position = 0;  // within the range
  std::int32_t pageStep = 1;  // a tenth of the range, at least 1
  std::int32_t lineStep = 1;  // a hundredth

  bool operator==(const VolumeSlider&) const = default;
};

class RecordingSetup {
 public:
  // Opens the mixer of the settings. `machineMixer` outlives the setup.
  RecordingSetup(Mixer& machineMixer, const Settings& settings);

  // Mixers that do not open are left out; an entry's position counts as the mixer's number all the same.
  const std::vector<std::string>& MixerNames() const { return mixerNames; }
  std::optional<int> SelectedMixer() const;
  // The lines of the chosen mixer, for both lists. Empty when it does not open or records nothing.
  const std::vector<std::string>& LineNames() const { return lineNames; }
  // The entry selected in the line's list.
  std::optional<int> SelectedLine(SetupLine which) const { return Of(which).selected; }
  const VolumeSlider& Slider(SetupLine which) const { return Of(which).slider; }
  // The slider's volume as a share of the control's range.
  int Percent(SetupLine which) const;
  const FormatSelections& Format() const { return format; }
  bool ShowsBeforeRecording() const { return showDialog; }
  // Why lists are empty; empty when they are not.
  std::string Hint() const;

  // A position in the list of mixers. The lists of lines are filled anew and their selections come back
  // crossed: each list selects the other's line. The sliders stay as they are.
  void ChooseMixer(int entry);
  // A position in the list of lines; the slider takes over the line's present volume.
  void ChooseLine(SetupLine which, int entry);
  void MoveSlider(SetupLine which, std::int32_t position);
  void ChooseFormat(const FormatSelections& selections) { format = selections; }
  void ShowBeforeRecording(bool show) { showDialog = show; }

  // Stores what is chosen and closes the mixer. Where nothing can be chosen, because the stored mixer shows
  // no lines, the stored lines stay.
  void Accept(Settings& settings);

 private:
  struct Line {
    int number = -1;              // as stored or chosen last; -1 = none
    std::optional<int> selected;  // differs from `number` once the lists are crossed
    VolumeSlider slider;
    int sliderMixer = -1;  // whose volume the slider took over
    int sliderLine = -1;
  };

  const Line& Of(SetupLine which) const { return lines.at(static_cast<std::size_t>(which)); }
  Line& Of(SetupLine which) { return lines.at(static_cast<std::size_t>(which)); }
  void OpenMixer();
  std::optional<int> Entry(int line) const;
  void ReadSlider(SetupLine which, int line, std::optional<std::int32_t> storedVolume);

  Mixer& mixer;
  FormatChoice startFormat;
  int mixerNumber;
  bool showDialog;
  FormatSelections format;
  std::vector<std::string> mixerNames;
  std::unique_ptr<MixerDevice> device;
  std::optional<int> waveIn;
  std::vector<std::string> lineNames;
  std::array<Line, 2> lines;
};

}  // namespace tembrel
