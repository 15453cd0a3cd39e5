// QtDC: measuring with QFontMetrics, writing with QPainter. TextOut places the top
// of the text at y, as the legacy drawing calls do, not the baseline.
#include "vglobal/qt/qt_dc.h"

#include <QPainter>
#include <cwchar>

#include "platform/qt/qt_text.h"

namespace vglobal {
namespace {

QString Text(const wchar_t* text, int count) {
  if (!text) return {};
  return QString::fromWCharArray(text, count < 0 ? static_cast<int>(std::wcslen(text)) : count);
}

}  // namespace

QtDC::QtDC(const QFont& font, QPainter* painter) : font_(font), metrics_(font), painter_(painter) {}

CSize QtDC::GetTextExtent(const wchar_t* text, int count) const {
  return {metrics_.horizontalAdvance(Text(text, count)), metrics_.height()};
}

BOOL QtDC::TextOut(int x, int y, const wchar_t* text, int count) {
  if (!painter_ || !text) return FALSE;
  painter_->setFont(font_);
  painter_->drawText(QPoint(x, y + metrics_.ascent()), Text(text, count));
  return TRUE;
}

BOOL QtDC::GetTextMetrics(LPTEXTMETRIC tm) const {
  if (!tm) return FALSE;
  *tm = {metrics_.height(),  metrics_.ascent(),           metrics_.descent(),
         metrics_.leading(), metrics_.averageCharWidth(), metrics_.maxWidth()};
  return TRUE;
}

void QtDC::DrawLine(int x, int y, const std::wstring& line, int mnemonic) {
  TextOut(x, y, line.c_str(), static_cast<int>(line.size()));
  if (!painter_ || mnemonic < 0 || static_cast<std::size_t>(mnemonic) >= line.size()) return;
  const QString text = qt::FromWide(line.c_str());
  const int left = x + metrics_.horizontalAdvance(text.left(mnemonic));
  const int width = metrics_.horizontalAdvance(text.mid(mnemonic, 1));
  const int underline = y + metrics_.ascent() + metrics_.underlinePos();
  painter_->drawLine(left, underline, left + width - 1, underline);
}

}  // namespace vglobal
