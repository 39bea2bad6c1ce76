#include "app/ui/QtPrompts.h"

#include <algorithm>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTreeView>

#include "dialogs/ui/FilterDialog.h"
#include "dialogs/ui/FormatDialog.h"
#include "dialogs/ui/SliderDialog.h"
#include "document/StringTable.h"

namespace tembrel {

namespace {

constexpr QSize kFileDialogSize(800, 500);
constexpr int kShowAfterMs = 500;
constexpr int kRefreshEveryMs = 40;
constexpr int kSteps = 1000;

QString ProgramName() {
  return QString::fromUtf8(kProgramName.data(), static_cast<qsizetype>(kProgramName.size()));
}

// Message texts hold file names: they are shown as they are, never read as markup. What is said from within
// a dialog stands over that dialog.
QMessageBox::StandardButton Ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const std::string& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton onEscape) {
  QWidget* dialog = QApplication::activeModalWidget();
  QMessageBox box(icon, title, PathToText(text), buttons, dialog == nullptr ? parent : dialog);
  box.setTextFormat(Qt::PlainText);
  box.setEscapeButton(onEscape);
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

// Qt takes the patterns from the parentheses; most filter names hold theirs already.
QStringList NameFilters(const std::vector<FileFilter>& filters) {
  QStringList names;
  for (const FileFilter& filter : filters) {
    const QString name = QString::fromStdString(filter.name);
    QStringList patterns;
    for (const std::string& pattern : filter.patterns) {
      patterns << QString::fromStdString(pattern);
    }
    names << (name.contains('(') ? name : name.trimmed() + " (" + patterns.join(' ') + ")");
  }
  return names;
}

// Dialogs start where the last one ended, as the program's current folder tells.
void RememberFolder(const QString& file) {
  QDir::setCurrent(QFileInfo(file).absolutePath());
}

// Sizes, types and dates are shown in full; the names have the rest. A dialog of the desktop's own looks
// after itself.
void GiveColumnsRoom(QFileDialog& dialog) {
  dialog.resize(kFileDialogSize);
  if (const auto* list = dialog.findChild<QTreeView*>("treeView")) {
    QHeaderView& header = *list->header();
    header.setResizeContentsPrecision(0);  // of long folders only what is seen
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
  }
}

class QtProgressDisplay : public ProgressDisplay {
 public:
  QtProgressDisplay(QWidget* window, QString label, std::shared_ptr<const bool> displayMark)
      : parent(window), text(std::move(label)), mark(std::move(displayMark)) {
    sinceStart.start();
  }

  bool Report(std::uint64_t done, std::uint64_t total) override {
    if (cancelled) {
      return false;
    }
    if (sinceStart.elapsed() < kShowAfterMs ||
        (sinceRefresh.isValid() && sinceRefresh.elapsed() < kRefreshEveryMs)) {
      return true;
    }
    if (!dialog) {
      MakeDialog();
    }
    const double share = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    dialog->setValue(std::min(kSteps - 1, static_cast<int>(share * kSteps)));
    QApplication::processEvents();
    sinceRefresh.start();
    cancelled = !cancelForbidden && dialog->wasCanceled();
    return !cancelled;
  }

  void ForbidCancel() override {
    cancelForbidden = true;
    if (dialog) {
      DisableCancel();
    }
  }

 private:
  // The button is grey, and Escape, which does what the button does, hides nothing.
  void DisableCancel() {
    dialog->disconnect(SIGNAL(canceled()));
    dialog->findChild<QPushButton*>()->setEnabled(false);
  }

  void MakeDialog() {
    dialog = std::make_unique<QProgressDialog>(text, "Cancel", 0, kSteps, parent);
    dialog->setObjectName("progressDialog");
    dialog->setWindowTitle(ProgramName());
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setMinimumDuration(0);
    dialog->setAutoClose(false);
    dialog->setAutoReset(false);
    if (cancelForbidden) {
      DisableCancel();
    }
    dialog->adjustSize();
    dialog->move(parent->geometry().center() - dialog->rect().center());
    dialog->show();
  }

  QWidget* parent;
  QString text;
  std::shared_ptr<const bool> mark;
  QElapsedTimer sinceStart;
  QElapsedTimer sinceRefresh;
  std::unique_ptr<QProgressDialog> dialog;
  bool cancelled = false;
  bool cancelForbidden = false;
};

}  // namespace

QString PathToText(const std::filesystem::path& path) {
  const std::string& bytes = path.native();
  return QFile::decodeName(QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

std::filesystem::path TextToPath(const QString& text) {
  return QFile::encodeName(text).toStdString();
}

void QtPrompts::Error(const std::string& text) {
  Ask(parent, QMessageBox::Critical, ProgramName(), text, QMessageBox::Ok, QMessageBox::Ok);
}

void QtPrompts::Inform(const std::string& text) {
  Ask(parent, QMessageBox::Information, ProgramName(), text, QMessageBox::Ok, QMessageBox::Ok);
}

bool QtPrompts::AskYesNo(const std::string& text) {
  return Ask(parent, QMessageBox::Question, ProgramName(), text, QMessageBox::Yes | QMessageBox::No,
             QMessageBox::No) == QMessageBox::Yes;
}

bool QtPrompts::AskOkCancel(const std::string& text, const std::string& title) {
  return Ask(parent, QMessageBox::Warning, QString::fromStdString(title), text,
             QMessageBox::Ok | QMessageBox::Cancel, QMessageBox::Cancel) == QMessageBox::Ok;
}

Answer QtPrompts::AskYesNoCancel(const std::string& text, const std::string& title) {
  switch (Ask(parent, QMessageBox::Question, QString::fromStdString(title), text,
              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Cancel)) {
    case QMessageBox::Yes:
      return Answer::Yes;
    case QMessageBox::No:
      return Answer::No;
    default:
      return Answer::Cancel;
  }
}

std::optional<std::filesystem::path> QtPrompts::AskOpenPath(const std::vector<FileFilter>& filters) {
  QFileDialog dialog(parent, "Open", QDir::currentPath());
  dialog.setObjectName("openDialog");
  GiveColumnsRoom(dialog);
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters(NameFilters(filters));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  RememberFolder(dialog.selectedFiles().first());
  return TextToPath(dialog.selectedFiles().first());
}

std::optional<SaveChoice> QtPrompts::AskSavePath(const std::vector<FileFilter>& filters,
                                                 const std::filesystem::path& start) {
  const QStringList names = NameFilters(filters);
  QFileDialog dialog(parent, "Save As", QDir::currentPath());
  dialog.setObjectName("saveDialog");
  GiveColumnsRoom(dialog);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setNameFilters(names);
  if (!start.empty()) {
    dialog.setDirectory(PathToText(start.parent_path()));
    dialog.selectFile(PathToText(start.filename()));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
    return std::nullopt;
  }
  const QString chosen = dialog.selectedFiles().first();
  RememberFolder(chosen);
  return SaveChoice{TextToPath(chosen), static_cast<int>(names.indexOf(dialog.selectedNameFilter())) + 1};
}

std::optional<int> QtPrompts::AskAmplify(int percent) {
  CtlScaleDialog dialog(parent, percent);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Percent()) : std::nullopt;
}

std::optional<int> QtPrompts::AskFilter(int preset, const PresetAudition& audition) {
  FilterDialog dialog(parent, preset, audition);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Preset()) : std::nullopt;
}

std::optional<FormatChoice> QtPrompts::AskFormat(const FormatChoice& format) {
  FormatDialog dialog(parent, format);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Choice()) : std::nullopt;
}

std::unique_ptr<ProgressDisplay> QtPrompts::ShowProgress(const std::string& text) {
  return std::make_unique<QtProgressDisplay>(parent, PathToText(text), displayMark);
}

}  // namespace tembrel
