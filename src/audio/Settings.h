// The settings the program keeps between runs, and how they are stored.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "audio/FormatChoice.h"
#include "audio/SettingStore.h"
#include "platform/ReplaceFile.h"

namespace tembrel {

// The format of recordings and of new documents, as long as nobody has chosen another.
inline constexpr FormatChoice kDefaultPlayback{44100, 16, 2};

struct RecordingSettings {
  int mixer = 0;                // index of the mixer device
  int recordingLine = -1;       // index of the mixer line to record from; -1 = none chosen
  int recordingVolume = 32767;  // of that line, 0 to 65535
  int savingLine = -1;          // a second line chosen in the recording setup; -1 = none
  int savingVolume = 32767;
  bool showDialog = true;  // show the recording setup before each recording

  bool operator==(const RecordingSettings&) const = default;
};

struct Settings {
  FormatChoice playback = kDefaultPlayback;
  RecordingSettings recording;

  bool operator==(const Settings&) const = default;
};

// Reads the settings file. A missing one gives 22050 Hz, 16 bits, stereo: the code that stands for a missing
// rate is not the built-in rate. An unknown rate code leaves 44100 Hz; bits and channels that cannot be
// played leave 16 and 2.
Settings LoadSettings(const std::filesystem::path& settingsFile);

// A rate that has no code is written as 22050 Hz.
ReplaceResult SaveSettings(const std::filesystem::path& settingsFile, const Settings& settings);

// The recent files, the most recent first; empty strings where there are fewer. Names have the platform's
// length.
using LastFiles = std::array<std::string, 4>;
LastFiles LoadLastFiles(const SettingStore& store);
ReplaceResult SaveLastFiles(SettingStore& store, const LastFiles& files);

// The folder that was current when the program last ended; for a first run the user's documents folder, or
// the program folder when there is none.
std::filesystem::path LoadLastFolder(const SettingStore& store, const std::filesystem::path& programFolder);

// Stores an absolute folder. There are no drives here: "Drive" is written empty, which no reader takes for a
// drive.
ReplaceResult SaveLastFolder(SettingStore& store, const std::filesystem::path& folder);

}  // namespace tembrel
