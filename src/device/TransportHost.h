// What the transport asks of the program around it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>

#include "device/AudioDevice.h"
#include "device/PlayedDocument.h"

namespace tembrel {

// Which of the transport's buttons are down.
struct TransportButtons {
  bool play = false;
  bool pause = false;
  bool record = false;

  bool operator==(const TransportButtons&) const = default;
};

// Two timers that call back until they are stopped: OnTick() while something plays, OnMeter() while something
// is recorded.
inline constexpr int kTickMs = 100;
inline constexpr int kMeterMs = 100;

class TransportHost {
 public:
  virtual ~TransportHost() = default;

  // The active document, null when there is none or it has no sound of its own to play.
  virtual std::unique_ptr<PlayedDocument> ActiveDocument() = 0;

  // Buttons or the state behind them changed: show it at once.
  virtual void TransportChanged() = 0;
  // What plays has no file that could be heard; true from its start to its end.
  virtual void PlaybackIsSilent(bool silent) = 0;

  virtual void StartTick() = 0;
  virtual void StopTick() = 0;
  virtual void StartMeter() = 0;
  virtual void StopMeter() = 0;
  virtual void ShowRecording(const RecordingState& state) = 0;

  // The setup dialog that comes before a recording; returns when it is closed.
  virtual void ShowRecordingSetup() = 0;
  // A recording was saved: shows it as a document.
  virtual void OpenRecording(const std::filesystem::path& path) = 0;

 protected:
  TransportHost() = default;
  TransportHost(const TransportHost&) = default;
  TransportHost& operator=(const TransportHost&) = default;
};

}  // namespace tembrel
