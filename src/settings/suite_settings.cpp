// The suite-wide settings: data folder, version text, help folder and the default
// peak-detection algorithm per detector. Each comes from the first source that has
// it: the environment, the installation settings in the machine store, the build.
#include <cstdlib>
#include <optional>
#include <string>

#include "build_config.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/settings.h"

namespace {

// Installation settings, below the machine store's base location.
constexpr const wchar_t* kInstallationKey = L"Installation";
constexpr const wchar_t* kPeakDetectionKey = L"Installation\\Peak Detection";

// The suite's own table, used where the installation says nothing for a detector.
struct DeviceDefault {
  VirtualDeviceType device;
  ePeakDetectionAlgorithm algorithm;
};
constexpr DeviceDefault kDefaultAlgorithms[] = {
    {VIRTUAL_DEVICE_MS, PEAK_DETECTION_SOLENTA},     {VIRTUAL_DEVICE_ANALOG, PEAK_DETECTION_TAMSIN},
    {VIRTUAL_DEVICE_PDA, PEAK_DETECTION_KIVA},       {VIRTUAL_DEVICE_UV, PEAK_DETECTION_TAMSIN},
    {VIRTUAL_DEVICE_AD_CARD, PEAK_DETECTION_TAMSIN},
};
constexpr ePeakDetectionAlgorithm kOtherDeviceAlgorithm = PEAK_DETECTION_SOLENTA;

std::wstring Setting(const char* variable, const wchar_t* installedName,
                     std::wstring_view buildDefault) {
  if (const char* value = std::getenv(variable); value && *value) {
    return vglobal::Utf8ToWide(value);
  }
  CVRegKey installation(HKEY_LOCAL_MACHINE, kInstallationKey, 0, 0);
  CString installed;
  if (installation.ReadStr(installedName, installed) && !installed.IsEmpty()) {
    return installed.str();
  }
  return std::wstring(buildDefault);
}

}  // namespace

int GetArvenisDataPath(CString& path) {
  std::wstring value =
      Setting("ARVENIS_DATA_PATH", L"DataPath", vglobal::Utf8ToWide(VGLOBAL_BUILD_DATA_DIR));
  if (value.empty()) return 0;
  path = CString(std::move(value));
  return 1;
}

const CString& GetArvenisVersionString() {
  // Per thread, so that a caller holding the reference never sees another thread
  // rewrite it.
  thread_local CString version;
  version = CString(Setting("ARVENIS_VERSION", L"Version", VGLOBAL_BUILD_VERSION_STRING));
  return version;
}

int GetArvenisHTMLHelpFile(CString& path) {
  std::wstring value = Setting("ARVENIS_HELP_FILE", L"HelpFile",
                               vglobal::Utf8ToWide(VGLOBAL_BUILD_HELP_DIR "/arvenis"));
  if (value.empty()) return 0;
  path = CString(std::move(value));
  return 1;
}

ePeakDetectionAlgorithm GetArvenisDefaultPeakDetectionTypeForDevice(VirtualDeviceType device) {
  CVRegKey installed(HKEY_LOCAL_MACHINE, kPeakDetectionKey, 0, 0);
  int stored = -1;
  if (installed.ReadInt(std::to_wstring(static_cast<int>(device)).c_str(), &stored) &&
      stored >= PEAK_DETECTION_SOLENTA && stored <= PEAK_DETECTION_SELFSET) {
    return static_cast<ePeakDetectionAlgorithm>(stored);
  }
  for (const DeviceDefault& entry : kDefaultAlgorithms) {
    if (entry.device == device) return entry.algorithm;
  }
  return kOtherDeviceAlgorithm;
}
