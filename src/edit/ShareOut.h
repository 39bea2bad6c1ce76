// Work on independent pieces of sound, shared out to all processors.
#pragma once

#include <cstdint>
#include <functional>

namespace tembrel {

// Calls work(0) to work(count - 1), each once, on several threads; returns when all are done. `goOn`, which
// may be empty, is called on this thread between pieces with the number of those done, and at the end. When
// it says false, pieces that have not begun are left out and the result is false. Neither function throws.
bool ShareOut(std::int64_t count, const std::function<void(std::int64_t)>& work,
              const std::function<bool(std::int64_t done)>& goOn = {});

}  // namespace tembrel
