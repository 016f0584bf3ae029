// How an Access file that is made while building comes to its place.
#pragma once
#include <functional>
#include <string>

#include "platform/table_engine.h"

namespace talpena {

/// Has a database written beside `target` and puts it there whole, so that a
/// build broken off leaves no half one. What `write` raises is thrown on.
///
/// @param write  makes the file at the path that it is given, which is free
void PoseBase(const std::string& target,
              const std::function<void(TableEngine&, const std::string& path)>& write);

}  // namespace talpena
