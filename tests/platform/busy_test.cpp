#include "platform/busy.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"

namespace talpena {
namespace {

class ListedView : public WaitView {
 public:
  std::vector<std::string> calls;
  void AfficheMessage(const std::string& text) override { calls.push_back("message " + text); }
  void FermeMessage() override { calls.emplace_back("no message"); }
  void ChangeSablier(bool on) override { calls.emplace_back(on ? "hourglass" : "pointer"); }
  void MontreBarre(bool on) override { calls.emplace_back(on ? "bar" : "no bar"); }
  void MontreProgression(double percent) override {
    calls.push_back(Str(static_cast<std::int64_t>(percent)));
  }
  void TraiteMessages() override { calls.emplace_back("painted"); }
  void GeleGrille(bool on) override { calls.emplace_back(on ? "frozen" : "thawed"); }
  bool EstAbandonne() override { return cancelled; }
  void PermetAnnulation(Annulation where) override {
    calls.emplace_back(where == Annulation::Aucune ? "for good" : "cancelable");
  }
  bool cancelled = false;
};

using Calls = std::vector<std::string>;

TEST(Busy, IsTheHourglassForAsLongAsItLives) {
  ListedView view;
  { const Busy busy(view); }
  EXPECT_EQ(view.calls, (Calls{"hourglass", "pointer"}));
}

TEST(Busy, PutsBackWhatItWasAskedForAndNothingElse) {
  ListedView view;
  {
    Busy busy(view);
    busy.GrilleGelee().Message("wait").Barre();
  }
  EXPECT_EQ(view.calls, (Calls{"hourglass", "frozen", "message wait", "bar", "no bar", "no message",
                               "pointer", "thawed"}));
}

TEST(Busy, PutsEverythingBackBehindAFailure) {
  ListedView view;
  EXPECT_THROW(
      {
        Busy busy(view);
        busy.Barre();
        throw std::runtime_error("failed");
      },
      std::runtime_error);
  EXPECT_EQ(view.calls, (Calls{"hourglass", "bar", "no bar", "pointer"}));
}

TEST(Busy, WindowsMayGoBeforeTheHourglass) {
  ListedView view;
  {
    Busy busy(view);
    busy.Message("wait").Barre();
    busy.FermeFenetres();
    view.calls.clear();
  }
  EXPECT_EQ(view.calls, (Calls{"pointer"}));
}

TEST(Busy, MovesTheBarAtEachPercentAndPaintsAtEachTenth) {
  ListedView view;
  Busy busy(view);
  busy.Barre();
  view.calls.clear();
  for (int i = 0; i <= 2000; ++i) busy.Avance(i, 2000);
  EXPECT_EQ(std::count(view.calls.begin(), view.calls.end(), "painted"), 10) << "not at 0";
  EXPECT_EQ(view.calls.size(), 101U + 10U);
  EXPECT_EQ(view.calls[view.calls.size() - 2], "100");
  busy.FermeFenetres();
  EXPECT_EQ(view.calls[view.calls.size() - 2], "0") << "the bar is empty when it comes again";
}

TEST(Busy, WithinAnotherLeavesItsHourglass) {
  ListedView view;
  {
    const Busy outer(view);
    { const Busy inner(view); }
    EXPECT_EQ(view.calls, (Calls{"hourglass"}));
  }
  EXPECT_EQ(view.calls, (Calls{"hourglass", "pointer"}));
}

TEST(Busy, LetsTheUserGiveUpForAsLongAsItLives) {
  ListedView view;
  {
    Busy busy(view);
    busy.Annulable();
    EXPECT_NO_THROW(busy.Bat());
    view.cancelled = true;
    EXPECT_THROW(busy.Bat(), TalpenaError);
  }
  EXPECT_EQ(view.calls, (Calls{"hourglass", "cancelable", "for good", "pointer"}));
}

TEST(Busy, NothingToDoIsDone) {
  ListedView view;
  Busy busy(view);
  busy.Avance(0, 0);
  EXPECT_EQ(view.calls, (Calls{"hourglass", "100", "painted"}));
}

}  // namespace
}  // namespace talpena
