// The chart Graph1: what a command puts into it point by point, and what a window then shows.
#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace talpena {

/// Values of one kind over the points of a chart.
struct ChartSeries {
  std::string name;                           ///< "" for the only one
  std::vector<std::optional<double>> values;  ///< of the points 1, 2, ...; empty: never charted
  bool aDroite = false;                       ///< a line over an axis of its own, at the right
  int couleur = -1;  ///< place among the colours of charts; below 0: that among the series
};

/// How several series stand at a point.
enum class ChartStyle : std::uint8_t { Beside, Stacked };

/// Which rows were counted, to be put into the words of any language.
struct CountedRows {
  int texte = 0;              ///< base id; 0 where that goes without saying
  std::int64_t montrees = 0;  ///< %1
  std::int64_t toutes = 0;    ///< %2
  std::int64_t sansDate = 0;  ///< of them, those that the chart passes over for want of a date
};

/// All that there is to see of a chart.
struct ChartPicture {
  int numPoints = 0;
  int labelEvery = 1;               ///< the points that are labelled are multiples of it
  std::vector<std::string> labels;  ///< of the points; empty: these are called by `firstPoint`
  int firstPoint = 1;               ///< what point 1 is called without labels
  std::string bottomTitle, leftTitle, rightTitle, graphTitle;
  CountedRows lignes;
  ChartStyle style = ChartStyle::Beside;
  std::vector<ChartSeries> series;
};

/// What point `point`, from 1, is called: its label or its number.
std::string NomDuPoint(const ChartPicture& picture, int point);

/// What a reader is told of a point: "May: 12", "1999: Records 4, New points 1"; a dash where
/// nothing was charted.
std::string TexteDuPoint(const ChartPicture& picture, int point);

/// The points that get a label are multiples of this, as the chart asks it, or of more where so
/// many have no room; of less where hardly one would be on show.
/// @param shown  points on show
/// @param room   labels that fit side by side
int PasLisible(const ChartPicture& picture, double shown, double room);

/// Whether the point gets its label: the number that it is called by is a multiple of the step; one
/// with a name of its own, when the step leads to it from the first.
bool EstEtiquete(const ChartPicture& picture, int point, int step);

/// Smallest and largest value to draw, 0 among them; of the series of one of the axes.
struct ValueRange {
  double lowest = 0, highest = 0;
};
ValueRange EtendueDesValeurs(const ChartPicture& picture, bool aDroite);

/// Shows charts.
class ChartPort {
 public:
  virtual ~ChartPort() = default;
  virtual void MontreGraphique(const ChartPicture& picture) = 0;  ///< modal
};

/// The control, by its properties. Points count from 1; a value for a point that the chart lacks
/// is passed over.
class Chart {
 public:
  explicit Chart(ChartPort& port) : port_(port) {}

  void DataReset();  ///< no values, no points, no series
  void NumPoints(int count);
  void LabelEvery(int points) { picture_.labelEvery = points; }
  void AutoInc(bool on) { autoInc_ = on; }  ///< GraphData goes on to the next point
  /// Rounded to a whole number, halves to even; beyond 16 bits: Overflow (6).
  void ThisPoint(double point);
  void GraphData(double value);
  void BottomTitle(const std::string& text) { picture_.bottomTitle = text; }
  void LeftTitle(const std::string& text) { picture_.leftTitle = text; }
  void GraphTitle(const std::string& text) { picture_.graphTitle = text; }
  void DrawMode() { drawn_ = picture_; }  ///< what was put in until now is what there is to see
  void Show() { port_.MontreGraphique(drawn_); }

  // Beside the control's own:
  /// Values belong to this series from now on, from point 1; the first needs no call.
  void Serie(const std::string& name, bool aDroite = false, int couleur = -1);
  void Libelles(std::vector<std::string> labels) { picture_.labels = std::move(labels); }
  void PremierPoint(int name) { picture_.firstPoint = name; }
  void Empile() { picture_.style = ChartStyle::Stacked; }
  void RightTitle(const std::string& text) { picture_.rightTitle = text; }
  void Lignes(const CountedRows& rows) { picture_.lignes = rows; }

 private:
  ChartSeries& Courante();

  ChartPort& port_;
  ChartPicture picture_, drawn_;
  int point_ = 1;
  bool autoInc_ = false;
};

}  // namespace talpena
