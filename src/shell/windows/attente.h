// The main window while a command is at work: hourglass, wait window, bar, Cancel.
#pragma once
#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <functional>
#include <string>

#include "platform/settings_state.h"
#include "platform/wait_view.h"

class QProgressBar;
class QWidget;

namespace talpena {

class frmMessage;

/// Paints by the clock: whoever works calls Bat, or the table engine does for him. Keys and clicks
/// wait until the work has ended: it has the rows to itself. Only where the user may give up, and
/// once the window that says so is up, are they heard, by that window alone.
class Attente : public QObject, public WaitView {
  Q_OBJECT

 public:
  // When what comes up, milliseconds from the beginning of the work.
  static constexpr qint64 FenetreMs = 70;       ///< wait window and bar of work that shows neither
  static constexpr qint64 AnnulationMs = 2000;  ///< Cancel
  static constexpr qint64 BattementMs = 40;     ///< from one painting to the next

  /// @param fenetre  over which the windows come up while no other one is active
  Attente(const SharedState& state, QWidget& fenetre, QProgressBar& barre);

  /// Called around every painting that may be inside a statement of the table engine: with true
  /// before and with false behind it. Nothing may read rows or run commands in between.
  std::function<void(bool painting)> Fige;
  std::function<void(bool frozen)> Gele;  ///< GeleGrille
  std::function<bool()> SePeint;          ///< a row is being read to be painted just now

  void AfficheMessage(const std::string& text) override;
  void FermeMessage() override;
  void ChangeSablier(bool hourglass) override;
  void MontreBarre(bool visible) override;
  void MontreProgression(double percent) override;
  void TraiteMessages() override;
  void GeleGrille(bool frozen) override;
  bool Bat() override;
  void NommeTravail(const std::string& text) override { texte_ = text; }
  bool EstAbandonne() override;
  void PermetAnnulation(Annulation where) override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void Fini();  ///< the work has ended

 private:
  class Peinture;

  void Commence();
  bool PeintAilleurs() const;
  void Termine();
  void Peint();
  void MontreFenetre();
  void MontreAnnulation();
  void CacheAnnulation();
  void LaissePlace();
  bool SeLaisseAnnuler() const;
  void Mesure();
  void AvanceBarre();
  void Place(frmMessage& window);
  std::string Texte() const;

  const SharedState& state_;
  QWidget& fenetre_;
  QProgressBar& ProgressBar1;
  frmMessage* frmMessage_;
  frmMessage* frmAnnulation_ = nullptr;  ///< the same, with Cancel
  QPointer<QWidget> avant_;              ///< had the keys before that one
  QPointer<QWidget> modale_;             ///< the window from which the work began, if it is modal
  QElapsedTimer depuis_;                 ///< the beginning of the work
  qint64 prochain_ = 0;                  ///< painting
  std::string texte_;                    ///< of the command; empty when it gave none
  bool demandee_ = false;                ///< the command asked for the wait window
  bool hourglass_ = false;
  bool roams_ = false;  ///< the bar moves, but does not tell how far the work is
  bool painting_ = false;
  Annulation annulation_ = Annulation::Aucune;
  bool cancelled_ = false;
  int shown_ = 0;  ///< percent told last
  qint64 shownAt_ = 0;
  qint64 lastTenthMs_ = 0;  ///< how long the tenth before took; 0 when it was none
};

}  // namespace talpena
