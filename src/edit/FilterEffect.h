// The equaliser and the two other filters that work on the spectrum of blocks of 2048 samples, as steps for
// Document::Edit. A channel that passes full scale afterwards is scaled down as a whole. Selections are byte
// ranges and are cut down to the clip.
#pragma once

#include "edit/ClipChanges.h"
#include "edit/EditStep.h"

namespace tembrel {

// The preset of this index over half-overlapping blocks. The first half block fades in; what no block covers
// at the end comes out doubled. Refused when there is no such preset.
EditStep FilterEdit(const ByteRange& selection, int preset);

// Halves the real part of every bin that is small against the block's range. Blocks do not overlap, and each
// comes out under a triangular window.
EditStep CleanSpectrumEdit(const ByteRange& selection);

// The same with the bins below 64 Hz.
EditStep CutRumbleEdit(const ByteRange& selection);

}  // namespace tembrel
