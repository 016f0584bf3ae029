// frmAide: the user guide.
#pragma once
#include <QRect>
#include <QSplitter>
#include <QWidget>
#include <array>
#include <memory>
#include <optional>

#include "platform/platform.h"
#include "shell/process_state.h"
#include "shell/windows/help_pages.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPrinter;
class QStackedWidget;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace talpena {

class HelpPageView;

/// How the reader left the window: kept while the program runs.
struct HelpPlace {
  QRect geometry;      ///< invalid until the window was closed once
  QByteArray columns;  ///< of the splitter
  int zoom = 0;
  QString target;  ///< last page, as HelpPageView::Montre takes it
};

/// Contents and search at the left, the page at the right. Not modal; as the child of a modal
/// dialog it can be used beside it, and goes with it.
class frmAide : public QWidget {
  Q_OBJECT

 public:
  /// State and platform outlive the window; the place may be shared with others.
  frmAide(const ProcessState& state, Platform& io, std::shared_ptr<HelpPlace> place,
          QWidget* parent = nullptr);
  ~frmAide() override;

  /// Reads the guide that belongs to the language. False, after a message that names the path,
  /// when there is none; then the one that was on show stays.
  bool Ouvre();
  /// "table.html#find"; "" is the page that was on show last, at first that of contents.
  void Montre(const QString& target);
  /// Captions in the current language, and its guide at the same place.
  void AppliqueLangue();
  /// The page that is on show, on paper.
  void Imprime(QPrinter& printer) const;

  void keyPressEvent(QKeyEvent* event) override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ConstruitOutils();
  void ConstruitRecherche();
  void Dispose();
  void Relie();
  void RelieTouches();
  void RetrouvePlace();
  void ChargeIcones();

  bool Charge();
  void RempliSommaire();
  void SuitPage();
  void Cherche();
  void AfficheTrouvailles();
  void OuvreTrouvaille(int row, bool toPage);
  void AffichePlace();
  void cmdImprimer_Click();

  const ProcessState& state_;
  Platform& io_;
  std::shared_ptr<HelpPlace> lastPlace_;
  std::optional<HelpBook> book_;
  std::string path_;  ///< of the guide that is on show
  std::vector<HelpHit> hits_;

  QWidget* tools_ = nullptr;
  QToolButton* cmdRetour = nullptr;
  QToolButton* cmdSuite = nullptr;
  QToolButton* cmdSommaire = nullptr;
  QToolButton* cmdImprimer = nullptr;
  QLabel* lblRecherche = nullptr;
  QLineEdit* txtRecherche = nullptr;
  QStackedWidget* pages_ = nullptr;  ///< the contents, or what was found
  QTreeWidget* treeSommaire = nullptr;
  QListWidget* lstTrouve = nullptr;
  QLabel* lblRien = nullptr;
  QLabel* lblPlace = nullptr;               ///< "2 / 7", the place among those found in the page
  std::array<QToolButton*, 2> cmdTrouve{};  ///< previous and next place
  QSplitter* columns_ = nullptr;
  HelpPageView* page_ = nullptr;
};

}  // namespace talpena
