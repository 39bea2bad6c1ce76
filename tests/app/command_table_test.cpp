#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <set>
#include <vector>

#include "app/AcceleratorTable.h"
#include "app/CommandIds.h"
#include "app/CommandTable.h"

namespace tembrel {
namespace {

// Every value of every flag, for no, one, several and a historically possible negative number of documents.
std::vector<CommandContext> AllContexts() {
  std::vector<CommandContext> contexts;
  for (const long count : {-1L, 0L, 1L, 4L}) {
    for (unsigned flags = 0; flags < 128; ++flags) {
      const auto flag = [flags](unsigned bit) { return (flags >> bit & 1U) != 0; };
      contexts.push_back({count, flag(0), flag(1), flag(2), flag(3), flag(4), flag(5), flag(6)});
    }
  }
  return contexts;
}

using Rule = std::function<bool(const CommandContext&)>;

std::map<int, Rule> StatedRules() {
  const Rule always = [](const auto&) { return true; };
  const Rule counted = [](const auto& c) { return c.documentCount != 0; };
  const Rule audio = [](const auto& c) { return c.activeAudioDocument && !c.activeIsSpectrum; };
  const Rule paste = [](const auto& c) {
    return c.activeAudioDocument && !c.activeIsSpectrum && c.clipboardHasData;
  };
  return {
      {24331, always},
      {24332, always},
      {24339, counted},
      {24333, counted},
      {24334, counted},
      {600, always},
      {601, always},
      {602, always},
      {603, always},
      {24321, [](const auto& c) { return c.activeAudioDocument && c.canUndo; }},
      {24329, [](const auto& c) { return c.activeAudioDocument && c.canRedo; }},
      {24324, paste},
      {702, paste},
      {703, paste},
      {704, audio},
      {700, audio},
      {701,
       [](const auto& c) { return c.activeAudioDocument && !c.activeIsSpectrum && c.lastRangeRemembered; }},
      {900, audio},
      {901, audio},
      {902, audio},
      {400, [](const auto& c) { return c.documentCount != 0 && !c.spectrumOpen; }},
      {500, always},
      {800, always},
      {801, always},
      {2009, always},
      {24310, always},
      {24361, counted},
      {24362, counted},
      {24364, counted},
      {24365, counted},
  };
}

TEST(CommandTable, ListsEveryCommandOnceAndNoOther) {
  std::vector<int> listed;
  for (const CommandRow& row : CommandTable()) {
    listed.push_back(row.id);
  }
  std::vector<int> stated;
  for (const auto& [id, rule] : StatedRules()) {
    stated.push_back(id);
  }
  EXPECT_THAT(listed, testing::UnorderedElementsAreArray(stated));
}

TEST(CommandTable, FindsARowByItsIdAndNothingForAnUnknownId) {
  for (const CommandRow& row : CommandTable()) {
    EXPECT_EQ(FindCommand(row.id), &row);
  }
  EXPECT_EQ(FindCommand(0), nullptr);
  EXPECT_EQ(FindCommand(604), nullptr);
  EXPECT_EQ(FindCommand(599), nullptr);
  EXPECT_EQ(FindCommand(24330), nullptr);
}

TEST(CommandTable, EveryRuleHoldsExactlyInItsContexts) {
  const auto rules = StatedRules();
  for (const CommandRow& row : CommandTable()) {
    ASSERT_TRUE(rules.contains(row.id)) << row.id;
    for (const CommandContext& context : AllContexts()) {
      ASSERT_EQ(RuleHolds(row.rule, context), rules.at(row.id)(context)) << row.id;
    }
  }
}

TEST(CommandTable, ABuiltCommandIsEnabledByItsRuleAndAnotherNever) {
  for (const CommandRow& row : CommandTable()) {
    const bool built = row.handler != CommandHandler::NotBuilt;
    for (const CommandContext& context : AllContexts()) {
      ASSERT_EQ(IsEnabled(row, context), built && RuleHolds(row.rule, context)) << row.id;
    }
  }
}

TEST(CommandTable, NamesTheHandlersOfThisVersion) {
  std::map<int, CommandHandler> handlers;
  std::set<int> notBuilt;
  for (const CommandRow& row : CommandTable()) {
    if (row.handler == CommandHandler::NotBuilt) {
      notBuilt.insert(row.id);
    } else {
      handlers[row.id] = row.handler;
    }
  }
  const std::map<int, CommandHandler> expected{
      {24331, CommandHandler::NewDocument},   {24332, CommandHandler::Open},
      {24339, CommandHandler::Close},         {24333, CommandHandler::Save},
      {24334, CommandHandler::SaveAs},        {600, CommandHandler::OpenRecent},
      {601, CommandHandler::OpenRecent},      {602, CommandHandler::OpenRecent},
      {603, CommandHandler::OpenRecent},      {24310, CommandHandler::Exit},
      {24361, CommandHandler::Cascade},       {24362, CommandHandler::Tile},
      {24364, CommandHandler::ArrangeIcons},  {24365, CommandHandler::CloseAll},
      {800, CommandHandler::HelpContents},    {801, CommandHandler::Website},
      {2009, CommandHandler::About},          {24321, CommandHandler::Undo},
      {24329, CommandHandler::Redo},          {24324, CommandHandler::PasteInsert},
      {702, CommandHandler::PasteMerge},      {703, CommandHandler::PasteOverwrite},
      {704, CommandHandler::Format},          {700, CommandHandler::SelectAll},
      {701, CommandHandler::SelectLastRange}, {500, CommandHandler::AudioSetup},
      {400, CommandHandler::AudioSpectrum},   {900, CommandHandler::Play},
      {901, CommandHandler::PlayFromCursor},  {902, CommandHandler::PlayScreen},
  };
  EXPECT_EQ(handlers, expected);
  EXPECT_EQ(notBuilt, std::set<int>{});
}

TEST(CommandTable, CloseSaveAndSaveAsAreDisabledWithoutADocument) {
  const CommandContext none;
  const CommandContext one{.documentCount = 1, .activeAudioDocument = true};
  for (const int id : {kCommandClose, kCommandSave, kCommandSaveAs}) {
    EXPECT_FALSE(IsEnabled(*FindCommand(id), none)) << id;
    EXPECT_TRUE(IsEnabled(*FindCommand(id), one)) << id;
  }
}

TEST(CommandTable, TheSpectrumCannotBeOpenedTwice) {
  const EnableRule rule = FindCommand(kCommandAudioSpectrum)->rule;
  EXPECT_TRUE(RuleHolds(rule, {.documentCount = 1}));
  EXPECT_FALSE(RuleHolds(rule, {.documentCount = 2, .spectrumOpen = true}));
  EXPECT_FALSE(RuleHolds(rule, {.documentCount = 0}));
}

TEST(CommandTable, CommandsOfAcceleratorsAloneHaveNoHandler) {
  const std::vector<int> consumed(ConsumedCommands().begin(), ConsumedCommands().end());
  EXPECT_THAT(consumed, testing::UnorderedElementsAre(24322, 24323, 24325, 24326, 24353));
  for (const int id : consumed) {
    EXPECT_EQ(FindCommand(id), nullptr) << id;
  }
}

TEST(CommandTable, EveryAcceleratorReachesAHandlerOrIsConsumed) {
  const auto consumed = ConsumedCommands();
  for (const Accelerator& accelerator : AcceleratorTable()) {
    const bool isConsumed = std::ranges::find(consumed, accelerator.id) != consumed.end();
    EXPECT_NE(FindCommand(accelerator.id) != nullptr, isConsumed) << accelerator.key;
  }
}

}  // namespace
}  // namespace tembrel
