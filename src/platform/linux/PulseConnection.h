// A connection to a PulseAudio server, or to PipeWire, which answers the same calls: the client library's
// thread, its lock, and waiting that has an end.
#pragma once

#include <functional>
#include <pulse/pulseaudio.h>
#include <set>
#include <string>

#include "platform/SoundServer.h"

namespace tembrel {

class PulseConnection {
 public:
  PulseConnection() = default;
  PulseConnection(const PulseConnection&) = delete;
  PulseConnection& operator=(const PulseConnection&) = delete;
  ~PulseConnection();

  // Everything below, and everything else of the library, is called with the lock held. What the library
  // calls back holds it already.
  class Lock {
   public:
    explicit Lock(const PulseConnection& connection);
    ~Lock();
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    pa_threaded_mainloop* loop;
  };

  // Starts the library's thread, without which there is no lock; before anything else. False when the system
  // has no thread.
  bool Start();
  // Makes a connection unless there is one.
  SoundFault Connect();
  // Null before Connect() has succeeded.
  pa_context* Context() const { return context; }
  pa_mainloop_api* Api() const { return pa_threaded_mainloop_get_api(loop); }
  // Waits until `done`, and returns whether it is. Ends early when the connection breaks, after a second, and
  // at once while an earlier wait was in vain and nothing was heard of the server since.
  bool WaitFor(const std::function<bool()>& done);
  // Waits for the end of the operation and releases it. False without one, or when it was cut off.
  bool Finish(pa_operation* operation);
  // Ends the waiting, to look at `done` again.
  void Signal() const { pa_threaded_mainloop_signal(loop, 0); }
  // The streams that record now.
  std::set<pa_stream*> recordings;

  // What the last failure was: the server gone, silent, or refusing.
  SoundFault Fault() const;
  // The server's words for its last refusal.
  std::string Reason() const;

 private:
  bool Begin();
  void Drop();
  void Probe();

  pa_threaded_mainloop* loop = nullptr;
  pa_context* context = nullptr;
  bool patient = true;  // the server has not kept us waiting in vain
};

}  // namespace tembrel
