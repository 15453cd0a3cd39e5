// Splitting and completing paths: the documented backslash results, and the same
// rules for the '/' paths of this system.
#include "vglobal/util/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "support/scoped_env.h"

namespace {

template <void (*Function)(const CString&, CString&)>
CString Apply(const wchar_t* path) {
  CString out = L"stale";
  Function(path, out);
  return out;
}

using Case = std::pair<const wchar_t*, const wchar_t*>;

TEST(PathSplit, FileNameAndPathName) {
  for (auto [path, name] :
       {Case{L"C:\\dir\\file.raw", L"file.raw"}, Case{L"C:\\dir\\", L""},
        Case{L"file.txt", L"file.txt"}, Case{L"/srv/a.raw", L"a.raw"}, Case{L"a/b\\c", L"c"}}) {
    EXPECT_EQ(Apply<GetFileName>(path), name) << CString(path).ToUtf8();
  }
  for (auto [path, directory] :
       {Case{L"C:\\dir\\file.raw", L"C:\\dir\\"}, Case{L"file.raw", L""},
        Case{L"C:\\dir\\\\\\file", L"C:\\dir\\"}, Case{L"\\\\", L"\\"},
        Case{L"/srv//data/x", L"/srv//data/"}, Case{L"/srv/data//x", L"/srv/data/"}}) {
    EXPECT_EQ(Apply<GetPathName>(path), directory) << CString(path).ToUtf8();
  }
}

// Points the suite's data folder somewhere for one test and restores it afterwards.
class PrefixPathTest : public ::testing::Test {
 protected:
  void UseDataFolder(const char* folder) { dataFolder_.Set(folder); }
  void Expect(std::initializer_list<Case> cases) {
    for (auto [path, prefix] : cases) {
      EXPECT_EQ(Apply<PrefixPath>(path), prefix) << CString(path).ToUtf8();
    }
  }

 private:
  vglobal::testing::ScopedEnv dataFolder_{"ARVENIS_DATA_PATH", nullptr};
};

TEST_F(PrefixPathTest, BackslashPathsAsDocumented) {
  UseDataFolder("C:\\Data");
  Expect({{L"C:\\data\\\\", L"C:\\data\\"},
          {L"z:\\", L"z:\\"},
          {L"\\\\server\\share", L"UNC\\server\\share\\"},
          {L"methods", L"C:\\Data\\methods\\"},
          {L"\\methods", L"C:\\Data\\methods\\"},
          {L"C:", L"C:\\Data\\C:\\"},  // too short for a drive
          {L"1:\\x", L"C:\\Data\\1:\\x\\"},
          {L"\\\\", L"C:\\Data\\"},
          {L"", L"C:\\Data\\"}});
}

TEST_F(PrefixPathTest, PosixPathsAndDataFolders) {
  UseDataFolder("C:\\Data");
  Expect({{L"/srv/data//", L"/srv/data/"}, {L"/", L"/"}, {L"C:/data", L"C:/data/"}});
  UseDataFolder("/srv/arvenis");
  Expect({{L"methods", L"/srv/arvenis/methods/"},
          {L"sub/dir//", L"/srv/arvenis/sub/dir/"},
          {L"\\methods", L"/srv/arvenis\\methods\\"}});
  UseDataFolder("/srv/arvenis/");
  Expect({{L"methods", L"/srv/arvenis/methods/"}});
}

}  // namespace
