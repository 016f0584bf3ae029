#include "analysis/periods.h"
