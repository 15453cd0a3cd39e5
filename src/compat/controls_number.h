// Numbers as dialogs read and show them: decimal text in the classic "C" form
// (decimal point "."), whatever the process locale is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vglobal::number {

// A whole number with an optional sign and spaces around it; nullopt for anything
// else (also for numbers beyond the range of long long).
std::optional<long long> ParseInteger(std::wstring_view text);
// A finite decimal number (digits with an optional point, optional exponent,
// optional sign) with spaces around it; nullopt for anything else.
std::optional<double> ParseReal(std::wstring_view text);
// `decimals` places after the point; a negative count gives up to 15 significant
// digits in the shortest form ("0.1", "1e+20").
std::wstring FormatReal(double value, int decimals);

}  // namespace vglobal::number
