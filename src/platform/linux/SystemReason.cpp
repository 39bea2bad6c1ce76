#include "platform/linux/SystemReason.h"

#include <system_error>

namespace tembrel {

// Unlike strerror this is safe on any thread.
std::string SystemReason(int errorNumber) {
  return std::generic_category().message(errorNumber);
}

}  // namespace tembrel
