// File and folder choosers under Qt: one QFileDialog, never the desktop's native
// one, so that what the user sees and what tests drive are the same dialog.
#include <QDir>
#include <QFileDialog>

#include "platform/qt/qt_text.h"
#include "vglobal/choosers.h"
#include "vglobal/compat/window.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {
namespace {

QWidget* WidgetOf(CWnd* window) {
  return window ? static_cast<QWidget*>(window->PlatformWindow()) : nullptr;
}

// "Label (patterns)": QFileDialog takes the patterns from the last parentheses.
// The legacy label often names its patterns itself ("All Files (*.*)"), and the
// dialog shows the label alone (HideNameFilterDetails), so users see it unchanged
// while "*.*" still matches names without a dot.
QString NameFilter(const FileFilter& filter) {
  QStringList patterns;
  for (const std::wstring& p : filter.patterns) patterns << QString::fromStdWString(p);
  return QString::fromStdWString(filter.label) + QStringLiteral(" (") +
         patterns.join(QLatin1Char(' ')) + QLatin1Char(')');
}

}  // namespace

bool QtPlatform::ChooseFile(CWnd* owner, FileChooser& request) {
  QFileDialog dialog(WidgetOf(owner));
  if (!request.title.empty()) dialog.setWindowTitle(QString::fromStdWString(request.title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
  dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(request.fileMustExist && !request.save ? QFileDialog::ExistingFile
                                                            : QFileDialog::AnyFile);
  QStringList filters;
  for (const FileFilter& filter : request.filters) filters << NameFilter(filter);
  if (!filters.isEmpty()) {
    dialog.setNameFilters(filters);
    if (request.filterIndex >= 0 && request.filterIndex < filters.size())
      dialog.selectNameFilter(filters[request.filterIndex]);
  }
  if (!request.folder.empty()) dialog.setDirectory(QString::fromStdWString(request.folder));
  if (!request.fileName.empty()) dialog.selectFile(QString::fromStdWString(request.fileName));
  if (!request.defaultExtension.empty())
    dialog.setDefaultSuffix(QString::fromStdWString(request.defaultExtension));

  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  request.path = qt::ToWide(dialog.selectedFiles().constFirst());
  request.filterIndex = std::max(0, static_cast<int>(filters.indexOf(dialog.selectedNameFilter())));
  return true;
}

bool QtPlatform::ChooseFolder(CWnd* owner, const std::wstring& title, std::wstring& folder) {
  QFileDialog dialog(WidgetOf(owner), QString::fromStdWString(title));
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  dialog.setFileMode(QFileDialog::Directory);
  if (!folder.empty()) dialog.setDirectory(QString::fromStdWString(folder));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return false;
  folder = qt::ToWide(dialog.selectedFiles().constFirst());
  return true;
}

}  // namespace vglobal
