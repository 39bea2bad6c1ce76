// How the transport's buttons in the top strip stand: which are down and which have a use now.
#pragma once

#include "device/TransportHost.h"

namespace tembrel {

struct StripContext {
  TransportButtons down = {};
  bool playing = false;
  bool recording = false;
  bool canPlay = false;      // there is an active document to play
  bool auditioning = false;  // a selection is heard for itself
};

struct StripButtonState {
  bool enabled = false;
  bool down = false;

  bool operator==(const StripButtonState&) const = default;
};

// Of the button with this tool tip.
StripButtonState StripButtonStateOf(int tipId, const StripContext& context);

}  // namespace tembrel
