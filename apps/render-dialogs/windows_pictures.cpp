// Pictures of windows: a main window with its menu bar and an open pop-up, the
// insertion bar of a toolbar drawn on the overlay, and a disk-space chart drawn
// through the drawing context. Every picture comes from the library's own windows
// and drawing calls.
#include "windows_pictures.h"

#include <QApplication>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPainter>
#include <QToolButton>
#include <cstdio>

#include "picture.h"
#include "vglobal/widgets.h"

namespace render {
namespace {

using vglobal::MenuItem;
using vglobal::MenuItemTemplate;
using vglobal::MenuPopup;
using vglobal::MenuSeparator;

constexpr UINT IDR_BROWSER = 1, ID_OPEN = 100, ID_SAVE = 101, ID_EXIT = 102, ID_TOOLBAR = 200,
               ID_STATUS = 201, ID_CHROMATOGRAM = 202, ID_SPECTRUM = 203, ID_CUSTOMIZE = 300;
constexpr MenuItemTemplate kFile[] = {MenuItem(L"&Open Method...\tCtrl+O", ID_OPEN),
                                      MenuItem(L"&Save\tCtrl+S", ID_SAVE), MenuSeparator(),
                                      MenuItem(L"E&xit", ID_EXIT)};
constexpr MenuItemTemplate kView[] = {
    MenuItem(L"&Toolbar", ID_TOOLBAR), MenuItem(L"&Status Bar", ID_STATUS), MenuSeparator(),
    MenuItem(L"&Chromatogram", ID_CHROMATOGRAM), MenuItem(L"S&pectrum", ID_SPECTRUM)};
constexpr MenuItemTemplate kTools[] = {MenuItem(L"&Customize...", ID_CUSTOMIZE), MenuSeparator(),
                                       MenuItem(L"Notepad", 5000), MenuItem(L"Calculator", 5001)};
constexpr MenuItemTemplate kBar[] = {MenuPopup(L"&File", kFile), MenuPopup(L"&View", kView),
                                     MenuPopup(L"&Tools", kTools)};
constexpr vglobal::MenuTemplate kBrowserMenu(IDR_BROWSER, kBar);
constexpr const vglobal::MenuTemplate* kMenus[] = {&kBrowserMenu};

// A main window of a suite program: the view menu's state comes from update handlers.
class BrowserFrame : public CFrameWnd {
 public:
  BrowserFrame() {
    OnCommand(ID_OPEN, &BrowserFrame::OnNothing);
    OnCommand(ID_EXIT, &BrowserFrame::OnNothing);
    OnCommand(ID_CUSTOMIZE, &BrowserFrame::OnNothing);
    OnCommandRange(5000, 5020, &BrowserFrame::OnTool);
    OnUpdateCommandUI(ID_TOOLBAR, &BrowserFrame::OnUpdateChecked);
    OnUpdateCommandUI(ID_STATUS, &BrowserFrame::OnUpdateChecked);
    OnUpdateCommandUIRange(ID_CHROMATOGRAM, ID_SPECTRUM, &BrowserFrame::OnUpdateView);
  }
  void OnNothing() {}
  void OnTool(UINT) {}
  void OnUpdateChecked(CCmdUI* ui) { ui->SetCheck(ui->m_nID == ID_TOOLBAR); }
  void OnUpdateView(CCmdUI* ui) { ui->SetRadio(ui->m_nID == ID_CHROMATOGRAM); }
};

// The window with its "View" pop-up open below its title in the menu bar.
bool RenderMainWindow(const QString& file) {
  BrowserFrame frame;
  if (!frame.LoadFrame(IDR_BROWSER)) return false;
  frame.SetWindowText(L"Sample List Browser - calibration_07.sld");
  QMainWindow* window = vglobal::FrameWindowOf(frame);
  auto* view = new QLabel(QStringLiteral("Sample list"), window);
  view->setAlignment(Qt::AlignCenter);
  view->setAutoFillBackground(true);
  view->setStyleSheet(QStringLiteral("background: white; color: #888;"));
  window->setCentralWidget(view);
  window->resize(460, 240);
  window->show();
  QMenuBar* bar = window->menuBar();
  QAction* viewTitle = bar->actions().value(1);
  if (!viewTitle || !viewTitle->menu()) return false;
  QMenu* menu = viewTitle->menu();
  const QPoint at = bar->actionGeometry(viewTitle).bottomLeft();
  menu->popup(window->mapToGlobal(at));
  QApplication::processEvents();
  // The client area under a plain title bar that carries the frame's title, as the
  // window manager would show it, with the open pop-up over it.
  const QPixmap client = window->grab();
  const int titleHeight = QFontMetrics(window->font()).height() + 10;
  QImage picture(client.width() + 2, client.height() + titleHeight + 1, QImage::Format_RGB32);
  picture.fill(QColor(0x70, 0x70, 0x70));
  QPainter painter(&picture);
  painter.fillRect(1, 1, client.width(), titleHeight - 1, QColor(0x3c, 0x5a, 0x8a));
  painter.setPen(Qt::white);
  QFont bold = window->font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.drawText(QRect(8, 1, client.width() - 16, titleHeight - 1),
                   Qt::AlignVCenter | Qt::AlignLeft, window->windowTitle());
  painter.drawPixmap(1, titleHeight, client);
  painter.drawPixmap(bar->mapTo(window, at) + QPoint(1, titleHeight), menu->grab());
  painter.end();
  menu->hide();
  return Save(picture, file);
}

// A toolbar while a button is dragged over it: the insertion bar between the second
// and third buttons, drawn with the not-XOR pen through a client DC, with serifs.
bool RenderInsertBar(const QString& file) {
  QWidget toolbar;
  toolbar.setAutoFillBackground(true);
  auto* row = new QHBoxLayout(&toolbar);
  row->setContentsMargins(4, 3, 4, 3);
  row->setSpacing(6);
  for (const char* label : {"Open", "Save", "Print", "Peaks", "Library"}) {
    auto* button = new QToolButton(&toolbar);
    button->setText(QString::fromLatin1(label));
    button->setFixedSize(52, 26);
    row->addWidget(button);
  }
  row->addStretch();
  toolbar.resize(330, 32);
  toolbar.show();
  QApplication::processEvents();

  CWnd window;
  window.SetPlatformWindow(&toolbar);
  const QWidget* third = toolbar.findChildren<QToolButton*>().value(2);
  if (!third) return false;
  const int x = third->x() - 3, top = third->y() + 4, bottom = third->y() + third->height() - 4;
  CClientDC dc(&window);
  CPen pen(PS_SOLID, 3, RGB(0, 0, 0));
  dc.SelectObject(&pen);
  dc.SetROP2(R2_NOTXORPEN);
  dc.MoveTo(x, top);
  dc.LineTo(x, bottom);
  dc.MoveTo(x - 3, top - 4);
  dc.LineTo(x + 3, top - 4);
  dc.MoveTo(x - 3, bottom + 4);
  dc.LineTo(x + 3, bottom + 4);
  const QImage picture = toolbar.grab().toImage();
  return Save(picture.scaled(picture.size() * 2), file);
}

// The free and used space of a disk, as a pie with a legend.
bool RenderDiskChart(const QString& file) {
  QImage image(360, 200, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  vglobal::QtDC dc(QFont(QStringLiteral("DejaVu Sans"), 9), &painter);
  CFont heading;
  heading.CreatePointFont(100, L"DejaVu Sans");
  LOGFONT bold;
  heading.GetLogFont(&bold);
  bold.lfWeight = FW_BOLD;
  CFont title;
  title.CreateFontIndirect(&bold);

  const COLORREF used = RGB(0x3c, 0x5a, 0x8a), free = RGB(0xe4, 0xb3, 0x4a);
  const CRect pie(20, 30, 160, 170);
  CBrush usedBrush(used), freeBrush(free);
  CPen outline(PS_SOLID, 1, RGB(0x40, 0x40, 0x40));
  dc.SelectObject(&outline);
  dc.SelectObject(&usedBrush);
  dc.Ellipse(&pie);
  // 27 % free: the wedge from 12 o'clock counter-clockwise over 97 degrees.
  dc.SelectObject(&freeBrush);
  dc.Pie(&pie, CPoint(90, 30), CPoint(20, 109));

  dc.SetBkMode(TRANSPARENT);
  CFont* own = dc.SelectObject(&title);
  dc.TextOut(20, 8, L"/data (ext4)");
  dc.SelectObject(own);
  dc.FillSolidRect(190, 60, 14, 14, used);
  dc.FillSolidRect(190, 90, 14, 14, free);
  dc.SetTextColor(RGB(0x20, 0x20, 0x20));
  dc.TextOut(212, 60, L"Used   341.8 GB");
  dc.TextOut(212, 90, L"Free   126.4 GB");
  dc.SetTextColor(RGB(0x70, 0x70, 0x70));
  dc.TextOut(212, 120, L"Total  468.2 GB");
  painter.end();
  return Save(image, file);
}

}  // namespace

bool RenderWindows(const QString& folder) {
  vglobal::ResourceTables resources;
  resources.menus = kMenus;
  resources.menuCount = std::size(kMenus);
  vglobal::SetApplicationResources(&resources);
  bool ok = RenderMainWindow(folder + QStringLiteral("/main_window_menu.png"));
  ok &= RenderInsertBar(folder + QStringLiteral("/transient_insert_bar.png"));
  ok &= RenderDiskChart(folder + QStringLiteral("/disk_space_chart.png"));
  vglobal::SetApplicationResources(nullptr);
  return ok;
}

}  // namespace render
