// Bitmaps and image lists: strips of the library at both toolbar sizes, and strips
// whose bytes or sizes are wrong, which must fail without changing anything.
#include "vglobal/compat/image_list.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <vector>

#include "compat/png_header.h"
#include "support/app_resources.h"
#include "vglobal/platform.h"

namespace {

using vglobal::PngCheck;

// A PNG signature and IHDR chunk for an RGBA image of the given size; `mutate`
// may damage the bytes (indexes: 8 length, 12 type, 16 width, 20 height, 24 depth,
// 25 colour type, 29 CRC).
std::vector<unsigned char> PngHeader(std::uint32_t width, std::uint32_t height,
                                     void (*mutate)(std::vector<unsigned char>&) = nullptr) {
  std::vector<unsigned char> b = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                  0,    0,   0,   13,  'I',  'H',  'D',  'R'};
  for (std::uint32_t v : {width, height})
    for (int shift = 24; shift >= 0; shift -= 8)
      b.push_back(static_cast<unsigned char>(v >> shift));
  b.insert(b.end(), {8, 6, 0, 0, 0});
  if (mutate) mutate(b);
  const uLong crc = crc32(0L, b.data() + 12, 17);
  for (int shift = 24; shift >= 0; shift -= 8)
    b.push_back(static_cast<unsigned char>(crc >> shift));
  return b;
}

PngCheck Check(const std::vector<unsigned char>& bytes) {
  vglobal::PngSize size;
  return vglobal::ReadPngSize(bytes.data(), bytes.size(), size);
}

// An application module whose bitmaps are test strips; removed again at the end.
class TestBitmaps {
 public:
  explicit TestBitmaps(std::vector<std::vector<unsigned char>> strips)
      : strips_(std::move(strips)) {
    for (std::size_t i = 0; i < strips_.size(); ++i)
      entries_.push_back({static_cast<UINT>(100 + i), strips_[i].data(), strips_[i].size()});
    resources_.tables().bitmaps = entries_.data();
    resources_.tables().bitmapCount = entries_.size();
  }

 private:
  std::vector<std::vector<unsigned char>> strips_;
  std::vector<vglobal::BitmapResource> entries_;
  vglobal::testing::ScopedAppResources resources_;
};

// Records the cells it is asked to draw.
class CellDC : public CDC {
 public:
  std::vector<vglobal::ImageCell> cells;
  CSize GetTextExtent(const wchar_t*, int) const override { return {}; }
  BOOL TextOut(int, int, const wchar_t*, int) override { return FALSE; }
  BOOL GetTextMetrics(LPTEXTMETRIC) const override { return FALSE; }
  BOOL DrawImage(const vglobal::ImageCell& cell, int, int, UINT) override {
    cells.push_back(cell);
    return TRUE;
  }
};

TEST(PngHeader, ReadsTheSizeOnlyFromAWellFormedHeader) {
  vglobal::PngSize size;
  const auto good = PngHeader(384, 15);
  ASSERT_EQ(vglobal::ReadPngSize(good.data(), good.size(), size), PngCheck::Ok);
  EXPECT_EQ(size.width, 384);
  EXPECT_EQ(size.height, 15);

  EXPECT_EQ(Check({}), PngCheck::Truncated);
  EXPECT_EQ(vglobal::ReadPngSize(nullptr, 40, size), PngCheck::Truncated);
  EXPECT_EQ(Check({good.begin(), good.begin() + 20}), PngCheck::Truncated);  // IHDR cut short
  EXPECT_EQ(Check({'G', 'I', 'F', '8', '9', 'a'}), PngCheck::NotPng);
  EXPECT_EQ(Check(std::vector<unsigned char>(64, 0xFF)), PngCheck::NotPng);
  auto damaged = good;
  damaged[17] ^= 1;  // width changed after the CRC was taken
  EXPECT_EQ(Check(damaged), PngCheck::Damaged);
  EXPECT_EQ(Check(PngHeader(0, 15)), PngCheck::BadHeader);
  EXPECT_EQ(Check(PngHeader(0x80000000u, 15)), PngCheck::BadHeader);
  EXPECT_EQ(Check(PngHeader(16, 15, [](auto& b) { b[11] = 12; })), PngCheck::BadHeader);
  EXPECT_EQ(Check(PngHeader(16, 15, [](auto& b) { b[12] = 'i'; })), PngCheck::BadHeader);
  EXPECT_EQ(Check(PngHeader(16, 15, [](auto& b) { b[24] = 4; })),
            PngCheck::BadHeader);  // RGBA 4-bit
  EXPECT_EQ(Check(PngHeader(16, 15, [](auto& b) { b[28] = 2; })),
            PngCheck::BadHeader);  // interlace
  EXPECT_EQ(Check(PngHeader(vglobal::kMaxImageSide + 1, 15)), PngCheck::TooLarge);
}

