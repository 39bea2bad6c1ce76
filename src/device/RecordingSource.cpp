#include "device/RecordingSource.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace tembrel {

namespace {

struct WaveIn {
  std::unique_ptr<MixerDevice> device;
  int destination = 0;
};

std::optional<WaveIn> OpenWaveIn(Mixer& mixer, int number) {
  std::unique_ptr<MixerDevice> device = mixer.Open(number);
  if (device == nullptr) {
    return std::nullopt;
  }
  const std::optional<int> destination = FindWaveIn(*device);
  if (!destination) {
    return std::nullopt;
  }
  return WaveIn{std::move(device), *destination};
}

struct Selector {
  SelectorKind kind = SelectorKind::Multiplexer;
  std::vector<bool> items;
};

// The control that takes one source at a time, or else the one that mixes several.
std::optional<Selector> ReadSelector(const WaveIn& waveIn) {
  for (const SelectorKind kind : {SelectorKind::Multiplexer, SelectorKind::Mixer}) {
    std::optional<std::vector<bool>> items = waveIn.device->SelectorItems(waveIn.destination, kind);
    if (items) {
      return Selector{kind, *std::move(items)};
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> FindWaveIn(const MixerDevice& device) {
  for (int destination = 0; destination < device.DestinationCount(); ++destination) {
    if (device.IsWaveIn(destination)) {
      return destination;
    }
  }
  return std::nullopt;
}

int CurrentRecordingSource(Mixer& mixer, int device) {
  const std::optional<WaveIn> waveIn = OpenWaveIn(mixer, device);
  const std::optional<Selector> selector = waveIn ? ReadSelector(*waveIn) : std::nullopt;
  if (!selector) {
    return 0;
  }
  const auto set = std::ranges::find(selector->items, true);
  if (set == selector->items.end()) {
    return 0;
  }
  return static_cast<int>(std::distance(set, selector->items.end())) - 1;
}

int SelectRecordingSource(Mixer& mixer, int device, int line) {
  const std::optional<WaveIn> waveIn = OpenWaveIn(mixer, device);
  std::optional<Selector> selector = waveIn ? ReadSelector(*waveIn) : std::nullopt;
  if (!selector || line < 0 || std::cmp_greater_equal(line, selector->items.size())) {
    return kMixerFailure;
  }
  selector->items.assign(selector->items.size(), false);
  selector->items[selector->items.size() - 1 - static_cast<std::size_t>(line)] = true;
  return waveIn->device->SetSelectorItems(waveIn->destination, selector->kind, selector->items)
             ? 0
             : kMixerFailure;
}

std::int32_t GetLineVolume(Mixer& mixer, int device, int line) {
  const std::optional<WaveIn> waveIn = OpenWaveIn(mixer, device);
  const std::optional<VolumeControl> volume =
      waveIn ? waveIn->device->SourceVolume(waveIn->destination, line) : std::nullopt;
  return volume ? volume->value : kMixerFailure;
}

int SetLineVolume(Mixer& mixer, int device, int line, std::int32_t volume) {
  const std::optional<WaveIn> waveIn = OpenWaveIn(mixer, device);
  const bool set = waveIn && waveIn->device->SetSourceVolume(waveIn->destination, line, volume);
  return set ? 0 : kMixerFailure;
}

}  // namespace tembrel
