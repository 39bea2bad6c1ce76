// What stands in the parameter dialogs: resource numbers, titles, labels and the numbers of their controls.
#pragma once

#include <string_view>

namespace tembrel {

// A '&' marks the letter that leads to the field.
struct SliderDialogTexts {
  int resource;
  std::string_view title;
  std::string_view label;
  std::string_view unit;
};

inline constexpr SliderDialogTexts kAmplifyTexts{3737, "Amplify", "&Amplify:", "%"};
inline constexpr SliderDialogTexts kStrengthTexts{3763, "Filter Strength", "&Strength:", "%"};
inline constexpr SliderDialogTexts kDurationTexts{2074, "Duration", "&Stretch:", "%"};
inline constexpr SliderDialogTexts kPitchTexts{3761, "Pitch", "&Change by", "Semitones"};

inline constexpr int kSliderControl = 101;
inline constexpr int kSliderEditControl = 102;
inline constexpr int kSliderOkControl = 105;
inline constexpr int kCancelControl = 2;
inline constexpr int kOkControl = 1;  // of the dialogs without a slider

inline constexpr int kFormatResource = 3762;
inline constexpr int kFormatRateControl = 108;
inline constexpr int kFormatResolutionControl = 109;
inline constexpr int kFormatChannelsControl = 110;

inline constexpr int kFilterResource = 1004;
inline constexpr int kFilterListControl = 102;
inline constexpr int kFilterAuditionControl = 101;

// Where the sliders start when nobody says otherwise.
inline constexpr int kAmplifyStart = 100;   // percent
inline constexpr int kStrengthStart = 50;   // percent
inline constexpr int kDurationStart = 100;  // percent
inline constexpr float kPitchStart = 0.0F;  // semitones

}  // namespace tembrel
