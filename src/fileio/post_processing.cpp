// Out of line so that the class's virtual table has one home in the library.
#include "vglobal/fileio/post_processing.h"

CPostProcessingMassLimits::~CPostProcessingMassLimits() = default;
