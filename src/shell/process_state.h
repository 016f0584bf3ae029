// The whole state of the process.
#pragma once
#include "store/state.h"

namespace talpena {

struct ProcessState : StoreState {};

}  // namespace talpena
