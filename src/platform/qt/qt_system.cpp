#include "platform/qt/qt_system.h"
