#include "app/ui/HelpWindow.h"

#include <QFile>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "app/ui/QtPrompts.h"

namespace tembrel {

namespace {

constexpr QSize kSize(680, 620);
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

}  // namespace

void HelpWindow::ShowFor(QWidget* frame, const std::filesystem::path& helpFile) {
  auto* window = frame->findChild<QWidget*>("HelpWindow", Qt::FindDirectChildrenOnly);
  if (window == nullptr) {
    window = new HelpWindow(frame, helpFile);
  }
  window->show();
  window->raise();
  window->activateWindow();
}

HelpWindow::HelpWindow(QWidget* frame, const std::filesystem::path& helpFile) : QWidget(frame, Qt::Window) {
  setObjectName("HelpWindow");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle("Tembrel Help");
  resize(kSize);
  QString text = ReadText(PathToText(helpFile));
  if (text.isEmpty()) {
    text = ReadText(":/manual.md");
  }
  auto* browser = new QTextBrowser(this);
  browser->setOpenExternalLinks(true);
  browser->setAccessibleName("Manual");
  browser->document()->setDocumentMargin(16);
  browser->setMarkdown(text);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(browser);
  connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated, this, &QWidget::close);
}

}  // namespace tembrel
