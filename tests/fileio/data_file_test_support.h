// A scratch folder for the data-file tests, and the byte-level helpers they share:
// reading and writing whole files and listing what a folder holds, so that a test
// can tell that a failed open or save created nothing.
#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace vglobal::testing {

class DataFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    static std::atomic<int> serial{0};
    dir_ = std::filesystem::temp_directory_path() /
           ("vglobal-datafile-" + std::to_string(getpid()) + "-" + std::to_string(serial++));
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }

  std::wstring Path(const char* name) const { return (dir_ / name).wstring(); }

  static std::vector<std::uint8_t> ReadBytes(const std::wstring& path) {
    std::ifstream in(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static void WriteBytes(const std::wstring& path, const std::vector<std::uint8_t>& bytes) {
    std::ofstream out(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(bytes.data()),
              static_cast<std::streamsize>(bytes.size()));
  }
  static void WriteText(const std::wstring& path, const std::string& text) {
    std::ofstream out(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
    out << text;
  }
  // The names in the scratch folder.
  std::set<std::string> Listing() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir_))
      names.insert(entry.path().filename().string());
    return names;
  }

  std::filesystem::path dir_;
};

}  // namespace vglobal::testing
