#include "document/ui/TMDIChild.h"

namespace tembrel {

bool TMDIChild::focusNextPrevChild(bool next) {
  Q_EMIT tabbedOut(next);
  return true;
}

}  // namespace tembrel
