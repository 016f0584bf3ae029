// What Form1 shows of the rows as a whole: their filter and their order.
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>

#include "analysis/windows/selection_form.h"
#include "common/msg_id.h"
#include "common/string_table.h"
#include "shell/windows/attente.h"
#include "shell/windows/form1.h"
#include "store/filter.h"

namespace talpena {

void Form1::MnuSelection_Click() {
  actions_.at("MnuSelection")->setChecked(filtered_);  // the click itself turned it over
  Selection(state_, io_, *attente_, this).exec();
}

/// Rows came or went, or other ones are shown.
void Form1::SuitLignes() {
  const bool before = filtered_;
  filtered_ = state_.document.FiltreActif();
  filterGone_ = before && !filtered_;
  AfficheFiltre();
  AfficheTri();
}

void Form1::AfficheFiltre() {
  actions_.at("MnuSelection")->setChecked(filtered_);
  std::string text = TexteFiltre(state_.document, state_.Langue);
  if (filterGone_) {
    text = AvecNombres(state_.Langue, Texte(state_.Langue, MsgId::FiltreRetire),
                       CompteLignes(state_.document));
  }
  std::string tip = filtered_ ? Texte(state_.Langue, MsgId::FiltreEtSauvegarde) : std::string();
  if (const std::string& avis = state_.document.Montre().avis; !avis.empty()) {
    text = avis;
    tip = avis;  // which may be longer than the panel
  } else if (text.empty() && state_.document.Fichier.FinsLf) {
    return OffreFinsLf();
  } else if (text.empty()) {
    text = TexteDossierRefuse(state_);
    tip = DetailDossierRefuse(state_);
  }
  panels_[1]->setTextFormat(Qt::PlainText);
  panels_[1]->setTextInteractionFlags(Qt::NoTextInteraction);
  panels_[1]->setText(QString::fromStdString(text));
  panels_[1]->setToolTip(QString::fromStdString(tip));
}

/// A file whose rows made one row: it can be opened by its LFs, with the pointer or by Tab and
/// Enter.
void Form1::OffreFinsLf() {
  const auto texte = [this](int id) {
    return QString::fromStdString(Texte(state_.Langue, id)).toHtmlEscaped();
  };
  panels_[1]->setTextFormat(Qt::RichText);
  panels_[1]->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  panels_[1]->setAccessibleName(texte(MsgId::LignesEnUne));
  panels_[1]->setText(QStringLiteral("%1 <a href=\"lf\">%2</a>")
                          .arg(texte(MsgId::LignesEnUne), texte(MsgId::OuvreAvecLf)));
  panels_[1]->setToolTip({});
}

/// The sort controls show the order that the rows have, whoever bound them.
void Form1::AfficheTri() {
  const std::optional<RowOrder> order = state_.document.LignesMontrees().Ordre();
  if (!order) return;
  sortIndex_ = order->index;
  sortDescending_ = order->direction == Direction::Descending;
  const QSignalBlocker list(CmbTri);
  const QSignalBlocker option(OptTri[1]);
  CmbTri->setCurrentIndex(sortIndex_);
  OptTri[sortDescending_ ? 1 : 0]->setChecked(true);
}

}  // namespace talpena
