// OLE drag and drop over the platform seam: a data source turns its cached blocks
// into a DragPayload for the platform's drag loop; a drop target turns what the
// platform reports into the legacy handler calls and holds their answers to what
// the source allows.
#include "vglobal/compat/ole.h"

#include <cstring>
#include <optional>
#include <vector>

#include "vglobal/platform.h"

namespace {

// The target's answer as the platform may pass it on: one effect the source
// allows, or none.
DWORD Allowed(DWORD effect, DWORD allowed) {
  effect &= ~DROPEFFECT_SCROLL;
  if (effect == DROPEFFECT_NONE || (effect & ~allowed) != 0) return DROPEFFECT_NONE;
  return effect & (~effect + 1);  // the lowest bit
}

// The bytes of a block, or nothing for a refused handle.
std::optional<std::vector<unsigned char>> BytesOf(HGLOBAL block) {
  if (!vglobal::IsGlobalBlock(block)) return std::nullopt;
  std::vector<unsigned char> bytes(GlobalSize(block));
  if (bytes.empty()) return bytes;
  const void* data = GlobalLock(block);
  if (!data) return std::nullopt;  // freed by another thread meanwhile
  std::memcpy(bytes.data(), data, bytes.size());
  GlobalUnlock(block);
  return bytes;
}

}  // namespace

UINT RegisterClipboardFormat(const wchar_t* name) {
  return name ? vglobal::RegisterFormat(name) : 0;
}

// ---- COleDataObject ----------------------------------------------------------

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT format) const {
  return data_ && data_->Find(format) ? TRUE : FALSE;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT format) const {
  const std::vector<unsigned char>* bytes = data_ ? data_->Find(format) : nullptr;
  if (!bytes) return nullptr;
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes->size());
  if (!block || bytes->empty()) return block;
  std::memcpy(GlobalLock(block), bytes->data(), bytes->size());
  GlobalUnlock(block);
  return block;
}

// ---- COleDataSource ----------------------------------------------------------

COleDataSource::~COleDataSource() {
  Empty();
}

void COleDataSource::CacheGlobalData(CLIPFORMAT format, HGLOBAL block) {
  if (format == 0 || !vglobal::IsGlobalBlock(block)) return;
  for (auto& entry : cached_)
    if (entry.first == format) {
      if (entry.second != block) GlobalFree(entry.second);
      entry.second = block;
      return;
    }
  cached_.emplace_back(format, block);
}

void COleDataSource::Empty() {
  for (auto& entry : cached_) GlobalFree(entry.second);
  cached_.clear();
}

DROPEFFECT COleDataSource::DoDragDrop(DWORD allowedEffects, LPCRECT /*startDragRect*/) {
  vglobal::DragPayload payload;
  for (const auto& [format, block] : cached_)
    if (auto bytes = BytesOf(block)) payload.Set(format, std::move(*bytes));
  if (payload.Empty() || allowedEffects == DROPEFFECT_NONE) return DROPEFFECT_NONE;
  return Allowed(vglobal::GetPlatform().DoDragDrop(payload, allowedEffects), allowedEffects);
}

// ---- COleDropTarget ----------------------------------------------------------

COleDropTarget::~COleDropTarget() {
  if (window_) vglobal::GetPlatform().RevokeDropTarget(*window_, *this);
}

BOOL COleDropTarget::Register(CWnd* window) {
  if (!window || window_) return FALSE;
  if (!vglobal::GetPlatform().RegisterDropTarget(*window, *this)) return FALSE;
  window_ = window;
  return TRUE;
}

void COleDropTarget::Revoke() {
  if (!window_) return;
  vglobal::GetPlatform().RevokeDropTarget(*window_, *this);
  window_ = nullptr;
}

DROPEFFECT COleDropTarget::OnDragEnter(CWnd*, COleDataObject*, DWORD, CPoint) {
  return DROPEFFECT_NONE;
}

DROPEFFECT COleDropTarget::OnDragOver(CWnd*, COleDataObject*, DWORD, CPoint) {
  return DROPEFFECT_NONE;
}

void COleDropTarget::OnDragLeave(CWnd*) {}

BOOL COleDropTarget::OnDrop(CWnd*, COleDataObject*, DROPEFFECT, CPoint) {
  return FALSE;
}

DWORD COleDropTarget::DragEnter(const vglobal::DragPayload& data, DWORD keyState, POINT point,
                                DWORD allowed) {
  COleDataObject object(&data);
  return Allowed(OnDragEnter(window_, &object, keyState, point), allowed);
}

DWORD COleDropTarget::DragOver(const vglobal::DragPayload& data, DWORD keyState, POINT point,
                               DWORD allowed) {
  COleDataObject object(&data);
  return Allowed(OnDragOver(window_, &object, keyState, point), allowed);
}

void COleDropTarget::DragLeave() {
  OnDragLeave(window_);
}

// The effect of a drop is what OnDragOver answers at the drop's place and keys;
// where that is none, the drag just leaves, so the target can clear its feedback.
DWORD COleDropTarget::Drop(const vglobal::DragPayload& data, DWORD keyState, POINT point,
                           DWORD allowed) {
  COleDataObject object(&data);
  const DWORD effect = Allowed(OnDragOver(window_, &object, keyState, point), allowed);
  if (effect == DROPEFFECT_NONE) {
    OnDragLeave(window_);
    return DROPEFFECT_NONE;
  }
  return OnDrop(window_, &object, effect, point) ? effect : DROPEFFECT_NONE;
}
