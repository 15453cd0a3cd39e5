// Opening raw and sequence files with retries, and the message for every way an open
// fails, against real files on disk. The wait between attempts is replaced by a
// recorder, which can also make the file appear while the opener waits.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "messages/file_open_internal.h"
#include "vglobal/messages/file_open.h"

namespace {

std::vector<unsigned> g_waits;
std::filesystem::path g_appearsAtWait2;  // created by the second wait, when set

void RecordWait(unsigned milliseconds) {
  g_waits.push_back(milliseconds);
  if (g_waits.size() == 2 && !g_appearsAtWait2.empty()) {
    CRawfile file(g_appearsAtWait2.wstring().c_str(), 0);
    ASSERT_TRUE(file.Save());
  }
}

class FileOpen : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    dir_ = std::filesystem::temp_directory_path() /
           ("vglobal-fileopen-" + std::to_string(getpid()) + "-" + test);
    std::filesystem::create_directories(dir_);
    g_waits.clear();
    g_appearsAtWait2.clear();
    previousWait_ = vglobal::SetFileOpenRetryWait(&RecordWait);
  }
  void TearDown() override {
    vglobal::SetFileOpenRetryWait(previousWait_);
    std::error_code ignored;
    std::filesystem::remove_all(dir_, ignored);
  }

  std::wstring Existing(const char* name, bool sequence = false) {
    const std::wstring path = (dir_ / name).wstring();
    if (sequence) {
      EXPECT_TRUE(CSequence(path.c_str(), 0, 0).Save());
    } else {
      EXPECT_TRUE(CRawfile(path.c_str(), 0).Save());
    }
    return path;
  }
  std::wstring Missing(const char* name) const { return (dir_ / name).wstring(); }
  std::size_t FilesOnDisk() const {
    return std::distance(std::filesystem::directory_iterator(dir_), {});
  }

  // The message an open threw (owned here), or null when it returned instead.
  template <typename Open>
  static std::unique_ptr<CMessage> Thrown(Open open) {
    try {
      delete open();
    } catch (CMessage* message) {
      EXPECT_EQ(message->GetMsgType(), EMSG_ERROR);
      return std::unique_ptr<CMessage>(message);
    }
    ADD_FAILURE() << "the open threw nothing";
    return nullptr;
  }
  static std::wstring Text(const std::unique_ptr<CMessage>& message) {
    return message ? message->GetMessageW().str() : L"<none>";
  }

  CFileOpen open_;
  std::filesystem::path dir_;
  vglobal::RetryWait previousWait_ = nullptr;
};

TEST_F(FileOpen, OpensWhatTheOpenTypeExpects) {
  const std::wstring raw = Existing("a.raw"), seq = Existing("a.sld", true);
  std::unique_ptr<CRawfile> r(open_.OpenRawFileAndChkForErrors(raw.c_str(), 3, 0));
  ASSERT_TRUE(r);
  EXPECT_FALSE(r->CreatedFile());
  std::unique_ptr<CSequence> s(open_.OpenSeqFileAndChkForErrors(seq.c_str(), 3, 0));
  ASSERT_TRUE(s);
  EXPECT_FALSE(s->IsReadOnly());
  s.reset(open_.OpenSeqFileAndChkForErrors(seq.c_str(), 6, 0));
  ASSERT_TRUE(s);
  EXPECT_TRUE(s->IsReadOnly());

  // Expected new: an object in memory only, nothing on disk yet.
  r.reset(open_.OpenRawFileAndChkForErrors(Missing("b.raw").c_str(), 1, 0));
  ASSERT_TRUE(r);
  EXPECT_TRUE(r->CreatedFile());
  s.reset(open_.OpenSeqFileAndChkForErrors(Missing("b.sld").c_str(), 1, 0));
  ASSERT_TRUE(s);
  EXPECT_EQ(FilesOnDisk(), 2u);
  EXPECT_TRUE(g_waits.empty());
}

TEST_F(FileOpen, FileNotAsExpectedIsThrownAndNothingIsCreated) {
  const std::wstring raw = Existing("a.raw"), seq = Existing("a.sld", true);
  const std::wstring missing = Missing("b.raw");
  EXPECT_EQ(Text(Thrown([&] { return open_.OpenRawFileAndChkForErrors(raw.c_str(), 1, 0); })),
            raw + L"\nFile already exists\n");
  EXPECT_EQ(Text(Thrown([&] { return open_.OpenSeqFileAndChkForErrors(seq.c_str(), 1, 0); })),
            seq + L"\nFile already exists\n");
  EXPECT_EQ(Text(Thrown([&] { return open_.OpenRawFileAndChkForErrors(missing.c_str(), 3, 0); })),
            missing + L"\nFile wasn't found\n");
  for (int type : {3, 6}) {
    EXPECT_EQ(
        Text(Thrown([&] { return open_.OpenSeqFileAndChkForErrors(missing.c_str(), type, 0); })),
        missing + L"\nFile wasn't found\n");
  }
  EXPECT_EQ(FilesOnDisk(), 2u);
}

