#include "common/string_table.h"
