// The grid over a map, on a canvas that lists its calls and as marks of an EPS file.
#include "maps/grid_overlay.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "common/numbers.h"
#include "common/talpena_error.h"
#include "fakes/fake_canvas.h"
#include "fakes/fake_files.h"
#include "fakes/fake_platform.h"
#include "fakes/fake_tables.h"
#include "maps/canvas_sink.h"
#include "maps/eps_sink.h"
#include "maps/map_world.h"
#include "maps/some_map.h"

namespace talpena {
namespace {

using test::CanvasCall;
using Texts = std::vector<std::string>;

/// Counts instead of listing: a grid may have millions of nodes.
class CompteCanvas : public test::FakeCanvas {
 public:
  int dots = 0, lines = 0;
  void PSet(double, double) override { ++dots; }
  void Line(double, double, double, double) override { ++lines; }
};

template <typename CanvasType = test::FakeCanvas>
struct Machine : test::FakeServices {
  MapState carte;
  MapOption options;
  CanvasType canvas;
  test::FakeMapWindow fenetre;
  test::FakeTables tables;
  test::FakeFiles files;
  test::FakeView vue;
  StoreState state;
  Platform io{tables, files, settings, dialogues, clock, environment, sound};

  MapContext Contexte() { return {carte, options, canvas, fenetre, state, io, vue}; }

