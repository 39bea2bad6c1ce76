// A block of memory seen as floats.
#pragma once

#include <span>

#include "platform/MemoryBlock.h"

namespace tembrel {

inline std::span<float> AsFloats(MemoryBlock& block) {
  return {reinterpret_cast<float*>(block.Data()), block.Size() / sizeof(float)};
}

inline std::span<const float> AsFloats(const MemoryBlock& block) {
  return {reinterpret_cast<const float*>(block.Data()), block.Size() / sizeof(float)};
}

}  // namespace tembrel
