// Text between the model (wide strings, Windows line ends, "&" mnemonics) and Qt.
#pragma once

#include <QString>
#include <string>

#include "vglobal/compat/cstring.h"
#include "vglobal/compat/window.h"

namespace vglobal::qt {

inline QString FromWide(const wchar_t* text) {
  return text ? QString::fromWCharArray(text) : QString();
}
inline QString FromWide(const CString& text) {
  return QString::fromWCharArray(text.GetString(), text.GetLength());
}
inline std::wstring ToWide(const QString& text) {
  return text.toStdWString();
}
// A window's text (a control's, a dialog's title) for a widget.
inline QString WindowText(const CWnd& window) {
  CString text;
  window.GetWindowText(text);
  return FromWide(text);
}

// A multi-line edit's text: CR LF in the model, LF in Qt.
inline QString ToWindowsLines(QString text) {
  return text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
}
inline QString FromWindowsLines(QString text) {
  return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

// A label text with its "&" marks resolved, for labels that have no control to
// move to: "&x" shows x, "&&" shows "&".
inline QString StripMnemonic(const QString& text) {
  QString out;
  out.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'&' && i + 1 < text.size())
      ++i;
    else if (text[i] == u'&')
      continue;
    out.append(text[i]);
  }
  return out;
}

}  // namespace vglobal::qt
