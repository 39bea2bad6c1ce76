// What a version of a clip stands for, put together from its pieces.
#pragma once

#include <gtest/gtest.h>

#include "edit/ClipVersion.h"
#include "tests/support/LiteralUndo.h"

namespace tembrel::test {

inline LiteralClip ContentOf(const ClipVersion& version, const AudioClip& live) {
  LiteralClip content{version.format, {}};
  std::uint64_t liveEnd = 0;
  for (const ClipPiece& piece : version.pieces) {
    if (piece.saved == nullptr) {
      EXPECT_GE(piece.offset, liveEnd) << "live pieces out of order";
      EXPECT_LE(piece.End(), live.dataSize) << "a live piece beyond the clip";
      liveEnd = piece.End();
    } else {
      EXPECT_LE(piece.End(), piece.saved->block.Size()) << "a piece beyond its saved block";
    }
    const std::byte* const bytes = piece.saved ? piece.saved->block.Data() : live.data.Data();
    Append(content.data, std::span(bytes + piece.offset, static_cast<std::size_t>(piece.length)));
  }
  EXPECT_EQ(content.data.size(), version.dataSize);
  return content;
}

}  // namespace tembrel::test
