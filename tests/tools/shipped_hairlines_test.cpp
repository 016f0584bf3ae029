// The surfaces of every page at 600 dots to the inch, without smoothing: no hairlines. An
// interpreter paints each pixel that a filled outline touches, so that an edge of a surface that
// runs out and back shows as a straight line of one or two pixels: of land across the sea, of
// water across the land.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "fakes/temp_folder.h"
#include "tools/shipped_map.h"

namespace talpena {
namespace {

constexpr std::size_t side = 4168;  ///< pixels of a frame of 500 points, and a little more

std::string ToutLeFichier(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// A page with the surfaces of a drawing alone: what is lighter than water white, the rest black.
std::string PageDeSurfaces(const std::string& name) {
  std::string drawing = ToutLeFichier(test::DansCarto(name + ".ps"));
  const std::size_t ink = drawing.find("/ink {");
  const std::size_t end = drawing.find("\r\n", ink);
  if (end == std::string::npos) {
    ADD_FAILURE() << name << " does not choose its ink";
    return {};
  }
  drawing.replace(ink, end - ink,
                  "/ink {4 1 roll pop pop pop .95 gt {1} {0} ifelse setgray} bind def");
  return ToutLeFichier(TALPENA_SOURCE_DIR "/data/carto/proltlp.ps") +
         "\n/s {newpath} bind def /show {pop} bind def\n-50 -300 translate\n" + drawing +
         "\nshowpage\n";
}

/// One page, a byte for eight pixels, 1 where it is black.
class Bitmap {
 public:
  static constexpr std::size_t perRow = (side + 7) / 8;

  explicit Bitmap(std::string bytes) : bytes_(std::move(bytes)) {}
  bool Entiere() const { return bytes_.size() == perRow * side; }
  unsigned Octet(std::size_t x, std::size_t y) const {
    return static_cast<unsigned char>(bytes_[y * perRow + x]);
  }
  /// Those of eight pixels that are not coloured like the pixels two rows above and below.
  unsigned SeulsEnHauteur(std::size_t x, std::size_t y) const {
    return (Octet(x, y) ^ Octet(x, y - 2)) & (Octet(x, y) ^ Octet(x, y + 2));
  }
  /// Those that are not coloured like the pixels two columns to the left and to the right.
  unsigned SeulsEnLargeur(std::size_t x, std::size_t y) const {
    const unsigned here = Octet(x, y);
    const unsigned wide = Octet(x - 1, y) << 16U | here << 8U | Octet(x + 1, y);
    return (here ^ (wide >> 10U)) & (here ^ (wide >> 6U)) & 0xFFU;
  }

 private:
  std::string bytes_;
};

Bitmap Rendue(const std::string& page) {
  const test::TempFolder folder;
  const std::string input = folder / "page.ps", output = folder / "page.pbm";
  std::ofstream(input, std::ios::binary) << page;
  const std::string command = "gs -q -dNOPAUSE -dBATCH -dSAFER -r600 -g" + std::to_string(side) +
                              "x" + std::to_string(side) +
                              " -sDEVICE=pbmraw -sOutputFile=" + output + " " + input;
  EXPECT_EQ(std::system(command.c_str()), 0);
  const std::string bytes = ToutLeFichier(output);
  const std::string size = std::to_string(side) + " " + std::to_string(side) + "\n";
  const std::size_t at = bytes.find(size);
  return Bitmap(at == std::string::npos ? "" : bytes.substr(at + size.size()));
}

/// Lengths of straight runs of one colour that are two or three pixels wide at most.
struct Runs {
  int white = 0, black = 0;                ///< of the run that lasts
  int longestWhite = 0, longestBlack = 0;  ///< of all so far

  void Avance(bool thin, bool isBlack) {
    white = thin && !isBlack ? white + 1 : 0;
    black = thin && isBlack ? black + 1 : 0;
    longestWhite = std::max(longestWhite, white);
    longestBlack = std::max(longestBlack, black);
  }
  bool Dure() const { return white > 0 || black > 0; }
};

/// The runs of a lane go on with eight pixels, or end where none of them is thin.
void AvanceDeHuit(Runs& run, unsigned thin, unsigned pixels) {
  if (thin == 0) run.white = run.black = 0;
  for (unsigned bit = 0x80; bit != 0 && thin != 0; bit >>= 1U)
    run.Avance((thin & bit) != 0, (pixels & bit) != 0);
}

Runs EnTravers(const Bitmap& page) {
  Runs run;
  for (std::size_t y = 2; y + 2 < side; ++y) {
    for (std::size_t x = 0; x < Bitmap::perRow; ++x)
      AvanceDeHuit(run, page.SeulsEnHauteur(x, y), page.Octet(x, y));
  }
  return run;
}

Runs EnHauteur(const Bitmap& page) {
  Runs all;
  for (std::size_t x = 1; x + 1 < Bitmap::perRow; ++x) {
    std::array<Runs, 8> runs;
    bool lasts = false;
    for (std::size_t y = 0; y < side; ++y) {
      const unsigned thin = page.SeulsEnLargeur(x, y), pixels = page.Octet(x, y);
      if (thin == 0 && !lasts) continue;
      lasts = false;
      for (std::size_t i = 0; i < runs.size(); ++i) {
        const unsigned bit = 0x80U >> i;
        runs[i].Avance((thin & bit) != 0, (pixels & bit) != 0);
        lasts = lasts || runs[i].Dure();
      }
    }
    for (const Runs& run : runs) {
      all.longestWhite = std::max(all.longestWhite, run.longestWhite);
      all.longestBlack = std::max(all.longestBlack, run.longestBlack);
    }
  }
  return all;
}

/// Every fourth map, from one of the first four on: the parts can run at once.
class ShippedHairlines : public testing::TestWithParam<std::size_t> {};
INSTANTIATE_TEST_SUITE_P(Part, ShippedHairlines, testing::Range<std::size_t>(0, 4));

// What is real reaches 40 pixels (the ends of capes near a pole, on a map that spreads them) and
// 53 (an inlet of Greenland on the plate carrée); edges of no width had 120 to 1,400.
TEST_P(ShippedHairlines, AreNotOnAnyPage) {
  std::vector<std::string> names = test::CartesLivrees();
  std::sort(names.begin(), names.end());
  for (std::size_t i = GetParam(); i < names.size(); i += 4) {
    SCOPED_TRACE(names[i]);
    const Bitmap page = Rendue(PageDeSurfaces(names[i]));
    ASSERT_TRUE(page.Entiere());
    for (const Runs& runs : {EnTravers(page), EnHauteur(page)}) {
      EXPECT_LT(runs.longestWhite, 48);
      EXPECT_LT(runs.longestBlack, 60);
    }
  }
}

}  // namespace
}  // namespace talpena
