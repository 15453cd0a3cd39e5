// The toolbar control's widget: draws the buttons where the model's layout puts
// them (CToolBarCtrl::GetItemRect), with their images through the Qt drawing
// context, and turns a click into DialogDriver::ClickItem.
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <QWidget>

#include "platform/qt/controls/control_binding.h"
#include "platform/qt/qt_text.h"
#include "vglobal/compat/image_list.h"
#include "vglobal/qt/qt_dc.h"

namespace vglobal::qt {
namespace {

class ToolBarWidget final : public QWidget {
 public:
  ToolBarWidget(BindingHost& host, int index, int id, QWidget* parent)
      : QWidget(parent), host_(host), index_(index), id_(id) {
    setMouseTracking(true);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    CToolBarCtrl* bar = Model();
    if (!bar) return;
    QPainter painter(this);
    QtDC dc(font(), &painter);
    const CImageList* images = bar->GetImageList();
    for (int i = 0; i < bar->GetButtonCount(); ++i) {
      TBBUTTON b{};
      CRect r;
      if (!bar->GetButton(i, &b) || !bar->GetItemRect(i, &r)) continue;
      const QRect area(r.left, r.top, r.Width(), r.Height());
      if (b.fsStyle & TBSTYLE_SEP) {
        DrawSeparator(painter, area);
        continue;
      }
      DrawFace(painter, area, b, i == hover_);
      if (!images) continue;
      const CSize size = images->GetImageSize();
      const bool enabled = (b.fsState & TBSTATE_ENABLED) && isEnabled();
      painter.setOpacity(enabled ? 1.0 : 0.35);
      const int pressed = (b.fsState & TBSTATE_CHECKED) ? 1 : 0;
      images->Draw(&dc, b.iBitmap,
                   POINT{area.left() + (area.width() - size.cx) / 2 + pressed,
                         area.top() + (area.height() - size.cy) / 2 + pressed},
                   ILD_NORMAL);
      painter.setOpacity(1.0);
    }
  }

  void mouseMoveEvent(QMouseEvent* event) override {
    const int over = ButtonAt(event->position().toPoint());
    if (over != hover_) {
      hover_ = over;
      update();
    }
  }
  void leaveEvent(QEvent*) override {
    hover_ = -1;
    update();
  }
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() != Qt::LeftButton) return;
    const int item = ButtonAt(event->position().toPoint());
    if (item >= 0) host_.Act(index_, [this, item] { host_.Driver().ClickItem(id_, item); });
  }
  bool event(QEvent* event) override {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    auto* help = static_cast<QHelpEvent*>(event);
    CToolBarCtrl* bar = Model();
    const int item = ButtonAt(help->pos());
    const QString tip = bar && item >= 0 ? FromWide(bar->GetButtonTip(item)) : QString();
    if (tip.isEmpty())
      QToolTip::hideText();
    else
      QToolTip::showText(help->globalPos(), tip, this);
    return true;
  }

 private:
  CToolBarCtrl* Model() const {
    CDialog* dialog = host_.Model();
    return dialog ? dynamic_cast<CToolBarCtrl*>(dialog->GetControlAt(index_)) : nullptr;
  }
  int ButtonAt(QPoint p) const {
    CToolBarCtrl* bar = Model();
    POINT point{p.x(), p.y()};
    return bar ? bar->HitTest(&point) : -1;
  }

  void DrawSeparator(QPainter& painter, const QRect& area) const {
    const int x = area.center().x();
    painter.setPen(palette().color(QPalette::Dark));
    painter.drawLine(x, area.top() + 2, x, area.bottom() - 2);
    painter.setPen(palette().color(QPalette::Light));
    painter.drawLine(x + 1, area.top() + 2, x + 1, area.bottom() - 2);
  }

  // Flat buttons: a sunken panel when checked, a raised one under the mouse.
  void DrawFace(QPainter& painter, const QRect& area, const TBBUTTON& b, bool hovered) const {
    const bool checked = b.fsState & TBSTATE_CHECKED;
    if (!checked && !(hovered && (b.fsState & TBSTATE_ENABLED))) return;
    const QRect r = area.adjusted(0, 0, -1, -1);
    if (checked) painter.fillRect(r, palette().color(QPalette::Midlight));
    painter.setPen(palette().color(checked ? QPalette::Dark : QPalette::Light));
    painter.drawLine(r.topLeft(), r.topRight());
    painter.drawLine(r.topLeft(), r.bottomLeft());
    painter.setPen(palette().color(checked ? QPalette::Light : QPalette::Dark));
    painter.drawLine(r.bottomLeft(), r.bottomRight());
    painter.drawLine(r.topRight(), r.bottomRight());
  }

  BindingHost& host_;
  int index_;
  int id_;
  int hover_ = -1;
};

class ToolBarBinding final : public ControlBinding {
 public:
  ToolBarBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style),
        widget_(new ToolBarWidget(host, index, id, host.Surface())) {}
  QWidget* Widget() const override { return widget_; }
  bool TakesMnemonic() const override { return false; }
  void Sync(CWnd&, unsigned aspects) override {
    if (aspects & (kAspectItems | kAspectState | kAspectGeometry | kAspectPaint)) widget_->update();
  }

 private:
  ToolBarWidget* widget_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeToolBar(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<ToolBarBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
