// Images of an image list as Qt shows them in item views, drawn through the Qt
// drawing context (QtDC::DrawImage), so that every control decodes strips the same
// way.
#pragma once

#include <QIcon>
#include <QSize>

class CImageList;

namespace vglobal::qt {

// Image `image` of `images`; a null icon when either is missing or out of range.
QIcon ImageIcon(const CImageList* images, int image);
// The size of the list's images; empty without a list.
QSize ImageSize(const CImageList* images);

}  // namespace vglobal::qt
