#include "coords/prn_files.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "coords/ifbl.h"
#include "coords/lambert.h"
#include "fakes/fake_files.h"
#include "test_catalogue.h"

namespace talpena {
namespace {

/// A PRN line taken apart.
struct PrnLine {
  bool first = false;
  std::string latitude, longitude;  ///< as written, without blanks
  std::string pen;                  ///< behind the ":"
};

/// What a writer writes, as bytes.
template <typename Writer>
std::string Ecrit(Writer&& writer) {
  test::FakeFiles files;
  const auto file = files.Cree("grid.prn");
  writer(*file);
  file->Remplace();
  return files.Contenu("grid.prn");
}

/// The lines of a file, each of which CR LF must close; no other CR or LF.
std::vector<std::string> Lignes(const std::string& bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end; (end = bytes.find("\r\n", start)) != std::string::npos; start = end + 2) {
    lines.push_back(bytes.substr(start, end - start));
    EXPECT_EQ(lines.back().find_first_of("\r\n"), std::string::npos);
  }
  EXPECT_EQ(start, bytes.size());
  return lines;
}

PrnLine Analyse(const std::string& line) {
  PrnLine out;
  const std::size_t colon = line.find(':');
  EXPECT_NE(colon, std::string::npos) << line;
  EXPECT_TRUE(line.starts_with("-1 ") || line.starts_with(" 0 ")) << line;
  out.first = line.starts_with("-1 ");
  out.pen = line.substr(colon + 1);
  std::vector<std::string> numbers;
  for (std::string& piece : Decoupe(line.substr(3, colon - 3), ' ')) {
    if (!piece.empty()) numbers.push_back(std::move(piece));
  }
  EXPECT_EQ(numbers.size(), 2U) << line;
  numbers.resize(2);
  out.latitude = numbers[0];
  out.longitude = numbers[1];
  return out;
}

std::vector<PrnLine> Points(const std::string& bytes) {
  std::vector<PrnLine> points;
  for (const std::string& line : Lignes(bytes)) points.push_back(Analyse(line));
  return points;
}

struct Belgium {
  DatumCatalogue catalogue = test::CatalogueDesSources();
  IfblDatums datums{catalogue, ChercheDatum(catalogue, "BEL72"), ChercheDatum(catalogue, "EUR-M")};

