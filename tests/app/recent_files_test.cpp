#include <gmock/gmock.h>
#include <string>

#include "app/RecentFiles.h"

namespace tembrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

RecentFiles With(RecentFiles::SlotArray slots) {
  RecentFiles recent;
  recent.SetSlots(std::move(slots));
  return recent;
}

TEST(RecentFiles, AreEmptyAtFirst) {
  const RecentFiles recent;
  EXPECT_THAT(recent.Slots(), ElementsAre("", "", "", ""));
  EXPECT_THAT(recent.MenuEntries(), IsEmpty());
}

TEST(RecentFiles, OpeningTheSameFileTwiceLeavesItOnceAtTheTop) {
  RecentFiles recent;
  recent.Add("/a.wav");
  recent.Add("/a.wav");
  EXPECT_THAT(recent.Slots(), ElementsAre("/a.wav", "", "", ""));
}

TEST(RecentFiles, FiveFilesLeaveTheLastFourNewestFirst) {
  RecentFiles recent;
  for (const char* path : {"/1", "/2", "/3", "/4", "/5"}) {
    recent.Add(path);
  }
  EXPECT_THAT(recent.Slots(), ElementsAre("/5", "/4", "/3", "/2"));
}

TEST(RecentFiles, AListedFileMovesToTheTopAndTheOthersKeepTheirOrder) {
  for (const auto& [path, expected] :
       std::vector<std::pair<std::string, RecentFiles::SlotArray>>{{"/1", {"/1", "/2", "/3", "/4"}},
                                                                   {"/2", {"/2", "/1", "/3", "/4"}},
                                                                   {"/3", {"/3", "/1", "/2", "/4"}},
                                                                   {"/4", {"/4", "/1", "/2", "/3"}}}) {
    RecentFiles recent = With({"/1", "/2", "/3", "/4"});
    recent.Add(path);
    EXPECT_EQ(recent.Slots(), expected) << path;
  }
}

TEST(RecentFiles, EveryListedCopyOfTheFileGoes) {
  RecentFiles recent = With({"/x", "/a", "/x", "/b"});
  recent.Add("/x");
  EXPECT_THAT(recent.Slots(), ElementsAre("/x", "/a", "/b", ""));
}

TEST(RecentFiles, GapsCloseWhenAFileIsAdded) {
  RecentFiles recent = With({"", "/a", "", "/b"});
  recent.Add("/x");
  EXPECT_THAT(recent.Slots(), ElementsAre("/x", "/a", "/b", ""));
}

TEST(RecentFiles, PathsThatAgreeInTheirFirst259CharactersAreTheSame) {
  const std::string common(259, 'p');
  RecentFiles recent;
  recent.Add(common + "-one");
  recent.Add("/other");
  recent.Add(common + "-two");
  EXPECT_THAT(recent.Slots(), ElementsAre(common + "-two", "/other", "", ""));
}

TEST(RecentFiles, PathsThatDifferInThe259thCharacterAreDifferent) {
  const std::string common(258, 'p');
  RecentFiles recent;
  recent.Add(common + "1");
  recent.Add(common + "2");
  EXPECT_THAT(recent.Slots(), ElementsAre(common + "2", common + "1", "", ""));
}

TEST(RecentFiles, ALongPathIsKeptWhole) {
  const std::string path = "/" + std::string(3000, 'n') + ".wav";
  RecentFiles recent;
  recent.Add(path);
  EXPECT_EQ(recent.Slots()[0], path);
  EXPECT_EQ(recent.MenuEntries()[0].text, path);
}

TEST(RecentFiles, CaseAndPrefixesMakeDifferentFiles) {
  RecentFiles recent;
  recent.Add("/a.wav");
  recent.Add("/A.wav");
  recent.Add("/a.wa");
  EXPECT_THAT(recent.Slots(), ElementsAre("/a.wa", "/A.wav", "/a.wav", ""));
}

TEST(RecentFiles, AnEmptyPathChangesNothing) {
  RecentFiles recent = With({"/a", "", "/b", ""});
  recent.Add("");
  EXPECT_THAT(recent.Slots(), ElementsAre("/a", "", "/b", ""));
}

TEST(RecentFiles, APathTakenFromASlotCanBeAddedAgain) {
  RecentFiles recent = With({"/1", "/2", "/3", "/4"});
  recent.Add(recent.Slots()[2]);
  EXPECT_THAT(recent.Slots(), ElementsAre("/3", "/1", "/2", "/4"));
}

TEST(RecentFiles, MenuEntriesSkipEmptySlotsAndKeepTheSlotsIds) {
  const RecentFiles recent = With({"", "/a", "", "/b"});
  EXPECT_THAT(recent.MenuEntries(), ElementsAre(RecentMenuEntry{601, "/a"}, RecentMenuEntry{603, "/b"}));
  EXPECT_THAT(With({"/1", "/2", "/3", "/4"}).MenuEntries(),
              ElementsAre(RecentMenuEntry{600, "/1"}, RecentMenuEntry{601, "/2"}, RecentMenuEntry{602, "/3"},
                          RecentMenuEntry{603, "/4"}));
}

TEST(RecentFiles, BytesThatAreNoTextAreKept) {
  const std::string path("/\xff\xfe song.wav");
  RecentFiles recent;
  recent.Add(path);
  EXPECT_EQ(recent.Slots()[0], path);
}

TEST(MenuText, DoublesAmpersandsSoThatTheyShow) {
  EXPECT_EQ(MenuText("/Rock & Roll/&&.wav"), "/Rock && Roll/&&&&.wav");
}

TEST(MenuText, TurnsControlCharactersIntoBlanks) {
  EXPECT_EQ(MenuText("a\tb\nc\x7f"
                     "d.wav"),
            "a b c d.wav");
}

TEST(MenuText, LeavesOtherBytesAlone) {
  EXPECT_EQ(MenuText("/été/音.wav"), "/été/音.wav");
}

}  // namespace
}  // namespace tembrel
