// Uses the installed library the way an application does: settings, strings,
// the platform seam, and the Qt layer.
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
  return dynamic_cast<vglobal::HeadlessPlatform*>(&vglobal::GetPlatform()) == nullptr ? 0 : 4;
}
