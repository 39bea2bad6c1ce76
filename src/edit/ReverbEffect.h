// Reverb as a step for Document::Edit: four echoes, a fifteenth of a second apart, that are echoed again
// themselves. A channel that passes full scale is scaled down as a whole. The sound does not become longer.
#pragma once

#include "edit/ClipChanges.h"
#include "edit/EditStep.h"

namespace tembrel {

EditStep ReverbEdit(const ByteRange& selection);

}  // namespace tembrel
