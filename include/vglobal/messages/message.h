// CMessage: the suite's user-facing report (an error, a warning or an informational
// note) with a serial number, a time stamp, an optional error code and device number,
// a text built up in pieces, a title, and a way to show itself in a message box.
//
// Contract:
// - Not copyable (it carries a lock). Whoever creates a message owns it; the library
//   throws file errors as `new CMessage(...)`, which the catcher deletes.
// - Every constructor except the default one draws the next serial number from
//   m_CurrentMsgID (which starts at 1 and wraps at 2^32) and stamps the time with the
//   platform's TickCount. The default constructor draws nothing and reads no clock:
//   its id, time, codes and flags are 0 and its type is EMSG_WARNING. Every operation
//   may be used on it.
// - The formatting constructors and SetTitle format by the library's wide-printf rules
//   (vglobal/compat/cstring.h); each argument is captured with its own type, so a
//   missing or unsuitable argument prints nothing instead of reading past the list.
//   A text of any length comes out whole; only an allocation failure leaves it empty.
// - A message type as first argument always selects a formatting constructor:
//   CMessage(EMSG_ERROR, L"%d %d %d", 1, 2, 3) formats; the rebuilding constructor is
//   reached with an error code (a long) as first argument. A string id of literal 0 is
//   ambiguous with a null format and does not compile: write 0u.
// - Threads: building a message (constructors, the appends, PrependMsg,
//   SetInstrumentError) is guarded by the message's own recursive lock, so one message
//   may be built up from several threads. The plain accessors, SetTitle and
//   SetStrErrMsg take no lock. DisplayMsg shows a box and therefore runs on the
//   user-interface thread only, like every platform call; the table of messages on
//   screen is used from that thread alone.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>

#include "vglobal/compat/collections.h"
#include "vglobal/compat/cstring.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

class CWnd;

// The kind of a message. A 32-bit type: values outside the three are representable and
// test false for all of IsWarningMsg, IsInformationalMsg and IsErrorMsg.
enum EMSGTYPE : std::int32_t {
  EMSG_WARNING = 0,
  EMSG_INFORMATIONAL = 1,
  EMSG_ERROR = 2,
};

// A string loaded from the resource chain by id; reads as text like any CString.
// An id that no module has gives an empty string (Loaded() tells the two apart).
class VGLOBAL_EXPORT CResourceStr : public CString {
 public:
  explicit CResourceStr(UINT id);
  UINT GetId() const { return id_; }
  bool Loaded() const { return loaded_; }

 private:
  UINT id_;
  bool loaded_;
};

class VGLOBAL_EXPORT CMessage : public CObject {
 public:
  // Key of the table of messages on screen: device id in the high 32 bits, error code
  // in the low 32 bits.
  using ActiveKeyType = std::int64_t;
  using ActiveMap = CMap<ActiveKeyType, ActiveKeyType, CMessage*, CMessage*>;

  // Only the two empty strings; no id, no time (see the contract above).
  CMessage();

  // Resource string `stringId` formatted with `args`. An id that cannot be loaded gives
  // the text "Unable to load message ID <id> from resource file\n".
  template <typename... Args>
  CMessage(EMSGTYPE type, unsigned int stringId, const Args&... args) : CMessage(Init{}, type) {
    CResourceStr format(stringId);
    if (!format.Loaded()) {
      SetUnloadableText(stringId);
      return;
    }
    const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
    SetFormattedText(format.GetString(), captured, sizeof...(Args));
  }

  // `format` formatted with `args`.
  template <typename... Args>
  CMessage(EMSGTYPE type, const CString& format, const Args&... args) : CMessage(Init{}, type) {
    const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
    SetFormattedText(format.GetString(), captured, sizeof...(Args));
  }
  template <typename... Args>
  CMessage(EMSGTYPE type, const CResourceStr& format, const Args&... args)
      : CMessage(Init{}, type) {
    const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
    SetFormattedText(format.GetString(), captured, sizeof...(Args));
  }

  // `format` formatted with `args`. Throws std::invalid_argument when `format` is null
  // (the serial number drawn for the message is then used up).
  template <typename... Args>
  CMessage(EMSGTYPE type, const wchar_t* format, const Args&... args) : CMessage(Init{}, type) {
    const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
    SetFormattedText(RequireFormat(format), captured, sizeof...(Args));
  }

  // Rebuilds a message from its parts: type EMSG_ERROR, `text` as it is (not a format;
  // null gives an empty text), and the given error code, flags, id and time (each kept
  // to 32 bits). A serial number is still drawn and then replaced by `messageId`.
  CMessage(long errorCode, const wchar_t* text, long flags, long messageId, long time);

