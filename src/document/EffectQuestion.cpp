#include "document/EffectQuestion.h"

namespace tembrel {

namespace {

constexpr int kUnchangedVolume = 100;  // percent

}  // namespace

std::optional<EffectParameters> AskEffectParameters(Prompts& prompts, EffectParameter wanted,
                                                    const AudioClip& clip, RememberedPreset& preset,
                                                    const PresetAudition& audition) {
  EffectParameters answer;
  switch (wanted) {
    case EffectParameter::None:
      return answer;
    case EffectParameter::Percent:
      if (const std::optional<int> percent = prompts.AskAmplify(kUnchangedVolume)) {
        answer.percent = *percent;
        return answer;
      }
      break;
    case EffectParameter::FilterPreset:
      if (const std::optional<int> chosen = prompts.AskFilter(preset.index, audition)) {
        preset.index = answer.preset = *chosen;
        return answer;
      }
      break;
    case EffectParameter::Format: {
      const WaveFormat& format = clip.format;
      if (const auto chosen =
              prompts.AskFormat({format.nSamplesPerSec, format.wBitsPerSample, format.nChannels})) {
        answer.format = *chosen;
        return answer;
      }
      break;
    }
  }
  return std::nullopt;
}

std::string EffectTitle(const EffectRow& effect) {
  std::string title;
  for (const char letter : effect.menuText.empty() ? effect.word : effect.menuText) {
    if (letter != '&' && letter != '.') {
      title += letter;
    }
  }
  const bool small = !title.empty() && title.front() >= 'a' && title.front() <= 'z';
  if (small) {
    title.front() = static_cast<char>(title.front() - 'a' + 'A');
  }
  return title;
}

}  // namespace tembrel
