#include "device/ServerSoundPlayer.h"

#include <optional>
#include <utility>

#include "audio/WaveReader.h"
#include "device/WaveSound.h"

namespace tembrel {

ServerSoundPlayer::ServerSoundPlayer(std::shared_ptr<SoundServer> soundServer)
    : server(std::move(soundServer)) {}

bool ServerSoundPlayer::Play(const std::filesystem::path& wavePath, bool looping) {
  Stop();
  LoadResult loaded = LoadClip(wavePath, 0, 0, 0, false);
  const std::optional<SoundFormat> format =
      loaded.clip == nullptr ? std::nullopt : PlayableFormat(loaded.clip->format);
  if (!format) {
    return false;
  }
  const auto sound = std::make_shared<ClipSound>(std::move(loaded.clip), looping);
  stream =
      server->StartPlayback(*format, [sound](std::span<std::byte> target) { return sound->Read(target); })
          .stream;
  return true;
}

void ServerSoundPlayer::Stop() {
  stream.reset();
}

}  // namespace tembrel
