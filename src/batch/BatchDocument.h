// A document of a script with the view it would have in a window.
#pragma once

#include <cstdint>
#include <vector>

#include "audio/ProgramPaths.h"
#include "batch/SilentViewListener.h"
#include "document/Document.h"
#include "document/DocumentListener.h"
#include "edit/ClipChanges.h"
#include "picture/Picture.h"
#include "view/EditView.h"

namespace tembrel {

class BatchDocument final : private DocumentListener {
 public:
  BatchDocument(const ProgramPaths& paths, std::int64_t number);
  BatchDocument(const BatchDocument&) = delete;
  BatchDocument& operator=(const BatchDocument&) = delete;

  Document& Doc() { return document; }
  const Document& Doc() const { return document; }
  EditView& View() { return view; }
  const EditView& View() const { return view; }

  // The document's sound was loaded: the view shows the whole of it.
  void ShowLoadedDocument();
  // Bytes, as the edits want them.
  ByteRange Selection() const { return {view.SelectionStart(), view.SelectionEnd()}; }
  // A selection that lies behind the end by now is none.
  bool HasSelection() const { return view.HasSelection() && Selection().start < Selection().end; }
  // What the view paints, in painting order.
  PaintArea Area() const { return {view.ClientWidth(), view.ClientHeight(), 1.0}; }
  std::vector<LayerLine> Picture() const;

 private:
  void SoundChanged(bool lengthsRefreshed) override;

  Document document;
  SilentViewListener listener;
  EditView view;
};

}  // namespace tembrel
