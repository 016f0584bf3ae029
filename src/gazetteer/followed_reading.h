// A table on its way into the engine, with the user looking on.
#pragma once
#include <cstdint>

#include "platform/busy.h"
#include "platform/table_engine.h"

namespace talpena {

/// While it lives the bar tells how far a table that is read came, the windows are painted and the
/// user may give up, which throws Cancelled out of the statement.
class FollowedReading {
 public:
  FollowedReading(Database& base, WaitView& attente) : base_(base), busy_(attente) {
    busy_.Barre().Annulable();
    base_.SuitImport([this](std::int64_t done, std::int64_t total) {
      if (total > 0) busy_.Avance(done, total);
      busy_.Bat();
    });
    base_.SuitTravail([&attente] { return attente.Bat(); });
  }
  ~FollowedReading() {
    base_.SuitImport({});
    base_.SuitTravail({});
  }
  FollowedReading(const FollowedReading&) = delete;
  FollowedReading& operator=(const FollowedReading&) = delete;

 private:
  Database& base_;
  Busy busy_;
};

}  // namespace talpena
