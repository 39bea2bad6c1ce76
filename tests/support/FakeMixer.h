// Mixers of a machine that a test makes up, looks into and takes away.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "device/Mixer.h"

namespace tembrel::test {

struct FakeLine {
  std::optional<std::string> name;
  std::optional<VolumeControl> volume = VolumeControl{};
};

struct FakeDestination {
  bool waveIn = false;
  std::vector<FakeLine> lines;
  std::map<SelectorKind, std::vector<bool>> selectors;
};

struct FakeMixerDevice {
  std::optional<std::string> name;
  std::vector<FakeDestination> destinations;
  bool opens = true;
};

class FakeMixer : public Mixer {
 public:
  std::vector<FakeMixerDevice> devices;
  bool hangs = false;
  int openDevices = 0;               // opened and not closed again
  std::vector<std::string> changes;  // what was set: "0.1 items 01000", "0.1.2 volume 500"

  int DeviceCount() const override { return static_cast<int>(devices.size()); }
  std::optional<std::string> DeviceName(int device) const override {
    return Has(device) ? devices.at(static_cast<std::size_t>(device)).name : std::nullopt;
  }
  bool Hangs() const override { return hangs; }
  std::unique_ptr<MixerDevice> Open(int device) override {
    if (!Has(device)) {
      return nullptr;
    }
    return std::make_unique<Opened>(*this, device);
  }

 private:
  bool Has(int device) const {
    return device >= 0 && std::cmp_less(device, devices.size()) &&
           devices[static_cast<std::size_t>(device)].opens;
  }

  class Opened : public MixerDevice {
   public:
    Opened(FakeMixer& machine, int device) : mixer(machine), number(device) { ++mixer.openDevices; }
    ~Opened() override { --mixer.openDevices; }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    int DestinationCount() const override { return static_cast<int>(Device().destinations.size()); }
    bool IsWaveIn(int destination) const override {
      const FakeDestination* found = Find(destination);
      return found != nullptr && found->waveIn;
    }
    int SourceCount(int destination) const override {
      const FakeDestination* found = Find(destination);
      return found == nullptr ? 0 : static_cast<int>(found->lines.size());
    }
    std::optional<std::string> SourceName(int destination, int source) const override {
      const FakeLine* line = FindLine(destination, source);
      return line == nullptr ? std::nullopt : line->name;
    }
    std::optional<std::vector<bool>> SelectorItems(int destination, SelectorKind kind) const override {
      const FakeDestination* found = Find(destination);
      if (found == nullptr || !found->selectors.contains(kind)) {
        return std::nullopt;
      }
      return found->selectors.at(kind);
    }
    bool SetSelectorItems(int destination, SelectorKind kind, const std::vector<bool>& items) override {
      FakeDestination* found = Find(destination);
      if (found == nullptr || !found->selectors.contains(kind)) {
        return false;
      }
      found->selectors[kind] = items;
      std::string text;
      for (const bool item : items) {
        text += item ? '1' : '0';
      }
      mixer.changes.push_back(Place(destination) + " items " + text);
      return true;
    }
    std::optional<VolumeControl> SourceVolume(int destination, int source) const override {
      const FakeLine* line = FindLine(destination, source);
      return line == nullptr ? std::nullopt : line->volume;
    }
    bool SetSourceVolume(int destination, int source, std::int32_t value) override {
      FakeLine* line = FindLine(destination, source);
      if (line == nullptr || !line->volume) {
        return false;
      }
      line->volume->value = value;
      mixer.changes.push_back(Place(destination) + "." + std::to_string(source) + " volume " +
                              std::to_string(value));
      return true;
    }

   private:
    FakeMixerDevice& Device() const { return mixer.devices.at(static_cast<std::size_t>(number)); }
    FakeDestination* Find(int destination) const {
      auto& all = Device().destinations;
      return destination >= 0 && std::cmp_less(destination, all.size())
                 ? &all[static_cast<std::size_t>(destination)]
                 : nullptr;
    }
    FakeLine* FindLine(int destination, int source) const {
      FakeDestination* found = Find(destination);
      return found != nullptr && source >= 0 && std::cmp_less(source, found->lines.size())
                 ? &found->lines[static_cast<std::size_t>(source)]
                 : nullptr;
    }
    std::string Place(int destination) const {
      return std::to_string(number) + "." + std::to_string(destination);
    }

    FakeMixer& mixer;
    int number;
  };
};

// A device whose second destination is the one that records, from lines of these names and volumes.
inline FakeMixerDevice RecordingDevice(std::string name, std::vector<FakeLine> lines) {
  FakeDestination waveIn{true, std::move(lines), {}};
  waveIn.selectors[SelectorKind::Multiplexer] = std::vector<bool>(waveIn.lines.size());
  return {std::move(name), {FakeDestination{false, {{"Speaker", VolumeControl{}}}, {}}, std::move(waveIn)}};
}

}  // namespace tembrel::test
