// Detector kinds and peak-detection algorithms of the processing-method records.
#pragma once

// The kind of detector a chromatogram comes from. 0 is the mass spectrometer (its
// chromatograms are chosen by a scan filter); every other kind is a detector whose
// trace is shifted by a trace delay.
enum VirtualDeviceType : int {
  VIRTUAL_DEVICE_MS = 0,
  VIRTUAL_DEVICE_ANALOG = 1,
  VIRTUAL_DEVICE_PDA = 2,
  VIRTUAL_DEVICE_UV = 3,
  VIRTUAL_DEVICE_AD_CARD = 4,
  VIRTUAL_DEVICE_OTHER = 5,
};

// Peak-detection algorithms; the values are the positions in the display-name table
// ("Solenta", "Kiva", "Tamsin", "Selfset").
enum ePeakDetectionAlgorithm : int {
  PEAK_DETECTION_SOLENTA = 0,
  PEAK_DETECTION_KIVA = 1,
  PEAK_DETECTION_TAMSIN = 2,
  PEAK_DETECTION_SELFSET = 3,
};
