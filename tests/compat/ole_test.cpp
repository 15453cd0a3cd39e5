// Drag and drop without a display: registered formats, global memory handles, and
// a drag from a data source to a registered drop target played by the scripted
// platform.
#include "vglobal/compat/ole.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/scripted_platform.h"

namespace {

using vglobal::testing::ScriptedPlatform;

TEST(ClipboardFormat, SameNameSameNumberAndAMimeTypeBothWays) {
  const UINT ctb = RegisterClipboardFormat(L"CTB Clipboard Format");
  EXPECT_GE(ctb, 0xC000u);
  EXPECT_EQ(RegisterClipboardFormat(L"CTB Clipboard Format"), ctb);
  EXPECT_EQ(RegisterClipboardFormat(L"ctb clipboard FORMAT"), ctb);
  const UINT other = RegisterClipboardFormat(L"Peak List");
  EXPECT_NE(other, ctb);
  EXPECT_EQ(vglobal::RegisteredFormatMimeType(ctb), "application/x-arvenis-ctb-clipboard-format");
  EXPECT_EQ(vglobal::RegisteredFormatOf("application/x-arvenis-peak-list"), other);

  // Characters a MIME type cannot hold are escaped, so different names stay apart.
  EXPECT_EQ(vglobal::FormatMimeType(L"Données/v2"), "application/x-arvenis-donn%C3%A9es%2Fv2");
  EXPECT_EQ(RegisterClipboardFormat(L""), 0u);
  EXPECT_EQ(RegisterClipboardFormat(nullptr), 0u);
  EXPECT_EQ(vglobal::RegisteredFormatMimeType(0xBFFF), "");
  EXPECT_EQ(vglobal::RegisteredFormatOf("text/plain"), 0u);
}

TEST(GlobalMemory, HandlesAreCheckedNeverFollowed) {
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 4);
  ASSERT_NE(block, nullptr);
  auto* bytes = static_cast<unsigned char*>(GlobalLock(block));
  ASSERT_NE(bytes, nullptr);
  EXPECT_EQ(bytes[0] | bytes[1] | bytes[2] | bytes[3], 0);
  EXPECT_EQ(GlobalSize(block), 4u);
  EXPECT_EQ(GlobalFree(block), block) << "a locked block stays";
  EXPECT_FALSE(GlobalUnlock(block));
  EXPECT_EQ(GlobalFree(block), nullptr);

  // Freed, made up or null: refused by every function.
  int local = 0;
  for (HGLOBAL bad : {block, static_cast<HGLOBAL>(&local), static_cast<HGLOBAL>(nullptr)}) {
    EXPECT_EQ(GlobalLock(bad), nullptr);
    EXPECT_EQ(GlobalSize(bad), 0u);
    EXPECT_FALSE(GlobalUnlock(bad));
    EXPECT_EQ(GlobalFree(bad), bad);
  }
  HGLOBAL empty = GlobalAlloc(GMEM_MOVEABLE, 0);
  EXPECT_TRUE(vglobal::IsGlobalBlock(empty));
  EXPECT_EQ(GlobalLock(empty), nullptr);
  EXPECT_EQ(GlobalFree(empty), nullptr);
}

// A drop target that copies under Ctrl and moves otherwise, and keeps what it got.
class CommandDropTarget : public COleDropTarget {
 public:
  UINT format = RegisterClipboardFormat(L"CTB Clipboard Format");
  std::vector<std::string> calls;
  DWORD dropped = 0;
  CPoint dropPoint;

  DROPEFFECT OnDragEnter(CWnd*, COleDataObject* data, DWORD keys, CPoint point) override {
    calls.push_back("enter");
    return OnDragOver(nullptr, data, keys, point);
  }
  DROPEFFECT OnDragOver(CWnd*, COleDataObject* data, DWORD keys, CPoint) override {
    if (!data->IsDataAvailable(static_cast<CLIPFORMAT>(format))) return DROPEFFECT_NONE;
    return (keys & MK_CONTROL) ? DROPEFFECT_COPY : DROPEFFECT_MOVE;
  }
  void OnDragLeave(CWnd*) override { calls.push_back("leave"); }
  BOOL OnDrop(CWnd* window, COleDataObject* data, DROPEFFECT, CPoint point) override {
    calls.push_back("drop");
    EXPECT_EQ(window, GetRegisteredWindow());
    HGLOBAL block = data->GetGlobalData(static_cast<CLIPFORMAT>(format));
    if (!block || GlobalSize(block) != sizeof dropped) return FALSE;
    std::memcpy(&dropped, GlobalLock(block), sizeof dropped);
    GlobalUnlock(block);
    GlobalFree(block);
    dropPoint = point;
    return TRUE;
  }
};

