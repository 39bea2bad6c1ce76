#include "edit/EffectTable.h"

#include <algorithm>
#include <array>

#include "edit/FilterEffect.h"
#include "edit/FormatChange.h"
#include "edit/LevelEffects.h"
#include "edit/NormalizeEffect.h"
#include "edit/ReverbEffect.h"

namespace tembrel {

namespace {

// An effect without parameters.
template <EditStep (*kMake)(const ByteRange&)>
EditStep Plain(const ByteRange& selection, const EffectParameters&) {
  return kMake(selection);
}

EditStep Amplify(const ByteRange& selection, const EffectParameters& parameters) {
  return AmplifyEdit(selection, parameters.percent);
}

EditStep Filter(const ByteRange& selection, const EffectParameters& parameters) {
  return FilterEdit(selection, parameters.preset);
}

EditStep Format(const ByteRange&, const EffectParameters& parameters) {
  return FormatEdit(parameters.format);
}

constexpr std::array kEffects{
    EffectRow{8262, "amplify", "&Amplify...", EffectParameter::Percent, Amplify},
    EffectRow{8268, "silence", "Si&lence", EffectParameter::None, Plain<SilenceEdit>},
    EffectRow{8264, "fade-in", "Fade &In", EffectParameter::None, Plain<FadeInEdit>},
    EffectRow{8266, "fade-out", "Fade &Out", EffectParameter::None, Plain<FadeOutEdit>},
    EffectRow{8267, "normalize", "&Normalize", EffectParameter::None, Plain<NormalizeEdit>},
    EffectRow{8261, "compress", "&Compress", EffectParameter::None, Plain<CompressEdit>},
    EffectRow{8263, "reverb", "&Reverb", EffectParameter::None, Plain<ReverbEdit>},
    EffectRow{8269, "filter", "&Filter...", EffectParameter::FilterPreset, Filter},
    EffectRow{8270, "clean-spectrum", "", EffectParameter::None, Plain<CleanSpectrumEdit>},
    EffectRow{8272, "cut-rumble", "", EffectParameter::None, Plain<CutRumbleEdit>},
    EffectRow{704, "format", "", EffectParameter::Format, Format},
};

template <typename Key>
const EffectRow* FindBy(Key EffectRow::*field, Key wanted) {
  const auto* const found = std::ranges::find(kEffects, wanted, field);
  return found == kEffects.end() ? nullptr : found;
}

}  // namespace

std::span<const EffectRow> EffectTable() {
  return kEffects;
}

const EffectRow* FindEffect(int commandId) {
  return FindBy(&EffectRow::commandId, commandId);
}

const EffectRow* FindEffect(std::string_view word) {
  return FindBy(&EffectRow::word, word);
}

}  // namespace tembrel
