#include "platform/linux/FlushFolder.h"

#include <fcntl.h>
#include <unistd.h>

namespace tembrel {

void FlushFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    fsync(descriptor);
    close(descriptor);
  }
}

}  // namespace tembrel
