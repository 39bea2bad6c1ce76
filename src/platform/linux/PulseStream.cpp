#include "platform/linux/PulseStream.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace tembrel {

namespace {

// Short enough that Stop is heard at once; under 20 the sound breaks off now and then.
constexpr std::uint64_t kLatencyMs = 50;
constexpr auto kServersChoice = std::numeric_limits<std::uint32_t>::max();
constexpr auto kTiming = static_cast<pa_stream_flags_t>(
    PA_STREAM_ADJUST_LATENCY | PA_STREAM_AUTO_TIMING_UPDATE | PA_STREAM_INTERPOLATE_TIMING);

pa_sample_spec SampleSpec(const SoundFormat& format) {
  constexpr std::array<pa_sample_format_t, 5> kFormats{PA_SAMPLE_INVALID, PA_SAMPLE_U8, PA_SAMPLE_S16LE,
                                                       PA_SAMPLE_S24LE, PA_SAMPLE_S32LE};
  pa_sample_spec spec{};
  spec.format = format.sampleBytes < kFormats.size() ? kFormats[format.sampleBytes] : PA_SAMPLE_INVALID;
  spec.rate = format.rate;
  spec.channels = static_cast<std::uint8_t>(
      std::min<std::uint32_t>(format.channels, std::numeric_limits<std::uint8_t>::max()));
  return spec;
}

void Release(pa_operation* operation) {
  if (operation != nullptr) {
    pa_operation_cancel(operation);
    pa_operation_unref(operation);
  }
}

void EndConnection(pa_mainloop_api* /*api*/, void* data) {
  auto* const context = static_cast<pa_context*>(data);
  pa_context_disconnect(context);
  pa_context_unref(context);
}

// For a stream that was given up before the server had made it: the server would make it all the same.
void EndWhenMade(pa_stream* stream, void* data) {
  const pa_stream_state_t state = pa_stream_get_state(stream);
  pa_context* const context = pa_stream_get_context(stream);
  if (state == PA_STREAM_READY) {
    pa_stream_disconnect(stream);
  } else if (state == PA_STREAM_FAILED && pa_context_errno(context) == PA_ERR_TIMEOUT) {
    // The library would not know the stream any more: it goes with the connection. Not from within a
    // callback.
    pa_mainloop_api_once(static_cast<pa_mainloop_api*>(data), EndConnection, pa_context_ref(context));
  }
}

}  // namespace

PulseStream::PulseStream(std::shared_ptr<PulseConnection> sharedConnection, const SoundFormat& soundFormat)
    : connection(std::move(sharedConnection)), format(soundFormat) {}

bool PulseStream::Create(const char* name) {
  const pa_sample_spec spec = SampleSpec(format);
  pa_channel_map map;
  if (pa_sample_spec_valid(&spec) == 0 ||
      pa_channel_map_init_extend(&map, spec.channels, PA_CHANNEL_MAP_WAVEEX) == nullptr) {
    return false;
  }
  stream = pa_stream_new(connection->Context(), name, &spec, &map);
  if (stream == nullptr) {
    return false;
  }
  pa_stream_set_state_callback(
      stream,
      [](pa_stream* changed, void* data) {
        auto& self = *static_cast<PulseStream*>(data);
        if (!PA_STREAM_IS_GOOD(pa_stream_get_state(changed))) {
          self.ended = true;
          self.Over();
        }
        self.connection->Signal();
      },
      this);
  return true;
}

void PulseStream::Close() {
  if (stream == nullptr) {
    return;
  }
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_set_write_callback(stream, nullptr, nullptr);
  pa_stream_set_read_callback(stream, nullptr, nullptr);
  const pa_stream_state_t state = pa_stream_get_state(stream);
  if (state == PA_STREAM_CREATING) {
    pa_stream_set_state_callback(stream, EndWhenMade, connection->Api());
  } else if (PA_STREAM_IS_GOOD(state)) {
    pa_stream_disconnect(stream);
  }
  pa_stream_unref(stream);
  stream = nullptr;
}

pa_buffer_attr PulseStream::ShortBuffer() const {
  const std::uint64_t frames = std::max<std::uint64_t>(format.rate * kLatencyMs / 1000, 1);
  const auto bytes = static_cast<std::uint32_t>(frames * format.FrameBytes());
  pa_buffer_attr attributes{};
  attributes.maxlength = kServersChoice;
  attributes.tlength = bytes;
  attributes.prebuf = kServersChoice;
  attributes.minreq = kServersChoice;
  attributes.fragsize = bytes;
  return attributes;
}

std::uint64_t PulseStream::FramesPassed() const {
  const PulseConnection::Lock lock(*connection);
  pa_usec_t time = 0;
  if (pa_stream_get_state(stream) != PA_STREAM_READY || pa_stream_get_time(stream, &time) < 0) {
    return 0;
  }
  return time * format.rate / PA_USEC_PER_SEC;
}

