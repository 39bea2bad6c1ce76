#include "app/ui/HelpWindow.h"

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <QVBoxLayout>

#include "app/ui/QtPrompts.h"

namespace tembrel {

namespace {

constexpr QSize kSize(680, 620);
constexpr int kCellPadding = 5;
constexpr int kTableMargin = 8;
constexpr qint64 kLongestHelp = 4 << 20;

// Empty when the file is not there or is no text.
QString ReadText(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > kLongestHelp) {
    return {};
  }
  const QByteArray bytes = file.readAll();
  return bytes.contains('\0') ? QString() : QString::fromUtf8(bytes);
}

// As they come, every cell has a frame of its own close around its text.
void GiveTablesAir(QTextDocument& text, const QColor& lines) {
  for (QTextFrame* frame : text.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) {
      QTextTableFormat format = table->format();
      format.setCellPadding(kCellPadding);
      format.setCellSpacing(0);
      format.setBorder(1);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBorderBrush(lines);
      format.setBorderCollapse(true);
      format.setTopMargin(kTableMargin);
      format.setBottomMargin(kTableMargin);
      table->setFormat(format);
    }
  }
}

}  // namespace

void HelpWindow::ShowFor(QWidget* frame, const std::filesystem::path& helpFile, const QString& topic) {
  auto* window =
      static_cast<HelpWindow*>(frame->findChild<QWidget*>("HelpWindow", Qt::FindDirectChildrenOnly));
  if (window == nullptr) {
    window = new HelpWindow(frame, helpFile);
  }
  window->show();
  window->raise();
  window->activateWindow();
  if (!topic.isEmpty()) {
    window->GoTo(topic);
  }
}

HelpWindow::HelpWindow(QWidget* frame, const std::filesystem::path& helpFile)
    : QWidget(frame, Qt::Window), browser(new QTextBrowser(this)) {
  setObjectName("HelpWindow");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle("Tembrel Help");
  resize(kSize);
  QString text = ReadText(PathToText(helpFile));
  if (text.isEmpty()) {
    text = ReadText(":/manual.md");
  }
  browser->setOpenExternalLinks(true);
  browser->setAccessibleName("Manual");
  browser->document()->setDocumentMargin(16);
  browser->setMarkdown(text);
  GiveTablesAir(*browser->document(), palette().color(QPalette::Mid));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(browser);
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
}

void HelpWindow::GoTo(const QString& topic) {
  const QTextDocument& text = *browser->document();
  QTextBlock heading = text.begin();
  while (heading.isValid() && (heading.blockFormat().headingLevel() == 0 || heading.text() != topic)) {
    heading = heading.next();
  }
  const QTextBlock target = heading.isValid() ? heading : text.begin();
  browser->setTextCursor(QTextCursor(target));
  browser->verticalScrollBar()->setValue(
      static_cast<int>(text.documentLayout()->blockBoundingRect(target).top()));
}

}  // namespace tembrel
