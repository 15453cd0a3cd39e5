// Transient drawing on a window under Qt. A raster mode needs the pixels under the
// pen, which belong to the window and its children; so the overlay keeps a picture
// of the window taken while nothing was drawn on it (the base), draws on a copy of
// it (the surface) with the real raster operations, and shows only the pixels
// where the two differ. Drawing the same inverting line twice makes them equal
// again: the overlay then shows nothing, and the next drawing takes a fresh picture.
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QWidget>

#include "vglobal/qt/qt_dc.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {
namespace {

constexpr const char* kOverlayName = "vglobal-transient-overlay";

class TransientOverlay final : public QWidget {
 public:
  explicit TransientOverlay(QWidget& window) : QWidget(&window) {
    setObjectName(QLatin1String(kOverlayName));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setAttribute(Qt::WA_TranslucentBackground);
    setFocusPolicy(Qt::NoFocus);
  }

  static TransientOverlay* Of(QWidget& window) {
    return window.findChild<TransientOverlay*>(QLatin1String(kOverlayName),
                                               Qt::FindDirectChildrenOnly);
  }

  // Before drawing: while nothing is shown, the picture of the window is taken anew
  // (it may have changed or been resized since).
  QImage& Surface() {
    auto* window = parentWidget();
    if (!marked_ || base_.size() != window->size()) {
      setGeometry(window->rect());
      hide();
      base_ = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
      if (base_.size() != window->size()) base_ = base_.scaled(window->size());
      base_.setDevicePixelRatio(1);
      surface_ = base_;
      shown_ = QImage();
      marked_ = false;
    }
    raise();
    show();
    return surface_;
  }

  // After drawing: the pixels that differ from the picture are what shows.
  void Changed() {
    shown_ = QImage(surface_.size(), QImage::Format_ARGB32_Premultiplied);
    shown_.fill(Qt::transparent);
    marked_ = false;
    for (int y = 0; y < surface_.height(); ++y) {
      const auto* drawn = reinterpret_cast<const QRgb*>(surface_.constScanLine(y));
      const auto* under = reinterpret_cast<const QRgb*>(base_.constScanLine(y));
      auto* out = reinterpret_cast<QRgb*>(shown_.scanLine(y));
      for (int x = 0; x < surface_.width(); ++x)
        if (drawn[x] != under[x]) {
          out[x] = drawn[x] | 0xFF000000u;
          marked_ = true;
        }
    }
    update();
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!marked_) return;
    QPainter painter(this);
    painter.drawImage(0, 0, shown_);
  }

 private:
  QImage base_, surface_, shown_;
  bool marked_ = false;
};

// A QtDC that paints each call on the overlay's surface, with a painter of its own
// for that call (two DCs of one window may be alive at once).
class OverlayDC final : public QtDC {
 public:
  explicit OverlayDC(TransientOverlay& overlay)
      : QtDC(overlay.parentWidget()->font()), overlay_(&overlay) {}

  BOOL TextOut(int x, int y, const wchar_t* text, int count) override {
    return Paint([&] { return QtDC::TextOut(x, y, text, count); });
  }
  BOOL DrawImage(const ImageCell& cell, int x, int y, UINT style) override {
    return Paint([&] { return QtDC::DrawImage(cell, x, y, style); });
  }

 protected:
  void DrawLine(int x, int y, const std::wstring& line, int mnemonic) override {
    Paint([&] {
      QtDC::DrawLine(x, y, line, mnemonic);
      return TRUE;
    });
  }
  BOOL PaintLine(CPoint from, CPoint to) override {
    return Paint([&] { return QtDC::PaintLine(from, to); });
  }
  BOOL PaintSolidRect(const CRect& rect, COLORREF color) override {
    return Paint([&] { return QtDC::PaintSolidRect(rect, color); });
  }
  BOOL PaintShape(Shape shape, const CRect& box, CPoint start, CPoint end) override {
    return Paint([&] { return QtDC::PaintShape(shape, box, start, end); });
  }

 private:
  template <typename Draw>
  BOOL Paint(Draw draw) {
    if (Painter()) return draw();  // within another call of this DC (text and its mnemonic)
    if (!overlay_) return FALSE;   // the window has gone
    QPainter painter(&overlay_->Surface());
    SetPainter(&painter);
    const BOOL drawn = draw();
    SetPainter(nullptr);
    painter.end();
    overlay_->Changed();
    return drawn;
  }

  QPointer<TransientOverlay> overlay_;
};

}  // namespace

QWidget* TransientOverlayOf(QWidget& window) {
  return TransientOverlay::Of(window);
}

std::unique_ptr<CDC> QtPlatform::CreateClientDC(CWnd& window) {
  auto* widget = static_cast<QWidget*>(window.PlatformWindow());
  if (!widget) return Platform::CreateClientDC(window);
  TransientOverlay* overlay = TransientOverlay::Of(*widget);
  if (!overlay) overlay = new TransientOverlay(*widget);
  return std::make_unique<OverlayDC>(*overlay);
}

}  // namespace vglobal
