#include "platform/sqlite/sqlite_engine.h"
