// The system's sound server: streams that play and record, and the sources it can record from. Everything is
// called on one thread; the functions handed in are called on the server's own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tembrel {

struct SoundFormat {
  std::uint32_t rate = 0;         // hertz
  std::uint32_t sampleBytes = 0;  // 1: unsigned, silence 128; 2, 3 or 4: signed, little-endian
  std::uint32_t channels = 0;

  std::size_t FrameBytes() const { return std::size_t{sampleBytes} * channels; }
};

enum class SoundFault {
  None,
  Absent,   // there is no server
  Hung,     // there is one, but it does not answer
  Refused,  // the server said no
};

// A stream that plays or records until it is destroyed; that ends it at once.
class SoundStream {
 public:
  virtual ~SoundStream() = default;

  // Nothing more will be heard or recorded: all was played, or the server is gone.
  virtual bool Ended() const = 0;
  // Frames that were heard or taken down so far, as well as the server can tell; 0 when it cannot.
  virtual std::uint64_t FramesPassed() const = 0;
};

// Fills the buffer, whole frames, with what is to be played next and returns the bytes it has put there;
// fewer than there is room for end the stream once they were heard.
using PullSound = std::function<std::size_t(std::span<std::byte>)>;
// Takes the sound that was recorded next, whole frames.
using PushSound = std::function<void(std::span<const std::byte>)>;
// The server has gone; nothing more comes.
using SoundLost = std::function<void()>;

struct StreamResult {
  std::unique_ptr<SoundStream> stream;  // null on failure
  SoundFault fault = SoundFault::None;
  std::string reason;  // of a refusal: the server's words
};

struct SoundSource {
  std::string name;                   // the server's own
  std::string description;            // for people, UTF-8
  std::optional<std::uint32_t> card;  // the card it belongs to, if any
};

struct SoundCard {
  std::uint32_t number = 0;
  std::string description;  // for people, UTF-8
};

inline constexpr std::uint32_t kFullVolume = 65536;  // leaves the sound as it is

// The connection is made when it is first needed. A call waits for the server one second at most, and once
// it was in vain no call waits again until the server is heard of; a server that is away, has died or was
// restarted is looked for anew by the next call. Without an answer lists are empty and the rest fails.
class SoundServer {
 public:
  virtual ~SoundServer() = default;

  virtual bool Reachable() = 0;
  // There is one, but the last call that waited for it did so in vain, and nothing was heard of it since.
  virtual bool Hangs() = 0;

  // Returns before the first sound is heard. A stream that the server refuses later has simply ended. Streams
  // may outlive this object. Functions that were handed in are not called any more once the stream is gone.
  virtual StreamResult StartPlayback(const SoundFormat& format, PullSound pull) = 0;
  // Records from the default source, and goes over to the one that SetDefaultSource() names meanwhile. Waits
  // until the server has begun.
  virtual StreamResult StartRecording(const SoundFormat& format, PushSound push, SoundLost lost) = 0;

  virtual std::vector<SoundCard> Cards() = 0;
  // Monitors, which give what is being played, are among them.
  virtual std::vector<SoundSource> Sources() = 0;
  // The source's name, empty when there is none.
  virtual std::string DefaultSource() = 0;
  virtual bool SetDefaultSource(const std::string& name) = 0;
  // On a cubic scale, the loudest channel's: half of kFullVolume is -18 dB. May be above kFullVolume.
  virtual std::optional<std::uint32_t> SourceVolume(const std::string& name) = 0;
  // The balance of the channels stays.
  virtual bool SetSourceVolume(const std::string& name, std::uint32_t volume) = 0;
};

std::shared_ptr<SoundServer> FindSoundServer();

}  // namespace tembrel
