// The Qt application of the services test program (images, choosers, drag and drop).
#include "support/qt_application.h"
