// The transport in its made-up world.
#pragma once

#include "device/Transport.h"
#include "tests/support/FakeMixer.h"
#include "tests/support/FakeTransport.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel::test {

class TransportStage {
 public:
  TransportStage() { settings.recording.showDialog = false; }

  // The clock goes on by so many milliseconds, with a tick after every 100 of them and one at the end.
  void Run(std::uint32_t milliseconds) {
    const std::uint32_t end = clock.now + milliseconds;
    while (clock.now != end) {
      clock.now += std::min<std::uint32_t>(end - clock.now, kTickMs);
      if (host.ticking) {
        transport.OnTick();
      }
    }
  }
  FakeDocument& Document() { return host.document; }

  ManualClock clock;
  FakeAudioDevice device;
  FakeMixer mixer;
  Settings settings;
  ScriptedPrompts prompts;
  FakeTransportHost host;
  Transport transport{device, mixer, clock, settings, prompts, host};
};

}  // namespace tembrel::test
