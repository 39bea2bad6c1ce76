// The world around the transport, made up: a clock that stands until it is moved, a sound device that writes
// down what it is told, a document with a view, and a host that keeps what it is shown.
#pragma once

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "device/AudioDevice.h"
#include "device/PlayClock.h"
#include "device/TransportHost.h"

namespace tembrel::test {

class ManualClock : public MillisecondClock {
 public:
  std::uint32_t now = 0;

  std::uint32_t Now() const override { return now; }
};

// Every call in order, "open song.wav 1000", "play", "stop", ...
class FakeAudioDevice : public AudioDevice {
 public:
  std::vector<std::string> calls;
  std::vector<std::string>* callsAtItsEnd = nullptr;  // takes the calls when the device goes
  DeviceError openPlaybackResult = kDeviceSuccess;
  DeviceError openRecordingResult = kDeviceSuccess;
  DeviceError formatResult = kDeviceSuccess;
  DeviceError recordResult = kDeviceSuccess;
  DeviceError stopRecordingResult = kDeviceSuccess;
  DeviceError saveResult = kDeviceSuccess;
  RecordingState state;
  // Runs when recording begins.
  std::function<void()> onRecord = [] {};
  std::string errorText = "The device is on fire.";
  // Runs in the place of what a real device does when it saves.
  std::function<void(const std::filesystem::path&)> onSave = [](const std::filesystem::path&) {};

  ~FakeAudioDevice() override {
    if (callsAtItsEnd != nullptr) {
      *callsAtItsEnd = calls;
    }
  }

  std::vector<std::string> TakeCalls() { return std::exchange(calls, {}); }

  DeviceError OpenPlayback(const std::filesystem::path& wavePath, std::int32_t startMs) override {
    calls.push_back("open " + wavePath.string() + " " + std::to_string(startMs));
    return openPlaybackResult;
  }
  DeviceError Play() override { return Note("play"); }
  DeviceError StopPlayback() override { return Note("stop"); }
  DeviceError ClosePlayback() override { return Note("close"); }
  DeviceError OpenRecording() override {
    calls.emplace_back("open recording");
    return openRecordingResult;
  }
  DeviceError SetRecordingFormat(const FormatChoice& format) override {
    calls.push_back("format " + std::to_string(format.rate) + " " + std::to_string(format.bits) + " " +
                    std::to_string(format.channels));
    return formatResult;
  }
  DeviceError Record() override {
    calls.emplace_back("record");
    onRecord();
    return recordResult;
  }
  DeviceError StopRecording() override {
    calls.emplace_back("stop recording");
    return stopRecordingResult;
  }
  DeviceError SaveRecording(const std::filesystem::path& path, const MoveProgress& progress) override {
    calls.push_back("save " + path.filename().string());
    if (saveResult == kDeviceSuccess) {
      progress(1, 2);
      onSave(path);
    }
    return saveResult;
  }
  DeviceError CloseRecording() override { return Note("close recording"); }
  RecordingState AskRecording() override { return state; }
  std::string ErrorText(DeviceError /*error*/) const override { return errorText; }

 private:
  DeviceError Note(const char* call) {
    calls.emplace_back(call);
    return kDeviceSuccess;
  }
};

// A document of one minute of CD sound, all of it in view, unless a test says otherwise.
struct FakeDocument {
  bool open = true;
  std::int64_t frames = 44100LL * 60;
  std::uint32_t rate = 44100;
  std::filesystem::path file = "song.wav";
  std::int64_t first = 0;
  std::int64_t onScreen = 44100LL * 60;
  std::int64_t cursor = 0;
  std::vector<std::int64_t> cursorMoves;  // every call
  std::vector<bool> forced;
};

// The cursor moves as in the view: within the sound, scrolling by whole screens when it leaves the screen.
class FakePlayedDocument : public PlayedDocument {
 public:
  explicit FakePlayedDocument(FakeDocument& shown) : document(shown) {}

  bool IsOpen() const override { return document.open; }
  std::int64_t Frames() const override { return document.frames; }
  std::uint32_t Rate() const override { return document.rate; }
  std::filesystem::path WorkingFile() const override { return document.file; }
  std::int64_t FirstVisibleFrame() const override { return document.first; }
  std::int64_t FramesOnScreen() const override { return document.onScreen; }
  std::int64_t CursorFrame() const override { return document.cursor; }
  void SetCursorPosition(std::int64_t frame, bool force) override {
    document.cursorMoves.push_back(frame);
    document.forced.push_back(force);
    document.cursor = std::min(std::max<std::int64_t>(frame, 0), document.frames);
    if (document.cursor < document.first || document.cursor > document.first + document.onScreen) {
      document.first = document.cursor / document.onScreen * document.onScreen;
    }
  }

 private:
  FakeDocument& document;
};

class FakeTransportHost : public TransportHost {
 public:
  FakeDocument document;
  bool hasDocument = true;
  bool ticking = false;
  bool metering = false;
  bool silent = false;
  int changes = 0;
  std::vector<RecordingState> shown;
  std::vector<std::filesystem::path> opened;
  std::vector<std::string> order;  // setup, open
  std::function<void()> onSetup = [] {};
  std::function<void()> onChange = [] {};

  std::unique_ptr<PlayedDocument> ActiveDocument() override {
    return hasDocument ? std::make_unique<FakePlayedDocument>(document) : nullptr;
  }
  void TransportChanged() override {
    ++changes;
    onChange();
  }
  void PlaybackIsSilent(bool isSilent) override { silent = isSilent; }
  void StartTick() override { ticking = true; }
  void StopTick() override { ticking = false; }
  void StartMeter() override { metering = true; }
  void StopMeter() override { metering = false; }
  void ShowRecording(const RecordingState& state) override { shown.push_back(state); }
  void ShowRecordingSetup() override {
    order.emplace_back("setup");
    onSetup();
  }
  void OpenRecording(const std::filesystem::path& path) override { opened.push_back(path); }
};

}  // namespace tembrel::test
