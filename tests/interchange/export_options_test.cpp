// What OptionsExport shows and takes.
#include "interchange/export_options.h"

#include <gtest/gtest.h>

#include "fakes/fake_machine.h"

namespace talpena::test {
namespace {

class ExportOptions : public testing::Test, protected FakeMachine {
 protected:
  SharedState state;
};

TEST_F(ExportOptions, AllColumnsAreOnAtFirstWithoutXAndY) {
  const ExportForm form = RempliOptionsExport(state);
  for (const bool on : form.IncludeField) EXPECT_TRUE(on);
  EXPECT_EQ(form.cmbSystem, 0U);
  EXPECT_EQ(SystemesExport[0].caption, "none");
  EXPECT_EQ(SystemesExport[0].value, -1);
  EXPECT_EQ(SystemesExport[1].caption, "Belge Lambert 72");
  EXPECT_EQ(SystemesExport[1].value, 7);
}

struct BoxCase {
  std::int16_t SettingsState::*flag;
  const char* name;
};

// clang-format off
constexpr BoxCase boxCases[] = {
    {&SettingsState::ExportPeriod,        "ExportPeriod"},
    {&SettingsState::ExportLatitude,      "ExportLatitude"},
    {&SettingsState::ExportLongitude,     "ExportLongitude"},
    {&SettingsState::ExportNumber1,       "ExportNumber1"},
    {&SettingsState::ExportNumber2,       "ExportNumber2"},
    {&SettingsState::ExportEllipsoid,     "ExportEllipsoid"},
    {&SettingsState::ExportOriginalCoord, "ExportOriginalCoord"},
    {&SettingsState::ExportDate,          "ExportDate"},
    {&SettingsState::ExportFreeField,     "ExportFreeField"},
    {&SettingsState::ExportSex,           "ExportSex"},
};
// clang-format on

TEST_F(ExportOptions, EveryBoxHasItsSetting) {
  ASSERT_EQ(CasesExport().size(), std::size(boxCases));
  for (std::size_t i = 0; i < std::size(boxCases); ++i) {
    SCOPED_TRACE(boxCases[i].name);
    ExportForm form;
    form.IncludeField.fill(true);
    form.IncludeField[i] = false;
    ValideOptionsExport(state, io, form);
    for (const BoxCase& c : boxCases) {
      EXPECT_EQ(state.*c.flag, c.name == boxCases[i].name ? 0 : 1) << c.name;
    }
    EXPECT_EQ(RempliOptionsExport(state).IncludeField, form.IncludeField);
  }
}

TEST_F(ExportOptions, TheSystemOpensOnTheSecondEntryForSevenAlone) {
  for (const int system : {-1, 0, 1, 6, 8, 15}) {
    state.ExportCoordSystem = static_cast<std::int16_t>(system);
    EXPECT_EQ(RempliOptionsExport(state).cmbSystem, 0U) << system;
  }
  state.ExportCoordSystem = 7;
  EXPECT_EQ(RempliOptionsExport(state).cmbSystem, 1U);
}

TEST_F(ExportOptions, TakesTheValueOfTheEntry) {
  ExportForm form = RempliOptionsExport(state);
  form.cmbSystem = 1;
  ValideOptionsExport(state, io, form);
  EXPECT_EQ(state.ExportCoordSystem, 7);
  form.cmbSystem = 0;
  ValideOptionsExport(state, io, form);
  EXPECT_EQ(state.ExportCoordSystem, -1);
}

TEST_F(ExportOptions, XAndYAreOnAboveZero) {
  for (const auto& [system, on] : {std::pair{-1, false}, {0, false}, {1, true}, {7, true}}) {
    state.ExportCoordSystem = static_cast<std::int16_t>(system);
    EXPECT_EQ(ExporteXY(state), on) << system;
  }
}

TEST_F(ExportOptions, SexAloneIsToldAndTakenAllTheSame) {
  ExportForm form;
  form.IncludeField[9] = true;
  form.cmbSystem = 1;
  ValideOptionsExport(state, io, form);
  ASSERT_EQ(dialogues.boxes.size(), 1U);
  EXPECT_EQ(dialogues.boxes[0].text, "Impossible to export!");
  EXPECT_EQ(dialogues.boxes[0].icon, Icon::Exclamation);
  EXPECT_EQ(sound.bips, 1);
  EXPECT_EQ(state.ExportSex, 1);
  EXPECT_EQ(state.ExportPeriod, 0);
  EXPECT_EQ(state.ExportCoordSystem, 7) << "also behind the message";
}

TEST_F(ExportOptions, AnyOfTheNineIsEnough) {
  for (std::size_t i = 0; i < 9; ++i) {
    ExportForm form;
    form.IncludeField[i] = true;
    ValideOptionsExport(state, io, form);
  }
  EXPECT_TRUE(dialogues.boxes.empty());
}

}  // namespace
}  // namespace talpena::test
