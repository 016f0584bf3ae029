// The distribution and line layers on a map of 1600 x 1000 pixels, beside bare QPainter loops that
// draw as many of the same shapes from an array, in the same run.
//
//   map_bench [rows] [folder]
#include <QApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "fakes/silent_map_window.h"
#include "fakes/silent_platform.h"
#include "fakes/silent_view.h"
#include "generated_rows.h"
#include "maps/canvas_sink.h"
#include "maps/map_files.h"
#include "maps/plot.h"
#include "maps/redraw.h"
#include "measure.h"
#include "platform/qt/qt_canvas.h"
#include "store/table.h"

using namespace talpena;
using bench::Meilleur;
using bench::Rapporte;

namespace {

namespace fs = std::filesystem;

constexpr int width = 1600;
constexpr int height = 1000;
constexpr int layerPoints = 100000;
constexpr int strokePoints = 50;
constexpr std::int64_t redrawRows = 10000;

void EcritCarte(const fs::path& folder) {
  fs::create_directories(folder);
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(Qt::white);
  picture.save(QString::fromStdString((folder / "map_bench.png").string()));
  std::ofstream(folder / "map_bench.dsw") << "world\r\nworld.ps\r\nmap_bench.png\r\n5\r\n"
                                             "0,\"\",90,-90,180,-180,0,0,0,0,0,0,0,0,0,0\r\n";
}

/// A map of the world with generated rows on it, in a folder of its own.
struct Mapped {
  Mapped(const fs::path& folder, std::int64_t rows) {
    EcritCarte(folder);
    state.Silence = true;
    state.document.WorkingDb =
        machine.engine->CreateDatabase((folder / "map_bench.mdb").string(), {});
    CreateTable(*state.document.WorkingDb);
    bench::Generator generator(rows);
    state.document.WorkingDb->InsertRows("TALPENA", bench::generatedColumns, generator);
    state.document.Data1.Lie(*state.document.WorkingDb);
    state.document.RelieSqlCourant();
    ChargeCarte(context, (folder / "map_bench.dsw").string());
  }
  ~Mapped() { state.document.Data1 = DataControl(); }
  void Trace() {
    ScreenSink screen(context);
    PlotDistri(context, screen);
  }

  test::SilentPlatform machine;
  test::SilentView vue;
  StoreState state;
  MapState carte;
  MapOption options;
  QtCanvas canvas;
  test::SilentMapWindow window;
  MapContext context{carte, options, canvas, window, state, machine.io, vue, vue};
};

struct Bare {
  Bare() : image(width, height, QImage::Format_ARGB32_Premultiplied) { image.fill(Qt::white); }
  QImage image;
};

void Cercles(QPainter& painter, const std::vector<QPointF>& points, double radius) {
  painter.setPen(QPen(Qt::black, 1));
  painter.setBrush(Qt::red);
  for (const QPointF& p : points) painter.drawEllipse(p, radius, radius);
}

std::vector<QPointF> PointsAuHasard(std::int64_t count) {
  std::mt19937_64 random{3};
  std::vector<QPointF> points;
  for (std::int64_t i = 0; i < count; ++i) {
    points.emplace_back(static_cast<double>(random() % 1600000) / 1000,
                        static_cast<double>(random() % 1000000) / 1000);
  }
  return points;
}

double CerclesNus(const std::vector<QPointF>& points, double radius) {
  Bare bare;
  return Meilleur([&] {
    QPainter painter(&bare.image);
    painter.setRenderHint(QPainter::Antialiasing);
    Cercles(painter, points, radius);
  });
}

/// Circles of a radius in pixels: rows read, projected and drawn; and drawn alone.
void CompareCercles(Mapped& ours, std::int64_t rows, double radius) {
  const std::vector<QPointF> points = PointsAuHasard(rows);
  const double floor = CerclesNus(points, radius);
  const double km = 2 * radius * ours.carte.LargeurKm / width;
  ours.options.SymbolDiameter = static_cast<std::int32_t>(std::lround(km * 1000));
  char task[64];
  std::snprintf(task, sizeof task, "circles of %g px, from the table", radius);
  Rapporte(task, Meilleur([&] { ours.Trace(); }), floor, 0.2);
  ours.canvas.ChangeEchelle({0, 0, width, height});
  std::snprintf(task, sizeof task, "circles of %g px, drawing alone", radius);
  Rapporte(task, Meilleur([&] {
             for (const QPointF& p : points) ours.canvas.Circle(p.x(), p.y(), radius);
           }),
           floor, 0.2);
  InitParam(ours.context);
}

void CompareLineaire(Mapped& all, Mapped& tenth) {
  tenth.options.SymbolDiameter = all.options.SymbolDiameter = 200000;
  const double many = Meilleur([&] { all.Trace(); });
  const double few = Meilleur([&] { tenth.Trace(); });
  std::printf("%-34s %8.0f ms  a tenth %6.0f ms  times %5.1f\n", "the table, all rows", many, few,
              many / few);
}

/// The strokes of the layer, in degrees: short walks all over the map.
std::vector<std::vector<QPointF>> Traits() {
  std::mt19937_64 random{5};
  const auto between = [&](double from, double to) {
    return from + (to - from) * static_cast<double>(random() % 100000) / 100000;
  };
  std::vector<std::vector<QPointF>> strokes(layerPoints / strokePoints);
  for (auto& stroke : strokes) {
    QPointF at(between(-150, 150), between(-70, 70));
    for (int i = 0; i < strokePoints; ++i) {
      stroke.push_back(at);
      at += QPointF(between(-1, 1), between(-1, 1));
    }
  }
  return strokes;
}

void Ajoute(std::string& bytes, float value) {
  const auto bits = std::bit_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i) bytes += static_cast<char>(bits >> (8 * i) & 0xFF);
}

