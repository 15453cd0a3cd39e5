// The per-user defaults of a processing method: every section's writer and reader.
#pragma once

#include "vglobal/methoddefaults/calibration.h"
#include "vglobal/methoddefaults/component.h"
#include "vglobal/methoddefaults/flags.h"
#include "vglobal/methoddefaults/named_component.h"
#include "vglobal/methoddefaults/peak_detection.h"
#include "vglobal/methoddefaults/qual.h"
#include "vglobal/methoddefaults/reports.h"
#include "vglobal/methoddefaults/section_result.h"