  /// A written point as Lambert belge metres again.
  std::pair<double, double> Lambert(const PrnLine& p) const {
    double latitude = Val(p.latitude), longitude = Val(p.longitude), x = 0, y = 0;
    ConvertitDatum(catalogue, latitude, longitude, 0, latitude, longitude, datums.eurM,
                   datums.bel72);
    LatLonVersLambertBelge(latitude, longitude, x, y);
    return {x, y};
  }
};

TEST(ElementImprime, WritesNumbersAsAPrintStatementDoes) {
  EXPECT_EQ(ElementImprime(-1), "-1 ");
  EXPECT_EQ(ElementImprime(0), " 0 ");
  EXPECT_EQ(ElementImprime(-0.0), " 0 ");
  EXPECT_EQ(ElementImprime(50.5), " 50.5 ");
  EXPECT_EQ(ElementImprime(-50.5), "-50.5 ");
  EXPECT_EQ(ElementImprime(0.25), " .25 ");
  EXPECT_EQ(ElementImprime(-0.25), "-.25 ");
  EXPECT_EQ(ElementImprime(10), " 10 ");
  EXPECT_EQ(ElementImprime(0.1 + 0.2), " .3 ");
  EXPECT_EQ(ElementImprime(4 / 3.0), " 1.33333333333333 ");
  EXPECT_EQ(ElementImprime(200 / 3.0), " 66.6666666666667 ");
}

TEST(PrnGrille, WritesPrintItems) {
  const Belgium belgium;
  double latitude = 0, longitude = 0;
  LambertBelgeVersLatLon(2012, 18180, latitude, longitude);
  ConvertitDatum(belgium.catalogue, latitude, longitude, 0, latitude, longitude,
                 belgium.datums.bel72, belgium.datums.eurM);
  const auto lines = Lignes(Ecrit([&](OutputFile& f) { EcritPrnGrille(f, belgium.datums); }));
  EXPECT_EQ(lines.front(), "-1 " + ElementImprime(latitude) + ElementImprime(longitude) + ":");
  EXPECT_EQ(lines[0].substr(0, 9), "-1  49.45");
  EXPECT_EQ(lines[1].substr(0, 7), " 0  49.");
  for (const std::string& line : lines) ASSERT_TRUE(line.ends_with(" :")) << line;
}

TEST(PrnGrille, Has11ColumnsAnd13Rows) {
  const Belgium belgium;
  const auto points = Points(Ecrit([&](OutputFile& f) { EcritPrnGrille(f, belgium.datums); }));
  ASSERT_EQ(points.size(), 11U * 121 + 13U * 101);
  std::size_t polylines = 0;
  for (const PrnLine& p : points) polylines += p.first ? 1 : 0;
  EXPECT_EQ(polylines, 24U);
}

/// Where the points of the 32 by 20 km lines have to lie.
std::vector<std::pair<int, int>> PointsDesGrandesLignes() {
  std::vector<std::pair<int, int>> points;
  for (int x = 2012; x <= 322012; x += 32000) {
    for (int y = 18180; y <= 258180; y += 2000) points.emplace_back(x, y);
  }
  for (int y = 18180; y <= 258180; y += 20000) {
    for (int x = 2012; x <= 322012; x += 3200) points.emplace_back(x, y);
  }
  return points;
}

TEST(PrnGrille, EveryPointLeadsBackToItsLine) {
  const Belgium belgium;
  const auto points = Points(Ecrit([&](OutputFile& f) { EcritPrnGrille(f, belgium.datums); }));
  const auto expected = PointsDesGrandesLignes();
  ASSERT_EQ(points.size(), expected.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto [x, y] = belgium.Lambert(points[i]);
    ASSERT_NEAR(x, expected[i].first, 0.05) << i;  // the datum step back is not exact
    ASSERT_NEAR(y, expected[i].second, 0.05) << i;
    ASSERT_EQ(points[i].pen, "");
  }
}

TEST(PrnMailles, HasFourPassesWithTheirPens) {
  const Belgium belgium;
  const auto points = Points(Ecrit([&](OutputFile& f) { EcritPrnMailles(f, belgium.datums); }));
  ASSERT_EQ(points.size(), 61U * 321 + 81U * 241 + 11U * 121 + 13U * 101);
  std::map<std::string, int> polylines;
  for (const PrnLine& p : points) {
    ASSERT_EQ(p.first, !p.pen.empty());
    if (p.first) ++polylines[p.pen];
  }
  EXPECT_EQ(polylines, (std::map<std::string, int>{{"G1", 24}, {"G2", 142}}));
}

TEST(PrnMailles, EveryPointLeadsBackToItsLine) {
  const Belgium belgium;
  const auto points = Points(Ecrit([&](OutputFile& f) { EcritPrnMailles(f, belgium.datums); }));
  std::vector<std::pair<int, int>> expected;
  for (int y = 18180; y <= 258180; y += 4000) {
    for (int x = 2012; x <= 322012; x += 1000) expected.emplace_back(x, y);
  }
  for (int x = 2012; x <= 322012; x += 4000) {
    for (int y = 18180; y <= 258180; y += 1000) expected.emplace_back(x, y);
  }
  for (const auto& p : PointsDesGrandesLignes()) expected.push_back(p);
  ASSERT_EQ(points.size(), expected.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    const auto [x, y] = belgium.Lambert(points[i]);
    ASSERT_NEAR(x, expected[i].first, 0.7) << i;  // five decimals
    ASSERT_NEAR(y, expected[i].second, 0.7) << i;
  }
}

TEST(PrnMailles, WritesFiveDecimalsAndThePenBehindTheColon) {
  const Belgium belgium;
  const auto lines = Lignes(Ecrit([&](OutputFile& f) { EcritPrnMailles(f, belgium.datums); }));
  const auto form = [](const std::string& line) {
    std::string shape = line;
    for (char& c : shape) c = c >= '0' && c <= '9' ? '9' : c;
    return shape;
  };
  EXPECT_EQ(form(lines[0]), "-9 99.99999 99.99999:G9");
  EXPECT_EQ(form(lines[1]), " 9 99.99999 99.99999:");
  EXPECT_EQ(lines[0].substr(0, 8), "-1 49.45");
  EXPECT_EQ(lines[0].substr(11, 3), " 02");
}

struct NationalCase {
  Grille grid;
  int west, south, east, north;  ///< frame of the inverse, metres
};
constexpr NationalCase NationalCases[] = {
    {Grille::British, -100000, 5527063, 900000, 6827063},
    {Grille::Irish, 300000, 5680030, 700000, 6180030},
};

struct ExpectedPoint {
  int x, y;
  bool first;
  const char* pen;
};

void AjouteLigne(std::vector<ExpectedPoint>& out, int x, int y, int dx, int dy, int count,
                 const char* pen) {
  for (int i = 0; i < count; ++i) out.push_back({x + i * dx, y + i * dy, i == 0, pen});
}

std::vector<ExpectedPoint> PointsNationaux(const NationalCase& c) {
  std::vector<ExpectedPoint> out;
  const int columns = (c.east - c.west) / 10000 + 1, rows = (c.north - c.south) / 10000 + 1;
  const struct {
    int mesh;
    const char* pen;
  } passes[] = {{10000, "G3"}, {100000, "G2"}};
  for (const auto& pass : passes) {
    for (int y = c.south; y <= c.north; y += pass.mesh) {
      AjouteLigne(out, c.west, y, 10000, 0, columns, pass.pen);
    }
    for (int x = c.west; x <= c.east; x += pass.mesh) {
      AjouteLigne(out, x, c.south, 0, 10000, rows, pass.pen);
    }
  }
  AjouteLigne(out, c.west, c.south, 0, 10000, rows, "G1");
  AjouteLigne(out, c.west, c.north, 10000, 0, columns, "G1");
  AjouteLigne(out, c.east, c.north, 0, -10000, rows, "G1");
  AjouteLigne(out, c.east, c.south, -10000, 0, columns, "G1");
  return out;
}

TEST(PrnNational, WritesThreePassesOfInverseIntoMasks) {
  for (const NationalCase& c : NationalCases) {
    const auto points = Points(Ecrit([&](OutputFile& f) { EcritPrnNational(f, c.grid); }));
    const auto expected = PointsNationaux(c);
    ASSERT_EQ(points.size(), expected.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
      double latitude = 0, longitude = 0;
      GrilleVersLatLon(c.grid, expected[i].y, expected[i].x, latitude, longitude);
      ASSERT_EQ(points[i].first, expected[i].first) << i;
      ASSERT_EQ(points[i].pen, expected[i].first ? expected[i].pen : "") << i;
      ASSERT_NEAR(Val(points[i].latitude), latitude, 0.0000051) << i;
      ASSERT_NEAR(Val(points[i].longitude), LongitudeSignee(longitude), 0.0000051) << i;
      ASSERT_LT(Val(points[i].longitude), 180) << i;
    }
  }
}

TEST(PrnNational, CountsItsPoints) {
  const auto count = [](Grille grid) {
    return Points(Ecrit([&](OutputFile& f) { EcritPrnNational(f, grid); })).size();
  };
  EXPECT_EQ(count(Grille::British), 131U * 101 + 101U * 131 + 14U * 101 + 11U * 131 + 2U * 232);
  EXPECT_EQ(count(Grille::Irish), 51U * 41 + 41U * 51 + 6U * 41 + 5U * 51 + 2U * 92);
}

// On the central meridian the longitude is whole, and "#" writes no decimals for it.
TEST(PrnNational, WritesSignsAndNoZerosBehind) {
  const auto lines = Lignes(Ecrit([&](OutputFile& f) { EcritPrnNational(f, Grille::Irish); }));
  EXPECT_EQ(lines[0].substr(0, 7), "-1 +51.");
  EXPECT_TRUE(lines[0].ends_with(":G3"));
  EXPECT_EQ(lines[20].substr(0, 7), " 0 +51.");
  EXPECT_TRUE(lines[20].ends_with(" -8.:")) << lines[20];
  EXPECT_EQ(lines[0].find(" 352"), std::string::npos);
}

TEST(PrnNational, DrawsThe100KmLinesOnly) {
  std::vector<PrnLine> drawn;
  const std::string bytes = Ecrit([&](OutputFile& f) {
    EcritPrnNational(f, Grille::Irish, [&](double latitude, double longitude, bool first) {
      drawn.push_back({first, Format(latitude, "+##.#####;-##.#####"),
                       Format(longitude, "+###.#####;-###.#####"), first ? "G2" : ""});
    });
  });
  const auto points = Points(bytes);
  const std::size_t start = 51U * 41 + 41U * 51;
  ASSERT_EQ(drawn.size(), 6U * 41 + 5U * 51);
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    ASSERT_EQ(drawn[i].first, points[start + i].first);
    ASSERT_EQ(drawn[i].latitude, points[start + i].latitude);
    ASSERT_EQ(drawn[i].longitude, points[start + i].longitude);
    ASSERT_EQ(drawn[i].pen, points[start + i].pen);
  }
}

}  // namespace
}  // namespace talpena