TEST_F(FileOpen, IllegalOpenTypeIsRefusedBeforeAnyAttempt) {
  const std::wstring path = Missing("a.raw");
  const std::wstring refused = path + L"\nIllegal OpenType parameter\n";
  for (int type : {6, 0, 2, -1}) {
    EXPECT_EQ(Text(Thrown([&] { return open_.OpenRawFileAndChkForErrors(path.c_str(), type, 3); })),
              refused);
  }
  for (int type : {0, 2, 7}) {
    EXPECT_EQ(Text(Thrown([&] { return open_.OpenSeqFileAndChkForErrors(path.c_str(), type, 3); })),
              refused);
  }
  EXPECT_TRUE(g_waits.empty());
  EXPECT_EQ(FilesOnDisk(), 0u);
}

TEST_F(FileOpen, ObjectErrorIsPassedOnWithItsCodeInHex) {
  const std::filesystem::path foreign = dir_ / "notes.raw";
  std::ofstream(foreign) << "not a data file of the suite";
  const std::wstring path = foreign.wstring();
  CRawfile direct(path.c_str(), 0);
  ASSERT_EQ(direct.GetErrorCode(), CBaseIO::kNotOurFormat);

  EXPECT_EQ(Text(Thrown([&] { return open_.OpenRawFileAndChkForErrors(path.c_str(), 3, 0); })),
            path + L"\nFile Object reports an error.\nError code: 0000000B(hex)\nError Msg: " +
                direct.GetErrorMessage().str() + L"\n");
  EXPECT_EQ(std::filesystem::file_size(foreign), 28u);

  // A null path names no file; the object says so.
  const std::wstring nullPath =
      Text(Thrown([&] { return open_.OpenRawFileAndChkForErrors(nullptr, 1, 0); }));
  EXPECT_EQ(nullPath.rfind(L"\nFile Object reports an error.\nError code: 00000057(hex)\n", 0), 0u);
}

TEST_F(FileOpen, RetriesWaitOneSecondBeforeEachFurtherAttempt) {
  const std::wstring path = Missing("late.raw");
  Thrown([&] { return open_.OpenRawFileAndChkForErrors(path.c_str(), 3, 0); });
  EXPECT_TRUE(g_waits.empty());
  Thrown([&] { return open_.OpenRawFileAndChkForErrors(path.c_str(), 3, -5); });
  EXPECT_TRUE(g_waits.empty());

  // The file appears during the second wait: two retries reach it, one does not.
  g_appearsAtWait2 = path;
  Thrown([&] { return open_.OpenRawFileAndChkForErrors(path.c_str(), 3, 1); });
  EXPECT_EQ(g_waits, std::vector<unsigned>{1000});
  g_waits.clear();
  std::unique_ptr<CRawfile> file(open_.OpenRawFileAndChkForErrors(path.c_str(), 3, 2));
  EXPECT_TRUE(file && !file->CreatedFile());
  EXPECT_EQ(g_waits, (std::vector<unsigned>{1000, 1000}));
}

// The codes that real files cannot produce on demand.
TEST(FileOpenJudging, RareFailuresHaveTheirMessages) {
  CString ignored;
  unsigned int errorCode = 0;
  EXPECT_EQ(vglobal::FileOpenAccess::ChkIsFileOpenOk(nullptr, ignored, errorCode, 1), 1);

  auto text = [](int failure, unsigned code = 0, const wchar_t* what = L"") {
    std::unique_ptr<CMessage> m(
        vglobal::FileOpenAccess::ConstructFileErrMsg(failure, L"C:\\data\\a.raw", code, what));
    EXPECT_TRUE(!m || m->IsErrorMsg());
    return m ? m->GetMessageW().str() : L"<none>";
  };
  EXPECT_EQ(text(0), L"<none>");
  EXPECT_EQ(text(1), L"C:\\data\\a.raw\nFile Object allocation failed\n");
  EXPECT_EQ(text(2, 0x1F, L"bad"),
            L"C:\\data\\a.raw\nFile Object reports an error.\nError code: 0000001F(hex)\n"
            L"Error Msg: bad\n");
  for (int unknown : {5, 7, -1}) {
    EXPECT_EQ(text(unknown), L"C:\\data\\a.raw\nUnknown failure mode opening file\n");
  }
}

}  // namespace
