// Drag and drop on the platform seam: the data a drag offers, the interface through
// which the platform tells a drop target about a drag, and the registered data
// formats with the MIME types that carry them between programs.
//
// Contract:
// - Registered formats are process-wide and thread-safe; everything else belongs
//   to the user-interface thread.
// - A format name maps to the MIME type "application/x-arvenis-" followed by the
//   name in ASCII lower case with spaces as "-" (other characters outside letters,
//   digits and "-._+" as %XX of their UTF-8 bytes). Names that map to the same MIME
//   type are one format: "CTB Clipboard Format" and "ctb clipboard format" share a
//   number, as they do with other programs, which only see the MIME type.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "vglobal/compat/geometry.h"
#include "vglobal/compat/types.h"
#include "vglobal/export.h"

// Drop effects (Windows values).
constexpr DWORD DROPEFFECT_NONE = 0;
constexpr DWORD DROPEFFECT_COPY = 1;
constexpr DWORD DROPEFFECT_MOVE = 2;
constexpr DWORD DROPEFFECT_LINK = 4;
constexpr DWORD DROPEFFECT_SCROLL = 0x80000000u;
using DROPEFFECT = DWORD;

// Key and button state during a drag (Windows values).
constexpr DWORD MK_LBUTTON = 0x0001;
constexpr DWORD MK_RBUTTON = 0x0002;
constexpr DWORD MK_SHIFT = 0x0004;
constexpr DWORD MK_CONTROL = 0x0008;
constexpr DWORD MK_MBUTTON = 0x0010;
constexpr DWORD MK_ALT = 0x0020;

namespace vglobal {

// The first number given to a registered format, and the last.
constexpr UINT kFirstRegisteredFormat = 0xC000;
constexpr UINT kLastRegisteredFormat = 0xFFFF;

// The MIME type of a format name (empty for an empty name).
VGLOBAL_EXPORT std::string FormatMimeType(std::wstring_view name);
// Registers a format (see RegisterClipboardFormat); 0 for an empty name or when
// every number is taken.
VGLOBAL_EXPORT UINT RegisterFormat(std::wstring_view name);
// The MIME type of a registered format; empty for a number never registered.
VGLOBAL_EXPORT std::string RegisteredFormatMimeType(UINT format);
// The number of a registered MIME type; 0 when no format of this process has it.
VGLOBAL_EXPORT UINT RegisteredFormatOf(std::string_view mimeType);

// The data a drag offers: bytes under each of its formats.
class VGLOBAL_EXPORT DragPayload {
 public:
  using Item = std::pair<UINT, std::vector<unsigned char>>;

  // Offers `bytes` under `format`, replacing what was offered under it.
  void Set(UINT format, std::vector<unsigned char> bytes);
  // The bytes under `format`, or null when the drag does not offer it.
  const std::vector<unsigned char>* Find(UINT format) const;
  const std::vector<Item>& Items() const { return items_; }
  bool Empty() const { return items_.empty(); }

 private:
  std::vector<Item> items_;
};

// What a platform tells a registered drop target (vglobal::Platform::
// RegisterDropTarget). keyState holds MK_ bits, point is in the window's client
// coordinates, allowed the DROPEFFECT_ bits the drag's source accepts. DragEnter,
// DragOver and Drop answer the effect of a drop there; the answer is always one the
// source allowed, DROPEFFECT_NONE when there is none. DragLeave and Drop end a drag
// over the window.
class VGLOBAL_EXPORT DropSink {
 public:
  virtual ~DropSink();
  virtual DWORD DragEnter(const DragPayload& data, DWORD keyState, POINT point, DWORD allowed) = 0;
  virtual DWORD DragOver(const DragPayload& data, DWORD keyState, POINT point, DWORD allowed) = 0;
  virtual void DragLeave() = 0;
  virtual DWORD Drop(const DragPayload& data, DWORD keyState, POINT point, DWORD allowed) = 0;
};

}  // namespace vglobal
