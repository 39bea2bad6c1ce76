#include "device/ServerMixer.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tembrel {

namespace {

constexpr std::int32_t kLoudest = 65535;

class ServerMixerDevice : public MixerDevice {
 public:
  ServerMixerDevice(std::shared_ptr<SoundServer> soundServer, std::vector<SoundSource> sources)
      : server(std::move(soundServer)), lines(std::move(sources)) {}

  int DestinationCount() const override { return 1; }
  bool IsWaveIn(int destination) const override { return destination == 0; }
  int SourceCount(int destination) const override {
    return destination == 0 ? static_cast<int>(lines.size()) : 0;
  }
  std::optional<std::string> SourceName(int destination, int source) const override {
    const SoundSource* const line = Line(destination, source);
    return line == nullptr ? std::nullopt : std::optional(line->description);
  }

  std::optional<std::vector<bool>> SelectorItems(int destination, SelectorKind kind) const override {
    if (destination != 0 || kind != SelectorKind::Multiplexer) {
      return std::nullopt;
    }
    const std::string selected = server->DefaultSource();
    if (selected.empty()) {
      return std::nullopt;
    }
    std::vector<bool> items;
    std::transform(lines.rbegin(), lines.rend(), std::back_inserter(items),
                   [&](const SoundSource& line) { return line.name == selected; });
    return items;
  }

  bool SetSelectorItems(int destination, SelectorKind kind, const std::vector<bool>& items) override {
    const auto selected = std::ranges::find(items, true);
    if (destination != 0 || kind != SelectorKind::Multiplexer || items.size() != lines.size() ||
        selected == items.end()) {
      return false;
    }
    return server->SetDefaultSource(lines.rbegin()[selected - items.begin()].name);
  }

  std::optional<VolumeControl> SourceVolume(int destination, int source) const override {
    const SoundSource* const line = Line(destination, source);
    const std::optional<std::uint32_t> volume =
        line == nullptr ? std::nullopt : server->SourceVolume(line->name);
    if (!volume) {
      return std::nullopt;
    }
    return VolumeControl{0, kLoudest, static_cast<std::int32_t>(std::min<std::uint32_t>(*volume, kLoudest))};
  }

  bool SetSourceVolume(int destination, int source, std::int32_t value) override {
    const SoundSource* const line = Line(destination, source);
    if (line == nullptr) {
      return false;
    }
    if (value < kLoudest) {
      return server->SetSourceVolume(line->name, static_cast<std::uint32_t>(std::max(value, 0)));
    }
    // The top of the slider leaves the sound as it is, where the value itself would take a little off. It
    // stands as well for all that is louder, which stays.
    const std::optional<std::uint32_t> present = server->SourceVolume(line->name);
    return (present && *present >= kFullVolume) || server->SetSourceVolume(line->name, kFullVolume);
  }

 private:
  const SoundSource* Line(int destination, int source) const {
    return source >= 0 && source < SourceCount(destination) ? &lines[static_cast<std::size_t>(source)]
                                                            : nullptr;
  }

  std::shared_ptr<SoundServer> server;
  std::vector<SoundSource> lines;
};

// The card with this device number, from 1 on.
std::optional<SoundCard> CardOfDevice(SoundServer& server, int device) {
  const std::vector<SoundCard> cards = server.Cards();
  if (device < 1 || static_cast<std::size_t>(device) > cards.size()) {
    return std::nullopt;
  }
  return cards[static_cast<std::size_t>(device) - 1];
}

}  // namespace

ServerMixer::ServerMixer(std::shared_ptr<SoundServer> soundServer) : server(std::move(soundServer)) {}

int ServerMixer::DeviceCount() const {
  return server->Reachable() ? 1 + static_cast<int>(server->Cards().size()) : 0;
}

std::optional<std::string> ServerMixer::DeviceName(int device) const {
  if (device == 0) {
    return server->Reachable() ? std::optional<std::string>("Sound server") : std::nullopt;
  }
  const std::optional<SoundCard> card = CardOfDevice(*server, device);
  return card ? std::optional(card->description) : std::nullopt;
}

std::unique_ptr<MixerDevice> ServerMixer::Open(int device) {
  if (device < 0 || !server->Reachable()) {
    return nullptr;
  }
  std::vector<SoundSource> sources = server->Sources();
  if (device > 0) {
    const std::optional<SoundCard> card = CardOfDevice(*server, device);
    if (!card) {
      return nullptr;
    }
    std::erase_if(sources, [&](const SoundSource& source) { return source.card != card->number; });
  }
  return std::make_unique<ServerMixerDevice>(server, std::move(sources));
}

}  // namespace tembrel
