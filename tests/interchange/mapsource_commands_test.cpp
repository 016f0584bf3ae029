// The command of MapSource texts, and the reading for its window.
#include <gtest/gtest.h>

#include "interchange/waypoint_commands.h"
#include "interchange/waypoint_world.h"

namespace talpena {
namespace {

using test::Lines;
using test::WaypointWorld;

const std::string head =
    "Grid\tLat/Lon hddd.ddddd°\nDatum\tWGS 84\n\n"
    "Header\tName\tDescription\tType\tPosition\tAltitude\n\n";
const std::string alpha = "Waypoint\tA\tAlpha\tUser\tN50.5 E4.25\t12 m\n";
const std::string beta = "Waypoint\tB\tBeta\tUser\tS1 W2\t\n";
const std::string cut = "Waypoint\tC\tGamma\tUser\tN1\t\n";

TEST(ImportMapSource, AsksForATextAndShowsIt) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("/gps/w.txt");
  mnuImportGarmin_Click(world.Contexte(), 0);
  EXPECT_EQ(world.dialogues.fileDialogs[0].filter, "Text file (*.txt)|*.txt|All files (*.*)|*.*");
  EXPECT_EQ(world.dialogues.fileDialogs[0].name, "");
  EXPECT_EQ(world.vue.calls.back(), "MontreImportGarmin 0 /gps/w.txt");
}

TEST(ImportMapSource, EndsInSilenceOnCancel) {
  WaypointWorld world;
  world.dialogues.paths.emplace_back("");
  const std::size_t calls = world.vue.calls.size();
  mnuImportGarmin_Click(world.Contexte(), 0);
  EXPECT_EQ(world.vue.calls.size(), calls);
  EXPECT_EQ(world.Boites(), Lines());
}

TEST(ImportMapSource, DoesNothingForTracks) {
  WaypointWorld world;
  mnuImportGarmin_Click(world.Contexte(), 1);
  EXPECT_TRUE(world.dialogues.fileDialogs.empty());
}

TEST(ImportMapSource, AddsRowsAndTheirPoints) {
  WaypointWorld world;
  world.options.Period = 2;
  world.ImporteMapSource(head + alpha + beta);
  EXPECT_EQ(world.Lignes(), (Lines{"2|50.5|4.25|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha",
                                   "2|-1|-2|-|-|-|WGS84|deg -1 -2|-|B - Beta"}));
  EXPECT_TRUE(world.state.document.FichierModifie());
  EXPECT_EQ(world.vue.selection.size(), 2U);
}

TEST(ImportMapSource, CountsWaypointsWithoutAPositionAsDroppedButNotThoseUnchecked) {
  WaypointWorld world;
  MapSourceText text;
  world.files.Pose("w", head + alpha + beta + "Waypoint\tC\tGamma\tUser\t\t\n");
  RempliLV(world.files, "w", text);
  MapSourceChoice choice{.grid = 0, .datum = "WGS84", .items = TousLesPoints(text)};
  choice.items[0].checked = false;
  ImportMapSource(world.context, world.interchange, text, choice, {});
  EXPECT_EQ(world.Lignes(), Lines{"1|-1|-2|-|-|-|WGS84|deg -1 -2|-|B - Beta"});
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 1 dropped, 0 without a point");
}

TEST(ImportMapSource, AddsRowsOnGridUtmWithoutACoordinate) {
  WaypointWorld world;
  world.ImporteMapSource(
      "Grid\tUTM\nDatum\tWGS 84\nHeader\tName\n"
      "Waypoint\tA\tAlpha\tUser\t44 R 413954 2809536\n");
  EXPECT_EQ(world.Lignes(), Lines{"1|-|-|-|-|-|WGS84|-|-|A - Alpha"});
  EXPECT_EQ(world.state.document.Montre().avis,
            "Import: 1 rows added, 0 dropped, 1 without a point");
}

TEST(ImportMapSource, WarnsOnceWhereNoFreeFieldTakesTheAltitude) {
  WaypointWorld world;
  world.options.AltitudeImport = 1;
  world.options.AltitudeFixed = "9";
  world.ImporteMapSource(head + alpha + beta);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text,
            "The altitude will not be imported since it is not used in the free fields");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(world.Lignes().size(), 2U);
  EXPECT_EQ(world.Lignes()[0], "1|50.5|4.25|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha");
}