void AjoutePoint(std::string& bytes, int pen, QPointF place) {
  bytes += static_cast<char>(pen & 0xFF);
  bytes += static_cast<char>(pen >> 8 & 0xFF);
  Ajoute(bytes, static_cast<float>(place.y()));
  Ajoute(bytes, static_cast<float>(place.x()));
  bytes += '\0';
}

void EcritCouche(const fs::path& path, const std::vector<std::vector<QPointF>>& strokes) {
  std::string bytes(116, ' ');
  int number = 0;
  for (const auto& stroke : strokes) {
    bytes += std::string(30, ' ') + "RCL"[++number % 3] + "1 ";
    for (const float head : {strokePoints + 2.0F, 75.0F, -75.0F, 155.0F, -155.0F, 0.0F, 0.0F}) {
      Ajoute(bytes, head);
    }
    AjoutePoint(bytes, -1, stroke.front());
    for (const QPointF& place : stroke) AjoutePoint(bytes, 0, place);
    AjoutePoint(bytes, -1, stroke.back());
  }
  std::ofstream(path, std::ios::binary) << bytes;
}

void CompareRedessin(const fs::path& folder) {
  const auto strokes = Traits();
  Mapped ours(folder, redrawRows);
  EcritCouche(folder / "map_bench.tlp", strokes);
  ours.options.Add((folder / "map_bench.tlp").string());
  const std::vector<QPointF> points = PointsAuHasard(redrawRows);
  for (const double radius : {4.0, 16.0}) {
    ours.options.SymbolDiameter =
        static_cast<std::int32_t>(std::lround(2000 * radius * ours.carte.LargeurKm / width));
    Bare bare;
    const double floor = Meilleur([&] {
      bare.image.fill(Qt::white);
      QPainter painter(&bare.image);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(QPen(Qt::blue, 1));
      for (const auto& stroke : strokes) {
        QPolygonF line;
        for (const QPointF& p : stroke) {
          line.append({(p.x() + 180) / 360 * width, (90 - p.y()) / 180 * height});
        }
        painter.drawPolyline(line);
      }
      Cercles(painter, points, radius);
    });
    const double time = Meilleur([&] {
      RedrawMap(ours.context);
      ours.canvas.Surface();
    });
    char task[64];
    std::snprintf(task, sizeof task, "redraw, circles of %g px", radius);
    Rapporte(task, time, floor, 0);
    if (time > 60) std::printf("  above 60 ms: TOO SLOW\n");
  }
  ScreenSink screen(ours.context);
  const double layer = Meilleur([&] {
    AfficheTLP(ours.context, screen, (folder / "map_bench.tlp").string());
    ours.canvas.Surface();
  });
  std::printf("%-34s %8.1f ms\n", "the layer alone", layer);
  const double readOut = Meilleur([&] {
    for (int i = 0; i < 1000; ++i) MontrePosition(ours.context, static_cast<float>(i), 500);
  });
  std::printf("%-34s %8.4f ms\n", "the read-out, one position", readOut / 1000);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const std::int64_t rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
  const fs::path folder =
      (argc > 2 ? fs::path(argv[2]) : fs::temp_directory_path()) / "talpena_map_bench";
  {
    Mapped ours(folder / "all", rows);
    for (const double radius : {2.0, 4.0, 16.0}) CompareCercles(ours, rows, radius);
    Mapped tenth(folder / "tenth", rows / 10);
    CompareLineaire(ours, tenth);
    CompareRedessin(folder / "redraw");
    std::printf("peak memory %ld MB\n", bench::MemoireMaximale());
  }
  fs::remove_all(folder);
}
