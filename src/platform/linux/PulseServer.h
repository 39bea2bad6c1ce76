// The sound server by way of libpulse.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/SoundServer.h"
#include "platform/linux/PulseConnection.h"

namespace tembrel {

class PulseServer : public SoundServer {
 public:
  bool Reachable() override;
  bool Hangs() override;
  StreamResult StartPlayback(const SoundFormat& format, PullSound pull) override;
  StreamResult StartRecording(const SoundFormat& format, PushSound push, SoundLost lost) override;
  std::vector<SoundCard> Cards() override;
  std::vector<SoundSource> Sources() override;
  std::string DefaultSource() override;
  bool SetDefaultSource(const std::string& name) override;
  std::optional<std::uint32_t> SourceVolume(const std::string& name) override;
  bool SetSourceVolume(const std::string& name, std::uint32_t volume) override;

 private:
  template <typename Stream, typename... Functions>
  StreamResult StartStream(const SoundFormat& format, Functions... functions);
  template <typename Ask>
  bool Answered(Ask ask);
  void MoveRecordingsTo(const std::string& source);
  std::optional<pa_cvolume> ChannelVolumes(const std::string& name);

  std::shared_ptr<PulseConnection> connection = std::make_shared<PulseConnection>();
};

}  // namespace tembrel
