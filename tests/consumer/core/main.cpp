// Uses the installed core library the way a headless program does: a value kept in
// the user's settings store and read back, and a string of the library's table.
#include <vglobal/vglobal.h>

#include <cstdio>

int main() {
  CVRegKey key(HKEY_CURRENT_USER, L"Core Consumer Check", 1, 1);
  if (!key.WriteStr(L"Greeting", L"headless")) return 1;
  CString read;
  if (!key.ReadStr(L"Greeting", read) || !(read == L"headless")) return 2;
  CString text;
  if (!text.LoadString(5201)) return 3;
  std::printf("core consumer: %s\n", read.ToUtf8().c_str());
  return 0;
}
