// Normalize as a step for Document::Edit: every channel of the selection loses its mean and is scaled so that
// its largest positive sample comes to nine tenths of full scale, less the mean. Negative samples larger than
// that pass full scale and wrap.
#pragma once

#include "edit/ClipChanges.h"
#include "edit/EditStep.h"

namespace tembrel {

// A channel without a positive sample stays as it is.
EditStep NormalizeEdit(const ByteRange& selection);

}  // namespace tembrel
