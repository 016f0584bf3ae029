#include "platform/os/file_system.h"
