#include "device/RecordingMeter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "device/TransportHost.h"

namespace tembrel {

namespace {

constexpr double kLowestDecibels = -60.0;
constexpr double kFall = 0.7943282347242815;  // 2 dB
constexpr int kMostCalls = 2000 / kMeterMs;   // without sound
constexpr int kGap = 1;                       // between the channels, pixels

struct ZoneRow {
  MeterZone zone;
  double fromDecibels;
};
constexpr std::array<ZoneRow, 3> kZones{{
    {MeterZone::Normal, kLowestDecibels},
    {MeterZone::High, -12.0},
    {MeterZone::Full, -3.0},
}};

double Decibels(double magnitude) {
  return magnitude <= 0.0 ? kLowestDecibels : std::max(20.0 * std::log10(magnitude), kLowestDecibels);
}

double ShareOf(double decibels) {
  return std::clamp(1.0 - decibels / kLowestDecibels, 0.0, 1.0);
}

std::string DecibelText(double magnitude) {
  const long decibels = std::lround(Decibels(magnitude));
  return magnitude <= 0.0 ? "silent" : std::to_string(decibels) + " dB";
}

void AddBars(std::vector<MeterBar>& bars, const MeterBar& channel, double magnitude) {
  const int lit = static_cast<int>(std::lround(channel.width * MeterShare(magnitude)));
  for (std::size_t i = 0; i < kZones.size(); ++i) {
    const auto At = [&](std::size_t zone) {
      return zone < kZones.size()
                 ? static_cast<int>(std::lround(channel.width * ShareOf(kZones.at(zone).fromDecibels)))
                 : channel.width;
    };
    const int from = At(i);
    const int to = At(i + 1);
    const int end = std::clamp(lit, from, to);
    const MeterZone zone = kZones.at(i).zone;
    if (end > from) {
      bars.push_back({channel.x + from, channel.y, end - from, channel.height, zone, true});
    }
    if (to > end) {
      bars.push_back({channel.x + end, channel.y, to - end, channel.height, zone, false});
    }
  }
}

}  // namespace

std::string RecordingTimeText(std::int64_t milliseconds) {
  const std::int64_t tenths = std::max<std::int64_t>(milliseconds, 0) / 100;
  const long long seconds = tenths / 10 % 60;
  const long long minutes = tenths / 600 % 60;
  const long long hours = tenths / 36000;
  std::array<char, 48> text{};
  if (hours > 0) {
    std::snprintf(text.data(), text.size(), "%lld:%02lld:%02lld.%lld", hours, minutes, seconds,
                  static_cast<long long>(tenths % 10));
  } else {
    std::snprintf(text.data(), text.size(), "%lld:%02lld.%lld", minutes, seconds,
                  static_cast<long long>(tenths % 10));
  }
  return text.data();
}

double MeterShare(double magnitude) {
  return ShareOf(Decibels(magnitude));
}

void RecordingMeter::Start() {
  *this = {};
}

void RecordingMeter::Take(const RecordingState& state) {
  callsWithoutSound = state.milliseconds == milliseconds ? std::min(callsWithoutSound + 1, kMostCalls) : 0;
  failed = state.failure != kDeviceSuccess;
  milliseconds = state.milliseconds;
  left = std::max(state.peakLeft, left * kFall);
  right = std::max(state.peakRight, right * kFall);
  clipped = clipped || state.clipped;
}

bool RecordingMeter::NoSound() const {
  return failed || callsWithoutSound == kMostCalls;
}

std::string RecordingMeter::LevelText() const {
  if (NoSound()) {
    return kNoSoundText;
  }
  return "Left " + DecibelText(left) + ", right " + DecibelText(right);
}

std::vector<MeterBar> RecordingMeter::Bars(int width, int height) const {
  std::vector<MeterBar> bars;
  const int row = (height - kGap) / 2;
  if (width > 0 && row > 0) {
    AddBars(bars, {0, 0, width, row, MeterZone::Normal, false}, left);
    AddBars(bars, {0, height - row, width, row, MeterZone::Normal, false}, right);
  }
  return bars;
}

}  // namespace tembrel