PulsePlayback::PulsePlayback(std::shared_ptr<PulseConnection> sharedConnection,
                             const SoundFormat& soundFormat, PullSound pullSound)
    : PulseStream(std::move(sharedConnection), soundFormat), pull(std::move(pullSound)) {}

PulsePlayback::~PulsePlayback() {
  const PulseConnection::Lock lock(*connection);
  Release(drain);
  if (stream != nullptr && pa_stream_get_state(stream) == PA_STREAM_READY) {
    // Neither is waited for: the server does one after the other.
    Release(pa_stream_cork(stream, 1, nullptr, nullptr));
    Release(pa_stream_flush(stream, nullptr, nullptr));
  }
  Close();
}

bool PulsePlayback::Start() {
  if (!Create("Playback")) {
    return false;
  }
  pa_stream_set_write_callback(
      stream,
      [](pa_stream* /*stream*/, std::size_t bytes, void* data) {
        static_cast<PulsePlayback*>(data)->Fill(bytes);
      },
      this);
  const pa_buffer_attr attributes = ShortBuffer();
  return pa_stream_connect_playback(stream, nullptr, &attributes, kTiming, nullptr, nullptr) >= 0;
}

// Lets go of what the sound comes from: a file may have been removed, and wait for this to free its room.
void PulsePlayback::Over() {
  finished = true;
  pull = nullptr;
}

void PulsePlayback::Fill(std::size_t bytes) {
  while (!finished && bytes >= format.FrameBytes()) {
    void* place = nullptr;
    std::size_t size = bytes;
    if (pa_stream_begin_write(stream, &place, &size) < 0 || place == nullptr) {
      return;
    }
    size = std::min(size, bytes);
    size -= size % format.FrameBytes();
    const std::size_t got = pull({static_cast<std::byte*>(place), size});
    finished = got < size || size == 0;
    if (got == 0) {
      pa_stream_cancel_write(stream);
    } else if (pa_stream_write(stream, place, got, nullptr, 0, PA_SEEK_RELATIVE) < 0) {
      return;
    }
    bytes -= got;
    if (finished) {
      Finish();
    }
  }
}

void PulsePlayback::Finish() {
  drain = pa_stream_drain(
      stream,
      [](pa_stream* /*stream*/, int /*success*/, void* data) {
        auto& self = *static_cast<PulsePlayback*>(data);
        self.ended = true;
        // A silent stream would keep the sound card awake.
        pa_stream_disconnect(self.stream);
      },
      this);
}

PulseRecording::PulseRecording(std::shared_ptr<PulseConnection> sharedConnection,
                               const SoundFormat& soundFormat, PushSound pushSound, SoundLost soundLost)
    : PulseStream(std::move(sharedConnection), soundFormat),
      push(std::move(pushSound)),
      lost(std::move(soundLost)) {}

PulseRecording::~PulseRecording() {
  const PulseConnection::Lock lock(*connection);
  connection->recordings.erase(stream);
  Close();
}

bool PulseRecording::Start() {
  if (!Create("Recording")) {
    return false;
  }
  pa_stream_set_read_callback(
      stream,
      [](pa_stream* /*stream*/, std::size_t /*bytes*/, void* data) {
        static_cast<PulseRecording*>(data)->Take();
      },
      this);
  const pa_buffer_attr attributes = ShortBuffer();
  // Naming the source keeps the server from going back to one that it remembers of an earlier recording.
  const bool begun =
      pa_stream_connect_record(stream, "@DEFAULT_SOURCE@", &attributes, kTiming) >= 0 &&
      connection->WaitFor([this] { return ended || pa_stream_get_state(stream) == PA_STREAM_READY; }) &&
      !ended;
  if (begun) {
    connection->recordings.insert(stream);
  }
  return begun;
}

void PulseRecording::Over() {
  connection->recordings.erase(stream);
  lost();
}

void PulseRecording::Take() {
  const void* data = nullptr;
  std::size_t size = 0;
  while (pa_stream_peek(stream, &data, &size) >= 0 && size > 0) {
    if (data != nullptr) {
      push({static_cast<const std::byte*>(data), size});
    } else {
      PushSilence(size);
    }
    pa_stream_drop(stream);
  }
}

// The server tells of sound that it has lost by its length alone.
void PulseRecording::PushSilence(std::size_t bytes) {
  std::array<std::byte, 4096> silence{};
  silence.fill(format.sampleBytes == 1 ? std::byte{128} : std::byte{0});
  const std::size_t most = silence.size() - silence.size() % format.FrameBytes();
  while (bytes > 0 && most > 0) {
    const std::size_t part = std::min(bytes, most);
    push({silence.data(), part});
    bytes -= part;
  }
}

}  // namespace tembrel
