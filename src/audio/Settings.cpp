#include "audio/Settings.h"

#include <vector>

#include "audio/ProfileFile.h"
#include "platform/Paths.h"

namespace tembrel {

namespace {

constexpr const char* kPlayback = "Digital Audio Playback";
constexpr const char* kRecording = "Digital Audio Recording";
constexpr const char* kLastFiles = "Last Files";
constexpr const char* kLastPath = "Last Path";

struct RateCode {
  int code;
  std::uint32_t rate;
};
constexpr std::array<RateCode, 3> kRateCodes{{{1, 11025}, {2, 22050}, {3, 44100}}};
constexpr int kDefaultRateCode = 2;

std::uint32_t RateOfCode(int code, std::uint32_t otherwise) {
  for (const RateCode& entry : kRateCodes) {
    if (entry.code == code) {
      return entry.rate;
    }
  }
  return otherwise;
}

int CodeOfRate(std::uint32_t rate) {
  for (const RateCode& entry : kRateCodes) {
    if (entry.rate == rate) {
      return entry.code;
    }
  }
  return kDefaultRateCode;
}

FormatChoice LoadPlayback(const ProfileFile& file) {
  FormatChoice playback = kDefaultPlayback;
  playback.rate = RateOfCode(file.ReadInt(kPlayback, "Rate", kDefaultRateCode), playback.rate);
  // Nothing could be played or recorded with other numbers, and some of them would be divided by.
  const int bits = file.ReadInt(kPlayback, "Bits", playback.bits);
  if (bits == 8 || bits == 16) {
    playback.bits = static_cast<std::uint16_t>(bits);
  }
  const int channels = file.ReadInt(kPlayback, "Channels", playback.channels);
  if (channels == 1 || channels == 2) {
    playback.channels = static_cast<std::uint16_t>(channels);
  }
  return playback;
}

RecordingSettings LoadRecording(const ProfileFile& file) {
  RecordingSettings recording;
  recording.mixer = file.ReadInt(kRecording, "Mixer", recording.mixer);
  recording.recordingLine = file.ReadInt(kRecording, "Recording Line", recording.recordingLine);
  recording.recordingVolume = file.ReadInt(kRecording, "Recording Volume", recording.recordingVolume);
  recording.savingLine = file.ReadInt(kRecording, "Saving Line", recording.savingLine);
  recording.savingVolume = file.ReadInt(kRecording, "Saving Volume", recording.savingVolume);
  recording.showDialog = file.ReadInt(kRecording, "Show Dialog", 1) != 0;
  return recording;
}

}  // namespace

Settings LoadSettings(const std::filesystem::path& settingsFile) {
  const ProfileFile file(settingsFile);
  return {LoadPlayback(file), LoadRecording(file)};
}

ReplaceResult SaveSettings(const std::filesystem::path& settingsFile, const Settings& settings) {
  const FormatChoice& playback = settings.playback;
  const RecordingSettings& recording = settings.recording;
  const std::vector<ProfileEntry> entries = {
      {kPlayback, "Rate", std::to_string(CodeOfRate(playback.rate))},
      {kPlayback, "Bits", std::to_string(playback.bits)},
      {kPlayback, "Channels", std::to_string(playback.channels)},
      {kRecording, "Mixer", std::to_string(recording.mixer)},
      {kRecording, "Recording Line", std::to_string(recording.recordingLine)},
      {kRecording, "Recording Volume", std::to_string(recording.recordingVolume)},
      {kRecording, "Saving Line", std::to_string(recording.savingLine)},
      {kRecording, "Saving Volume", std::to_string(recording.savingVolume)},
      {kRecording, "Show Dialog", recording.showDialog ? "1" : "0"},
  };
  return ProfileFile(settingsFile).Write(entries);
}

LastFiles LoadLastFiles(const SettingStore& store) {
  LastFiles files;
  for (std::size_t i = 0; i < files.size(); ++i) {
    files[i] = store.ReadSettingString(kLastFiles, std::to_string(i + 1), "");
  }
  return files;
}

ReplaceResult SaveLastFiles(SettingStore& store, const LastFiles& files) {
  std::vector<ProfileEntry> entries;
  for (std::size_t i = 0; i < files.size(); ++i) {
    entries.push_back({kLastFiles, std::to_string(i + 1), files[i]});
  }
  return store.WriteSettingStrings(entries);
}

std::filesystem::path LoadLastFolder(const SettingStore& store, const std::filesystem::path& programFolder) {
  const std::string stored = store.ReadSettingString(kLastPath, "Directory", "");
  return stored.empty() ? DocumentsFolder().value_or(programFolder) : std::filesystem::path(stored);
}

ReplaceResult SaveLastFolder(SettingStore& store, const std::filesystem::path& folder) {
  const std::array<ProfileEntry, 2> entries{
      {{kLastPath, "Drive", ""}, {kLastPath, "Directory", folder.string()}}};
  return store.WriteSettingStrings(entries);
}

}  // namespace tembrel
