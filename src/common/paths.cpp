#include "common/paths.h"
