// Saving what was made from a document under a name of its own.
#include "document/Export.h"

#include <gtest/gtest.h>

#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ScriptedPrompts.h"

namespace tembrel::test {
namespace {

const ExportKind kText{{"Texts (*.txt)", {"*.txt"}}, ".txt"};

class Export : public testing::Test {
 protected:
  std::optional<std::filesystem::path> Save(const std::filesystem::path& chosen,
                                            std::string_view content = "content") {
    prompts.saveChoice = SaveChoice{chosen, 1};
    return SaveExport(prompts, kText, "/start", content);
  }
  static std::string TextIn(const std::filesystem::path& path) {
    const auto bytes = ReadBytes(path);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
  }

  ScratchFolder scratch;
  ScriptedPrompts prompts;
};

TEST_F(Export, ProposesANameBesideTheSound) {
  EXPECT_EQ(ExportName("/music/a song.v2.wav", "spectrum", kText), "/music/a song.v2-spectrum.txt");
  EXPECT_EQ(ExportName("/music/noise", "spectrum", kText), "/music/noise-spectrum.txt");
  EXPECT_EQ(ExportName("", "spectrum", kText), std::filesystem::current_path() / "spectrum.txt");
}

TEST_F(Export, WritesUnderTheNameChosenAndAddsTheEnding) {
  EXPECT_EQ(Save(scratch / "a"), scratch / "a.txt");
  EXPECT_EQ(Save(scratch / "b.txt", ""), scratch / "b.txt");
  EXPECT_EQ(Save(scratch / "c.TXT"), scratch / "c.TXT");
  EXPECT_EQ(Save(scratch / "d.wav"), scratch / "d.wav.txt");
  EXPECT_EQ(Save(scratch / "txt"), scratch / "txt.txt");
  EXPECT_EQ(TextIn(scratch / "a.txt"), "content");
  EXPECT_EQ(TextIn(scratch / "b.txt"), "");
  EXPECT_EQ(prompts.startShown, "/start");
  ASSERT_EQ(prompts.filtersShown.size(), 1U);
  EXPECT_EQ(prompts.filtersShown[0], kText.filter);
  EXPECT_TRUE(prompts.questions.empty());
  EXPECT_TRUE(prompts.errors.empty());
}

TEST_F(Export, AsksBeforeItOverwrites) {
  ASSERT_TRUE(Save(scratch / "a.txt", "old"));
  prompts.answers = {Answer::No};
  EXPECT_FALSE(Save(scratch / "a", "new"));
  ASSERT_EQ(prompts.questions.size(), 1U);
  EXPECT_EQ(prompts.questions[0], (scratch / "a.txt").string() + " exists. Overwrite?");
  EXPECT_EQ(TextIn(scratch / "a.txt"), "old");
  prompts.answers = {Answer::Yes};
  EXPECT_TRUE(Save(scratch / "a", "new"));
  EXPECT_EQ(TextIn(scratch / "a.txt"), "new");
}

TEST_F(Export, WritesThroughALink) {
  WriteText(scratch / "a.txt", "old");
  std::filesystem::create_symlink("a.txt", scratch / "link.txt");
  std::filesystem::create_symlink("b.txt", scratch / "nowhere.txt");
  prompts.answers = {Answer::Yes};
  EXPECT_EQ(Save(scratch / "link", "new"), scratch / "link.txt");
  EXPECT_EQ(Save(scratch / "nowhere", "first"), scratch / "nowhere.txt");
  EXPECT_EQ(prompts.questions.size(), 1U);
  EXPECT_TRUE(std::filesystem::is_symlink(scratch / "link.txt"));
  EXPECT_EQ(TextIn(scratch / "a.txt"), "new");
  EXPECT_EQ(TextIn(scratch / "b.txt"), "first");
}

TEST_F(Export, WritesNothingWhenTheUserStepsBack) {
  EXPECT_FALSE(SaveExport(prompts, kText, scratch / "a.txt", "content"));
  EXPECT_FALSE(std::filesystem::exists(scratch / "a.txt"));
  EXPECT_TRUE(prompts.errors.empty());
}

TEST_F(Export, NamesTheFileThatCannotBeWritten) {
  EXPECT_FALSE(Save(scratch / "none" / "a.txt"));
  ASSERT_EQ(prompts.errors.size(), 1U);
  EXPECT_EQ(prompts.errors[0],
            (scratch / "none" / "a.txt").string() + " could not be saved: No such file or directory.");
}

}  // namespace
}  // namespace tembrel::test