TEST(ImportMapSource, KeepsTheRowsBeforeAPositionWithTooFewParts) {
  WaypointWorld world;
  world.ImporteMapSource(head + alpha + cut + beta);
  EXPECT_EQ(
      world.Boites(),
      Lines{"Error 9\nLine 7 of the file: The position “N1” of the waypoint “C” does not have "
            "the form of the grid that is chosen; choose the grid of the file.\n"
            "Rows added before it: 1."});
  EXPECT_EQ(world.Lignes(), Lines{"1|-|-|-|-|-|WGS84|deg 50.5 4.25|-|A - Alpha"});
  EXPECT_FALSE(world.state.document.FichierModifie());
}

TEST(ImportMapSource, AnswersHowManyCameInAndWhetherAllDid) {
  WaypointWorld world;
  const auto importe = [&world](const std::string& waypoints) {
    MapSourceText text;
    world.files.Pose("w", head + waypoints);
    RempliLV(world.files, "w", text);
    return ImportMapSource(world.context, world.interchange, text,
                           {.grid = 0, .datum = "WGS84", .items = TousLesPoints(text)}, {});
  };
  EXPECT_TRUE(importe(alpha + beta).finished);
  const MapSourceOutcome outcome = importe(alpha + "Waypoint\tX\n" + beta + cut + alpha);
  EXPECT_FALSE(outcome.finished);
  EXPECT_EQ(outcome.added, 2);
  EXPECT_EQ(world.Boites().size(), 1U);
}

TEST(ImportMapSource, TellsADatumThatTheCatalogueLacksOnce) {
  WaypointWorld world;
  MapSourceText text;
  world.files.Pose("w", head + alpha + alpha);
  RempliLV(world.files, "w", text);
  text.datum = "XYZ";
  world.Importe(text);
  const Lines boxes = world.Boites();
  ASSERT_EQ(boxes.size(), 1U);
  EXPECT_NE(boxes[0].find("XYZ"), std::string::npos);
  EXPECT_EQ(world.Lignes()[1], "1|-|-|-|-|-|XYZ  |deg 50.5 4.25|-|A - Alpha");
}

TEST(ChargeImportGarmin, GivesTheTextAndTheFirstOptions) {
  WaypointWorld world;
  world.files.Pose("w", head + alpha);
  world.options = {.Period = 4, .DateImport = 1, .DateField = "D"};
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  EXPECT_EQ(text.items.Nombre(), 1U);
  EXPECT_EQ(world.options, objGraminImport{.DateField = "D"});
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, TellsAWrongFileType) {
  WaypointWorld world;
  world.files.Pose("w", "a,b,c");
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "Wrong file type!");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Stop);
  EXPECT_EQ(text.header, "w\r\na,b,c\r\n");
}

TEST(ChargeImportGarmin, ShowsAFailureAndKeepsWhatWasRead) {
  WaypointWorld world;
  world.files.Pose("w", "Grid\tUTM\n");
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 62");
  EXPECT_EQ(text.grid, GarminGrid::Utm);
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, TellsAFaultOfTheDisk) {
  WaypointWorld world;
  const std::string bytes = head + alpha + beta;
  world.files.Pose("w", bytes);
  world.files.bloc = 8;
  world.files.lectureJusqua = bytes.size() - 1;
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 0, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text.substr(0, 8), "Error 57");
  EXPECT_LE(text.items.Nombre(), 1U);
  EXPECT_EQ(world.files.ouverts, 0);
}

TEST(ChargeImportGarmin, StaysEmptyForAnyOtherType) {
  WaypointWorld world;
  const MapSourceText text = ChargeImportGarmin(world.state, world.io, "w", 1, world.options);
  ASSERT_EQ(world.dialogues.boxes.size(), 1U);
  EXPECT_EQ(world.dialogues.boxes[0].text, "This function is not yet abailable!");
  EXPECT_EQ(world.dialogues.boxes[0].icon, Icon::Information);
  EXPECT_EQ(text.header, "");
}

}  // namespace
}  // namespace talpena
