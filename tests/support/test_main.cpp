// The main of every test program. Each process gets a settings folder of its own,
// made empty before the first test and removed after the last: ctest runs every test
// case as a process of its own, several at a time, so a test that reaches the
// default store without setting up its own sees an empty store instead of what
// another test or program left there, and never the developer's own settings.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

namespace {

// Makes a new, empty folder below the system's temporary folder; empty on failure.
std::string MakeSettingsFolder() {
  std::error_code error;
  const std::filesystem::path base = std::filesystem::temp_directory_path(error);
  if (error) return {};
  std::string pattern = (base / "vglobal-test-settings-XXXXXX").string();
  return mkdtemp(pattern.data()) ? pattern : std::string();
}

}  // namespace

int main(int argc, char** argv) {
  const std::string folder = MakeSettingsFolder();
  if (folder.empty()) {
    std::perror("test main: cannot make a settings folder");
    return 1;
  }
  // Overwrites any folder of the caller's: tests never touch a store they did not make.
  setenv("ARVENIS_SETTINGS_DIR", folder.c_str(), 1);
  ::testing::InitGoogleTest(&argc, argv);
  const int result = RUN_ALL_TESTS();
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
  return result;
}
