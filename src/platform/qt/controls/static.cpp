// The static family's widgets: a label, a frame or divider, and an owner-drawn
// control painted by the program's code through a QtDC.
#include <QLabel>
#include <QPainter>
#include <QWidget>
#include <cstdio>
#include <exception>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/qt_text.h"
#include "vglobal/qt/qt_dc.h"

namespace vglobal::qt {
namespace {

class StaticBinding final : public ControlBinding {
 public:
  StaticBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), label_(new QLabel(host.Surface())) {
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    const Qt::Alignment horizontal = (style & kCenter)  ? Qt::AlignHCenter
                                     : (style & kRight) ? Qt::AlignRight
                                                        : Qt::AlignLeft;
    label_->setAlignment(horizontal | Qt::AlignTop);
  }
  QWidget* Widget() const override { return label_; }
  QLabel* Label() const override { return label_; }
  bool TakesMnemonic() const override { return false; }
  void Sync(CWnd& control, unsigned aspects) override {
    if (!(aspects & kAspectText)) return;
    const QString text = WindowText(control);
    // "&" marks a mnemonic only where it leads somewhere; elsewhere it is not shown.
    const bool shownAsIs = (style_ & kNoPrefix) || label_->buddy();
    label_->setText(shownAsIs ? text : StripMnemonic(text));
  }

 private:
  QLabel* label_;
};

// An etched line or frame, or a filled rectangle, by the control's style.
class FrameWidget final : public QWidget {
 public:
  FrameWidget(UINT style, QWidget* parent) : QWidget(parent), style_(style) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    const QColor shadow = palette().color(QPalette::Dark);
    const QColor light = palette().color(QPalette::Light);
    const int w = width(), h = height();
    if (style_ & kBlackRect) {
      painter.fillRect(rect(), Qt::black);
    } else if (style_ & kGrayRect) {
      painter.fillRect(rect(), palette().color(QPalette::Dark));
    } else if (style_ & kEtchedHorz) {
      painter.setPen(shadow);
      painter.drawLine(0, 0, w - 1, 0);
      painter.setPen(light);
      painter.drawLine(0, 1, w - 1, 1);
    } else {
      painter.setPen(shadow);
      painter.drawRect(0, 0, w - 2, h - 2);
      painter.setPen(light);
      painter.drawRect(1, 1, w - 2, h - 2);
    }
  }

 private:
  UINT style_;
};

class FrameBinding final : public ControlBinding {
 public:
  FrameBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), frame_(new FrameWidget(style, host.Surface())) {}
  QWidget* Widget() const override { return frame_; }
  bool TakesMnemonic() const override { return false; }
  bool Underneath() const override { return true; }
  void Sync(CWnd&, unsigned) override {}

 private:
  FrameWidget* frame_;
};

// Paints by asking the model to paint the control into a QtDC over this widget:
// the same code that tests run against a recording DC.
class OwnerDrawnWidget final : public QWidget {
 public:
  OwnerDrawnWidget(BindingHost& host, int id, QWidget* parent)
      : QWidget(parent), host_(host), id_(id) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    if (!host_.Model()) return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    QtDC dc(font(), &painter);
    try {
      host_.Driver().Paint(id_, dc);
    } catch (const std::exception& e) {
      std::fprintf(stderr, "vglobal: painting control %d failed: %s\n", id_, e.what());
    } catch (...) {
      std::fprintf(stderr, "vglobal: painting control %d failed\n", id_);
    }
  }

 private:
  BindingHost& host_;
  int id_;
};

class OwnerDrawnBinding final : public ControlBinding {
 public:
  OwnerDrawnBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style),
        widget_(new OwnerDrawnWidget(host, id, host.Surface())) {}
  QWidget* Widget() const override { return widget_; }
  bool TakesMnemonic() const override { return false; }
  void Sync(CWnd&, unsigned aspects) override {
    if (aspects & (kAspectPaint | kAspectState | kAspectText)) widget_->update();
  }

 private:
  OwnerDrawnWidget* widget_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeStatic(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<StaticBinding>(host, index, id, style);
}
std::unique_ptr<ControlBinding> MakeFrame(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<FrameBinding>(host, index, id, style);
}
std::unique_ptr<ControlBinding> MakeOwnerDrawn(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<OwnerDrawnBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
