// The two horizontal rulers of a document window, in seconds and in frames. They follow the view and never
// change it.
#pragma once

#include <cstdint>
#include <optional>

#include <QWidget>

#include "document/Document.h"
#include "view/EditView.h"
#include "view/RulerMarks.h"

namespace tembrel {

class RulerWindow : public QWidget {
 public:
  static constexpr int kHeight = 17;

  // A mark under the mouse; none when the mouse is elsewhere.
  void ShowMouse(std::optional<std::int64_t> frame);

 protected:
  // `shownView` outlives the ruler.
  RulerWindow(const EditView& shownView, const char* name, const char* description, QWidget* parent);

  const EditView& View() const { return view; }
  virtual AxisMarks Marks(const PaintArea& area) const = 0;
  // A ruler below the view has its ticks at the top, towards it.
  virtual bool IsBelowView() const { return false; }
  void paintEvent(QPaintEvent* event) override;

 private:
  const EditView& view;
  std::optional<std::int64_t> mouseFrame;
};

class AudioTimeWindow : public RulerWindow {
 public:
  // `shownDocument` outlives the ruler.
  AudioTimeWindow(const EditView& shownView, const Document& shownDocument, QWidget* parent);

 protected:
  AxisMarks Marks(const PaintArea& area) const override;
  bool IsBelowView() const override { return true; }

 private:
  const Document& document;
};

class AudioSamplesWindow : public RulerWindow {
 public:
  AudioSamplesWindow(const EditView& shownView, QWidget* parent);

 protected:
  AxisMarks Marks(const PaintArea& area) const override;
};

}  // namespace tembrel
