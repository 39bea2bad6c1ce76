#include "platform/linux/PulseConnection.h"

#include <memory>

namespace tembrel {

namespace {

constexpr pa_usec_t kLongestWait = 1'000'000;

// Rings once, a time from now.
struct Alarm {
  pa_threaded_mainloop* loop = nullptr;
  bool rung = false;
};

void OnAlarm(pa_mainloop_api* /*api*/, pa_time_event* /*event*/, const timeval* /*time*/, void* data) {
  auto& alarm = *static_cast<Alarm*>(data);
  alarm.rung = true;
  pa_threaded_mainloop_signal(alarm.loop, 0);
}

using Properties = std::unique_ptr<pa_proplist, decltype(&pa_proplist_free)>;

Properties ProgramProperties() {
  Properties properties(pa_proplist_new(), pa_proplist_free);
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_NAME, "Tembrel");
  pa_proplist_sets(properties.get(), PA_PROP_APPLICATION_ICON_NAME, "tembrel");
  return properties;
}

}  // namespace

PulseConnection::Lock::Lock(const PulseConnection& connection) : loop(connection.loop) {
  pa_threaded_mainloop_lock(loop);
}

PulseConnection::Lock::~Lock() {
  pa_threaded_mainloop_unlock(loop);
}

PulseConnection::~PulseConnection() {
  if (loop == nullptr) {
    return;
  }
  {
    const Lock lock(*this);
    Drop();
  }
  pa_threaded_mainloop_stop(loop);
  pa_threaded_mainloop_free(loop);
}

bool PulseConnection::Start() {
  if (loop != nullptr) {
    return true;
  }
  loop = pa_threaded_mainloop_new();
  if (loop == nullptr || pa_threaded_mainloop_start(loop) < 0) {
    if (loop != nullptr) {
      pa_threaded_mainloop_free(loop);
    }
    loop = nullptr;
    return false;
  }
  pa_threaded_mainloop_set_name(loop, "sound");
  return true;
}

bool PulseConnection::Begin() {
  const Properties properties = ProgramProperties();
  context = pa_context_new_with_proplist(pa_threaded_mainloop_get_api(loop), "Tembrel", properties.get());
  if (context == nullptr) {
    return false;
  }
  pa_context_set_state_callback(
      context,
      [](pa_context* changed, void* data) {
        auto& self = *static_cast<PulseConnection*>(data);
        self.patient = self.patient || pa_context_get_state(changed) == PA_CONTEXT_READY;
        self.Signal();
      },
      this);
  return pa_context_connect(context, nullptr, PA_CONTEXT_NOAUTOSPAWN, nullptr) >= 0;
}

void PulseConnection::Drop() {
  if (context != nullptr) {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
    context = nullptr;
  }
}

SoundFault PulseConnection::Connect() {
  if (context != nullptr && !PA_CONTEXT_IS_GOOD(pa_context_get_state(context))) {
    // One that went in silence may hang still; another end says that a new server deserves its second.
    patient = patient || pa_context_errno(context) != PA_ERR_TIMEOUT;
    Drop();
  }
  if (context == nullptr && !Begin()) {
    Drop();
    return SoundFault::Absent;
  }
  if (WaitFor([this] { return pa_context_get_state(context) == PA_CONTEXT_READY; })) {
    return SoundFault::None;
  }
  // One that hangs stays as it is: should it answer after all, the next call finds it ready.
  return Fault();
}

bool PulseConnection::WaitFor(const std::function<bool()>& done) {
  Alarm alarm{loop, !patient};
  pa_time_event* const event =
      patient ? pa_context_rttime_new(context, pa_rtclock_now() + kLongestWait, OnAlarm, &alarm) : nullptr;
  while (!done() && event != nullptr && !alarm.rung && PA_CONTEXT_IS_GOOD(pa_context_get_state(context))) {
    pa_threaded_mainloop_wait(loop);
  }
  if (event != nullptr) {
    pa_threaded_mainloop_get_api(loop)->time_free(event);
  }
  const bool came = done();
  if (!came && alarm.rung && patient) {
    patient = false;
    Probe();
  }
  return came;
}

// Asks the server for something, without waiting: its answer tells that it is there again.
void PulseConnection::Probe() {
  if (pa_context_get_state(context) != PA_CONTEXT_READY) {
    return;
  }
  pa_operation* const probe = pa_context_get_server_info(
      context,
      [](pa_context* answering, const pa_server_info* info, void* data) {
        auto& self = *static_cast<PulseConnection*>(data);
        self.patient = info != nullptr || pa_context_errno(answering) != PA_ERR_TIMEOUT;
        if (!self.patient) {
          self.Probe();
        }
      },
      this);
  if (probe != nullptr) {
    pa_operation_unref(probe);
  }
}

bool PulseConnection::Finish(pa_operation* operation) {
  if (operation == nullptr) {
    return false;
  }
  pa_operation_set_state_callback(
      operation, [](pa_operation*, void* data) { static_cast<PulseConnection*>(data)->Signal(); }, this);
  WaitFor([operation] { return pa_operation_get_state(operation) != PA_OPERATION_RUNNING; });
  const bool done = pa_operation_get_state(operation) == PA_OPERATION_DONE;
  pa_operation_set_state_callback(operation, nullptr, nullptr);
  pa_operation_cancel(operation);
  pa_operation_unref(operation);
  return done;
}

SoundFault PulseConnection::Fault() const {
  if (context == nullptr || !PA_CONTEXT_IS_GOOD(pa_context_get_state(context))) {
    return SoundFault::Absent;
  }
  return patient ? SoundFault::Refused : SoundFault::Hung;
}

std::string PulseConnection::Reason() const {
  return context == nullptr ? std::string() : pa_strerror(pa_context_errno(context));
}

}  // namespace tembrel
