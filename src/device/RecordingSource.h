// Which source line is recorded and how loud, asked and set in one mixer device. Every operation opens the
// device, does its work and closes it again.
#pragma once

#include <cstdint>
#include <optional>

#include "device/Mixer.h"

namespace tembrel {

inline constexpr int kMixerFailure = -1;

// The first destination that recording takes its sound from.
std::optional<int> FindWaveIn(const MixerDevice& device);

// The source line the selector now records from; 0 when none can be read.
int CurrentRecordingSource(Mixer& mixer, int device);
// Makes `line` the only selected source. 0, or kMixerFailure.
int SelectRecordingSource(Mixer& mixer, int device, int line);
// The value of the line's volume control, or kMixerFailure.
std::int32_t GetLineVolume(Mixer& mixer, int device, int line);
// 0, or kMixerFailure.
int SetLineVolume(Mixer& mixer, int device, int line, std::int32_t volume);

}  // namespace tembrel
