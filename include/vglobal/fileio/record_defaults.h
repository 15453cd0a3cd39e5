// The values of a newly constructed processing-method record: what a lab meets in a
// new method before any user default is applied. Every record takes its starting
// values from here, so they are listed, and kept consistent, in one place.
#pragma once

namespace vglobal::record_defaults {

// ---- Component: identification and detection ----

// ---- Component: calibration, levels and replicates ----

// ---- Component: flags and system suitability ----

// ---- Peak detection and method-wide options ----

// ---- Qualitative: spectrum enhancement, library search, constraints ----

// ---- Reports, summary reports and programs ----

}  // namespace vglobal::record_defaults
