// CBitmap and CImageList: sizes and cells of PNG strips. Nothing here decodes a
// pixel; the size comes from the PNG header, checked as untrusted bytes, and the
// platform's CDC decodes the strip when it draws a cell.
#include "vglobal/compat/image_list.h"

#include "compat/png_header.h"

namespace {

// Far more images than any toolbar or list shows; the bound keeps indexes in int
// range however often a caller adds.
constexpr std::size_t kMaxImages = 1u << 20;

}  // namespace

// ---- CBitmap -----------------------------------------------------------------

CBitmap::~CBitmap() = default;

BOOL CBitmap::LoadBitmap(UINT id) {
  if (resource_) return FALSE;  // one bitmap per object, as with a GDI handle
  const vglobal::BitmapResource* found = vglobal::FindBitmapResource(id);
  if (!found) return FALSE;
  vglobal::PngSize size;
  if (vglobal::ReadPngSize(found->png, found->size, size) != vglobal::PngCheck::Ok) return FALSE;
  resource_ = found;
  size_ = CSize(size.width, size.height);
  return TRUE;
}

BOOL CBitmap::DeleteObject() {
  if (!resource_) return FALSE;
  resource_ = nullptr;
  size_ = CSize(0, 0);
  return TRUE;
}

int CBitmap::GetBitmap(BITMAP* info) const {
  if (!info || !resource_) return 0;
  // Platforms draw the strips as 32-bit RGBA, whatever the file's own depth.
  *info = {0, size_.cx, size_.cy, size_.cx * 4, 1, 32, nullptr};
  return sizeof(BITMAP);
}

// ---- CImageList --------------------------------------------------------------

CImageList::~CImageList() = default;

BOOL CImageList::Create(int cx, int cy, UINT /*flags*/, int /*initial*/, int /*grow*/) {
  if (created_ || cx <= 0 || cy <= 0) return FALSE;
  created_ = true;
  cx_ = cx;
  cy_ = cy;
  return TRUE;
}

BOOL CImageList::Create(UINT bitmapId, int cx, int /*grow*/, COLORREF /*mask*/) {
  if (created_ || cx <= 0) return FALSE;
  CBitmap strip;
  if (!strip.LoadBitmap(bitmapId) || strip.GetSize().cx % cx != 0) return FALSE;
  created_ = true;
  cx_ = cx;
  cy_ = strip.GetSize().cy;
  return Add(&strip, nullptr) >= 0;
}

BOOL CImageList::DeleteImageList() {
  if (!created_) return FALSE;
  created_ = false;
  cx_ = cy_ = 0;
  cells_.clear();
  return TRUE;
}

int CImageList::Add(CBitmap* bitmap, CBitmap* /*mask*/) {
  // The strips carry their transparency in their alpha channel: a mask adds nothing.
  if (!created_ || !bitmap || !bitmap->IsLoaded()) return -1;
  const CSize size = bitmap->GetSize();
  if (size.cx % cx_ != 0 || size.cy != cy_) return -1;
  const std::size_t count = static_cast<std::size_t>(size.cx / cx_);
  if (count == 0 || cells_.size() + count > kMaxImages) return -1;
  const int first = static_cast<int>(cells_.size());
  const vglobal::BitmapResource* strip = bitmap->Resource();
  for (std::size_t i = 0; i < count; ++i)
    cells_.push_back({strip->png, strip->size, static_cast<int>(i) * cx_, 0, cx_, cy_});
  return first;
}

int CImageList::Add(CBitmap* bitmap, COLORREF /*mask*/) {
  return Add(bitmap, static_cast<CBitmap*>(nullptr));
}

BOOL CImageList::Remove(int image) {
  if (!created_) return FALSE;
  if (image == -1) {
    cells_.clear();
    return TRUE;
  }
  if (image < 0 || static_cast<std::size_t>(image) >= cells_.size()) return FALSE;
  cells_.erase(cells_.begin() + image);
  return TRUE;
}

int CImageList::GetImageCount() const {
  return static_cast<int>(cells_.size());
}

BOOL CImageList::GetIconSize(int& cx, int& cy) const {
  if (!created_) return FALSE;
  cx = cx_;
  cy = cy_;
  return TRUE;
}

BOOL CImageList::Draw(CDC* dc, int image, POINT point, UINT style) const {
  const std::optional<vglobal::ImageCell> cell = Cell(image);
  if (!dc || !cell) return FALSE;
  return dc->DrawImage(*cell, point.x, point.y, style);
}

std::optional<vglobal::ImageCell> CImageList::Cell(int image) const {
  if (image < 0 || static_cast<std::size_t>(image) >= cells_.size()) return std::nullopt;
  return cells_[static_cast<std::size_t>(image)];
}
