// The Kiva integrator's values (VG_ADV_DETECTION_FIELDS), a group that several
// sections store alike, under the fields' own names, in one order, written and read
// unconditionally: the whole group in the default component's Detection page and the
// method's peak detection, the group without KivaRMS in a named component's key and
// the interactive peak-detection key.
//
// Each function builds the entries for a section of `Record` from the descriptors of
// `Fields`, the Fields of the class that declares the group (a base class of Record
// for the component).
#pragma once

#include <array>

#include "methoddefaults/section.h"

namespace vglobal::methoddefaults {

// The noise and window values, up to the noise type.
template <typename Record, typename Fields>
constexpr std::array<Entry<Record>, 8> KivaNoiseEntries() {
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
  };
}

// The peak-shape constraint and its limits.
template <typename Record, typename Fields>
constexpr std::array<Entry<Record>, 3> KivaShapeEntries() {
  using S = Section<Record>;
  return {
      S::template Value<&Fields::KivaConstrainPeak>(),
      S::template Value<&Fields::KivaPeakHeightPercentage>(),
      S::template Value<&Fields::KivaTailingFactor>(),
  };
}

template <typename Record, typename Fields>
constexpr std::array<Entry<Record>, 11> KivaEntriesWithoutRMS() {
  return Join(KivaNoiseEntries<Record, Fields>(), KivaShapeEntries<Record, Fields>());
}

// The whole group: KivaRMS follows the noise type it qualifies.
template <typename Record, typename Fields>
constexpr std::array<Entry<Record>, 12> KivaEntries() {
  const std::array rms{Section<Record>::template Value<&Fields::KivaRMS>()};
  return Join(KivaNoiseEntries<Record, Fields>(), rms, KivaShapeEntries<Record, Fields>());
}

}  // namespace vglobal::methoddefaults
