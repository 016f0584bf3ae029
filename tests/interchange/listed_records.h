// Records of an import from a list, and the plans of rehearsals over them.
#pragma once
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/talpena_error.h"
#include "interchange/import_reader.h"
#include "interchange/rehearsal_plan.h"

namespace talpena::test {

using Records = std::vector<ImportRecord>;

/// A record that enters; its line is the number in the list, from 1.
inline ImportRecord Fiche(const std::string& original, const std::string& datum = "WGS84") {
  ImportRecord record;
  record.row.period = 3;
  record.row.datum = datum;
  record.row.original = original;
  record.row.date = "1998/07/14";
  record.row.comment = "seen";
  return record;
}

inline ImportRecord FicheOmise(int why) {
  ImportRecord record;
  record.dropped = why;
  return record;
}

class ListedReader final : public ImportReader {
 public:
  explicit ListedReader(Records records, std::optional<TalpenaError> failure = {})
      : records_(std::move(records)), failure_(std::move(failure)) {}

  bool Suivant(ImportRecord& record) override {
    if (next_ < records_.size()) {
      record = records_[next_++];
      record.line = static_cast<std::int64_t>(next_);
      return true;
    }
    if (failure_) throw TalpenaError(*failure_);
    return false;
  }
  double Part() const override {
    return records_.empty() ? 1 : static_cast<double>(next_) / static_cast<double>(records_.size());
  }

 private:
  Records records_;
  std::optional<TalpenaError> failure_;
  std::size_t next_ = 0;
};

inline RehearsalPlan PlanDe(const Records& records, std::optional<TalpenaError> failure = {}) {
  return {.ouvre = [records, failure] { return std::make_unique<ListedReader>(records, failure); }};
}

}  // namespace talpena::test
