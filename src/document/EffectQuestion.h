// Asks a person for what an effect needs before it runs.
#pragma once

#include <optional>
#include <string>

#include "audio/AudioClip.h"
#include "document/Prompts.h"
#include "edit/EffectTable.h"
#include "edit/FilterPresets.h"

namespace tembrel {

// The answer, or nothing when the user stepped back. An effect without a parameter asks nothing. The preset
// chosen is remembered and offered first the next time; one that was only listened to is not.
std::optional<EffectParameters> AskEffectParameters(Prompts& prompts, EffectParameter wanted,
                                                    const AudioClip& clip, RememberedPreset& preset,
                                                    const PresetAudition& audition = {});

// What a running effect is called: its menu text without marks, or the word scripts use with a capital.
std::string EffectTitle(const EffectRow& effect);

}  // namespace tembrel
