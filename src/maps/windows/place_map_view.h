// The small map of a place, as a window shows it.
#pragma once
#include <QTimer>
#include <QWidget>
#include <optional>
#include <string>

#include "maps/place_map.h"
#include "platform/qt/qt_canvas.h"

namespace talpena {

/// Draws once nobody has asked for another place for a moment. The points of the records that it
/// was given have to stay where they are until it is given others.
class PlaceMapView : public QWidget {
  Q_OBJECT

 public:
  /// @param folder  of the line layers
  PlaceMapView(FileSystem& files, std::string folder, QWidget* parent = nullptr);

  void Montre(const PlaceMap& map);
  void Efface();  ///< no place

  QSize sizeHint() const override { return {220, 180}; }
  QSize minimumSizeHint() const override { return {120, 90}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Demande();
  void Trace();
  void Dessine();

  FileSystem& files_;
  std::string folder_;
  QTimer attend_;
  QtCanvas canvas_;
  std::optional<PlaceMap> carte_;
  bool trace_ = false;  ///< the canvas holds the place
};

}  // namespace talpena
