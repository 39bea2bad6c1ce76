// The application's own clipboard: sound with its format, from the last cut or copy in any document.
#pragma once

#include "audio/AudioClip.h"

namespace tembrel {

struct Clipboard {
  AudioClip clip;  // a block of its own, exactly as long as the sound

  // False until the first cut or copy: nothing can be pasted.
  bool HasData() const { return !clip.data.Empty(); }
};

}  // namespace tembrel
