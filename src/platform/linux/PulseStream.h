// The two kinds of stream of a PulseAudio server.
#pragma once

#include <atomic>
#include <memory>
#include <pulse/pulseaudio.h>

#include "platform/SoundServer.h"
#include "platform/linux/PulseConnection.h"

namespace tembrel {

class PulseStream : public SoundStream {
 public:
  PulseStream(std::shared_ptr<PulseConnection> sharedConnection, const SoundFormat& soundFormat);
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;

  bool Ended() const override { return ended; }
  std::uint64_t FramesPassed() const override;

 protected:
  // With the connection's lock held. False when the server cannot take such a stream.
  bool Create(const char* name);
  // Ends the stream; for the destructor of the kind, which its callbacks reach.
  void Close();
  pa_buffer_attr ShortBuffer() const;
  // The stream's state has changed to one that it does not leave.
  virtual void Over() = 0;

  std::shared_ptr<PulseConnection> connection;
  SoundFormat format;
  pa_stream* stream = nullptr;
  std::atomic<bool> ended = false;
};

class PulsePlayback : public PulseStream {
 public:
  PulsePlayback(std::shared_ptr<PulseConnection> sharedConnection, const SoundFormat& soundFormat,
                PullSound pullSound);
  ~PulsePlayback() override;

  // With the connection's lock held.
  bool Start();

 private:
  void Over() override;
  void Fill(std::size_t bytes);
  void Finish();

  PullSound pull;
  pa_operation* drain = nullptr;
  bool finished = false;  // all that there is was handed over
};

class PulseRecording : public PulseStream {
 public:
  PulseRecording(std::shared_ptr<PulseConnection> sharedConnection, const SoundFormat& soundFormat,
                 PushSound pushSound, SoundLost soundLost);
  ~PulseRecording() override;

  // With the connection's lock held. Waits until the server has begun.
  bool Start();

 private:
  void Over() override;
  void Take();
  void PushSilence(std::size_t bytes);

  PushSound push;
  SoundLost lost;
};

}  // namespace tembrel
