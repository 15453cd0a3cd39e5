// Pictures of the image strips (drawn through CImageList and the Qt drawing
// context) and of the file and folder choosers (the real dialogs, grabbed while
// open).
#include "services_pictures.h"

#include "picture.h"

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QPainter>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>

#include "vglobal/compat/file_dialog.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/widgets.h"

namespace render {
namespace {

struct Strip {
  UINT id;
  int cx, cy, count;
  const char* title;
};

// Grabs the file dialog that opens next once its folder has been read, then
// cancels it.
void GrabNextFileDialog(const QString& file, bool& ok) {
  QTimer::singleShot(600, [file, &ok] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (!dialog) {
      std::fprintf(stderr, "render-dialogs: no file dialog for %s\n",
                   file.toLocal8Bit().constData());
      return;
    }
    dialog->resize(760, 440);  // wide enough for every column
    ok = Save(WithTitleBar(*dialog), file);
    dialog->reject();
  });
}

}  // namespace

bool RenderImageStrips(const QString& file) {
  const Strip strips[] = {
      {vglobal::kCommandImagesSmall, 16, 15, vglobal::kCommandImageCount,
       "Command images, small (5812, 16 x 15)"},
      {vglobal::kCommandImagesBig, 24, 24, vglobal::kCommandImageCount,
       "Command images, big (5813, 24 x 24)"},
      {vglobal::kDemoToolbarImagesSmall, 16, 15, vglobal::kDemoToolbarImageCount,
       "Demonstration master toolbar, small (5814)"},
      {vglobal::kDemoToolbarImagesBig, 24, 24, vglobal::kDemoToolbarImageCount,
       "Demonstration master toolbar, big (5815)"},
  };
  constexpr int kMargin = 12, kPad = 4;
  const QFont font = QApplication::font();
  const QFontMetrics metrics(font);
  const int line = metrics.height();
  const QColor face = QApplication::palette().color(QPalette::Button);

  QImage image(kMargin * 2 + 24 * (24 + 2 * kPad + 1), 1000, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  vglobal::QtDC dc(font, &painter);
  int y = kMargin;
  bool ok = true;
  for (const Strip& strip : strips) {
    CImageList list;
    ok &= list.Create(strip.id, strip.cx, 0, 0) && list.GetImageCount() == strip.count;
    painter.setPen(Qt::black);
    dc.TextOut(kMargin, y, CString(QString::fromLatin1(strip.title).toStdWString().c_str()));
    y += line + 4;
    // A toolbar row, then the same images drawn selected; index numbers below.
    const int button = strip.cx + 2 * kPad;
    for (UINT style : {ILD_TRANSPARENT, ILD_SELECTED}) {
      painter.fillRect(kMargin - 2, y - 2, strip.count * (button + 1) + 3, strip.cy + 2 * kPad + 4,
                       face);
      for (int i = 0; i < strip.count; ++i)
        ok &= list.Draw(&dc, i, CPoint(kMargin + i * (button + 1) + kPad, y + kPad), style);
      y += strip.cy + 2 * kPad + 6;
    }
    painter.setPen(QColor(0x70, 0x70, 0x70));
    for (int i = 0; i < strip.count; ++i)
      painter.drawText(QRect(kMargin + i * (button + 1), y, button, line), Qt::AlignCenter,
                       QString::number(i));
    y += line + kMargin;
  }
  painter.end();
  if (!ok) std::fprintf(stderr, "render-dialogs: an image strip did not load or draw\n");
  return Save(QPixmap::fromImage(image.copy(0, 0, image.width(), y)), file) && ok;
}

bool RenderChoosers(const QString& fileChooser, const QString& folderChooser) {
  QTemporaryDir data(QDir::tempPath() + QStringLiteral("/sample-lists-XXXXXX"));
  if (!data.isValid()) return false;
  int size = 3;
  for (const char* name : {"2024-03-18 calibration.sld", "2024-03-19 unknowns.sld",
                           "2024-03-20 qc check.sld", "readme.txt"}) {
    QFile f(data.filePath(QString::fromLatin1(name)));
    if (!f.open(QIODevice::WriteOnly)) return false;
    f.write(QByteArray(1024 * (size += 5), 's'));
  }
  QDir(data.path()).mkdir(QStringLiteral("archive"));
  const std::wstring start = data.path().toStdWString();

  bool fileOk = false, folderOk = false;
  GrabNextFileDialog(fileChooser, fileOk);
  CFileDialog open(TRUE, L"sld", nullptr, OFN_FILEMUSTEXIST | OFN_HIDEREADONLY,
                   L"Sample Lists (*.sld) | *.sld | All Files (*.*) | *.* ||");
  open.m_ofn.lpstrTitle = L"Open Sample List";
  open.m_ofn.lpstrInitialDir = start.c_str();
  open.DoModal();

  GrabNextFileDialog(folderChooser, folderOk);
  std::wstring folder = start;
  vglobal::GetPlatform().ChooseFolder(nullptr, L"Select Initial Directory for the Program", folder);
  return fileOk && folderOk;
}

}  // namespace render
