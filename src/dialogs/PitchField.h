// The semitones of a change of pitch, -24.0 to 24.0 in tenths. The slider runs from 0 to 480, 240 being no
// change. Waits for the effect.
#pragma once

#include "dialogs/SliderField.h"

namespace tembrel {

// A typed number is cut to a tenth, toward the slider's lower end: -3.25 is -3.3.
class PitchField final : public SliderField {
 public:
  explicit PitchField(float startSemitones);

  float Semitones() const;

 private:
  std::string TextOf(int shownPosition) const override;
  bool Read(std::string_view typed) override;
};

}  // namespace tembrel
