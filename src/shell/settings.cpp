#include "shell/settings.h"
