// The spin button's widget: two arrow buttons stacked in the control's rectangle;
// each click is one step of DialogDriver::Spin. The buddy shows the position
// itself (the model writes it there), so there is nothing else to show here.
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>

#include "platform/qt/controls/control_binding.h"

namespace vglobal::qt {
namespace {

class SpinBinding final : public ControlBinding {
 public:
  SpinBinding(BindingHost& host, int index, int id, UINT style)
      : ControlBinding(host, index, id, style), widget_(new QWidget(host.Surface())) {
    auto* layout = new QVBoxLayout(widget_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int step : {1, -1}) {
      auto* arrow = new QToolButton(widget_);
      arrow->setArrowType(step > 0 ? Qt::UpArrow : Qt::DownArrow);
      arrow->setAutoRepeat(true);
      arrow->setFocusPolicy(Qt::NoFocus);
      arrow->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
      layout->addWidget(arrow);
      QObject::connect(arrow, &QToolButton::clicked, arrow,
                       [this, step] { Act([this, step] { driver().Spin(id_, step); }); });
    }
  }
  QWidget* Widget() const override { return widget_; }
  bool TakesMnemonic() const override { return false; }
  void Sync(CWnd&, unsigned) override {}

 private:
  QWidget* widget_;
};

}  // namespace

namespace bindings {
std::unique_ptr<ControlBinding> MakeSpinButton(BindingHost& host, int index, int id, UINT style) {
  return std::make_unique<SpinBinding>(host, index, id, style);
}
}  // namespace bindings

}  // namespace vglobal::qt
