// The mixers of the machine: which source lines can be recorded from, which one is, and how loud.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tembrel {

// How a destination chooses among its sources: one at a time, or several together.
enum class SelectorKind { Multiplexer, Mixer };

struct VolumeControl {
  std::int32_t minimum = 0;
  std::int32_t maximum = 65535;
  std::int32_t value = 0;

  bool operator==(const VolumeControl&) const = default;
};

// An open mixer device. Destinations count from 0; the sources of a destination, its source lines, too.
// Anything that is not there or fails gives nothing or false.
class MixerDevice {
 public:
  virtual ~MixerDevice() = default;

  virtual int DestinationCount() const = 0;
  // Whether the destination is the one that recording takes its sound from.
  virtual bool IsWaveIn(int destination) const = 0;
  virtual int SourceCount(int destination) const = 0;
  // UTF-8.
  virtual std::optional<std::string> SourceName(int destination, int source) const = 0;

  // The selector's items, true for those that are recorded. Items stand in the reverse order of the source
  // lines. Nothing when the destination has no selector of this kind.
  virtual std::optional<std::vector<bool>> SelectorItems(int destination, SelectorKind kind) const = 0;
  virtual bool SetSelectorItems(int destination, SelectorKind kind, const std::vector<bool>& items) = 0;

  // One value for all channels together.
  virtual std::optional<VolumeControl> SourceVolume(int destination, int source) const = 0;
  virtual bool SetSourceVolume(int destination, int source, std::int32_t value) = 0;
};

class Mixer {
 public:
  virtual ~Mixer() = default;

  virtual int DeviceCount() const = 0;
  // UTF-8; nothing for a device that does not open or tell its name.
  virtual std::optional<std::string> DeviceName(int device) const = 0;
  // Whether devices or their lines may be missing because what knows them does not answer.
  virtual bool Hangs() const { return false; }
  // Null when there is no such device or it does not open.
  virtual std::unique_ptr<MixerDevice> Open(int device) = 0;
};

}  // namespace tembrel
