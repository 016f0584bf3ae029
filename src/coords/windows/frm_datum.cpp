#include "coords/windows/frm_datum.h"
