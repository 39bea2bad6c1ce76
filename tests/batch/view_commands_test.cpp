// What the view shows and paints, printed.
#include <gmock/gmock.h>

#include "tests/batch/BatchFixture.h"

namespace tembrel::test {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class BatchView : public BatchTest {
 protected:
  static std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
      ++count;
    }
    return count;
  }
};

TEST_F(BatchView, ADocumentOpensShowingItsWholeLength) {
  EXPECT_EQ(Printed({"open " + MakeWave("a.wav", 5000), "view"}),
            "first-visible: 0\nframes-on-screen: 5000\ncursor: 0\ntotal: 5000\n");
}

TEST_F(BatchView, ShowsScrollsAndZooms) {
  const std::string open = "open " + MakeWave("a.wav", 5000);
  EXPECT_EQ(Printed({open, "view 1000 400", "view"}),
            "first-visible: 1000\nframes-on-screen: 400\ncursor: 0\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "view 1000 400", "scroll 1", "view"}),
            "first-visible: 1100\nframes-on-screen: 400\ncursor: 1100\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "view 0 400", "scroll 4 50", "view"}),
            "first-visible: 2300\nframes-on-screen: 400\ncursor: 2300\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "zoom in", "view"}),
            "first-visible: 0\nframes-on-screen: 2500\ncursor: 0\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "zoom out", "view"}),
            "first-visible: 0\nframes-on-screen: 10000\ncursor: 0\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "view 1000 400", "zoom all", "view"}),
            "first-visible: 0\nframes-on-screen: 5000\ncursor: 0\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "view 0 400", "cursor 2000", "view"}),
            "first-visible: 2000\nframes-on-screen: 400\ncursor: 2000\ntotal: 5000\n");
  EXPECT_EQ(Printed({open, "cursor -5", "view"}),
            "first-visible: 0\nframes-on-screen: 5000\ncursor: 0\ntotal: 5000\n");
}

TEST_F(BatchView, ZoomingInEndsAtHalfTheDocumentWindowsWidth) {
  const std::string open = "open " + MakeWave("a.wav", 5000);
  Printed({open, "view 0 313", "zoom in", "view"});
  EXPECT_EQ(Value("frames-on-screen"), "156");
  Printed({open, "view 0 312", "zoom in", "view"});
  EXPECT_EQ(Value("frames-on-screen"), "312");
}

TEST_F(BatchView, UnknownScrollCodesAreErrors) {
  const std::string open = "open " + MakeWave("a.wav");
  for (const char* line : {"scroll 8", "scroll 9", "scroll 12", "scroll 65535"}) {
    EXPECT_THAT(Reason({open, line}), StartsWith("s:2: scroll: there is no code ")) << line;
  }
  EXPECT_THAT(Reason({open, "view 5"}), HasSubstr("view [FIRST FRAMES]"));
}

TEST_F(BatchView, DrawsTheLayersInPaintingOrder) {
  WriteBytes(scratch / "a.wav", WaveFile(8000, 16, 1, Samples16({0, 32767, 0, -32767})));
  const std::string drawn = Printed({"open " + Quoted("a.wav"), "size 100 110", "draw"});
  EXPECT_THAT(drawn, StartsWith("layer,x1,y1,x2,y2\ngrid,0,5,99,5\n"));
  EXPECT_THAT(drawn, HasSubstr("\ncentre,0,55,99,55\n"));
  EXPECT_THAT(drawn, HasSubstr("\nwave,"));
  EXPECT_EQ(Count(drawn, "grid,"), 10U);
  EXPECT_EQ(Count(drawn, "centre,"), 1U);
  EXPECT_LT(drawn.rfind("grid,"), drawn.find("time,"));
  EXPECT_LT(drawn.rfind("time,"), drawn.find("wave,"));
  EXPECT_THAT(drawn, Not(HasSubstr("band")));
}

TEST_F(BatchView, DrawsABandAndTwoCentresForStereo) {
  const std::string drawn = Printed({"open " + MakeWave("a.wav"), "draw"});
  EXPECT_THAT(drawn, StartsWith("layer,x1,y1,x2,y2\nband,0,"));
  EXPECT_EQ(Count(drawn, "centre,"), 2U);
}

TEST_F(BatchView, PrintsTheRulersTicks) {
  const std::string open = "open " + MakeWave("a.wav", 44100, 16, 1);
  EXPECT_THAT(Printed({open, "ticks time"}), StartsWith("x,label\n118,0.2\n237,0.4\n"));
  EXPECT_THAT(Printed({open, "ticks samples"}), StartsWith("x,label\n134,10000\n268,20000\n"));
  EXPECT_THAT(Reason({open, "ticks bars"}), HasSubstr("time|samples"));
}

TEST_F(BatchView, WritesThePictureWithTheViewsColours) {
  const std::string open = "open " + MakeWave("a.wav", 5000);
  EXPECT_EQ(Printed({open, "picture " + Quoted("a.svg")}), "");
  const std::string picture = ReadText(scratch / "a.svg");
  EXPECT_THAT(picture, StartsWith("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"593\" height=\"175\""));
  EXPECT_THAT(picture, HasSubstr("fill=\"#FFFFFF\""));
  EXPECT_THAT(picture, HasSubstr("fill=\"#969696\""));
  EXPECT_THAT(picture, HasSubstr("stroke=\"#969696\" stroke-width=\"1\" d=\"M0 6H592M0 13H592"));
  EXPECT_THAT(picture, HasSubstr("stroke=\"#800040\" stroke-width=\"1\" d="));
  EXPECT_THAT(picture, HasSubstr("stroke=\"#464646\" stroke-width=\"1\" stroke-dasharray=\"2 4\" d="));
  EXPECT_THAT(picture, HasSubstr("stroke=\"#0000FF\" stroke-width=\"1\" stroke-dasharray=\"17 7\" d="));
}

TEST_F(BatchView, ADenseWaveIsOnePathForEachStartOfItsDashesAndOneForItsEnds) {
  const std::string open = "open " + MakeWave("a.wav", 50000);
  EXPECT_EQ(Printed({open, "picture " + Quoted("a.svg")}), "");
  const std::string picture = ReadText(scratch / "a.svg");
  EXPECT_EQ(Count(picture, "stroke=\"#0000FF\" stroke-width=\"1\" d="), 1U);
  EXPECT_EQ(Count(picture, "stroke=\"#0000FF\" stroke-width=\"1\" stroke-dasharray=\"17 7\" d="), 1U);
  EXPECT_EQ(Count(picture, "stroke=\"#0000FF\""), 25U);
}

TEST_F(BatchView, APictureIsNothingButASvgFile) {
  const std::string path = MakeWave("a.wav", 10);
  const Bytes before = ReadBytes(scratch / "a.wav");
  EXPECT_THAT(Reason({"open " + path, "picture " + path}), HasSubstr("ends in .svg"));
  EXPECT_EQ(ReadBytes(scratch / "a.wav"), before);
  EXPECT_THAT(Reason({"open " + path, "picture " + Quoted("no/folder/a.svg")}),
              HasSubstr("could not be written: "));
}

}  // namespace
}  // namespace tembrel::test
