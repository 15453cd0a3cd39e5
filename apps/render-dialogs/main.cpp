// render-dialogs: draws the library's dialogs and windows, as the Qt layer shows them, into PNG
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

#include "controls_demo.h"
#include "lists_demo.h"
#include "picture.h"
#include "services_pictures.h"
#include "vglobal/frame.h"
#include "vglobal/messages/message.h"
#include "vglobal/util/string_split.h"
#include "vglobal/util/text_fit.h"
#include "vglobal/widgets.h"
#include "windows_pictures.h"

namespace {

using render::Save;
using render::WithTitleBar;

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

// Text fitting as a program of the suite shows it, drawn through the Qt drawing
// context: one long path fitted to several widths, each width marked by a thin box,
// and a paragraph split into rows of a width, the width marked by two guide lines.
bool RenderTextFitting(const QString& file) {
  const QFont font(QStringLiteral("DejaVu Sans"), 10);
  QFont heading = font;
  heading.setBold(true);
  const QFontMetrics metrics(font);
  const int line = metrics.height();
  const QColor guide(0x9a, 0xb0, 0xc8), note(0x70, 0x70, 0x70);
  constexpr int kMargin = 16, kLabelWidth = 56, kLeft = kMargin + kLabelWidth + 8;
  constexpr int kWidths[] = {600, 440, 320, 220, 150, 90, 40};
  constexpr int kParagraphWidth = 300;

  QImage image(kLeft + kWidths[0] + kMargin + 4, 20 * line + 8 * kMargin, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  vglobal::QtDC dc(font, &painter);
  auto text = [&](int x, int y, const CString& s) { dc.TextOut(x, y, s); };
  auto title = [&](int y, const QString& s) {
    painter.setPen(Qt::black);
    painter.setFont(heading);
    painter.drawText(QPoint(kMargin, y + QFontMetrics(heading).ascent()), s);
  };

  int y = kMargin;
  title(y, QStringLiteral("A path fitted to a width (FitPathToWidth)"));
  y += line + 10;
  const CString path(
      LR"(C:\Arvenis\Data\Quantitation\2024-03-18\Calibration Standards\Level 07\calibration_07.sqd)");
  for (int width : kWidths) {
    CString fitted(path);
    FitPathToWidth(&dc, fitted, width);
    painter.setPen(guide);
    painter.drawRect(kLeft - 3, y - 2, width + 5, line + 3);
    CString label;
    label.Format(L"%d px", width);
    painter.setPen(note);
    painter.setFont(font);
    painter.drawText(QRect(kMargin, y, kLabelWidth, line), Qt::AlignRight | Qt::AlignVCenter,
                     QString::fromWCharArray(label.GetString(), label.GetLength()));
    text(kLeft, y, fitted);
    y += line + 10;
  }

  y += kMargin;
  title(y, QStringLiteral("A paragraph split into rows of a width (VCStringDisplay)"));
  y += line + 10;
  CString paragraph(
      L"Peaks are detected in the chromatogram of each component within its retention "
      L"time window. A peak whose signal-to-noise ratio is below the threshold is not "
      L"reported.\r\nWiden the window or lower the threshold when an expected peak is "
      L"missing, then reprocess the sequence.");
  CString breaks(L" ");
  const int top = y;
  VCStringDisplay counter(paragraph, breaks, &dc, kParagraphWidth, kLeft, y, line, 1, FALSE, FALSE,
                          0);
  counter.DisplaySplitt();
  const int bottom = top + counter.Rows() * line;
  painter.setPen(guide);
  painter.drawLine(kLeft - 3, top - 2, kLeft - 3, bottom + 2);
  painter.drawLine(kLeft + kParagraphWidth + 2, top - 2, kLeft + kParagraphWidth + 2, bottom + 2);
  CString label;
  label.Format(L"%d px", kParagraphWidth);
  painter.setPen(note);
  painter.setFont(font);
  painter.drawText(QRect(kMargin, top, kLabelWidth, line), Qt::AlignRight | Qt::AlignVCenter,
                   QString::fromWCharArray(label.GetString(), label.GetLength()));
  painter.setPen(Qt::black);
  VCStringDisplay display(paragraph, breaks, &dc, kParagraphWidth, kLeft, top, line, 1, TRUE, FALSE,
                          0);
  display.DisplaySplitt();
  painter.end();
  return Save(QPixmap::fromImage(image.copy(0, 0, image.width(), bottom + kMargin + 4)), file);
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
  ok &= RenderTextFitting(folder + QStringLiteral("/text_fitting.png"));
  ok &= render::RenderImageStrips(folder + QStringLiteral("/image_strips.png"));
  ok &= render::RenderChoosers(folder + QStringLiteral("/file_chooser.png"),
                               folder + QStringLiteral("/folder_chooser.png"));
  ok &= render::RenderWindows(folder);
  {
    CControlsDemoDlg demo;
    ok &= Render(demo, folder + QStringLiteral("/controls-demo.png"));
  }
  {
    CListsDemoDlg lists;
    ok &= Render(lists, folder + QStringLiteral("/lists-demo.png"));
  }
  return ok ? 0 : 1;
}
