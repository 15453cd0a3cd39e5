// The file and folder choosers under Qt: the real QFileDialog, driven as a user
// would, with the legacy filter text translated into its file types.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>

#include "vglobal/compat/file_dialog.h"
#include "vglobal/widgets.h"

namespace {

// Runs `user` on the file dialog that opens next.
void WhenTheDialogOpens(std::function<void(QFileDialog&)> user) {
  QTimer::singleShot(0, [user] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    user(*dialog);
  });
}

class QtChoosers : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    for (const char* name : {"batch.sld", "notes.txt"}) {
      QFile file(folder_.filePath(QString::fromLatin1(name)));
      ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    ASSERT_TRUE(QDir(folder_.path()).mkdir(QStringLiteral("runs")));
  }
  std::wstring Path(const char* name) const {
    return folder_.filePath(QString::fromLatin1(name)).toStdWString();
  }
  QTemporaryDir folder_;
};

TEST_F(QtChoosers, FileDialogShowsTheTranslatedFiltersAndReturnsTheChosenFile) {
  const std::wstring start = folder_.path().toStdWString();
  CFileDialog dialog(TRUE, L"sld", nullptr, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                     L"Sample Lists (*.sld) | *.sld | All Files (*.*) | *.* ||");
  dialog.m_ofn.lpstrTitle = L"Open Sample List";
  dialog.m_ofn.lpstrInitialDir = start.c_str();
  QStringList filters;
  QString title, directory;
  bool native = true;
  QFileDialog::FileMode mode = QFileDialog::AnyFile;
  WhenTheDialogOpens([&](QFileDialog& shown) {
    filters = shown.nameFilters();
    title = shown.windowTitle();
    directory = shown.directory().path();
    native = !shown.testOption(QFileDialog::DontUseNativeDialog);
    mode = shown.fileMode();
    shown.selectFile(QStringLiteral("batch.sld"));
    QMetaObject::invokeMethod(&shown, "accept");  // the Open button's slot
  });
  ASSERT_EQ(dialog.DoModal(), IDOK);
  EXPECT_EQ(filters, QStringList({"Sample Lists (*.sld) (*.sld)", "All Files (*.*) (*)"}));
  EXPECT_EQ(title, "Open Sample List");
  EXPECT_EQ(directory, folder_.path());
  EXPECT_FALSE(native);
  EXPECT_EQ(mode, QFileDialog::ExistingFile);
  EXPECT_EQ(std::wstring(dialog.GetPathName().GetString()), Path("batch.sld"));
  EXPECT_EQ(dialog.GetFileExt(), L"sld");
}

TEST_F(QtChoosers, CancelLeavesTheDialogWithoutAPath) {
  CFileDialog dialog(TRUE, nullptr, nullptr, OFN_FILEMUSTEXIST, L"Text (*.txt)|*.txt||");
  WhenTheDialogOpens([](QFileDialog& shown) { shown.reject(); });
  EXPECT_EQ(dialog.DoModal(), IDCANCEL);
  EXPECT_TRUE(dialog.GetPathName().IsEmpty());
}

TEST_F(QtChoosers, FolderChooserStartsInTheFolderGivenAndReturnsTheOneChosen) {
  std::wstring folder = folder_.path().toStdWString();
  QString title;
  WhenTheDialogOpens([&](QFileDialog& shown) {
    title = shown.windowTitle();
    EXPECT_EQ(shown.fileMode(), QFileDialog::Directory);
    shown.selectFile(folder_.filePath(QStringLiteral("runs")));
    QMetaObject::invokeMethod(&shown, "accept");  // the Open button's slot
  });
  ASSERT_TRUE(
      vglobal::GetPlatform().ChooseFolder(nullptr, L"Select Initial Directory for", folder));
  EXPECT_EQ(folder, Path("runs"));
  EXPECT_EQ(title, "Select Initial Directory for");
}

}  // namespace
