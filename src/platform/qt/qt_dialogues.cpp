#include "platform/qt/qt_dialogues.h"
