// A step of several statements that is done whole or not at all.
#pragma once
#include "common/talpena_error.h"
#include "platform/sqlite/connection.h"

namespace talpena::sqlite {

/// Takes back what was done since, unless it was told that all went well.
class PointDeReprise {
 public:
  explicit PointDeReprise(Connection& connection) : connection_(connection) {
    connection_.Execute("SAVEPOINT reprise");
  }
  ~PointDeReprise() {
    if (valid_) return;
    try {
      connection_.Execute("ROLLBACK TO reprise");
      connection_.Execute("RELEASE reprise");
    } catch (const TalpenaError&) {  // the library has ended the transaction by itself
    }
  }
  PointDeReprise(const PointDeReprise&) = delete;
  PointDeReprise& operator=(const PointDeReprise&) = delete;
  void Valide() {
    connection_.Execute("RELEASE reprise");
    valid_ = true;
  }

 private:
  Connection& connection_;
  bool valid_ = false;
};

}  // namespace talpena::sqlite
