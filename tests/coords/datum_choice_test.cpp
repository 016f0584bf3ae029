// The datum that a label of a dialog gets from the chooser.
#include "coords/datum_choice.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <initializer_list>

#include "coords/test_catalogue.h"
#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_tables.h"

namespace talpena {
namespace {

using Modes = std::initializer_list<std::int16_t>;

struct DatumChoice : testing::Test, test::FakeServices {
  test::FakeTables engine;
  test::FakeFiles files;
  Platform io{engine, files, settings, dialogues, clock, environment, sound};
  CoordState state;

  DatumChoice() {
    state.Catalogue = test::CatalogueDesSources();
    state.Langue = 1000;
    state.InputMode = 0;
  }
  /// A datum on which no UTM may stand.
  std::string SansUtm() const {
    for (const DatumRecord& datum : state.Catalogue.Datums) {
      if (!PermetUtm(datum)) return std::string(Rogne(datum.code));
    }
    return {};
  }
};

TEST_F(DatumChoice, TakesTheCodeOfTheCatalogue) {
  EXPECT_EQ(ChoisitDatum(state, io, "EUR-M", "WGS84").label, "WGS84");
  EXPECT_EQ(ChoisitDatum(state, io, "EUR-M", "NTF  ").label, "NTF");
}

TEST_F(DatumChoice, KeepsTheLabelAfterCancelAndWithACodeThatTheCatalogueLacks) {
  EXPECT_EQ(ChoisitDatum(state, io, "EUR-M", "").label, "EUR-M");
  EXPECT_EQ(ChoisitDatum(state, io, "EUR-M", "XXXXX").label, "EUR-M");
  EXPECT_TRUE(ChoisitDatum(state, io, "EUR-M", "XXXXX").permis);
}

TEST_F(DatumChoice, RefusesADatumWithoutUtmWhileUtmOrMgrsIsTyped) {
  const std::string code = SansUtm();
  ASSERT_NE(code, "");
  for (const std::int16_t mode : Modes{2, 3}) {
    state.InputMode = mode;
    const DatumChoisi chosen = ChoisitDatum(state, io, "EUR-M", code);
    EXPECT_EQ(chosen.label, "EUR-M");
    EXPECT_FALSE(chosen.permis);
    ASSERT_FALSE(dialogues.boxes.empty());
    EXPECT_EQ(dialogues.boxes.back().text,
              "This datum is not allowed for UTM or MGRS input!\n" + code);
    EXPECT_EQ(dialogues.boxes.back().icon, Icon::Stop);
  }
  for (const std::int16_t mode : Modes{0, 1, 4}) {
    state.InputMode = mode;
    EXPECT_EQ(ChoisitDatum(state, io, "EUR-M", code).label, code);
  }
}

TEST_F(DatumChoice, ReadsFiveCharactersOfALabel) {
  EXPECT_EQ(CodeDuLabel("WGS84 World"), "WGS84");
  EXPECT_EQ(CodeDuLabel("NTF  "), "NTF");
  EXPECT_EQ(CodeDuLabel(""), "");
}

}  // namespace
}  // namespace talpena
