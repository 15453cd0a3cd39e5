// QtPlatform's messages and timers: posted calls go through Qt's event queue, and
// each window timer is a QTimer.
#include <QCoreApplication>
#include <QTimer>
#include <map>

#include "vglobal/compat/window.h"
#include "vglobal/qt/qt_platform.h"

namespace vglobal {
namespace {

std::map<TimerKey, QTimer*>& Timers() {
  static auto* timers = new std::map<TimerKey, QTimer*>;  // GUI thread only
  return *timers;
}

// A timer may be stopped from its own tick: it is deleted once that returns.
void Discard(QTimer* timer) {
  timer->stop();
  timer->deleteLater();
}

}  // namespace

void QtPlatform::Post(std::function<void()> call) {
  QCoreApplication* app = QCoreApplication::instance();
  if (!app) {
    Platform::Post(std::move(call));  // no event loop any more: the program drains
    return;
  }
  QMetaObject::invokeMethod(app, std::move(call), Qt::QueuedConnection);
}

bool QtPlatform::StartTimer(TimerKey key, UINT elapse, std::function<void()> tick) {
  QCoreApplication* app = QCoreApplication::instance();
  if (!app) return false;
  QTimer*& timer = Timers()[key];
  if (timer) Discard(timer);  // the old tick goes with its timer
  timer = new QTimer(app);
  timer->setInterval(static_cast<int>(elapse));  // at most 0x7FFFFFFF (CWnd::SetTimer)
  QObject::connect(timer, &QTimer::timeout, timer, std::move(tick));
  timer->start();
  return true;
}

void QtPlatform::StopTimer(TimerKey key) {
  auto it = Timers().find(key);
  if (it == Timers().end()) return;
  Discard(it->second);
  Timers().erase(it);
}

void QtPlatform::WindowDestroyed(const CWnd& window) {
  const std::uint64_t serial = WindowRef(&window).Serial();
  std::erase_if(Timers(), [serial](const auto& entry) {
    if (entry.first.window != serial) return false;
    Discard(entry.second);
    return true;
  });
  Platform::WindowDestroyed(window);
}

}  // namespace vglobal
