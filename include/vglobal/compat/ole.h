// OLE drag and drop of the legacy API: registered clipboard formats, the data
// source that starts a drag, the data object a drop target reads, and the drop
// target that a window registers. The platform runs the drag loop
// (vglobal::Platform::DoDragDrop) and reports drags over registered windows.
//
// Contract: user-interface thread only, except RegisterClipboardFormat (any
// thread). Data travels in global memory blocks (vglobal/compat/global_memory.h).
#pragma once

#include "vglobal/compat/geometry.h"
#include "vglobal/compat/global_memory.h"
#include "vglobal/compat/window.h"
#include "vglobal/drag_drop.h"
#include "vglobal/export.h"

using CLIPFORMAT = WORD;

// The number of the data format called `name`: the same (also in other case) gives
// the same number within the process, from 0xC000 up; the format travels between
// programs under the MIME type vglobal::FormatMimeType(name). 0 for a null or empty
// name, or when every number is taken.
VGLOBAL_EXPORT UINT RegisterClipboardFormat(const wchar_t* name);

// The data of a drag as a drop target sees it. A target's handlers get one that is
// attached to the drag's data for the length of the call.
class VGLOBAL_EXPORT COleDataObject {
 public:
  COleDataObject() = default;
  explicit COleDataObject(const vglobal::DragPayload* data) : data_(data) {}

  // Whether the drag offers data under `format` (FALSE when attached to nothing).
  BOOL IsDataAvailable(CLIPFORMAT format) const;
  // A new global memory block with a copy of the data under `format`, which the
  // caller frees (GlobalFree); null when the format is not offered or memory is short.
  HGLOBAL GetGlobalData(CLIPFORMAT format) const;

 private:
  const vglobal::DragPayload* data_ = nullptr;
};

// The source of a drag: blocks of data cached under formats, then DoDragDrop.
class VGLOBAL_EXPORT COleDataSource : public CObject {
 public:
  COleDataSource() = default;
  ~COleDataSource() override;  // frees the cached blocks
  COleDataSource(const COleDataSource&) = delete;
  COleDataSource& operator=(const COleDataSource&) = delete;

  // Offers `block` under `format`. The source owns the block from now on and frees
  // it when emptied or destroyed; a block cached before under the same format is
  // freed. A null or refused handle, or format 0, caches nothing.
  void CacheGlobalData(CLIPFORMAT format, HGLOBAL block);
  // Frees every cached block.
  void Empty();

  // Runs the drag through the platform with the effects the source allows and
  // returns the one the target chose: DROPEFFECT_COPY, _MOVE or _LINK, or
  // DROPEFFECT_NONE (nothing dropped, nothing cached, or no platform drag).
  // startDragRect is accepted and ignored: the drag starts at once.
  DROPEFFECT DoDragDrop(DWORD allowedEffects = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK,
                        LPCRECT startDragRect = nullptr);

 private:
  std::vector<std::pair<CLIPFORMAT, HGLOBAL>> cached_;
};

// A window's drop target. Derive from it and override the handlers; Register it on
// a window. Points are in the window's client coordinates.
//
// During a drag over the window: OnDragEnter once, OnDragOver as the pointer moves,
// then OnDragLeave (the drag left, was cancelled, or is released where OnDragOver
// answers DROPEFFECT_NONE) or OnDrop (released where OnDragOver answers an effect,
// which OnDrop is given). An answer that the drag's source does not allow counts as
// DROPEFFECT_NONE; an answer of several effects counts as its lowest.
class VGLOBAL_EXPORT COleDropTarget : public CObject, private vglobal::DropSink {
 public:
  COleDropTarget() = default;
  ~COleDropTarget() override;  // revokes the registration
  COleDropTarget(const COleDropTarget&) = delete;
  COleDropTarget& operator=(const COleDropTarget&) = delete;

  // Makes `window` take drops through this target. FALSE for a null window, when
  // this target is registered already, or when the platform refuses (the window
  // has no platform window, or another target).
  BOOL Register(CWnd* window);
  virtual void Revoke();
  CWnd* GetRegisteredWindow() const { return window_; }

  // The defaults accept nothing.
  virtual DROPEFFECT OnDragEnter(CWnd* window, COleDataObject* data, DWORD keyState, CPoint point);
  virtual DROPEFFECT OnDragOver(CWnd* window, COleDataObject* data, DWORD keyState, CPoint point);
  virtual void OnDragLeave(CWnd* window);
  virtual BOOL OnDrop(CWnd* window, COleDataObject* data, DROPEFFECT dropEffect, CPoint point);

 private:
  DWORD DragEnter(const vglobal::DragPayload& data, DWORD keyState, POINT point,
                  DWORD allowed) override;
  DWORD DragOver(const vglobal::DragPayload& data, DWORD keyState, POINT point,
                 DWORD allowed) override;
  void DragLeave() override;
  DWORD Drop(const vglobal::DragPayload& data, DWORD keyState, POINT point, DWORD allowed) override;

  CWnd* window_ = nullptr;
};
