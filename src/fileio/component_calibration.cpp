// Ordering of a component's calibration and QC levels.
#include "vglobal/fileio/component_calibration.h"

#include <algorithm>
#include <cmath>

namespace vglobal {
namespace {

// Smallest base amount first. A stable sort keeps levels of equal amount in the order
// the user entered them. An amount that is not a number sorts after every number (and
// equal to another such amount): a plain `<` is no ordering at all once NaN is in the
// list, and the sort would be free to do anything.
bool BaseAmountBefore(const CLevel& a, const CLevel& b) {
  const double x = a.BaseAmount();
  const double y = b.BaseAmount();
  if (std::isnan(x)) return false;
  return std::isnan(y) || x < y;
}

}  // namespace

void ComponentCalibration::SortCalLevelPairs() {
  std::stable_sort(m_calLevels.begin(), m_calLevels.end(), BaseAmountBefore);
}

void ComponentCalibration::SortQCLevelPairs() {
  std::stable_sort(m_qcLevels.begin(), m_qcLevels.end(), BaseAmountBefore);
}

}  // namespace vglobal
