#include "batch/EffectCommands.h"

#include <charconv>
#include <cstdint>
#include <optional>

#include "document/EffectQuestion.h"
#include "edit/EffectTable.h"
#include "edit/FilterPresets.h"
#include "edit/LevelEffects.h"

namespace tembrel {

namespace {

constexpr double kHighestRate = 4294967295.0;  // hertz

std::vector<ArgumentRule> RulesOf(EffectParameter parameter) {
  switch (parameter) {
    case EffectParameter::None:
      break;
    case EffectParameter::Percent:
      return {{"PERCENT", ArgumentKind::Whole, 0, kLargestGainPercent}};
    case EffectParameter::FilterPreset:
      return {{"PRESET"}};
    case EffectParameter::Format:
      return {{"RATE", ArgumentKind::Whole, 1, kHighestRate},
              {"8|16", ArgumentKind::Choice},
              {"1|2", ArgumentKind::Choice}};
  }
  return {};
}

// A preset by its name or by its number.
std::optional<int> PresetNamed(const std::string& text) {
  if (const std::optional<int> named = FindFilterPreset(text)) {
    return named;
  }
  int number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  const bool exists = result.ec == std::errc() && result.ptr == end && number >= 0 &&
                      static_cast<std::size_t>(number) < kFilterPresetCount;
  return exists ? std::optional(number) : std::nullopt;
}

// The parameters from arguments that were checked by RulesOf; nothing when there is no such preset.
std::optional<EffectParameters> ParametersOf(EffectParameter wanted, const Arguments& arguments) {
  EffectParameters parameters;
  switch (wanted) {
    case EffectParameter::None:
      break;
    case EffectParameter::Percent:
      parameters.percent = static_cast<int>(arguments.Whole(0));
      break;
    case EffectParameter::FilterPreset: {
      const std::optional<int> preset = PresetNamed(arguments.Text(0));
      if (!preset) {
        return std::nullopt;
      }
      parameters.preset = *preset;
      break;
    }
    case EffectParameter::Format:
      parameters.format = {static_cast<std::uint32_t>(arguments.Whole(0)),
                           static_cast<std::uint16_t>(arguments.Whole(1)),
                           static_cast<std::uint16_t>(arguments.Whole(2))};
      break;
  }
  return parameters;
}

BatchCommand CommandOf(const EffectRow& row) {
  const bool wholeClip = row.parameter == EffectParameter::Format;
  const auto run = [&row, wholeClip](BatchSession& session, const Arguments& arguments) -> Failure {
    const std::optional<EffectParameters> parameters = ParametersOf(row.parameter, arguments);
    if (!parameters) {
      return std::string(row.word) + ": there is no preset \"" + arguments.Text(0) +
             "\"; it is a number from 0 to 9 or a name in double quotes";
    }
    const EditStep step = row.make(session.Current().Selection(), *parameters);
    Failure failure = session.Edit(step, EffectTitle(row), !wholeClip);
    if (failure) {
      failure->insert(0, std::string(row.word) + ": ");
    }
    return failure;
  };
  return {row.word, RulesOf(row.parameter), wholeClip ? Needs::Document : Needs::Selection, run};
}

}  // namespace

std::vector<BatchCommand> EffectCommands() {
  std::vector<BatchCommand> commands;
  for (const EffectRow& row : EffectTable()) {
    commands.push_back(CommandOf(row));
  }
  return commands;
}

}  // namespace tembrel
