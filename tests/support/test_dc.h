// A drawing context for tests: every character is 6 pixels wide and a line 10
// pixels high, and what is drawn is recorded.
#pragma once

#include <string>
#include <vector>

#include "vglobal/compat/window.h"

namespace vglobal::testing {

class TestDC : public CDC {
 public:
  static constexpr int kCharWidth = 6;
  static constexpr int kLineHeight = 10;

  struct Drawn {
    int x, y;
    std::wstring text;
  };
  std::vector<Drawn> drawn;

  CSize GetTextExtent(const wchar_t* /*text*/, int count) const override {
    return {count * kCharWidth, kLineHeight};
  }
  BOOL TextOut(int x, int y, const wchar_t* text, int count) override {
    drawn.push_back({x, y, std::wstring(text, static_cast<std::size_t>(count))});
    return TRUE;
  }
  BOOL GetTextMetrics(LPTEXTMETRIC tm) const override {
    *tm = {kLineHeight, 8, 2, 0, kCharWidth, kCharWidth};
    return TRUE;
  }
};

}  // namespace vglobal::testing
