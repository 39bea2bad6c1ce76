#include "platform/linux/PulseServer.h"

#include <utility>

#include "platform/linux/PulseStream.h"

namespace tembrel {

namespace {

// An answer that comes once says nullptr when there is none; one that is a list ends with nullptr.

void OnCard(pa_context* /*context*/, const pa_card_info* info, int /*end*/, void* data) {
  if (info != nullptr) {
    const char* const description = pa_proplist_gets(info->proplist, PA_PROP_DEVICE_DESCRIPTION);
    static_cast<std::vector<SoundCard>*>(data)->push_back(
        {info->index, description == nullptr ? info->name : description});
  }
}

void OnSource(pa_context* /*context*/, const pa_source_info* info, int /*end*/, void* data) {
  if (info == nullptr) {
    return;
  }
  SoundSource source{info->name, info->description == nullptr ? info->name : info->description, {}};
  if (info->card != PA_INVALID_INDEX) {
    source.card = info->card;
  }
  static_cast<std::vector<SoundSource>*>(data)->push_back(std::move(source));
}

void OnSourceVolume(pa_context* /*context*/, const pa_source_info* info, int /*end*/, void* data) {
  if (info != nullptr) {
    *static_cast<std::optional<pa_cvolume>*>(data) = info->volume;
  }
}

void OnServer(pa_context* /*context*/, const pa_server_info* info, void* data) {
  if (info != nullptr && info->default_source_name != nullptr) {
    *static_cast<std::string*>(data) = info->default_source_name;
  }
}

void OnSuccess(pa_context* /*context*/, int success, void* data) {
  *static_cast<bool*>(data) = success != 0;
}

}  // namespace

// Connects, asks by `ask`, which takes the context and gives an operation, and waits for the end of the
// answer.
template <typename Ask>
bool PulseServer::Answered(Ask ask) {
  if (!connection->Start()) {
    return false;
  }
  const PulseConnection::Lock lock(*connection);
  return connection->Connect() == SoundFault::None && connection->Finish(ask(connection->Context()));
}

template <typename Stream, typename... Functions>
StreamResult PulseServer::StartStream(const SoundFormat& format, Functions... functions) {
  if (!connection->Start()) {
    return {nullptr, SoundFault::Absent, {}};
  }
  // Destroyed behind the lock, which its destructor takes again.
  auto stream = std::make_unique<Stream>(connection, format, std::move(functions)...);
  const PulseConnection::Lock lock(*connection);
  const SoundFault fault = connection->Connect();
  if (fault != SoundFault::None) {
    return {nullptr, fault, {}};
  }
  if (!stream->Start()) {
    return {nullptr, connection->Fault(), connection->Reason()};
  }
  return {std::move(stream), SoundFault::None, {}};
}

bool PulseServer::Reachable() {
  if (!connection->Start()) {
    return false;
  }
  const PulseConnection::Lock lock(*connection);
  return connection->Connect() == SoundFault::None;
}

bool PulseServer::Hangs() {
  if (!connection->Start()) {
    return false;
  }
  const PulseConnection::Lock lock(*connection);
  return connection->Fault() == SoundFault::Hung;
}

StreamResult PulseServer::StartPlayback(const SoundFormat& format, PullSound pull) {
  return StartStream<PulsePlayback>(format, std::move(pull));
}

StreamResult PulseServer::StartRecording(const SoundFormat& format, PushSound push, SoundLost lost) {
  return StartStream<PulseRecording>(format, std::move(push), std::move(lost));
}

std::vector<SoundCard> PulseServer::Cards() {
  std::vector<SoundCard> cards;
  const bool whole =
      Answered([&](pa_context* context) { return pa_context_get_card_info_list(context, OnCard, &cards); });
  return whole ? cards : std::vector<SoundCard>();
}

std::vector<SoundSource> PulseServer::Sources() {
  std::vector<SoundSource> sources;
  const bool whole = Answered(
      [&](pa_context* context) { return pa_context_get_source_info_list(context, OnSource, &sources); });
  return whole ? sources : std::vector<SoundSource>();
}

std::string PulseServer::DefaultSource() {
  std::string name;
  Answered([&](pa_context* context) { return pa_context_get_server_info(context, OnServer, &name); });
  return name;
}

bool PulseServer::SetDefaultSource(const std::string& name) {
  bool success = false;
  const bool answered = Answered([&](pa_context* context) {
    return pa_context_set_default_source(context, name.c_str(), OnSuccess, &success);
  });
  if (!answered || !success) {
    return false;
  }
  MoveRecordingsTo(name);
  return true;
}

// Not waited for: the server keeps the order.
void PulseServer::MoveRecordingsTo(const std::string& source) {
  const PulseConnection::Lock lock(*connection);
  for (pa_stream* const stream : connection->recordings) {
    pa_operation* const move = pa_context_move_source_output_by_name(
        connection->Context(), pa_stream_get_index(stream), source.c_str(), nullptr, nullptr);
    if (move != nullptr) {
      pa_operation_unref(move);
    }
  }
}

std::optional<pa_cvolume> PulseServer::ChannelVolumes(const std::string& name) {
  std::optional<pa_cvolume> volumes;
  Answered([&](pa_context* context) {
    return pa_context_get_source_info_by_name(context, name.c_str(), OnSourceVolume, &volumes);
  });
  return volumes;
}

std::optional<std::uint32_t> PulseServer::SourceVolume(const std::string& name) {
  const std::optional<pa_cvolume> volumes = ChannelVolumes(name);
  return volumes ? std::optional(pa_cvolume_max(&*volumes)) : std::nullopt;
}

bool PulseServer::SetSourceVolume(const std::string& name, std::uint32_t volume) {
  std::optional<pa_cvolume> volumes = ChannelVolumes(name);
  bool success = false;
  return volumes && pa_cvolume_scale(&*volumes, volume) != nullptr && Answered([&](pa_context* context) {
           return pa_context_set_source_volume_by_name(context, name.c_str(), &*volumes, OnSuccess, &success);
         }) &&
         success;
}

std::shared_ptr<SoundServer> FindSoundServer() {
  return std::make_shared<PulseServer>();
}

}  // namespace tembrel
