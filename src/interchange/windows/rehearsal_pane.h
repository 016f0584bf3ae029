// What an import would do, shown before it is done: counts, every row, every line that is left out.
#pragma once
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "interchange/rehearsal_plan.h"
#include "store/state.h"

namespace talpena {

/// A part of a dialog. It reads the file bit by bit between the events of the dialog, which stays
/// alive, and changes nothing. Its captions follow the language of the state by themselves.
class RehearsalPane : public QWidget {
  Q_OBJECT

 public:
  /// @param state  the rows that are there, the datum of the file, the catalogue
  explicit RehearsalPane(StoreState& state, QWidget* parent = nullptr);
  ~RehearsalPane() override;

  /// Begins anew. To be called whenever the file or what it is read as has changed.
  void Repete(RehearsalPlan plan);
  /// No file: the list is empty.
  void Arrete();
  /// Quiet lines under the counts, in the language of the interface; those of before go. The
  /// dialog gives them again when the language changes.
  void MontreNotes(const std::vector<std::string>& notes);
};

}  // namespace talpena
