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
#include <QMessageBox>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <functional>
#include <memory>

#include "vglobal/frame.h"
#include "vglobal/messages/message.h"
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

bool Save(const QPixmap& picture, const QString& file) {
  if (!picture.save(file)) {
    std::fprintf(stderr, "render-dialogs: cannot write %s\n", file.toLocal8Bit().constData());
    return false;
  }
  std::printf("%s\n", file.toLocal8Bit().constData());
  return true;
}

// A message as DisplayMsg shows it: the box is grabbed while it is open, then closed
// with its OK button.
bool RenderMessage(CMessage& message, const QString& file) {
  bool ok = false;
  bool seen = false;
  QTimer::singleShot(0, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    seen = true;
    ok = Save(WithTitleBar(*box), file);
    if (QAbstractButton* button = box->button(QMessageBox::Ok))
      button->click();
    else
      box->reject();
  });
  message.DisplayMsg(nullptr);
  if (!seen)
    std::fprintf(stderr, "render-dialogs: no message box for %s\n", file.toLocal8Bit().constData());
  return ok;
}

bool Render(CDialog& model, const QString& file) {
  std::unique_ptr<QDialog> dialog = vglobal::RenderDialog(model);
  if (!dialog) {
    std::fprintf(stderr, "render-dialogs: dialog %u has no template\n", model.GetTemplateID());
    return false;
  }
  dialog->ensurePolished();
  return Save(WithTitleBar(*dialog), file);
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
  {
    // A file-open error as one of the suite's programs shows it: its program name is
    // the caption, since the message has no title of its own.
    QApplication::setApplicationDisplayName(QStringLiteral("arvenis-quan-browser"));
    CMessage notFound(EMSG_ERROR, L"%s\nFile wasn't found\n",
                      L"/data/quan/2024-03-18/calibration_07.sqd");
    ok &= RenderMessage(notFound, folder + QStringLiteral("/message_box.png"));
  }
  return ok ? 0 : 1;
}
