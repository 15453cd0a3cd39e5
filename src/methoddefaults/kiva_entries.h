// The Kiva integrator's values (VG_ADV_DETECTION_FIELDS), a group that the default
// component's Detection page and the method's peak detection store alike: the same
// names, the same order, written and read unconditionally.
#pragma once

#include <array>

#include "methoddefaults/section.h"

namespace vglobal::methoddefaults {

// The group's entries for a section of `Record`, from the descriptors of `Fields`, the
// Fields of the class that declares the group (a base class of Record for the
// component).
template <typename Record, typename Fields>
constexpr std::array<Entry<Record>, 12> KivaEntries() {
  using S = Section<Record>;
  return {
      S::template Value<&Fields::BaselineWindow>(),
      S::template Value<&Fields::PeakNoiseFactor>(),
      S::template Value<&Fields::MultipletResolution>(),
      S::template Value<&Fields::KivaMinPeakWidth>(),
      S::template Value<&Fields::AreaScanWindow>(),
      S::template Value<&Fields::AreaNoiseFactor>(),
      S::template Value<&Fields::AreaTailExtension>(),
      S::template Value<&Fields::KivaNoiseType>(),
      S::template Value<&Fields::KivaRMS>(),
      S::template Value<&Fields::KivaConstrainPeak>(),
      S::template Value<&Fields::KivaPeakHeightPercentage>(),
      S::template Value<&Fields::KivaTailingFactor>(),
  };
}

}  // namespace vglobal::methoddefaults
