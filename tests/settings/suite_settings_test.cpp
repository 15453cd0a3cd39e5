// Where the suite-wide settings come from: the environment first, then the
// installation settings in the machine store, then the build.
#include <gtest/gtest.h>

#include <cstdlib>

#include "build_config.h"
#include "vglobal/compat/unicode.h"
#include "vglobal/settings.h"

#include "support/scoped_env.h"

namespace {

using vglobal::testing::ScopedEnv;

void Install(const wchar_t* name, const wchar_t* value) {
  CVRegKey(HKEY_LOCAL_MACHINE, L"Installation", 1, 1).WriteStr(name, value);
}

struct SuiteSetting {
  const char* variable;
  const wchar_t* installedName;
  std::wstring buildDefault;
  std::function<std::wstring()> read;
};

void PrintTo(const SuiteSetting& setting, std::ostream* os) {
  *os << setting.variable;
}

class SuiteSettings : public ::testing::TestWithParam<SuiteSetting> {
 protected:
  vglobal::UseMemorySettingsStores stores_;
};

TEST_P(SuiteSettings, EnvironmentThenInstallationThenBuild) {
  const SuiteSetting& setting = GetParam();
  ScopedEnv cleared(setting.variable, nullptr);
  EXPECT_EQ(setting.read(), setting.buildDefault);
  Install(setting.installedName, L"");
  EXPECT_EQ(setting.read(), setting.buildDefault) << "an empty installation value says nothing";
  Install(setting.installedName, L"/installed/ü");
  EXPECT_EQ(setting.read(), L"/installed/ü");
  ScopedEnv overridden(setting.variable, "/from/environment");
  EXPECT_EQ(setting.read(), L"/from/environment");
}

INSTANTIATE_TEST_SUITE_P(
    Sources, SuiteSettings,
    ::testing::Values(SuiteSetting{"ARVENIS_DATA_PATH", L"DataPath",
                                   vglobal::Utf8ToWide(VGLOBAL_BUILD_DATA_DIR),
                                   [] {
                                     CString path;
                                     return GetArvenisDataPath(path) ? path.str() : L"(failed)";
                                   }},
                      SuiteSetting{"ARVENIS_VERSION", L"Version", VGLOBAL_BUILD_VERSION_STRING,
                                   [] { return GetArvenisVersionString().str(); }},
                      SuiteSetting{"ARVENIS_HELP_FILE", L"HelpFile",
                                   vglobal::Utf8ToWide(VGLOBAL_BUILD_HELP_DIR "/arvenis"),
                                   [] {
                                     CString path;
                                     return GetArvenisHTMLHelpFile(path) ? path.str() : L"(failed)";
                                   }}),
    [](const auto& info) { return std::string(info.param.variable); });

TEST(SuiteSettings, PeakDetectionDefaultsPerDevice) {
  vglobal::UseMemorySettingsStores stores;
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_MS), PEAK_DETECTION_SOLENTA);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_ANALOG),
            PEAK_DETECTION_TAMSIN);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_PDA), PEAK_DETECTION_KIVA);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_UV), PEAK_DETECTION_TAMSIN);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_AD_CARD),
            PEAK_DETECTION_TAMSIN);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_OTHER),
            PEAK_DETECTION_SOLENTA);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(static_cast<VirtualDeviceType>(77)),
            PEAK_DETECTION_SOLENTA);
}

TEST(SuiteSettings, InstalledPeakDetectionOverridesOnlyWithAKnownAlgorithm) {
  vglobal::UseMemorySettingsStores stores;
  CVRegKey installed(HKEY_LOCAL_MACHINE, L"Installation\\Peak Detection", 1, 1);
  installed.WriteInt(L"2", PEAK_DETECTION_SELFSET);
  installed.WriteInt(L"0", 4);
  installed.WriteInt(L"1", -1);
  installed.WriteStr(L"3", L"1");
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_PDA),
            PEAK_DETECTION_SELFSET);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_MS), PEAK_DETECTION_SOLENTA);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_ANALOG),
            PEAK_DETECTION_TAMSIN);
  EXPECT_EQ(GetArvenisDefaultPeakDetectionTypeForDevice(VIRTUAL_DEVICE_UV), PEAK_DETECTION_TAMSIN);
}

}  // namespace
