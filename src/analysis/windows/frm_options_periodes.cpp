#include "analysis/windows/frm_options_periodes.h"
