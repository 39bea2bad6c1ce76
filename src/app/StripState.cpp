#include "app/StripState.h"

#include "view/StripButtons.h"

namespace tembrel {

StripButtonState StripButtonStateOf(int tipId, const StripContext& context) {
  const bool running = context.playing || context.recording;
  switch (tipId) {
    case kStripRewind:
      return {context.canPlay && !context.playing, false};
    case kStripPlay:
      return {context.playing || (context.canPlay && !context.recording), context.down.play};
    case kStripPause:
      return {running, context.down.pause};
    case kStripStop:
      return {running || context.auditioning, false};
    case kStripRecord:
      return {true, context.down.record};
    default:
      return {};
  }
}

}  // namespace tembrel