  // The message must not be on screen (inside DisplayMsg) when it is destroyed.
  ~CMessage() override;

  CMessage(const CMessage&) = delete;
  CMessage& operator=(const CMessage&) = delete;

  // Appending to the text; each returns the message itself.
  CMessage& operator+=(const CString& text);
  CMessage& operator+=(const wchar_t* text);  // null appends nothing
  // Appends resource string `stringId` unformatted; an unloadable id appends nothing.
  CMessage& operator+=(unsigned int stringId);
  // Appends the other message's text (may be this message); null appends nothing.
  CMessage& operator+=(CMessage* other);
  // The text becomes `prefix` followed by the old text.
  CMessage& PrependMsg(const CString& prefix);
  void SetStrErrMsg(CString text);

  // The title becomes `format` formatted with `args`; a null format clears it.
  template <typename... Args>
  void SetTitle(const wchar_t* format, const Args&... args) {
    const vglobal::fmt::Arg captured[] = {CString::Capture(args)..., {}};
    SetFormattedTitle(format, captured, sizeof...(Args));
  }

  // Marks the message as an instrument error with `errorCode` (kept to 32 bits).
  void SetInstrumentError(unsigned long errorCode);

  // Plain accessors.
  DWORD GetMsgID() const { return m_MsgID; }
  void SetMsgID(DWORD id) { m_MsgID = id; }
  DWORD GetMsgTime() const { return m_Time; }
  void SetMsgTime(DWORD time) { m_Time = time; }
  EMSGTYPE GetMsgType() const { return m_Type; }
  void SetType(EMSGTYPE type) { m_Type = type; }
  bool IsErrorMsg() const { return m_Type == EMSG_ERROR; }
  bool IsWarningMsg() const { return m_Type == EMSG_WARNING; }
  bool IsInformationalMsg() const { return m_Type == EMSG_INFORMATIONAL; }
  DWORD ErrorCode() const { return m_ErrorCode; }
  void ErrorCode(unsigned long code) { m_ErrorCode = static_cast<DWORD>(code); }
  DWORD VirDeviceID() const { return m_DeviceID; }
  void VirDeviceID(unsigned long id) { m_DeviceID = static_cast<DWORD>(id); }
  DWORD GetFlags() const { return m_Flags; }
  void SetFlags(unsigned long flags) { m_Flags = static_cast<DWORD>(flags); }
  int InstrumentError() const { return m_InstrumentError; }
  int InstrumentError(int flag) { return m_InstrumentError = flag; }
  const CString& GetMessageW() const { return m_Text; }

  // The title when one is set, otherwise the application's name (from the platform).
  virtual CString GetTitle();

  // Shows the text in a box with a single OK button owned by `parent` (may be null)
  // and returns the platform's answer (IDOK = 1), or 0 without showing anything when
  // this is an instrument error and a message with the same device id and error code
  // is on screen already. With a parent, an empty title is replaced for good by the
  // application's name; without one the box shows that name and the title stays
  // empty. User-interface thread only; the message may be shown again afterwards.
  int DisplayMsg(CWnd* parent);

  // The table key of this message (device id << 32 | error code).
  ActiveKeyType ActiveKey() const;

  // Next serial number to be drawn. Atomic so that messages built on different
  // threads never tear it; it is not otherwise locked.
  static std::atomic<DWORD> m_CurrentMsgID;
  // Kept for the interface; nothing reads or writes it.
  static LONG m_lInitialized;
  // The messages on screen at this moment, by ActiveKey(); owns none of them.
  static ActiveMap m_ActiveMsgMap;

 private:
  struct Init {};
  // The common initialisation of every constructor but the default one.
  CMessage(Init, EMSGTYPE type);

  static const wchar_t* RequireFormat(const wchar_t* format);
  void SetFormattedText(const wchar_t* format, const vglobal::fmt::Arg* args, std::size_t count);
  void SetFormattedTitle(const wchar_t* format, const vglobal::fmt::Arg* args, std::size_t count);
  void SetUnloadableText(unsigned int stringId);

  int m_InstrumentError = 0;
  DWORD m_Flags = 0;
  DWORD m_ErrorCode = 0;
  DWORD m_DeviceID = 0;
  EMSGTYPE m_Type = EMSG_WARNING;
  DWORD m_MsgID = 0;
  DWORD m_Time = 0;
  CString m_Text;
  CString m_Title;
  std::recursive_mutex m_Lock;
};
