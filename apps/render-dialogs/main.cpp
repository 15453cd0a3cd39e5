// render-dialogs: draws the library's dialogs, as the Qt layer shows them, into PNG
// files for the documentation.
//
//   render-dialogs [output-folder]     (default: docs/images)
//
// Runs without a display (the "offscreen" Qt platform) unless QT_QPA_PLATFORM says
// otherwise. Each picture is the dialog's client area under a plain title bar that
// carries the dialog's title, so the picture shows what the window manager would.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPainter>
#include <QPixmap>
#include <cstdio>
#include <functional>
#include <memory>

#include "vglobal/frame.h"
#include "vglobal/widgets.h"

namespace {

QPixmap WithTitleBar(QDialog& dialog) {
  const QPixmap client = dialog.grab();
  const QFontMetrics metrics(dialog.font());
  const int barHeight = metrics.height() + 10;
  QPixmap picture(client.width() + 2, client.height() + barHeight + 1);
  picture.fill(QColor(0x70, 0x70, 0x70));
  QPainter painter(&picture);
  painter.fillRect(1, 1, client.width(), barHeight - 1, QColor(0x3c, 0x5a, 0x8a));
  painter.setPen(Qt::white);
  QFont bold = dialog.font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.drawText(QRect(8, 1, client.width() - 16, barHeight - 1),
                   Qt::AlignVCenter | Qt::AlignLeft, dialog.windowTitle());
  painter.drawPixmap(1, barHeight, client);
  return picture;
}

bool Render(CDialog& model, const QString& file) {
  std::unique_ptr<QDialog> dialog = vglobal::RenderDialog(model);
  if (!dialog) {
    std::fprintf(stderr, "render-dialogs: dialog %u has no template\n", model.GetTemplateID());
    return false;
  }
  dialog->ensurePolished();
  if (!WithTitleBar(*dialog).save(file)) {
    std::fprintf(stderr, "render-dialogs: cannot write %s\n", file.toLocal8Bit().constData());
    return false;
  }
  std::printf("%s\n", file.toLocal8Bit().constData());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("docs/images");
  if (!QDir().mkpath(folder)) {
    std::fprintf(stderr, "render-dialogs: cannot create %s\n", folder.toLocal8Bit().constData());
    return 1;
  }
  bool ok = true;
  {
    CDlgUnderConstruction notice(L"Global");
    ok &= Render(notice, folder + QStringLiteral("/hard_hat_area.png"));
  }
  return ok ? 0 : 1;
}
