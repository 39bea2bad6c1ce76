#include "dialogs/SliderField.h"

#include <algorithm>

namespace tembrel {

SliderField::SliderField(int lowest, int highest, int start)
    : minimum(lowest), maximum(highest), position(std::clamp(start, lowest, highest)) {}

void SliderField::Slide(int newPosition) {
  position = std::clamp(newPosition, minimum, maximum);
  Rewrite();
}

void SliderField::Type(std::string_view typed) {
  if (Read(typed)) {
    text = typed;
  } else {
    Rewrite();
  }
}

}  // namespace tembrel
