#include "frame/window_class.h"

#include <map>
#include <mutex>

#include "vglobal/compat/unicode.h"

namespace vglobal {
namespace {

struct Registry {
  std::mutex mutex;
  std::map<std::wstring, WindowClass> classes;  // by folded name
};

Registry& TheRegistry() {
  static Registry* registry = new Registry;  // used by the library's destructor
  return *registry;
}

}  // namespace

bool RegisterWindowClass(const WindowClass& windowClass) {
  if (windowClass.name.empty()) return false;
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  return r.classes.emplace(FoldCase(windowClass.name), windowClass).second;
}

bool UnregisterWindowClass(const std::wstring& name, const void* module) {
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  auto it = r.classes.find(FoldCase(name));
  if (it == r.classes.end() || it->second.module != module) return false;
  r.classes.erase(it);
  return true;
}

std::optional<WindowClass> FindWindowClass(const std::wstring& name) {
  Registry& r = TheRegistry();
  std::lock_guard lock(r.mutex);
  auto it = r.classes.find(FoldCase(name));
  if (it == r.classes.end()) return std::nullopt;
  return it->second;
}

LRESULT DefaultWindowProcedure(HWND, UINT, WPARAM, LPARAM) {
  return 0;
}

}  // namespace vglobal
