// CDialog's window: opening it (controls made from the template, in pixels from the
// platform's dialog units), controls added at run time, its geometry, showing and
// hiding, and the modeless dialog's life.
//
// Map of this file:
//   1. opening and adding controls (DialogAccess)
//   2. geometry
//   3. modeless dialogs
#include <cmath>
#include <cstdio>
#include <limits>

#include "compat/dialog_state.h"
#include "vglobal/platform.h"

namespace vglobal {
namespace {

// One coordinate in dialog units as pixels: `units` of `perFour` pixels per four
// units (or per eight vertically), rounded, kept within int.
LONG ToPixels(LONG units, LONG perBase, double base) {
  const double pixels = std::round(static_cast<double>(units) * perBase / base);
  return static_cast<LONG>(std::clamp(pixels, static_cast<double>(std::numeric_limits<int>::min()),
                                      static_cast<double>(std::numeric_limits<int>::max())));
}

CRect MapUnits(const RECT& units, CSize base) {
  return CRect(ToPixels(units.left, base.cx, 4), ToPixels(units.top, base.cy, 8),
               ToPixels(units.right, base.cx, 4), ToPixels(units.bottom, base.cy, 8));
}

CRect ControlRect(const ControlTemplate& ct, CSize base) {
  using geometry::Add;
  CRect r = MapUnits(RECT{ct.x, ct.y, Add(ct.x, ct.cx), Add(ct.y, ct.cy)}, base);
  r.NormalizeRect();
  return r;
}

// Makes a control's state and handle and puts them last in the dialog's lists.
ControlState* MakeControl(CDialog& d, DialogState& w, const ControlTemplate& ct,
                          const wchar_t* text, const CRect& rect) {
  const ControlClass* cls = FindControlClass(ct.kind);
  if (!cls) return nullptr;
  std::unique_ptr<ControlState> c = cls->make();
  c->dialog = &d;
  c->index = static_cast<int>(w.controls.size());
  c->id = ct.id;
  c->kind = ct.kind;
  c->style = ct.style;
  c->enabled = !(ct.style & kDisabled);
  c->visible = !(ct.style & kHidden);
  c->rect = rect;
  c->Init(text);
  std::unique_ptr<DialogControl> handle = c->MakeHandle();
  ControlState::Attach(*handle, c.get());
  c->own = handle.get();
  w.controls.push_back(std::move(c));
  w.handles.push_back(std::move(handle));
  return w.controls.back().get();
}

}  // namespace

// ---- 1. opening and adding controls ---------------------------------------------

bool DialogAccess::Open(CDialog& d) {
  DialogState& w = *d.impl_;
  const DialogTemplate* t = d.GetTemplate();
  if (t->controlCount > 0 && !t->controls) return false;
  for (std::size_t i = 0; i < t->controlCount; ++i) {
    if (FindControlClass(t->controls[i].kind)) continue;
    std::fprintf(stderr, "vglobal: dialog %u: control %d is of unknown kind %d\n", t->id,
                 t->controls[i].id, static_cast<int>(t->controls[i].kind));
    return false;
  }
  w.open = true;
  w.ended = false;
  w.endCode = 0;
  w.focus = -1;
  w.visible = true;
  w.openTemplate = t;
  if (!w.titleSet) w.title = t->title;
  w.baseUnits = GetPlatform().DialogBaseUnits(t->fontSize);
  w.window = MapUnits(RECT{0, 0, std::max(t->cx, 0), std::max(t->cy, 0)}, w.baseUnits);
  w.templates.assign(t->controls, t->controls + t->controlCount);
  for (const ControlTemplate& ct : w.templates)
    MakeControl(d, w, ct, ct.text, ControlRect(ct, w.baseUnits));
  for (const auto& c : w.controls) c->DialogOpened();
  d.CenterWindow();
  if (w.observer) w.observer->Opened();
  return true;
}

int DialogAccess::AddControl(CDialog& d, const ControlTemplate& ct, const wchar_t* text,
                             const CRect& rect) {
  DialogState& w = *d.impl_;
  if (!w.open || w.closing || !FindControlClass(ct.kind)) return -1;
  // The template's text must live as long as the control: the dialog keeps it.
  w.createdTexts.push_back(std::make_unique<std::wstring>(text ? text : L""));
  ControlTemplate kept = ct;
  kept.text = w.createdTexts.back()->c_str();
  w.templates.push_back(kept);
  ControlState* c = MakeControl(d, w, kept, kept.text, rect);
  c->DialogOpened();
  if (w.observer) w.observer->ControlAdded(c->index);
  return c->index;
}

}  // namespace vglobal

using vglobal::DialogAccess;

// ---- 2. geometry -------------------------------------------------------------------

std::optional<CRect> CDialog::RectInParent() const {
  if (!impl_->open) return std::nullopt;
  return impl_->window;
}

bool CDialog::PlaceInParent(const CRect& rect) {
  if (!impl_->open) return false;
  if (impl_->window != rect) {
    impl_->window = rect;
    DialogAccess::DialogChanged(*this, vglobal::kAspectGeometry);
  }
  return true;
}

void CDialog::MapDialogRect(LPRECT rect) const {
  if (!rect) return;
  const vglobal::DialogTemplate* t = GetTemplate();
  const CSize base =
      impl_->open ? impl_->baseUnits : vglobal::GetPlatform().DialogBaseUnits(t ? t->fontSize : 0);
  *rect = vglobal::MapUnits(*rect, base);
}

BOOL CDialog::ShowWindow(int cmdShow) {
  if (!impl_->open) return FALSE;
  const BOOL wasVisible = impl_->visible;
  if (impl_->visible != (cmdShow != SW_HIDE)) {
    impl_->visible = cmdShow != SW_HIDE;
    DialogAccess::DialogChanged(*this, vglobal::kAspectState);
  }
  return wasVisible;
}

BOOL CDialog::IsWindowVisible() const {
  return impl_->open && impl_->visible;
}

// ---- 3. modeless dialogs -----------------------------------------------------------

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
  if (impl_->open) return FALSE;
  if (templateId != 0) {
    impl_->givenTemplate = nullptr;
    impl_->templateId = templateId;
    impl_->helpId = templateId;
  }
  if (parent) m_pParentWnd = parent_ = parent;
  if (!GetTemplate()) return FALSE;
  impl_->modeless = true;
  if (vglobal::GetPlatform().CreateModeless(*this) && impl_->open) return TRUE;
  impl_->modeless = false;
  return FALSE;
}

BOOL CDialog::Create(const vglobal::DialogTemplate& dialogTemplate, CWnd* parent) {
  if (impl_->open) return FALSE;
  impl_->givenTemplate = &dialogTemplate;
  impl_->templateId = dialogTemplate.id;
  impl_->helpId = dialogTemplate.id;
  return Create(0, parent);
}

BOOL CDialog::DestroyWindow() {
  if (!impl_->open || !impl_->modeless || impl_->closing) return FALSE;
  vglobal::GetPlatform().DestroyModeless(*this);
  return TRUE;
}

BOOL CDialog::IsModeless() const {
  return impl_->modeless;
}
