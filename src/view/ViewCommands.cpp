#include "view/ViewCommands.h"

#include "view/EditView.h"

namespace tembrel {

bool RunViewCommand(EditView& view, int command) {
  switch (command) {
    case kViewZoomOut:
      view.ZoomOut();
      return true;
    case kViewZoomIn:
      view.ZoomIn();
      return true;
    case kViewZoomAll:
      view.ZoomAll();
      return true;
    case kViewVerticalZoomOut:
      view.VerticalZoomOut();
      return true;
    case kViewVerticalZoomIn:
      view.VerticalZoomIn();
      return true;
    default:
      return false;
  }
}

}  // namespace tembrel
