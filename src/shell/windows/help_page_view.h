// The page of the user guide on show: takes its files from the guide and marks what was found.
#pragma once
#include <QTextBrowser>
#include <memory>
#include <utility>
#include <vector>

#include "shell/windows/help_pages.h"

namespace talpena {

/// Colours come from the palette, and change with it. Pictures are drawn as wide as there is room.
class HelpPageView : public QTextBrowser {
  Q_OBJECT

 public:
  explicit HelpPageView(QWidget* parent = nullptr);

  /// The guide that the pages come from; it outlives the view or is replaced before it goes.
  void ChangeGuide(const HelpBook* book);
  /// "table.html#find"; "" for the page of contents.
  void Montre(const QString& target);
  /// What is on show, as Montre takes it.
  QString Cible() const;
  /// The page that is on show once more, at the same place: its files or colours are others.
  void Recharge();

  /// Marks these words in this page and those that follow; none when empty.
  void ChangeMots(const QString& words);
  /// Goes to the next (+1) or previous (-1) place, round the ends. False when there is none.
  bool Avance(int step);
  /// Goes to the first place from where the page stands.
  void AvanceDepuisLaVue();
  int NombreDePlaces() const { return static_cast<int>(places_.size()); }
  int Place() const { return place_; }  ///< from 0; -1 before the first step

  void ChangeZoom(int steps);
  int Zoom() const { return zoom_; }

  /// The page as it is printed: dark on white, whatever the colours of the desktop.
  std::unique_ptr<QTextDocument> PagePourImpression() const;

  QVariant loadResource(int type, const QUrl& name) override;

 Q_SIGNALS:
  void PlacesChangees();  ///< another number of them, or another one

 protected:
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void Marque();
  void VaAuTitre();
  void RemetImages();
  int LargeurImages() const;

  const HelpBook* book_ = nullptr;
  QString words_;
  std::vector<std::pair<int, int>> places_;  ///< of the words in the page
  int place_ = -1;
  int zoom_ = 0;
  int imageWidth_ = 0;  ///< that the pictures were drawn for
};

}  // namespace talpena
