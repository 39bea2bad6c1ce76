// The effects that look at one stored sample at a time, as steps for Document::Edit. In stereo left and right
// are simply samples that follow each other. Selections are byte ranges and are cut down to the clip; an
// empty one changes nothing and is a step all the same.
#pragma once

#include "edit/ClipChanges.h"
#include "edit/EditStep.h"

namespace tembrel {

inline constexpr int kLargestGainPercent = 1000;

// One gain for the whole selection, lowered as far as needed that no sample passes full scale. Refused unless
// the percentage is 0 to 1000.
EditStep AmplifyEdit(const ByteRange& selection, int percent);

// 16-bit silence is 0, 8-bit silence 127. Only whole frames, counted down from both ends.
EditStep SilenceEdit(const ByteRange& selection);

// A line in steps of whole percents from 0 up to 99, or from 100 down to 1. The percentage advances with
// every stored sample, so it can differ within a frame.
EditStep FadeInEdit(const ByteRange& selection);
EditStep FadeOutEdit(const ByteRange& selection);

// A fixed curve: the quietest hundredth at half slope, the middle at full slope, the loudest quarter at half
// slope.
EditStep CompressEdit(const ByteRange& selection);

}  // namespace tembrel
