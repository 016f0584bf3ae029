// A main window that shows nothing, for benchmarks and fuzzing.
#pragma once
#include <string>

#include "coord_commands/adjust.h"
#include "store/command_context.h"

namespace talpena::test {

class SilentView : public MainWindowView, public WaitView, public StorePort, public AdjustDialogs {
 public:
  int progressions = 0;  ///< how often the progress bar was moved
  int tours = 0;         ///< how often the message loop ran

  CommandContext Contexte(StoreState& state, Platform& io) {
    return {state, io, *this, *this, *this};
  }

  void AfficheMessage(const std::string&) override {}
  void FermeMessage() override {}
  void ChangeSablier(bool) override {}
  void MontreBarre(bool) override {}
  void MontreProgression(double) override { ++progressions; }
  void TraiteMessages() override { ++tours; }
  void GeleGrille(bool) override {}
  void MontreOptionsPeriodes() override {}
  void RecalculeCoordonnees() override {}
  void ChercheLieu(RecordScreen&) override {}
  bool MontreAjustement() override { return false; }
  std::vector<Bookmark> LignesSelectionnees() override { return {}; }
  void ChoisitLignes(const std::vector<Bookmark>&) override {}
  std::optional<ColumnRange> ColonnesSelectionnees() override { return {}; }
  void SelectionneColonnes(ColumnRange) override {}
  int ColonneCourante() override { return 0; }
  void PlaceFocusGrille() override {}
  void PlaceFocusColonne(int) override {}
};

}  // namespace talpena::test