  /// Asks for the step and answers with a text.
  void Demande(const std::string& answer) {
    dialogues.inputs.push_back(answer);
    ScreenSink ecran(Contexte());
    DisplayGrid(Contexte(), ecran, true);
  }
  void Trace(float step) {
    carte.Pas = step;
    ScreenSink ecran(Contexte());
    DisplayGrid(Contexte(), ecran, false);
  }
  /// Lines of an EPS file.
  Texts TraceEps(float step) {
    carte.Pas = step;
    const auto file = files.Cree("/g.eps");
    EpsOutput eps(*file);
    EpsSink page(carte, eps, 1);
    DisplayGrid(Contexte(), page, true);
    eps.Vide();
    file->Remplace();
    Texts lines;
    std::string text = files.Contenu("/g.eps");
    for (std::size_t end = 0; (end = text.find("\r\n")) != std::string::npos;) {
      lines.push_back(text.substr(0, end));
      text.erase(0, end + 2);
    }
    EXPECT_EQ(text, "");
    return lines;
  }
};

/// "PSet 0 0" and so on.
std::string Texte(const CanvasCall& call) {
  std::string text = call.name;
  for (const double number : call.numbers) text += " " + Str(number);
  return text;
}

Texts Tous(const test::FakeCanvas& canvas) {
  Texts texts;
  for (const CanvasCall& call : canvas.calls) texts.push_back(Texte(call));
  return texts;
}

// ---------------------------------------------------------------------------------------------
// The step

TEST(DisplayGrid, AsksForDegreesOnAProjectedMap) {
  Machine m;
  m.carte = test::CarteDe(5);
  m.Demande("5");
  ASSERT_EQ(m.dialogues.asked.size(), 1U);
  EXPECT_EQ(m.dialogues.asked[0].title, "Maille");
  EXPECT_EQ(m.dialogues.asked[0].text, "1");
  EXPECT_EQ(m.dialogues.asked[0].prompt,
            "Entrez le pas de la maille en degrés décimaux Greenwich.");
  EXPECT_EQ(m.carte.Pas, 5);
}

TEST(DisplayGrid, AsksForAStepOnAMapOfCode0) {
  Machine m;
  m.carte = test::CarteSansCode(0, 100, 0, 100);
  m.Demande("50");
  EXPECT_EQ(m.dialogues.asked.at(0).prompt, "Entrez le pas de la maille.");
  EXPECT_EQ(m.dialogues.asked.at(0).title, "Maille");
}

TEST(DisplayGrid, TakesACommaForAPoint) {
  Machine<CompteCanvas> m;
  m.carte = test::CarteDe(5);
  m.Demande("0,5");
  EXPECT_EQ(m.carte.Pas, 0.5F);
  EXPECT_GT(m.canvas.lines, 1000);
}

TEST(DisplayGrid, DrawsNothingForAnAnswerThatIsNoNumber) {
  for (const char* answer : {"abc", "", "0", "-2", "-0,5"}) {
    SCOPED_TRACE(answer);
    Machine m;
    m.carte = test::CarteDe(5);
    m.carte.Pas = 3;
    m.Demande(answer);
    EXPECT_TRUE(m.canvas.calls.empty());
    EXPECT_LE(m.carte.Pas, 0);
  }
}

TEST(DisplayGrid, KeepsTheStepForTheNextDrawing) {
  Machine m;
  m.carte = test::CarteDe(5);
  m.Demande("20");
  const Texts first = Tous(m.canvas);
  m.canvas.calls.clear();
  ScreenSink ecran(m.Contexte());
  DisplayGrid(m.Contexte(), ecran, false);
  EXPECT_EQ(Tous(m.canvas), first);
  EXPECT_EQ(m.dialogues.asked.size(), 1U);
}

TEST(DisplayGrid, RaisesAStepBeyondAFloat) {
  Machine m;
  m.carte = test::CarteDe(5);
  EXPECT_THROW(m.Demande("1E39"), TalpenaError);
}

// ---------------------------------------------------------------------------------------------
// On the screen

// The extents are no multiples of the step: lines run from the extent itself.
TEST(DisplayGrid, DrawsAMapOfCode0InItsUnitsFromTheExtent) {
  Machine m;
  m.carte = test::CarteSansCode(5, 30, -3, 8);
  m.Trace(10);
  EXPECT_EQ(Tous(m.canvas), (Texts{"PSet 5 -3", "Line 5 -3 15 -3", "Line 15 -3 25 -3",  // parallels
                                   "PSet 5 7", "Line 5 7 15 7", "Line 15 7 25 7", "PSet 5 -3",
                                   "Line 5 -3 5 7", "PSet 15 -3", "Line 15 -3 15 7",  // meridians
                                   "PSet 25 -3", "Line 25 -3 25 7"}));
}

TEST(DisplayGrid, DrawsDottedLinesAndLeavesSolidOnes) {
  Machine m;
  m.carte = test::CarteDe(5);
  m.Trace(10);
  ASSERT_FALSE(m.canvas.calls.empty());
  for (const CanvasCall& call : m.canvas.calls)
    EXPECT_EQ(call.attributs.drawStyle, DrawStyle::Dotted);
  EXPECT_EQ(m.canvas.Attributs.drawStyle, DrawStyle::Solid);
}

/// Where the parallels of a drawing of code 5 begin: latitude and longitude in degrees.
std::vector<std::pair<double, double>> Debuts(const test::FakeCanvas& canvas) {
  constexpr double kmPerDegree = 6378.388 * 3.1415926535 / 180;
  std::vector<std::pair<double, double>> starts;
  for (const CanvasCall& call : canvas.Appels("PSet"))
    starts.emplace_back(call.numbers[1] / kmPerDegree, call.numbers[0] / kmPerDegree + 10);
  return starts;
}

TEST(DisplayGrid, StartsOneStepFurtherOutNorthOfTheEquator) {
  Machine m;
  m.carte = test::CarteDe(5);  // from 30 north and 10 west
  m.Trace(20);
  // 30 snaps to 20 and one further, -10 to -20; the ends are 70 + 20 and 30 + 20.
  const auto starts = Debuts(m.canvas);
  ASSERT_EQ(starts.size(), 5U + 4U);
  for (std::size_t i = 0; i < 5; ++i) {
    EXPECT_NEAR(starts[i].first, 20 * static_cast<double>(i), 1e-3);
    EXPECT_NEAR(starts[i].second, -20, 1e-3);
  }
  for (std::size_t i = 5; i < 9; ++i) {
    EXPECT_NEAR(starts[i].first, 0, 1e-3);
    EXPECT_NEAR(starts[i].second, -20 + 20 * static_cast<double>(i - 5), 1e-3);
  }
}

TEST(DisplayGrid, SnapsTheWholeDegreeBelowTheLimit) {
  Machine m;
  m.carte = test::LimitesEurope(5);
  m.carte.LatSud = -0.5F;    // -1, snapped to -4
  m.carte.LonOuest = 12.9F;  // 12, snapped to 12 and 8
  test::Prepare(m.carte);
  m.Trace(4);
  EXPECT_NEAR(Debuts(m.canvas).front().first, -4, 1e-3);
  EXPECT_NEAR(Debuts(m.canvas).front().second, 8, 1e-3);
}

// 0.1 as a float is a little more than a tenth: in doubles 0.3 of it holds two whole steps.
TEST(DisplayGrid, TakesTheQuotientOfTheStepInDouble) {
  Machine<CompteCanvas> m;
  m.carte = test::LimitesEurope(5);
  m.carte.LatSud = m.carte.LatNord = 3;
  m.carte.LonOuest = m.carte.LonEst = 3;
  test::Prepare(m.carte);
  m.Trace(0.1F);
  // 3 / 0.1F is 29.99..: 29 steps, one further out is 28; the ends are 3.1.
  EXPECT_EQ(m.canvas.dots, 2 * 4);
}

// Ten thousandths of one do not sum up to one in 32 bits.
TEST(DisplayGrid, ReachesTheLastValueAsTheSumsFall) {
  for (const float step : {0.1F, 0.2F, 0.3F, 0.7F}) {
    SCOPED_TRACE(step);
    Machine<CompteCanvas> m;
    m.carte = test::CarteSansCode(0, 50, 0, 0);
    m.Trace(step);
    int nodes = 0;
    for (float x = 0; x <= 50; x += step) ++nodes;
    EXPECT_EQ(m.canvas.lines, nodes - 1);
  }
  Machine<CompteCanvas> missed;
  missed.carte = test::CarteSansCode(0, 1, 0, 0);
  missed.Trace(0.1F);
  EXPECT_EQ(missed.canvas.lines, 9);  // ten steps come to 1.0000001
}

// Behind a globe the line goes to infinity, where the canvas loses it.
TEST(DisplayGrid, LeavesHiddenNodesToTheCanvas) {
  Machine m;
  m.carte = test::LimitesEurope(13);
  m.carte.LonOuest = -180;
  m.carte.LonEst = 180;
  test::Prepare(m.carte);
  m.Trace(30);
  int hidden = 0;
  for (const CanvasCall& call : m.canvas.Appels("Line")) {
    if (std::isinf(call.numbers[2]) && std::isinf(call.numbers[3])) ++hidden;
    EXPECT_LT(std::isinf(call.numbers[2]) ? 0 : call.numbers[2], 6379);
  }
  EXPECT_GT(hidden, 10);
}

// A row beyond the pole has no projection in the conic.
TEST(DisplayGrid, GoesOnPastNodesWithoutAProjection) {
  Machine m;
  m.carte = test::LimitesEurope(1);
  m.carte.LatNord = 89;
  test::Prepare(m.carte);
  m.Trace(16);
  const std::vector<CanvasCall> dots = m.canvas.Appels("PSet");
  ASSERT_GE(dots.size(), 7U + 4U);
  EXPECT_TRUE(std::isinf(dots[6].numbers[0]));  // 96 north
  EXPECT_LT(dots[7].numbers[0], 1e5);
  EXPECT_EQ(m.canvas.Attributs.drawStyle, DrawStyle::Solid);
}

// ---------------------------------------------------------------------------------------------
// Bounded work

TEST(DisplayGrid, StopsWhereASumNoLongerGrows) {
  Machine m;
  m.carte = test::CarteDe(5);
  m.Trace(1e-9F);
  EXPECT_EQ(m.canvas.calls.size(), 2U);  // a single node, in both passes
  m.canvas.calls.clear();
  m.carte = test::CarteSansCode(-1e38F, 1e38F, -1e38F, 1e38F);
  m.Trace(1);
  EXPECT_EQ(m.canvas.calls.size(), 2U);
}

TEST(DisplayGrid, StopsAfterFourMillionNodes) {
  for (const float step : {1e-5F, 0.001F}) {
    Machine<CompteCanvas> m;
    m.carte = test::CarteSansCode(0, 100, 0, 100);
    m.Trace(step);
    EXPECT_EQ(m.canvas.dots + m.canvas.lines, 4'000'000);
  }
}

TEST(DisplayGrid, DrawsAWorldInFifthsOfADegreeWhole) {
  Machine<CompteCanvas> m;
  m.carte = test::LimitesEurope(5);
  m.carte.LatNord = 90;
  m.carte.LatSud = -90;
  m.carte.LonEst = 180;
  m.carte.LonOuest = -180;
  test::Prepare(m.carte);
  m.Trace(0.2F);
  EXPECT_NEAR(m.canvas.dots, 901 + 1801, 6);
  EXPECT_NEAR(m.canvas.dots + m.canvas.lines, 2 * 901 * 1801, 20000);
}

TEST(DisplayGrid, EndsForExtentsThatAreNoNumbers) {
  Machine m;
  const float bad = std::nanf("");
  m.carte.Gauche = m.carte.Droite = m.carte.Bas = m.carte.Haut = bad;
  m.Trace(1);
  EXPECT_TRUE(m.canvas.calls.empty());
  m.carte = test::CarteSansCode(0, 10, 0, 10);
  m.Trace(bad);
  EXPECT_TRUE(m.canvas.calls.empty());
}

// ---------------------------------------------------------------------------------------------
// In an EPS file

TEST(DisplayGrid, MarksTheNodesOfAnEpsFileWithoutLines) {
  Machine m;
  m.carte = test::LimitesEurope(5);
  m.carte.MeridienCentralDeg = 0;
  m.carte.LatSud = -90;
  m.carte.LatNord = 90;
  m.carte.LonOuest = -180;
  m.carte.LonEst = 180;
  test::Prepare(m.carte);
  CalculeCadreEPS(m.carte);  // 500 by 250 points
  const Texts lines = m.TraceEps(90);
  // Latitudes -90 to 180, longitudes -180 to 270.
  ASSERT_EQ(lines.size(), 1U + 4U * 6U);
  EXPECT_EQ(lines[0], "0 sg .1 setlinewidth");
  EXPECT_EQ(lines[1], " 50  550 m1");
  EXPECT_EQ(lines[2], " 175  550 m1");
  EXPECT_EQ(lines[3], " 300  550 m1");
  EXPECT_EQ(lines[7], " 50  675 m1");
  EXPECT_TRUE(m.canvas.calls.empty());
  EXPECT_TRUE(m.dialogues.asked.empty());
}

TEST(DisplayGrid, LeavesHiddenNodesOutOfAnEpsFile) {
  Machine m;
  m.carte = test::LimitesEurope(13);
  m.carte.LonOuest = -180;
  m.carte.LonEst = 180;
  m.carte.LatSud = -90;
  m.carte.LatNord = 60;
  test::Prepare(m.carte);
  CalculeCadreEPS(m.carte);
  const Texts lines = m.TraceEps(30);
  EXPECT_GT(lines.size(), 30U);
  EXPECT_LT(lines.size(), 7U * 14U);
  for (const std::string& line : lines) EXPECT_EQ(line.find('E'), std::string::npos) << line;
}

TEST(DisplayGrid, WritesNothingIntoAnEpsFileWithoutAStep) {
  Machine m;
  m.carte = test::CarteDe(5);
  CalculeCadreEPS(m.carte);
  EXPECT_TRUE(m.TraceEps(0).empty());
  EXPECT_TRUE(m.TraceEps(-1).empty());
}

}  // namespace
}  // namespace talpena
