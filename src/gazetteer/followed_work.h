// The statements of a gazetteer's database, told of while they are at work.
#pragma once
#include <cstdint>

#include "platform/busy.h"
#include "platform/table_engine.h"

namespace talpena {

/// While it lives: a table that is read for the first time shows how far it came, the windows are
/// painted, and the user may give up where the command said so.
class FollowedWork {
 public:
  FollowedWork(Database& base, Busy& busy, WaitView& attente) : base_(base) {
    base_.SuitImport([&busy](std::int64_t done, std::int64_t total) {
      if (total > 0) busy.Avance(done, total);
      busy.Bat();
    });
    base_.SuitTravail([&attente] { return attente.Bat(); });
  }
  ~FollowedWork() {
    base_.SuitImport({});
    base_.SuitTravail({});
  }
  FollowedWork(const FollowedWork&) = delete;
  FollowedWork& operator=(const FollowedWork&) = delete;

 private:
  Database& base_;
};

}  // namespace talpena
