// Command lines: the splitting rules, and which file is the program.
#include "platform/command_line.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using vglobal::command_line::FindExecutable;
using vglobal::command_line::Resolve;
using vglobal::command_line::SplitArguments;
using Args = std::vector<std::wstring>;

TEST(SplitArguments, FollowsTheRulesOfBlanksQuotesAndBackslashes) {
  const std::pair<std::wstring, Args> cases[] = {
      {L"", {}},
      {L"  a \t b  ", {L"a", L"b"}},
      {L"\"a b\" c", {L"a b", L"c"}},
      {L"a\"b c\"d e", {L"ab cd", L"e"}},
      {L"a \"\" b", {L"a", L"", L"b"}},
      {L"\"unterminated run", {L"unterminated run"}},
      {L"line\nbreak", {L"line\nbreak"}},  // only spaces and tabs separate
      {L"C:\\dir\\file.raw", {L"C:\\dir\\file.raw"}},
      {L"trailing\\", {L"trailing\\"}},
      {L"\\\"a", {L"\"a"}},                          // 1 backslash + quote: literal quote
      {L"\\\\\"a b\"", {L"\\a b"}},                  // 2: one backslash, the quote groups
      {L"\\\\\\\"a b", {L"\\\"a", L"b"}},            // 3: one backslash and a literal quote
      {L"\"C:\\dir\\\\\" x", {L"C:\\dir\\", L"x"}},  // quoted folder ending in a backslash
      {L"\"a\"\" b\"", {L"a\" b"}},  // "" inside a run: a literal quote, the run goes on
      {L"\"\"\"\"", {L"\""}},
      {L"a\"\"b", {L"ab"}},                          // outside a run two quotes open and close one
      {std::wstring(L"a b\0c d", 7), {L"a", L"b"}},  // the text ends at its first zero
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(SplitArguments(text), expected);
}

TEST(FindExecutable, BareNamesComeFromPathAndOnlyExecutableFilesCount) {
  const fs::path bin = fs::temp_directory_path() / ("vglobal-cmdline-" + std::to_string(getpid()));
  fs::create_directories(bin / "folder");
  std::ofstream(bin / "tool") << "#!/bin/sh\n";
  std::ofstream(bin / "data") << "text\n";
  fs::permissions(bin / "tool", fs::perms::owner_all);
  const std::string savedPath = std::getenv("PATH") ? std::getenv("PATH") : "";
  setenv("PATH", ("/nonexistent::" + bin.string()).c_str(), 1);

  EXPECT_EQ(FindExecutable("tool"), (bin / "tool").string());
  for (const char* name : {"data", "folder", "missing", "", "./tool", "bin\\tool"})
    EXPECT_EQ(FindExecutable(name), std::nullopt) << name;
  // Lines whose program part names nothing runnable.
  for (const wchar_t* line : {L"", L"   ", L"\"\" tool", L"C:\\Program Files\\tool.exe"})
    EXPECT_FALSE(Resolve(line)) << line;
  EXPECT_FALSE(Resolve(std::wstring(L"\0tool", 5)));
  auto resolved = Resolve(L"  tool \"a b\" c\\\"d");
  ASSERT_TRUE(resolved);
  EXPECT_EQ(resolved->program, L"tool");
  EXPECT_EQ(resolved->arguments, (Args{L"a b", L"c\"d"}));

  // Prefixes end before a quote: "a b" is not reached through the unquoted line.
  std::ofstream(bin / "a b") << "#!/bin/sh\n";
  fs::permissions(bin / "a b", fs::perms::owner_all);
  EXPECT_TRUE(Resolve((bin / "a b").wstring()));
  EXPECT_FALSE(Resolve(bin.wstring() + L"/a \"b\""));

  setenv("PATH", savedPath.c_str(), 1);
  fs::remove_all(bin);
}

}  // namespace
