#include "coords/datum.h"
