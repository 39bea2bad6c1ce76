// What is shown of a recording while it runs: its time, how loud it is, and whether it was too loud.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "device/AudioDevice.h"

namespace tembrel {

// Logical pixels. A zone is a stretch of the scale, from -60 dB to full scale.
enum class MeterZone { Normal, High, Full };
struct MeterBar {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  MeterZone zone = MeterZone::Normal;
  bool lit = false;

  bool operator==(const MeterBar&) const = default;
};

// "1:02:03.4", "2:03.4": hours only when there are any; tenths are cut off.
std::string RecordingTimeText(std::int64_t milliseconds);

// Where a magnitude of 0.0 to 1.0 lies on the scale: 0.0 at -60 dB and below, 1.0 at full scale.
double MeterShare(double magnitude);

// Stands in the place of the bars.
inline constexpr char kNoSoundText[] = "No sound arrives";

class RecordingMeter {
 public:
  // A recording begins: no time, no sound, the clip light off.
  void Start();
  // To be called every kMeterMs. Louder sound shows at once; the bars fall by 2 dB a call. The clip light
  // stays on.
  void Take(const RecordingState& state);
  void ClearClip() { clipped = false; }

  bool Clipped() const { return clipped; }
  // Nothing was taken down for two seconds, or nothing more will be.
  bool NoSound() const;
  std::string TimeText() const { return RecordingTimeText(milliseconds); }
  // For who cannot see the bars: "Left -6 dB, right -12 dB"; kNoSoundText without sound.
  std::string LevelText() const;
  // The bars of a meter of this size, the left channel's above the right one's, in painting order.
  std::vector<MeterBar> Bars(int width, int height) const;

 private:
  std::int64_t milliseconds = 0;
  double left = 0.0;  // magnitudes shown
  double right = 0.0;
  bool clipped = false;
  bool failed = false;
  int callsWithoutSound = 0;
};

}  // namespace tembrel
