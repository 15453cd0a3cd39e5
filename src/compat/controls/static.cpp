// The static family: a text, a frame or divider, and an owner-drawn control. None
// takes the focus or any of the user's actions; an owner-drawn one is painted on the
// windowing system's request.
#include "compat/dialog_state.h"

namespace vglobal {
namespace {

struct StaticState : ControlState {
  std::unique_ptr<DialogControl> MakeHandle() const override { return std::make_unique<CStatic>(); }
  bool TakesFocus() const override { return false; }
};

// A frame's look is its style; it has nothing else.
struct FrameState : StaticState {
  void Init(const wchar_t*) override {}
};

struct OwnerDrawnState : StaticState {
  bool Paint(UserAction& act, CDC& dc) override {
    DRAWITEMSTRUCT dis{ODT_STATIC,
                       static_cast<UINT>(id),
                       0,
                       ODA_DRAWENTIRE,
                       enabled ? 0u : ODS_DISABLED,
                       own->GetSafeHwnd(),
                       &dc,
                       {0, 0, rect.Width(), rect.Height()},
                       0};
    DialogAccess::OnDrawItem(act.dialog(), id, &dis);
    return true;
  }
};

}  // namespace

namespace controls {
std::unique_ptr<ControlState> MakeStatic() {
  return std::make_unique<StaticState>();
}
std::unique_ptr<ControlState> MakeFrame() {
  return std::make_unique<FrameState>();
}
std::unique_ptr<ControlState> MakeOwnerDrawn() {
  return std::make_unique<OwnerDrawnState>();
}
}  // namespace controls

}  // namespace vglobal

bool CStatic::Handles(vglobal::ControlKind kind) const {
  return kind == vglobal::ControlKind::Static || kind == vglobal::ControlKind::Frame ||
         kind == vglobal::ControlKind::OwnerDrawn;
}

BOOL CStatic::Create(const wchar_t* text, UINT style, const RECT& rect, CWnd* parent, UINT id) {
  return CreateControl(vglobal::ControlKind::Static, text, style, rect, parent, id);
}

void CStatic::DrawItem(LPDRAWITEMSTRUCT /*drawItem*/) {}
