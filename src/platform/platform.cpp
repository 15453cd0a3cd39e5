// The platform in force: one per process, the headless platform unless another was
// installed.
#include <atomic>

#include "vglobal/platform.h"

namespace vglobal {
namespace {

Platform& DefaultPlatform() {
  // Never destroyed: library code may still ask for the platform while static
  // objects are torn down at exit.
  static Platform* platform = new HeadlessPlatform;
  return *platform;
}

std::atomic<Platform*>& Installed() {
  static std::atomic<Platform*> installed{nullptr};
  return installed;
}

}  // namespace

Platform::~Platform() = default;

void SetPlatform(Platform* platform) {
  Installed().store(platform);
}

Platform& GetPlatform() {
  Platform* p = Installed().load();
  return p ? *p : DefaultPlatform();
}

}  // namespace vglobal
