// CMessage: which constructor a call reaches, the text it builds, and showing a
// message once per device and error code.
#include "vglobal/messages/message.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "support/scripted_platform.h"
#include "vglobal/compat/resources.h"
#include "vglobal/compat/window.h"

namespace {

constexpr UINT kDeviceFailed = 61001;
constexpr UINT kEmptyEntry = 61002;
const vglobal::StringEntry kStrings[] = {{kDeviceFailed, L"Device %s failed with code %d."},
                                         {kEmptyEntry, L""}};
const vglobal::ResourceTables kTables{L"message_test", kStrings, std::size(kStrings), nullptr, 0};

// Runs `whileOpen` once inside the next box, as an event loop runs other code under a
// modal box; the tick count is fixed and its reads are counted.
class ReentrantPlatform : public vglobal::testing::ScriptedPlatform {
 public:
  std::function<void()> whileOpen;
  int tickReads = 0;
  bool failToShow = false;

  int MessageBox(CWnd* owner, const wchar_t* text, const wchar_t* caption, UINT style) override {
    if (failToShow) throw std::runtime_error("no display");
    const int answer = ScriptedPlatform::MessageBox(owner, text, caption, style);
    if (auto hook = std::exchange(whileOpen, nullptr)) hook();
    return answer;
  }
  DWORD TickCount() override { return ++tickReads, 4242; }
};

class MessageTest : public ::testing::Test {
 protected:
  void SetUp() override { vglobal::SetApplicationResources(&kTables); }
  void TearDown() override { vglobal::SetApplicationResources(nullptr); }
  ReentrantPlatform platform;
};

TEST_F(MessageTest, TypeFirstFormatsWhileErrorCodeFirstRebuildsAndBothUseUpAnId) {
  const DWORD next = CMessage::m_CurrentMsgID;
  CMessage ints(EMSG_ERROR, L"%d %d %d", 1, 2, 3);
  EXPECT_EQ(ints.GetMessageW(), L"1 2 3");
  EXPECT_TRUE(ints.IsErrorMsg());
  EXPECT_EQ(ints.GetMsgID(), next);
  EXPECT_EQ(ints.GetMsgTime(), 4242u);
  // Exact longs match the rebuilding constructor's parameters one for one.
  CMessage longs(EMSG_WARNING, L"%ld|%ld|%ld", 4L, 5L, 6L);
  EXPECT_EQ(longs.GetMessageW(), L"4|5|6");

  CMessage rebuilt(5L, L"100% done %d", 9L, 77L, 123L);
  EXPECT_EQ(rebuilt.GetMessageW(), L"100% done %d");
  EXPECT_TRUE(rebuilt.IsErrorMsg());
  EXPECT_EQ(rebuilt.ErrorCode(), 5u);
  EXPECT_EQ(rebuilt.GetFlags(), 9u);
  EXPECT_EQ(rebuilt.GetMsgID(), 77u);
  EXPECT_EQ(rebuilt.GetMsgTime(), 123u);
  EXPECT_EQ(CMessage::m_CurrentMsgID, next + 3);
}

TEST_F(MessageTest, FormatsComeFromResourcesStringsOrTextAndAreNeverCut) {
  EXPECT_EQ(CMessage(EMSG_ERROR, kDeviceFailed, L"GC-2", 17).GetMessageW(),
            L"Device GC-2 failed with code 17.");
  CString library;
  library.Format(CResourceStr(5201), L"prog");
  EXPECT_EQ(CMessage(EMSG_ERROR, 5201u, L"prog").GetMessageW(), library);
  EXPECT_EQ(CMessage(EMSG_ERROR, 99999).GetMessageW(),
            L"Unable to load message ID 99999 from resource file\n");
  EXPECT_TRUE(CMessage(EMSG_ERROR, kEmptyEntry).GetMessageW().IsEmpty());  // loaded, just empty
  EXPECT_EQ(CMessage(EMSG_ERROR, CResourceStr(kDeviceFailed), L"MS", -1).GetMessageW(),
            L"Device MS failed with code -1.");
  EXPECT_EQ(CMessage(EMSG_ERROR, CString(L"%s: %u"), CString(L"Batch"), 3u).GetMessageW(),
            L"Batch: 3");
  // A directive without its argument prints nothing instead of reading past the list.
  EXPECT_EQ(CMessage(EMSG_ERROR, L"[%s][%d]").GetMessageW(), L"[][]");
  EXPECT_THROW(CMessage(EMSG_ERROR, static_cast<const wchar_t*>(nullptr)), std::invalid_argument);

  const std::wstring path(592, L'p');
  EXPECT_EQ(CMessage(EMSG_ERROR, L"%s\nmissing", path.c_str()).GetMessageW(),
            CString(path + L"\nmissing"));  // 600 characters
  EXPECT_EQ(CMessage(EMSG_ERROR, L"%5000d|", 42).GetMessageW().GetLength(), 5001);
}

TEST_F(MessageTest, SerialNumbersWrapAndTheDefaultMessageDrawsNoneAndReadsNoClock) {
  const DWORD saved = CMessage::m_CurrentMsgID;
  CMessage blank;
  EXPECT_EQ(CMessage::m_CurrentMsgID, saved);
  EXPECT_EQ(platform.tickReads, 0);
  EXPECT_EQ(blank.GetMsgID(), 0u);
  CMessage::m_CurrentMsgID = 0xFFFFFFFFu;
  CMessage last(EMSG_ERROR, L"last");
  CMessage wrapped(EMSG_ERROR, L"wrapped");
  CMessage::m_CurrentMsgID = saved;
  EXPECT_EQ(last.GetMsgID(), 0xFFFFFFFFu);
  EXPECT_EQ(wrapped.GetMsgID(), 0u);

  for (int outside : {3, -1}) {
    blank.SetType(static_cast<EMSGTYPE>(outside));
    EXPECT_FALSE(blank.IsErrorMsg() || blank.IsWarningMsg() || blank.IsInformationalMsg());
  }
}

TEST_F(MessageTest, TextIsBuiltUpInPiecesAndNullPiecesChangeNothing) {
  CMessage message(EMSG_ERROR, L"b");
  CMessage other(EMSG_WARNING, L"-other");
  (message += CString(L"c")) += L"d";
  message += static_cast<const wchar_t*>(nullptr);
  message += static_cast<CMessage*>(nullptr);
  message += &other;
  message += kDeviceFailed;  // as it is, not formatted
  message += 99999u;         // cannot be loaded: nothing
  message.PrependMsg(L"a");
  EXPECT_EQ(message.GetMessageW(), L"abcd-otherDevice %s failed with code %d.");
  message.SetStrErrMsg(L"x");
  message += &message;
  EXPECT_EQ(message.GetMessageW(), L"xx");
}

TEST_F(MessageTest, OneOkBoxWhateverTheTypeAndAParentMakesTheApplicationsNameTheTitle) {
  platform.answers = {IDCANCEL};
  CMessage message(EMSG_ERROR, L"Disk full");
  EXPECT_EQ(message.GetTitle(), L"Scripted");
  EXPECT_EQ(message.DisplayMsg(nullptr), IDCANCEL);
  CWnd parent;
  message.DisplayMsg(&parent);
  message.DisplayMsg(nullptr);
  ASSERT_EQ(platform.messages.size(), 3u);
  EXPECT_EQ(platform.messages[0].text, L"Disk full");
  EXPECT_EQ(platform.messages[0].style, MB_OK);
  EXPECT_FALSE(platform.messages[0].hasCaption);  // without parent the title stays empty
  EXPECT_EQ(platform.messages[1].owner, &parent);
  EXPECT_EQ(platform.messages[1].caption, L"Scripted");
  EXPECT_EQ(platform.messages[2].caption, L"Scripted");  // kept as the title
  message.SetTitle(L"Run %d", 4);
  EXPECT_EQ(message.GetTitle(), L"Run 4");
}

TEST_F(MessageTest, SameInstrumentErrorIsNotShownTwiceWhileItsBoxIsOpen) {
  auto make = [](const wchar_t* text, unsigned long device, bool instrument) {
    auto message = std::make_unique<CMessage>(EMSG_ERROR, text);
    message->VirDeviceID(device);
    instrument ? message->SetInstrumentError(42) : message->ErrorCode(42);
    return message;
  };
  auto first = make(L"first", 0xFFFFFFFFul, true), again = make(L"again", 0xFFFFFFFFul, true);
  auto otherDevice = make(L"other device", 4, true), plain = make(L"plain", 0xFFFFFFFFul, false);
  int againWhileOpen = -1;
  platform.whileOpen = [&] {
    againWhileOpen = again->DisplayMsg(nullptr);
    otherDevice->DisplayMsg(nullptr);
    plain->DisplayMsg(nullptr);  // replaces first's entry and then frees the key
    again->DisplayMsg(nullptr);
  };
  first->DisplayMsg(nullptr);
  EXPECT_EQ(againWhileOpen, 0);
  ASSERT_EQ(platform.messages.size(), 4u);
  EXPECT_EQ(platform.messages[1].text, L"other device");
  EXPECT_EQ(platform.messages[2].text, L"plain");
  EXPECT_EQ(platform.messages[3].text, L"again");
  EXPECT_TRUE(CMessage::m_ActiveMsgMap.IsEmpty());
}

TEST_F(MessageTest, BoxThatFailsToShowDoesNotMuteTheErrorForGood) {
  CMessage message(EMSG_ERROR, L"x");
  message.SetInstrumentError(11);
  platform.failToShow = true;
  EXPECT_THROW(message.DisplayMsg(nullptr), std::runtime_error);
  platform.failToShow = false;
  EXPECT_EQ(message.DisplayMsg(nullptr), IDOK);
}

}  // namespace
