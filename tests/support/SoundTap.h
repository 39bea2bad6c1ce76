// The other end of the sound server in tests: hears what is played, and plays what is to be recorded. Not by
// the code under test.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <pulse/error.h>
#include <pulse/simple.h>
#include <span>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/Eventually.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

using Simple = std::unique_ptr<pa_simple, decltype(&pa_simple_free)>;

inline Simple OpenSimple(pa_stream_direction_t direction, const std::string& device, std::uint32_t rate) {
  const pa_sample_spec spec{PA_SAMPLE_S16LE, rate, 2};
  return {pa_simple_new(nullptr, "test", direction, device.c_str(), "test", &spec, nullptr, nullptr, nullptr),
          pa_simple_free};
}

// Left and right, 16 bits each.
using StereoFrame = std::uint32_t;

// Takes down what a source gives, stereo with 16 bits, from the moment it is there.
class SoundTap {
 public:
  explicit SoundTap(const std::string& source, std::uint32_t rate = 44100)
      : connection(OpenSimple(PA_STREAM_RECORD, source, rate)), listener([this] { Listen(); }) {}
  ~SoundTap() {
    stopping = true;
    listener.join();
  }
  SoundTap(const SoundTap&) = delete;
  SoundTap& operator=(const SoundTap&) = delete;

  // All frames that are not silent. A busy machine puts silence between them, which no program can help.
  std::vector<StereoFrame> Heard() const {
    const std::lock_guard lock(mutex);
    return heard;
  }
  // Whether there was no silence between them.
  bool WithoutGap() const {
    const std::lock_guard lock(mutex);
    return gap == 0;
  }

  // Waits for this many frames that are not silent.
  bool WaitForFrames(std::size_t frames) const {
    return Eventually([&] {
      const std::lock_guard lock(mutex);
      return heard.size() >= frames || deaf;
    });
  }
  // And for silence behind them, in which anything more would be heard.
  bool WaitForAll(std::size_t frames) const { return WaitForFrames(frames) && WaitForMore(10'000); }
  // Frames from now on, silent or not.
  bool WaitForMore(std::uint64_t frames) const {
    const std::uint64_t now = passed;
    return Eventually([&] { return passed >= now + frames || deaf; });
  }
  bool WaitForSound() const { return WaitForFrames(1); }

 private:
  void Listen() {
    std::vector<StereoFrame> part(512);
    int error = 0;
    while (!stopping && connection != nullptr &&
           pa_simple_read(connection.get(), part.data(), part.size() * sizeof part[0], &error) >= 0) {
      const std::lock_guard lock(mutex);
      for (const StereoFrame frame : part) {
        if (frame == 0) {
          ++silence;
          continue;
        }
        gap += heard.empty() ? 0 : silence;
        silence = 0;
        heard.push_back(frame);
      }
      passed += part.size();
    }
    deaf = true;
  }

  Simple connection;
  mutable std::mutex mutex;
  std::vector<StereoFrame> heard;
  std::size_t silence = 0;  // frames since the last that was heard
  std::size_t gap = 0;      // silent frames between such that were heard
  std::atomic<std::uint64_t> passed = 0;
  std::atomic<bool> stopping = false;
  std::atomic<bool> deaf = false;  // nothing more comes
  std::thread listener;
};

// Plays frames into a sink and waits until they have been heard.
inline bool PlayInto(const std::string& sink, std::span<const StereoFrame> frames) {
  const Simple connection = OpenSimple(PA_STREAM_PLAYBACK, sink, 44100);
  int error = 0;
  return connection != nullptr &&
         pa_simple_write(connection.get(), frames.data(), frames.size_bytes(), &error) >= 0 &&
         pa_simple_drain(connection.get(), &error) >= 0;
}

}  // namespace tembrel::test
