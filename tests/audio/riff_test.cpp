#include "audio/Riff.h"

#include "audio/RiffReader.h"
#include "audio/RiffWriter.h"
#include "gtest/gtest.h"
#include "tests/support/FailingOutput.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/WaveBytes.h"

namespace tembrel {
namespace {

using test::Bytes;
using test::BytesOf;
using test::Chunk;
using test::CountingBytes;
using test::Form;

TEST(Riff, NumbersAreLittleEndian) {
  EXPECT_EQ(LoadLe16(BytesOf({0x34, 0x12})), 0x1234);
  EXPECT_EQ(LoadLe32(BytesOf({0x78, 0x56, 0x34, 0x92})), 0x92345678U);
  Bytes bytes(4);
  StoreLe32(0x92345678U, bytes);
  EXPECT_EQ(bytes, BytesOf({0x78, 0x56, 0x34, 0x92}));
  StoreLe16(0xABCDEU, bytes);
  EXPECT_EQ(bytes, BytesOf({0xDE, 0xBC, 0x34, 0x92}));
  EXPECT_EQ(FourCc("RIFF"), 0x46464952U);
}

TEST(RiffWriter, FixesSizesAndPadsOddChunks) {
  test::FailingOutput output(0);
  RiffWriter riff(output);
  const OpenChunk form = riff.CreateForm(FourCc("TEST"));
  const OpenChunk odd = riff.CreateChunk(FourCc("odd "));
  EXPECT_TRUE(riff.Write(CountingBytes(3)));
  EXPECT_TRUE(riff.Write(BytesOf({})));
  EXPECT_TRUE(riff.Ascend(odd));
  const OpenChunk even = riff.CreateChunk(FourCc("even"), 4);
  EXPECT_TRUE(riff.Write(CountingBytes(4)));
  EXPECT_TRUE(riff.Ascend(even));
  const OpenChunk empty = riff.CreateChunk(FourCc("none"), 77);
  EXPECT_TRUE(riff.Ascend(empty));
  EXPECT_TRUE(riff.Ascend(form));
  EXPECT_EQ(output.Content(), Form("TEST", {Chunk("odd ", CountingBytes(3)), Chunk("even", CountingBytes(4)),
                                            Chunk("none", {})}));
}

TEST(RiffWriter, StopsAtTheFirstFailure) {
  test::FailingOutput output(2);
  RiffWriter riff(output);
  const OpenChunk form = riff.CreateForm(FourCc("TEST"));
  EXPECT_TRUE(riff.Failed());
  EXPECT_EQ(riff.Reason(), test::kInjectedReason);
  EXPECT_FALSE(riff.Write(CountingBytes(3)));
  EXPECT_FALSE(riff.Ascend(form));
  EXPECT_EQ(output.Calls(), 2);
}

class RiffRead : public testing::Test {
 protected:
  RiffReader Open(const Bytes& bytes) const {
    test::WriteBytes(scratch / "file", bytes);
    std::string reason;
    return std::move(RiffReader::Open(scratch / "file", reason).value());
  }
  test::ScratchFolder scratch;
};

TEST_F(RiffRead, DescendsReadsAndAscends) {
  RiffReader riff = Open(Form("TEST", {Chunk("one ", CountingBytes(3)), Chunk("two ", CountingBytes(4))}));
  const auto form = riff.DescendForm(FourCc("TEST"));
  ASSERT_TRUE(form);
  EXPECT_EQ(form->dataOffset, 8U);
  EXPECT_EQ(form->size, 28U);
  const auto one = riff.Descend(FourCc("one "), *form);
  ASSERT_TRUE(one);
  EXPECT_EQ(one->dataOffset, 20U);
  EXPECT_EQ(one->size, 3U);
  Bytes content(3);
  std::string reason;
  EXPECT_EQ(riff.Read(content, reason), 3U);
  EXPECT_EQ(content, CountingBytes(3));
  riff.Ascend(*one);
  const auto two = riff.Descend(FourCc("two "), *form);
  ASSERT_TRUE(two);
  EXPECT_EQ(two->dataOffset, 32U);
}

TEST_F(RiffRead, LooksForwardOnlyAndStaysWhereItIsWhenThereIsNothing) {
  RiffReader riff = Open(Form("TEST", {Chunk("one ", {}), Chunk("two ", CountingBytes(4))}));
  const auto form = riff.DescendForm(FourCc("TEST"));
  ASSERT_TRUE(form);
  EXPECT_FALSE(riff.Descend(FourCc("none"), *form));
  const auto two = riff.Descend(FourCc("two "), *form);
  ASSERT_TRUE(two);
  riff.Ascend(*two);
  EXPECT_FALSE(riff.Descend(FourCc("one "), *form));
}

TEST_F(RiffRead, DoesNotLeaveTheParent) {
  Bytes file = Form("TEST", {Chunk("one ", {})});
  test::Append(file, Chunk("two ", CountingBytes(4)));
  RiffReader riff = Open(file);
  const auto form = riff.DescendForm(FourCc("TEST"));
  ASSERT_TRUE(form);
  EXPECT_FALSE(riff.Descend(FourCc("two "), *form));
}

TEST_F(RiffRead, FindsHeadersFarApartAndAcrossItsWindow) {
  for (const std::size_t gap : {65500U, 65520U, 65527U, 65528U, 65536U, 200001U}) {
    RiffReader riff =
        Open(Form("TEST", {Chunk("gap ", CountingBytes(gap)), Chunk("two ", CountingBytes(4))}));
    const auto form = riff.DescendForm(FourCc("TEST"));
    ASSERT_TRUE(form);
    const auto two = riff.Descend(FourCc("two "), *form);
    ASSERT_TRUE(two) << gap;
    EXPECT_EQ(two->dataOffset, 12 + 8 + gap + gap % 2 + 8);
  }
}

TEST_F(RiffRead, AddsSizesIn64Bits) {
  Bytes file = Form("TEST", {Chunk("one ", CountingBytes(8)), Chunk("two ", {})});
  test::Put32(file, 16, 0xFFFFFFFFU);  // wrapped to 32 bits this would lead back into the file
  RiffReader riff = Open(file);
  const auto form = riff.DescendForm(FourCc("TEST"));
  ASSERT_TRUE(form);
  EXPECT_FALSE(riff.Descend(FourCc("two "), *form));
  const auto one = riff.Descend(FourCc("one "), *form);
  ASSERT_TRUE(one);
  EXPECT_EQ(one->End(), 20U + 0xFFFFFFFFULL);
  riff.Ascend(*one);
  Bytes content(3);
  std::string reason;
  EXPECT_EQ(riff.Read(content, reason), 0U);
  EXPECT_FALSE(riff.Descend(FourCc("two "), *form));
}

TEST_F(RiffRead, AFormTypeThatIsCutOffIsNotThere) {
  Bytes file = Form("TEST", {});
  file.resize(11);
  EXPECT_FALSE(Open(file).DescendForm(FourCc("TEST")));
}

}  // namespace
}  // namespace tembrel
