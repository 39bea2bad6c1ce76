// The conversion of a whole clip into another format, as a step for Document::Edit.
#pragma once

#include "audio/FormatChoice.h"
#include "edit/EditStep.h"

namespace tembrel {

// Rate first, then bits, then channels. When bits and channels both change, the bits are converted twice: the
// result is noise of half or double length, and that is how it is. Refused for a rate of 0, for other bits
// and channels than 8, 16, 1 and 2, and when the sound would become too large.
EditStep FormatEdit(const FormatChoice& wanted);

}  // namespace tembrel
