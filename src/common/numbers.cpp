#include "common/numbers.h"
