// Uses the installed library the way an application does: settings, strings,
// the platform seam, the application's profile, the library's image strips, a
// posted command, and the Qt layer.
#include <vglobal/vglobal.h>
#include <vglobal/widgets.h>

#include <QApplication>
#include <cstdio>

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  CVRegKey key(HKEY_CURRENT_USER, L"Consumer Check", 1, 1);
  if (!key.WriteInt(L"Answer", 42)) return 1;
  int value = 0;
  if (!key.ReadInt(L"Answer", &value) || value != 42) return 2;
  CString text;
  if (!text.LoadString(5201)) return 3;
  text.Format(L"%s %d", static_cast<const wchar_t*>(CString(L"ok")), value);
  std::printf("%s\n", text.ToUtf8().c_str());

  CWinApp application(L"Consumer");
  const BYTE layout[] = {0, 1, 2, 255};
  if (!application.WriteProfileBinary(L"Toolbars", L"Layout", layout, sizeof layout)) return 5;
  BYTE* read = nullptr;
  UINT bytes = 0;
  if (!application.GetProfileBinary(L"Toolbars", L"Layout", &read, &bytes) || bytes != 4) return 6;
  delete[] read;
  CImageList images;
  if (!images.Create(vglobal::kCommandImagesSmall, 16, 0, RGB(192, 192, 192)) ||
      images.GetImageCount() != 24)
    return 7;

  struct Main : CFrameWnd {
    Main() { OnCommand(6025, &Main::OnProcess); }
    void OnProcess() { ++processed; }
    int processed = 0;
  } main;
  application.m_pMainWnd = &main;
  AfxGetMainWnd()->PostMessage(WM_COMMAND, 6025);
  QCoreApplication::processEvents();
  if (main.processed != 1) return 8;
  return dynamic_cast<vglobal::HeadlessPlatform*>(&vglobal::GetPlatform()) == nullptr ? 0 : 4;
}
