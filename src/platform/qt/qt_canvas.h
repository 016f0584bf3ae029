// The canvas of the maps as a picture in memory.
#pragma once
#include <QImage>
#include <QPointF>
#include <QSize>
#include <span>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "platform/qt/circle_stamps.h"
#include "platform/qt/stroke_mask.h"

namespace talpena {

/// Everything is antialiased; circles of one look are copied from a stamp, lines are gathered as
/// coverage. The surface has the picture's size times a ratio, so that lines and symbols are as
/// sharp as the screen or the paper that it is made for; widths of lines grow with the ratio.
///
/// Pixel n is centred on pixel coordinate n: the coordinate that Polygon rounds, the one at which
/// the same user unit is drawn unrounded, and the one of the mouse on that pixel are the same.
class QtCanvas final : public Canvas {
 public:
  /// @param ratio  pixels of the surface for a pixel of the picture: 1 on a plain screen, 2 on a
  ///               dense one, 4 for paper; kept within 0.25 and 8
  explicit QtCanvas(double ratio = 1);

  double Rapport() const { return ratio_; }
  /// Another ratio, as on a move to another screen. The picture is read again where it can be;
  /// what was drawn on it is gone.
  void ChangeRapport(double ratio);
  /// Another size than its own for the picture, from now on; an empty one: its own. As by another
  /// ratio, what was drawn is gone.
  void ChangeTaille(QSize size);
  /// A white sheet of that size takes the place of the picture.
  void ChangeFeuille(QSize size, double ratio);
  QSize TailleFichier() const { return fileSize_; }   ///< of the picture in its file
  QSize TailleImage() const { return pictureSize_; }  ///< as it is shown, empty without one
  QPointF EnUnites(QPointF pixel) const;  ///< user units at a position of the picture shown
  const QImage& Surface();  ///< what is on show, ARGB32_Premultiplied; valid until the next drawing

  /// A picture NAME@2x.EXT beside NAME.EXT is shown in its place when the ratio is above 1.
  void ChargeImage(const std::string& path) override;
  /// Shows a picture that stands in no file; a pixel of it is one of the surface.
  void MontreImage(const QImage& picture);
  int LargeurPixels() const override { return surface_.width(); }
  int HauteurPixels() const override { return surface_.height(); }
  int LargeurTwips() const override { return pictureSize_.width() * 15; }
  int HauteurTwips() const override { return pictureSize_.height() * 15; }

  void ChangeEchelle(const UserScale& scale) override;
  UserScale Echelle() const override { return scale_; }

  void Cls() override;
  void PSet(double x, double y) override;
  void Line(double x1, double y1, double x2, double y2) override;
  void Circle(double x, double y, double radius) override;
  void Circles(std::span<const CirclePlace> places, double radius) override;
  void Polyline(std::span<const PixelPoint> points) override;
  void Polygon(std::span<const PixelPoint> points) override;
  void SauveBmp(const std::string& path) override;

 private:
  double LargeurTrait() const;  ///< pixels of the surface
  SurfaceRect Cadre(double margin) const;
  SurfacePoint EnPixels(double x, double y) const;
  PixelRows Rangees();
  void PoseFond(QImage background, QSize size);
  void Prepare();  ///< before a shape goes to the mask
  void Vide();     ///< paints what the mask holds
  void Trace(SurfacePoint from, SurfacePoint to);
  void TraceTirets(const LinePart& part);
  void TraceSuite(std::span<const PixelPoint> points);
  void Remplit(std::vector<SurfacePoint> points);
  void GrandCercle(SurfacePoint centre, const CircleLook& look);

  double ratio_;
  std::string picturePath_;
  QSize fileSize_;
  QSize wantedSize_;  ///< empty: that of the file
  QSize pictureSize_;
  QImage background_;  ///< the picture at the size of the surface
  QImage surface_;
  UserScale scale_;
  double factorX_ = 0;  ///< pixels for a user unit
  double factorY_ = 0;
  CircleStamps stamps_;
  StrokeMask mask_;
  std::uint32_t maskColour_ = 0;  ///< 0xBBGGRR
  SurfacePoint lineEnd_;          ///< of the last Line
  double dashPhase_ = 0;          ///< pixels of the pattern that are behind the pen
};

}  // namespace talpena
