// Bitmaps and image lists: CBitmap (a bitmap resource, a PNG strip compiled into a
// module) and CImageList (a row of equally sized images taken from strips).
//
// Contract:
// - Core knows images by count, size and index only. The pixels stay the PNG bytes
//   of the strips (static resource data) and are decoded by the platform when it
//   draws (CDC::DrawImage); headless, drawing draws nothing.
// - Bad input never crashes: a missing resource, bytes that are not a PNG file, a
//   strip whose width is not a multiple of the image width or whose height differs
//   from the list's, an index out of range: each call answers FALSE, -1 or 0 and
//   changes nothing.
// - User-interface thread only.
#pragma once

#include <optional>
#include <vector>

#include "vglobal/compat/geometry.h"
#include "vglobal/compat/resources.h"
#include "vglobal/compat/window.h"
#include "vglobal/export.h"

// Image-list creation flags and draw styles (Windows values).
constexpr UINT ILC_MASK = 0x0001;
constexpr UINT ILC_COLOR = 0x0000;
constexpr UINT ILC_COLOR24 = 0x0018;
constexpr UINT ILC_COLOR32 = 0x0020;
constexpr UINT ILD_NORMAL = 0x0000;
constexpr UINT ILD_TRANSPARENT = 0x0001;
constexpr UINT ILD_FOCUS = 0x0004;
constexpr UINT ILD_SELECTED = 0x0004;

namespace vglobal {
// The library's bitmap resources (resources/images/README.md lists their images in
// order). Both strips of a pair hold the same images in the same order.
constexpr UINT kCommandImagesSmall = 5812;      // 24 command images, 16 x 15 each
constexpr UINT kCommandImagesBig = 5813;        // the same, 24 x 24 each
constexpr UINT kDemoToolbarImagesSmall = 5814;  // a demonstration master toolbar, 16 x 15
constexpr UINT kDemoToolbarImagesBig = 5815;    // the same, 24 x 24 each
constexpr int kCommandImageCount = 24;
constexpr int kDemoToolbarImageCount = 18;
}  // namespace vglobal

struct BITMAP {
  LONG bmType;
  LONG bmWidth;
  LONG bmHeight;
  LONG bmWidthBytes;
  WORD bmPlanes;
  WORD bmBitsPixel;
  void* bmBits;
};

// A bitmap resource found along the resource chain.
class VGLOBAL_EXPORT CBitmap : public CObject {
 public:
  CBitmap() = default;
  ~CBitmap() override;

  // FALSE when no module has the id or its bytes are not a readable PNG file.
  BOOL LoadBitmap(UINT id);
  BOOL DeleteObject();
  BOOL IsLoaded() const { return resource_ != nullptr; }
  // Width and height in pixels ({0, 0} when nothing is loaded).
  CSize GetSize() const { return size_; }
  // Fills the size fields (bmBits is null: the pixels belong to the platform).
  int GetBitmap(BITMAP* info) const;
  const vglobal::BitmapResource* Resource() const { return resource_; }

 private:
  const vglobal::BitmapResource* resource_ = nullptr;
  CSize size_{0, 0};
};

// A row of images of one size. Each image is a cell of a bitmap strip.
class VGLOBAL_EXPORT CImageList : public CObject {
 public:
  CImageList() = default;
  ~CImageList() override;
  CImageList(const CImageList&) = delete;
  CImageList& operator=(const CImageList&) = delete;

  // An empty list of cx x cy images. FALSE for a size that is not positive or a
  // list already created.
  BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
  // A list of the images of strip `bitmapId`, each cx wide and as high as the strip.
  BOOL Create(UINT bitmapId, int cx, int grow, COLORREF mask);
  BOOL DeleteImageList();
  BOOL IsCreated() const { return created_; }

  // Appends every image of the strip; returns the index of the first, or -1 when the
  // strip's width is not a multiple of the image width, its height is not the
  // list's, or the bitmap is not loaded.
  int Add(CBitmap* bitmap, CBitmap* mask);
  int Add(CBitmap* bitmap, COLORREF mask);
  BOOL Remove(int image);  // -1 removes every image
  int GetImageCount() const;
  // The size of one image; FALSE when the list is not created.
  BOOL GetIconSize(int& cx, int& cy) const;
  CSize GetImageSize() const { return {cx_, cy_}; }

  // Draws an image through the DC (CDC::DrawImage). FALSE out of range.
  BOOL Draw(CDC* dc, int image, POINT point, UINT style) const;
  // For platforms: where the pixels of an image are; nullopt out of range.
  std::optional<vglobal::ImageCell> Cell(int image) const;

 private:
  bool created_ = false;
  int cx_ = 0, cy_ = 0;
  std::vector<vglobal::ImageCell> cells_;
};
