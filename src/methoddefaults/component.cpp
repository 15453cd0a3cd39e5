// The whole default quantitation component: which pages WriteComponentInfo
// writes for a mask, and the reading order of ReadComponentDefaultInfo. The pages
// themselves are the sections of component_identification.cpp,
// component_detection.cpp, calibration and flags.
#include <array>

#include "methoddefaults/adv_detection.h"
#include "methoddefaults/section.h"
#include "vglobal/fileio/component.h"
#include "vglobal/methoddefaults/calibration.h"
#include "vglobal/methoddefaults/component.h"
#include "vglobal/methoddefaults/flags.h"

namespace {

using PageWriter = void (*)(CComponentIO*);
using PageReader = int (*)(CComponentIO*);

struct MaskedPage {
  unsigned int bit;
  PageWriter write;
};

// Without kWriteWholeComponent, each set bit in this order. Two bits choose the
// Detection Flags page: with both set it is written twice.
constexpr std::array<MaskedPage, 9> kPagesByBit{{
    {vglobal::kWriteIdentification, WriteIdentificationInfo},
    {vglobal::kWriteGCDetection, WriteGCDetectionInfo},
    {vglobal::kWriteLCDetection, WriteLCDetectionInfo},
    {vglobal::kWriteDetectionFlags, WriteDataFlagsInfo},
    {vglobal::kWriteDetectionFlagsAgain, WriteDataFlagsInfo},
    {vglobal::kWriteCalibration, WriteCalibrationInfo},
    {vglobal::kWriteCalibrationFlags, WriteCalibrationFlagInfo},
    {vglobal::kWriteLevels, WriteLevelsInfo},
    {vglobal::kWriteSystemSuitability, WriteSystemSuitabilityInfo},
}};

// kWriteWholeComponent: every page once. Both detection forms run; the short form
// rewrites the shared values with the same data and the full form's thresholds stay.
constexpr std::array<PageWriter, 8> kWholeComponent{
    WriteIdentificationInfo, WriteGCDetectionInfo,       WriteLCDetectionInfo,
    WriteDataFlagsInfo,      WriteCalibrationInfo,       WriteCalibrationFlagInfo,
    WriteLevelsInfo,         WriteSystemSuitabilityInfo,
};

// The component's part of Advanced Detection Options; "BkgWidth", written beside
// these from the method's options, is not the component's and is not read here.
int ReadAdvancedDetectionOptions(CComponentIO* component) {
  return vglobal::methoddefaults::ReadAdvDetectComponent(*component);
}

struct NamedPage {
  const wchar_t* section;
  PageReader read;
};

constexpr std::array<NamedPage, 8> kReadOrder{{
    {L"Quan\\Identification", ReadIdentificationInfo},
    {L"Quan\\Detection", ReadDetectionInfo},
    {L"Quan\\Detection Flags", ReadDataFlagsInfo},
    {L"Quan\\Calibration", ReadCalibrationInfo},
    {L"Quan\\Calibration Flags", ReadCalibrationFlagInfo},
    {L"Quan\\Levels", ReadLevelsInfo},
    {L"Quan\\System Suitability", ReadSystemSuitabilityInfo},
    {L"Quan\\Advanced Detection Options", ReadAdvancedDetectionOptions},
}};

}  // namespace

void WriteComponentInfo(CComponentIO* component, unsigned int mask) {
  const vglobal::methoddefaults::WriteScope scope;
  if (!component) return;
  if (mask & vglobal::kWriteWholeComponent) {
    for (PageWriter write : kWholeComponent) write(component);
    return;
  }
  for (const MaskedPage& page : kPagesByBit)
    if (mask & page.bit) page.write(component);
}

std::vector<vglobal::SectionResult> vglobal::ReadComponentDefaultSections(CComponentIO* component) {
  std::vector<SectionResult> results;
  if (!component) return results;
  // Every page is read even after an incomplete one: each applies what it finds.
  for (const NamedPage& page : kReadOrder) results.push_back({page.section, page.read(component)});
  return results;
}

int ReadComponentDefaultInfo(CComponentIO* component) {
  if (!component) return 0;
  return vglobal::AllComplete(vglobal::ReadComponentDefaultSections(component));
}
