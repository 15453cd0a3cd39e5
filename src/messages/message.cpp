// CMessage: construction, the text and title, and showing a message once per key.
#include "vglobal/messages/message.h"

#include <new>
#include <stdexcept>

#include "vglobal/compat/resources.h"
#include "vglobal/platform.h"

std::atomic<DWORD> CMessage::m_CurrentMsgID{1};
LONG CMessage::m_lInitialized = -1;
CMessage::ActiveMap CMessage::m_ActiveMsgMap;

CResourceStr::CResourceStr(UINT id) : id_(id), loaded_(false) {
  // Looked up directly rather than through LoadString so that an empty entry in a
  // table still counts as loaded.
  if (const auto text = vglobal::FindResourceString(id)) {
    CString::operator=(CString(*text));
    loaded_ = true;
  }
}

CMessage::CMessage() = default;

CMessage::CMessage(Init, EMSGTYPE type) {
  std::lock_guard lock(m_Lock);
  m_Type = type;
  m_Time = vglobal::GetPlatform().TickCount();
  m_MsgID = m_CurrentMsgID.fetch_add(1, std::memory_order_relaxed);
  m_InstrumentError = 0;
  m_Flags = 0;
  m_ErrorCode = 0;
  m_DeviceID = 0;
}

CMessage::CMessage(long errorCode, const wchar_t* text, long flags, long messageId, long time)
    : CMessage(Init{}, EMSG_ERROR) {
  std::lock_guard lock(m_Lock);
  m_ErrorCode = static_cast<DWORD>(errorCode);
  m_Text = text;
  m_Flags = static_cast<DWORD>(flags);
  m_MsgID = static_cast<DWORD>(messageId);
  m_Time = static_cast<DWORD>(time);
}

CMessage::~CMessage() = default;

const wchar_t* CMessage::RequireFormat(const wchar_t* format) {
  if (!format) throw std::invalid_argument("CMessage: the message format is null");
  return format;
}

// The formatter has no fixed buffer, so the text always comes out whole; the only way
// to end up without it is running out of memory, which leaves the text empty rather
// than losing the message itself.
void CMessage::SetFormattedText(const wchar_t* format, const vglobal::fmt::Arg* args,
                                std::size_t count) {
  try {
    m_Text = CString(vglobal::fmt::Format(format, args, count));
  } catch (const std::bad_alloc&) {
    m_Text.Empty();
  }
}

void CMessage::SetFormattedTitle(const wchar_t* format, const vglobal::fmt::Arg* args,
                                 std::size_t count) {
  if (!format) {
    m_Title.Empty();
    return;
  }
  try {
    m_Title = CString(vglobal::fmt::Format(format, args, count));
  } catch (const std::bad_alloc&) {
    m_Title.Empty();
  }
}

void CMessage::SetUnloadableText(unsigned int stringId) {
  const vglobal::fmt::Arg id[] = {CString::Capture(stringId)};
  SetFormattedText(L"Unable to load message ID %d from resource file\n", id, 1);
}

CMessage& CMessage::operator+=(const CString& text) {
  std::lock_guard lock(m_Lock);
  m_Text += text;
  return *this;
}

CMessage& CMessage::operator+=(const wchar_t* text) {
  if (!text) return *this;
  std::lock_guard lock(m_Lock);
  m_Text += text;
  return *this;
}

CMessage& CMessage::operator+=(unsigned int stringId) {
  std::lock_guard lock(m_Lock);
  CResourceStr text(stringId);
  if (text.Loaded()) m_Text += text;
  return *this;
}

CMessage& CMessage::operator+=(CMessage* other) {
  if (!other) return *this;
  std::lock_guard lock(m_Lock);
  m_Text += other->m_Text;
  return *this;
}

CMessage& CMessage::PrependMsg(const CString& prefix) {
  std::lock_guard lock(m_Lock);
  m_Text = prefix + m_Text;
  return *this;
}

void CMessage::SetStrErrMsg(CString text) {
  m_Text = std::move(text);
}

void CMessage::SetInstrumentError(unsigned long errorCode) {
  std::lock_guard lock(m_Lock);
  m_InstrumentError = 1;
  m_ErrorCode = static_cast<DWORD>(errorCode);
}

CString CMessage::GetTitle() {
  if (!m_Title.IsEmpty()) return m_Title;
  return vglobal::GetPlatform().ApplicationName();
}

CMessage::ActiveKeyType CMessage::ActiveKey() const {
  return static_cast<ActiveKeyType>((static_cast<std::uint64_t>(m_DeviceID) << 32) | m_ErrorCode);
}

int CMessage::DisplayMsg(CWnd* parent) {
  const ActiveKeyType key = ActiveKey();
  // The same instrument error from the same device is on screen already: showing it
  // again would only stack identical boxes.
  if (m_InstrumentError != 0 && !m_ActiveMsgMap.IsEmpty()) {
    CMessage* shown = nullptr;
    if (m_ActiveMsgMap.Lookup(key, shown)) return 0;
  }
  {
    std::lock_guard lock(m_Lock);
    m_ActiveMsgMap.SetAt(key, this);
  }
  // The key leaves the table when the box closes, whoever stands under it by then,
  // and also when showing the box fails, so that the error is not muted for good.
  struct LeaveTable {
    CMessage& message;
    ActiveKeyType key;
    ~LeaveTable() {
      std::lock_guard lock(message.m_Lock);
      m_ActiveMsgMap.RemoveKey(key);
    }
  } leave{*this, key};

  vglobal::Platform& platform = vglobal::GetPlatform();
  if (parent && m_Title.IsEmpty()) m_Title = platform.ApplicationName();
  // Copies: the box may run other code (an event loop) that changes this message.
  const CString text = m_Text;
  const CString title = m_Title;
  return platform.MessageBox(parent, text.GetString(),
                             title.IsEmpty() ? nullptr : title.GetString(), MB_OK);
}
