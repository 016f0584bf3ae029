// The first page of an Access file (Jet 4).
#pragma once
#include "platform/foreign/jet/bytes.h"

namespace talpena::jet {

/// That of a database without a password: general sort order, code page 1252.
Page PageDeTete();

}  // namespace talpena::jet
