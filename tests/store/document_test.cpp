// What the document has its observers say of a command.
#include "store/document.h"

#include "store/grid_commands_fixture.h"

namespace talpena::test {
namespace {

class DocumentNotice : public GridCommands {
 protected:
  DocumentNotice() {
    Ouvre();
    observed = state.document.Observe([this](Changes touched) {
      if (touched.Touche(Aspect::Notice)) notices.push_back(state.document.Montre().avis);
    });
  }
  Subscription observed;
  Strings notices;
};

TEST_F(DocumentNotice, AnOutcomeGoesWhenOtherRowsAreOnShow) {
  state.document.DitResultat("12 rows written");
  state.document.Data1.SignalePosition();
  EXPECT_EQ(notices, Strings{"12 rows written"});
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 1"));
  EXPECT_EQ(notices, (Strings{"12 rows written", ""}));
}

TEST_F(DocumentNotice, AnyOtherStays) {
  state.document.ChangeAvis("The automatic save waits");
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 1"));
  state.document.DitResultat({});
  EXPECT_EQ(notices, Strings{"The automatic save waits"});
}

TEST_F(DocumentNotice, AnotherTakesThePlaceOfAnOutcomeAndStays) {
  state.document.DitResultat("12 rows written");
  state.document.ChangeAvis("The automatic save waits");
  state.document.MontreLignes(RowsShown::Filtrees("N1 = 1"));
  EXPECT_EQ(state.document.Montre().avis, "The automatic save waits");
}

TEST_F(DocumentNotice, AnOutcomeCanBeTakenAway) {
  state.document.DitResultat("12 rows written");
  state.document.DitResultat({});
  EXPECT_EQ(notices, (Strings{"12 rows written", ""}));
}

}  // namespace
}  // namespace talpena::test
