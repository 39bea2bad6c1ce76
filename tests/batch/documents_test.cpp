// Opening, activating, closing, saving and describing documents.
#include <gmock/gmock.h>

#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;

class BatchDocuments : public BatchTest {};

TEST_F(BatchDocuments, InfoTellsEverythingInOrder) {
  const std::string path = MakeWave("a.wav", 1000);
  EXPECT_EQ(
      Printed({"open " + path, "cursor 7", "select 10 20", "info"}),
      "path: " + (scratch / "a.wav").string() +
          "\nrate: 44100\nbits: 16\nchannels: 2\nframes: 1000\nbytes: 4000\ncentiseconds: 2\nchanged: 0\n"
          "can-undo: 0\ncan-redo: 0\ncursor: 7\nselection: 40 80\n");
}

TEST_F(BatchDocuments, InfoFollowsEdits) {
  const std::string open = "open " + MakeWave("a.wav", 1000);
  Printed({open, "select 0 400", "cut", "info"});
  EXPECT_EQ(Value("frames") + "," + Value("bytes") + "," + Value("changed") + "," + Value("can-undo") + "," +
                Value("can-redo") + "," + Value("selection"),
            "600,2400,1,1,0,none");
  Printed({open, "select 0 400", "cut", "undo", "info"});
  EXPECT_EQ(Value("frames") + "," + Value("can-undo") + "," + Value("can-redo"), "1000,0,1");
}

TEST_F(BatchDocuments, ActivateCountsInTheOrderOfOpening) {
  const std::string a = MakeWave("a.wav");
  const std::string b = MakeWave("b.wav");
  Printed({"open " + a, "open " + b, "activate 1", "info"});
  EXPECT_EQ(Value("path"), (scratch / "a.wav").string());
  Printed({"open " + a, "open " + b, "activate 1", "activate 2", "info"});
  EXPECT_EQ(Value("path"), (scratch / "b.wav").string());
  EXPECT_EQ(Reason({"open " + a, "activate 2"}), "s:2: there is no document 2: 1 opened so far");
}

TEST_F(BatchDocuments, CloseMakesTheOneOpenedBeforeActive) {
  const std::string a = MakeWave("a.wav");
  const std::string b = MakeWave("b.wav");
  const std::string c = MakeWave("c.wav");
  const std::vector<std::string> three{"open " + a, "open " + b, "open " + c};
  const auto pathAfter = [&](std::vector<std::string> more) {
    more.insert(more.begin(), three.begin(), three.end());
    more.emplace_back("info");
    Printed(more);
    return std::filesystem::path(Value("path")).filename().string();
  };
  EXPECT_EQ(pathAfter({"close"}), "b.wav");
  EXPECT_EQ(pathAfter({"activate 2", "close"}), "a.wav");
  EXPECT_EQ(pathAfter({"activate 2", "close", "activate 3", "close"}), "a.wav");
  EXPECT_EQ(pathAfter({"activate 1", "close"}), "b.wav");
  EXPECT_EQ(pathAfter({"close", "open " + c, "close"}), "b.wav");
}

TEST_F(BatchDocuments, CloseDropsChangesAndNumbersStay) {
  const std::string a = MakeWave("a.wav");
  const Bytes before = ReadBytes(scratch / "a.wav");
  Printed({"open " + a, "select all", "cut", "close"});
  EXPECT_EQ(ReadBytes(scratch / "a.wav"), before);
  EXPECT_EQ(Reason({"open " + a, "close", "activate 1"}), "s:3: document 1 is closed");
  EXPECT_EQ(Reason({"open " + a, "close", "info"}), "s:3: info needs a document, and none is open");
}

TEST_F(BatchDocuments, WhatCannotBeOpenedIsAnErrorAndChangesNothing) {
  WriteText(scratch / "nonsense.wav", "this is no sound");
  WriteText(scratch / "empty.wav", "");
  WriteText(scratch / "song.mp3", "x");
  EXPECT_EQ(Reason({"open " + Quoted("missing.wav")}),
            "s:1: " + (scratch / "missing.wav").string() + " does not exist.");
  for (const char* name : {"nonsense.wav", "empty.wav", "song.mp3"}) {
    EXPECT_THAT(Reason({"open " + Quoted(name)}), HasSubstr(std::string(name) + " could not be read: "));
  }
}

TEST_F(BatchDocuments, SaveWritesToTheSameFileAndSaveAsToAnother) {
  const std::string path = MakeWave("a.wav", 100);
  const Bytes before = ReadBytes(scratch / "a.wav");
  WriteText(scratch / "b.wav", "overwritten without a question");
  Printed({"open " + path, "select 0 90", "cut", "save-as " + Quoted("b.wav"), "info"});
  EXPECT_EQ(Value("changed"), "0");
  EXPECT_EQ(Value("path"), (scratch / "a.wav").string());
  EXPECT_EQ(ReadBytes(scratch / "a.wav"), before);
  const Bytes tail(before.begin() + 44 + 360, before.end());
  EXPECT_EQ(ReadBytes(scratch / "b.wav"), WaveFile(44100, 16, 2, tail));
  Printed({"open " + path, "select 0 90", "cut", "save"});
  EXPECT_EQ(ReadBytes(scratch / "a.wav"), WaveFile(44100, 16, 2, tail));
}

TEST_F(BatchDocuments, WhatCannotBeSavedIsAnError) {
  const std::string open = "open " + MakeWave("a.wav");
  EXPECT_THAT(Reason({open, "save-as " + Quoted("noending")}), HasSubstr("has no ending"));
  EXPECT_THAT(Reason({open, "save-as " + Quoted("a.mp3")}), HasSubstr("was not saved"));
  EXPECT_THAT(Reason({open, "save-as " + Quoted("no/folder/a.wav")}), HasSubstr("could not be saved: "));
  EXPECT_EQ(scratch.Names(), std::vector<std::string>{"a.wav"});
}

TEST_F(BatchDocuments, NamesWithBlanksQuotesAndForeignLettersWork) {
  for (const std::string name :
       {"my song.wav", "Größe.wav", "日本 語.wav", "-dash.wav", "a'b.wav", "x#1.wav"}) {
    const std::string path = MakeWave(name, 10);
    Printed({"open " + path, "select 0 5", "cut", "save", "info"});
    EXPECT_EQ(Value("frames"), "5") << name;
    EXPECT_EQ(ReadBytes(scratch / name).size(), 44U + 20U) << name;
  }
}

TEST_F(BatchDocuments, NoTemporaryCopyIsMade) {
  std::filesystem::create_directories(scratch / "program" / "Temp");
  const std::string path = MakeWave("a.wav");
  Printed({"open " + path, "select all", "cut", "info"});
  EXPECT_TRUE(std::filesystem::is_empty(scratch / "program" / "Temp"));
}

}  // namespace
}  // namespace tembrel::test
