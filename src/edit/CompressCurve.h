// The fixed curve of Compress: the same for both signs, in whole numbers, all halves truncated toward zero.
#pragma once

#include <cstddef>
#include <span>

#include "edit/LevelScale.h"

namespace tembrel {

// Up to 327 a sample is halved, from there to 24575 it moves 164 toward silence, above that the curve rises
// at half slope.
void Compress16(std::span<std::byte> samples);

// The same with 3 and 95, by the distances of Distance8. A byte of 127 becomes 128.
ByteTable CompressTable8();

}  // namespace tembrel
