// Drag and drop under Qt.
//
//   1. Conversions   - formats <-> QMimeData, MK_ key state, DROPEFFECT <-> Qt::DropAction
//   2. Drag source   - QDrag run by the replaceable drag exec
//   3. Drop targets  - an event filter per registered widget that asks the core target
#include <QApplication>
#include <QCursor>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPointer>
#include <utility>
#include <vector>

#include "vglobal/compat/window.h"
#include "vglobal/drag_drop.h"
#include "vglobal/qt/drag_drop.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {
namespace {

// ---- 1. Conversions ------------------------------------------------------------

// The registered formats a drag offers; MIME types no format of this process has
// are nobody's business here.
DragPayload PayloadOf(const QMimeData* mime) {
  DragPayload payload;
  if (!mime) return payload;
  for (const QString& type : mime->formats()) {
    const UINT format = RegisteredFormatOf(type.toStdString());
    if (format == 0) continue;
    const QByteArray bytes = mime->data(type);
    payload.Set(format, std::vector<unsigned char>(bytes.begin(), bytes.end()));
  }
  return payload;
}

DWORD KeyState(Qt::KeyboardModifiers keys, Qt::MouseButtons buttons) {
  DWORD state = 0;
  if (keys & Qt::ControlModifier) state |= MK_CONTROL;
  if (keys & Qt::ShiftModifier) state |= MK_SHIFT;
  if (keys & Qt::AltModifier) state |= MK_ALT;
  if (buttons & Qt::LeftButton) state |= MK_LBUTTON;
  if (buttons & Qt::RightButton) state |= MK_RBUTTON;
  if (buttons & Qt::MiddleButton) state |= MK_MBUTTON;
  return state;
}

DWORD EffectsOf(Qt::DropActions actions) {
  DWORD effects = DROPEFFECT_NONE;
  if (actions & Qt::CopyAction) effects |= DROPEFFECT_COPY;
  if (actions & Qt::MoveAction) effects |= DROPEFFECT_MOVE;
  if (actions & Qt::LinkAction) effects |= DROPEFFECT_LINK;
  return effects;
}

Qt::DropActions ActionsOf(DWORD effects) {
  Qt::DropActions actions;
  if (effects & DROPEFFECT_COPY) actions |= Qt::CopyAction;
  if (effects & DROPEFFECT_MOVE) actions |= Qt::MoveAction;
  if (effects & DROPEFFECT_LINK) actions |= Qt::LinkAction;
  return actions;
}

// One effect (the sinks answer one at most) as an action.
Qt::DropAction ActionOf(DWORD effect) {
  if (effect & DROPEFFECT_COPY) return Qt::CopyAction;
  if (effect & DROPEFFECT_MOVE) return Qt::MoveAction;
  if (effect & DROPEFFECT_LINK) return Qt::LinkAction;
  return Qt::IgnoreAction;
}

// ---- 2. Drag source --------------------------------------------------------------

DragExec& TheDragExec() {
  static DragExec exec;
  return exec;
}

// ---- 3. Drop targets -------------------------------------------------------------

// Turns the drag events of one widget into the calls of its registered sink. The
// widget owns the filter, so a destroyed widget takes its registration with it.
class DropFilter : public QObject {
 public:
  DropFilter(QWidget& widget, DropSink& sink) : QObject(&widget), sink_(sink) {}
  DropSink& Sink() const { return sink_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    switch (event->type()) {
      case QEvent::DragEnter:
      case QEvent::DragMove:
      case QEvent::Drop:
        Deliver(static_cast<QDropEvent&>(*event));
        return true;
      case QEvent::DragLeave:
        sink_.DragLeave();
        event->accept();
        return true;
      default:
        return QObject::eventFilter(watched, event);
    }
  }

 private:
  void Deliver(QDropEvent& event) {
    const DragPayload data = PayloadOf(event.mimeData());
    const DWORD keys = KeyState(event.modifiers(), event.buttons());
    const QPoint at = event.position().toPoint();
    const POINT point{at.x(), at.y()};
    const DWORD allowed = EffectsOf(event.possibleActions());
    DWORD effect = DROPEFFECT_NONE;
    if (event.type() == QEvent::DragEnter)
      effect = sink_.DragEnter(data, keys, point, allowed);
    else if (event.type() == QEvent::DragMove)
      effect = sink_.DragOver(data, keys, point, allowed);
    else
      effect = sink_.Drop(data, keys, point, allowed);
    event.setDropAction(ActionOf(effect));
    // An entering drag is always taken, so that the target keeps hearing of it as it
    // moves and may accept it further on; elsewhere "none" refuses the drop there.
    if (effect != DROPEFFECT_NONE || event.type() == QEvent::DragEnter)
      event.accept();
    else
      event.ignore();
  }

  DropSink& sink_;
};

std::vector<QPointer<DropFilter>>& Filters() {
  static std::vector<QPointer<DropFilter>> filters;
  std::erase_if(filters, [](const QPointer<DropFilter>& f) { return f.isNull(); });
  return filters;
}

}  // namespace

DragExec SetDragExec(DragExec exec) {
  return std::exchange(TheDragExec(), std::move(exec));
}

DWORD QtPlatform::DoDragDrop(const DragPayload& data, DWORD allowedEffects) {
  const Qt::DropActions allowed = ActionsOf(allowedEffects);
  if (data.Empty() || !allowed) return DROPEFFECT_NONE;
  auto mime = std::make_unique<QMimeData>();
  for (const auto& [format, bytes] : data.Items()) {
    const std::string type = RegisteredFormatMimeType(format);
    if (type.empty()) continue;  // not a registered format: no program could ask for it
    mime->setData(QString::fromStdString(type),
                  QByteArray(reinterpret_cast<const char*>(bytes.data()),
                             static_cast<qsizetype>(bytes.size())));
  }
  if (mime->formats().isEmpty()) return DROPEFFECT_NONE;

  // The widget under the pointer is where the drag starts; Qt needs some source.
  static QObject fallbackSource;
  QObject* source = QApplication::widgetAt(QCursor::pos());
  QDrag drag(source ? source : &fallbackSource);
  drag.setMimeData(mime.release());
  const Qt::DropAction proposed =
      allowed.testFlag(Qt::MoveAction) ? Qt::MoveAction : ActionOf(allowedEffects);
  const Qt::DropAction done =
      TheDragExec() ? TheDragExec()(drag, allowed, proposed) : drag.exec(allowed, proposed);
  return EffectsOf(done) & allowedEffects;
}

bool QtPlatform::RegisterDropTarget(CWnd& window, DropSink& sink) {
  auto* widget = static_cast<QWidget*>(window.PlatformWindow());
  if (!widget) return false;
  for (const QPointer<DropFilter>& filter : Filters())
    if (filter->parent() == widget || &filter->Sink() == &sink) return false;
  auto* filter = new DropFilter(*widget, sink);
  widget->installEventFilter(filter);
  widget->setAcceptDrops(true);
  Filters().push_back(filter);
  return true;
}

void QtPlatform::RevokeDropTarget(CWnd& /*window*/, DropSink& sink) {
  for (const QPointer<DropFilter>& filter : Filters())
    if (&filter->Sink() == &sink) {
      auto* widget = static_cast<QWidget*>(filter->parent());
      widget->removeEventFilter(filter);
      widget->setAcceptDrops(false);
      delete filter.data();
      return;
    }
}

}  // namespace vglobal