// A drag source offering command 32771 as the toolbars do: four bytes under the format.
DROPEFFECT DragCommand(UINT format, DWORD allowed) {
  HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 4);
  const DWORD command = 32771;
  std::memcpy(GlobalLock(block), &command, 4);
  GlobalUnlock(block);
  DROPEFFECT effect;
  {
    COleDataSource source;
    source.CacheGlobalData(static_cast<CLIPFORMAT>(format), block);
    effect = source.DoDragDrop(allowed);
  }
  EXPECT_FALSE(vglobal::IsGlobalBlock(block)) << "the source frees what it cached";
  return effect;
}

TEST(DragAndDrop, TheTargetReceivesTheBytesAndCopiesUnderCtrlElseMoves) {
  ScriptedPlatform platform;
  CWnd toolbar;
  CommandDropTarget target;
  ASSERT_TRUE(target.Register(&toolbar));
  for (DWORD keys : {MK_CONTROL, DWORD{0}}) {
    platform.dragScripts.push_back([&, keys](const vglobal::DragPayload& data, DWORD allowed) {
      return platform.DropOn(toolbar, data, allowed, POINT{30, 7}, keys);
    });
  }
  EXPECT_EQ(DragCommand(target.format, DROPEFFECT_COPY | DROPEFFECT_MOVE), DROPEFFECT_COPY);
  EXPECT_EQ(target.dropped, 32771u);
  EXPECT_EQ(target.dropPoint, CPoint(30, 7));
  EXPECT_EQ(DragCommand(target.format, DROPEFFECT_COPY | DROPEFFECT_MOVE), DROPEFFECT_MOVE);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"enter", "drop", "enter", "drop"}));
}

TEST(DragAndDrop, AnEffectTheSourceDoesNotAllowIsNoDropAndTheDragLeaves) {
  ScriptedPlatform platform;
  CWnd toolbar;
  CommandDropTarget target;
  ASSERT_TRUE(target.Register(&toolbar));
  platform.dragScripts.push_back([&](const vglobal::DragPayload& data, DWORD allowed) {
    return platform.DropOn(toolbar, data, allowed, POINT{1, 1}, 0);  // target wants a move
  });
  EXPECT_EQ(DragCommand(target.format, DROPEFFECT_COPY), DROPEFFECT_NONE);
  EXPECT_EQ(target.calls, (std::vector<std::string>{"enter", "leave"}));
  EXPECT_EQ(target.dropped, 0u);

  // Nothing offered (no format, or a handle that is not a block): no drag at all.
  COleDataSource nothing;
  int local = 0;
  nothing.CacheGlobalData(0, GlobalAlloc(GMEM_MOVEABLE, 4));
  nothing.CacheGlobalData(static_cast<CLIPFORMAT>(target.format), &local);
  EXPECT_EQ(nothing.DoDragDrop(), DROPEFFECT_NONE);
  EXPECT_EQ(platform.dragLoops, 1);
}

TEST(DragAndDrop, RegistrationIsOncePerTargetAndEndsWithIt) {
  ScriptedPlatform platform;
  CWnd window;
  {
    CommandDropTarget target, second;
    EXPECT_FALSE(target.Register(nullptr));
    ASSERT_TRUE(target.Register(&window));
    EXPECT_FALSE(target.Register(&window));
    EXPECT_FALSE(second.Register(&window)) << "one target per window";
    target.Revoke();
    EXPECT_TRUE(second.Register(&window));
  }
  EXPECT_TRUE(platform.dropTargets.empty());
}

}  // namespace
