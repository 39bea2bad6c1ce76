// One number that is asked with a slider and an edit field, which always show the same value. The kinds
// differ in how they read what is typed; a dialog forwards to one of them and shows what it says.
#pragma once

#include <string>
#include <string_view>

namespace tembrel {

class SliderField {
 public:
  virtual ~SliderField() = default;

  // The slider's range, both ends included, and where it stands.
  int Minimum() const { return minimum; }
  int Maximum() const { return maximum; }
  int Position() const { return position; }
  // What the edit field is to show: the text as typed while it is accepted, otherwise the last good value.
  const std::string& Text() const { return text; }

  // The slider was moved; a position outside the range is moved to its nearest end.
  void Slide(int newPosition);
  // The edit field's text changed by the user's hand.
  void Type(std::string_view typed);

 protected:
  // `start` is moved into the range. Derived constructors call Rewrite().
  SliderField(int lowest, int highest, int start);
  SliderField(const SliderField&) = default;
  SliderField& operator=(const SliderField&) = default;

  // The text of a position.
  virtual std::string TextOf(int shownPosition) const = 0;
  // Takes over the position that a text stands for; false when the text is refused.
  virtual bool Read(std::string_view typed) = 0;

  void MoveTo(int newPosition) { position = newPosition; }
  void Rewrite() { text = TextOf(position); }

 private:
  int minimum;
  int maximum;
  int position;
  std::string text;
};

}  // namespace tembrel
