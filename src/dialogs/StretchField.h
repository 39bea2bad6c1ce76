// The percentage of a change of duration, 25 to 400. Waits for the effect.
#pragma once

#include "dialogs/SliderField.h"

namespace tembrel {

// A typed number beyond an end of the range counts as that end and stays in the edit field as it was typed.
class StretchField final : public SliderField {
 public:
  explicit StretchField(int start);

  int Percent() const { return Position(); }

 private:
  std::string TextOf(int percent) const override;
  bool Read(std::string_view typed) override;
};

}  // namespace tembrel
