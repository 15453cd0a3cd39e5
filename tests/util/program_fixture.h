// A scratch world for tests that start programs: a folder first on PATH where the
// recording helper is installed under the suite's program names, a private
// XDG_RUNTIME_DIR (no real instance is ever reached), and the helper's record file.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vglobal/util/programs.h"

namespace vglobal::testing {

// What the helper recorded about how it was started.
struct StartedProgram {
  std::multimap<std::string, std::string> entries;
  std::vector<std::string> args;
  std::vector<std::string> All(const std::string& name) const {
    std::vector<std::string> values;
    for (auto [it, end] = entries.equal_range(name); it != end; ++it) values.push_back(it->second);
    return values;
  }
  std::string Value(const std::string& name) const {
    auto values = All(name);
    return values.empty() ? "(none)" : values.front();
  }
};

class ProgramFixture : public ::testing::Test {
 protected:
  void SetUp() override {
    static std::atomic<int> serial{0};
    root_ = std::filesystem::temp_directory_path() /
            ("vglobal-programs-" + std::to_string(getpid()) + "-" + std::to_string(serial++));
    std::filesystem::create_directories(bin_ = root_ / "bin");
    std::filesystem::create_directories(runtime_ = root_ / "run");
    recordFile_ = root_ / "record";
    const char* path = std::getenv("PATH");
    Set("PATH", bin_.string() + ":" + (path ? path : "/usr/bin:/bin"));
    Set("XDG_RUNTIME_DIR", runtime_.string());
    Set("RECORD_ARGS_FILE", recordFile_.string());
  }
  void TearDown() override {
    for (const auto& [name, value] : saved_)
      value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    std::filesystem::remove_all(root_);
  }

  void InstallProgram(const std::filesystem::path& relative) {
    std::filesystem::create_directories((bin_ / relative).parent_path());
    std::filesystem::create_symlink(RECORD_ARGS_HELPER, bin_ / relative);
  }

  // Waits for a started helper, closes its handle and returns its record.
  StartedProgram Collect(void* process) {
    int code = -1;
    EXPECT_EQ(WaitForProcess(process, true, &code), ProcessWait::Exited);
    EXPECT_EQ(code, 0);
    CloseProcess(process);
    std::ifstream in(recordFile_, std::ios::binary);
    EXPECT_TRUE(in.good()) << "the program wrote no record";
    const std::string bytes{std::istreambuf_iterator<char>(in), {}};
    std::filesystem::remove(recordFile_);
    StartedProgram record;
    for (std::size_t start = 0, end; start < bytes.size(); start = end + 1) {
      end = std::min(bytes.find('\0', start), bytes.size());
      const std::string entry = bytes.substr(start, end - start);
      const std::size_t equals = entry.find('=');
      record.entries.emplace(entry.substr(0, equals), entry.substr(equals + 1));
      if (entry.starts_with("arg=")) record.args.push_back(entry.substr(equals + 1));
    }
    return record;
  }

  std::filesystem::path root_, bin_, runtime_, recordFile_;

 private:
  void Set(const char* name, const std::string& value) {
    const char* old = std::getenv(name);
    saved_.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
    setenv(name, value.c_str(), 1);
  }
  std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

}  // namespace vglobal::testing