TEST(ImageList, LibraryStripsFillListsAtBothToolbarSizes) {
  CBitmap small, big;
  ASSERT_TRUE(small.LoadBitmap(vglobal::kCommandImagesSmall));
  ASSERT_TRUE(big.LoadBitmap(vglobal::kCommandImagesBig));
  EXPECT_EQ(small.GetSize(), CSize(16 * vglobal::kCommandImageCount, 15));
  BITMAP info{};
  EXPECT_EQ(big.GetBitmap(&info), static_cast<int>(sizeof info));
  EXPECT_EQ(info.bmWidth, 24 * vglobal::kCommandImageCount);
  EXPECT_EQ(info.bmHeight, 24);
  EXPECT_EQ(info.bmBits, nullptr);

  CImageList smallList, bigList;
  ASSERT_TRUE(smallList.Create(16, 15, ILC_COLOR32 | ILC_MASK, 0, 4));
  ASSERT_TRUE(bigList.Create(24, 24, ILC_COLOR32 | ILC_MASK, 0, 4));
  EXPECT_EQ(smallList.Add(&small, 0xC0C0C0), 0);
  EXPECT_EQ(bigList.Add(&big, 0xC0C0C0), 0);
  EXPECT_EQ(smallList.GetImageCount(), vglobal::kCommandImageCount);
  EXPECT_EQ(bigList.GetImageCount(), vglobal::kCommandImageCount);

  // A second strip follows the first: its first image's index is returned.
  CBitmap demo;
  ASSERT_TRUE(demo.LoadBitmap(vglobal::kDemoToolbarImagesSmall));
  EXPECT_EQ(smallList.Add(&demo, nullptr), vglobal::kCommandImageCount);
  EXPECT_EQ(smallList.GetImageCount(),
            vglobal::kCommandImageCount + vglobal::kDemoToolbarImageCount);

  CImageList fromResource;
  ASSERT_TRUE(fromResource.Create(vglobal::kDemoToolbarImagesBig, 24, 0, 0));
  int cx = 0, cy = 0;
  ASSERT_TRUE(fromResource.GetIconSize(cx, cy));
  EXPECT_EQ(CSize(cx, cy), CSize(24, 24));
  EXPECT_EQ(fromResource.GetImageCount(), vglobal::kDemoToolbarImageCount);
}

TEST(ImageList, StripsThatDoNotFitFailAndChangeNothing) {
  std::vector<unsigned char> truncatedIhdr = PngHeader(48, 15);
  truncatedIhdr.resize(25);
  TestBitmaps strips(
      {PngHeader(40, 15), PngHeader(48, 16), {'n', 'o', 't', ' ', 'P', 'N', 'G'}, truncatedIhdr});
  CBitmap notMultiple, wrongHeight, notPng, truncated, missing;
  ASSERT_TRUE(notMultiple.LoadBitmap(100));
  ASSERT_TRUE(wrongHeight.LoadBitmap(101));
  EXPECT_FALSE(notPng.LoadBitmap(102));
  EXPECT_FALSE(truncated.LoadBitmap(103));
  EXPECT_FALSE(missing.LoadBitmap(999));
  EXPECT_EQ(notPng.GetSize(), CSize(0, 0));
  EXPECT_EQ(notPng.GetBitmap(nullptr), 0);

  CImageList list;
  ASSERT_TRUE(list.Create(16, 15, ILC_COLOR32, 0, 0));
  CBitmap good;
  ASSERT_TRUE(good.LoadBitmap(vglobal::kCommandImagesSmall));
  ASSERT_EQ(list.Add(&good, nullptr), 0);
  for (CBitmap* bad : {&notMultiple, &wrongHeight, &notPng, static_cast<CBitmap*>(nullptr)})
    EXPECT_EQ(list.Add(bad, nullptr), -1);
  EXPECT_EQ(list.GetImageCount(), vglobal::kCommandImageCount);

  CImageList fromBad;
  EXPECT_FALSE(fromBad.Create(100, 16, 0, 0));  // 40 is not a multiple of 16
  EXPECT_FALSE(fromBad.Create(102, 16, 0, 0));
  EXPECT_FALSE(fromBad.IsCreated());
  EXPECT_FALSE(fromBad.Create(0, 15, 0, 0, 0));
  EXPECT_EQ(fromBad.Add(&good, nullptr), -1);  // not created

  // A loaded bitmap keeps its strip when asked to load another.
  EXPECT_FALSE(good.LoadBitmap(vglobal::kCommandImagesBig));
  EXPECT_EQ(good.GetSize().cy, 15);
}

TEST(ImageList, DrawsAndRemovesByIndexWithinRangeOnly) {
  CBitmap strip;
  ASSERT_TRUE(strip.LoadBitmap(vglobal::kCommandImagesBig));
  CImageList list;
  ASSERT_TRUE(list.Create(24, 24, ILC_COLOR32, 0, 0));
  ASSERT_EQ(list.Add(&strip, nullptr), 0);

  CellDC dc;
  EXPECT_TRUE(list.Draw(&dc, 3, CPoint(5, 6), ILD_TRANSPARENT));
  EXPECT_FALSE(list.Draw(&dc, 24, CPoint(0, 0), ILD_NORMAL));
  EXPECT_FALSE(list.Draw(&dc, -1, CPoint(0, 0), ILD_NORMAL));
  EXPECT_FALSE(list.Draw(nullptr, 0, CPoint(0, 0), ILD_NORMAL));
  ASSERT_EQ(dc.cells.size(), 1u);
  EXPECT_EQ(dc.cells[0].png, strip.Resource()->png);
  EXPECT_EQ(dc.cells[0].x, 72);
  EXPECT_EQ(dc.cells[0].cx, 24);

  // Removing image 0 moves every later image down by one.
  ASSERT_TRUE(list.Remove(0));
  EXPECT_EQ(list.Cell(2)->x, 72);
  EXPECT_FALSE(list.Remove(23));
  EXPECT_TRUE(list.Remove(-1));
  EXPECT_EQ(list.GetImageCount(), 0);
  EXPECT_TRUE(list.DeleteImageList());
  int cx = 0, cy = 0;
  EXPECT_FALSE(list.GetIconSize(cx, cy));
}

}  // namespace
