// Captions, names and tips of the record editor in the current language.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/systems.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "store/record/compute.h"
#include "store/record/record_editor.h"
#include "store/windows/date_edit.h"
#include "store/windows/edit_form.h"
#include "store/windows/free_fields_grid.h"
#include "store/windows/typed_list.h"

namespace talpena {
namespace {

/// Longest caption of a number that is shown whole, in characters of average width.
constexpr int longestNumberCaption = 30;

/// A caption as a name: no mark of a letter, no colon behind it.
QString Nom(const std::string& caption) {
  QString name = QString::fromStdString(SansMnemonique(caption)).trimmed();
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name.trimmed();
}

QString AvecTouches(const QString& name, const QString& keys) {
  return keys.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, keys);
}

}  // namespace

/// The keys that press a button, as its shortcuts were made.
QString EditForm::TouchesDe(const QPushButton& button) const {
  QStringList keys;
  if (&button == ButEsc) keys << QKeySequence(Qt::Key_Escape).toString(QKeySequence::NativeText);
  for (const QShortcut* shortcut : findChildren<QShortcut*>(button.objectName())) {
    keys << shortcut->key().toString(QKeySequence::NativeText);
  }
  return keys.join(QStringLiteral(", "));
}

void EditForm::AppliqueLangue() {
  Releve();
  AdapteInputbox(state_, ecran_);
  TraduitAvis();
  Mnemonics letters;
  NommeBoutons(letters);
  NommeChamps(letters);
  NommeFenetre();
  Montre();
}

/// The hints in the new language. Boxes that named no point name none now.
void EditForm::TraduitAvis() {
  const bool typing = std::find(boiteTapee_.begin(), boiteTapee_.end(), true) != boiteTapee_.end();
  if (!ecran_.avisReference.empty() && !typing) CalculePoint(Contexte(), ecran_);
  MetAvis(state_, ecran_);
}

void EditForm::NommeFenetre() {
  const QString title = Nom(Texte(state_.Langue, MsgId::EditionCoord));
  setWindowTitle(QStringLiteral("%1 - %2[*]").arg(title, lblCpt->text()));
  lblCpt->setAccessibleName(
      QStringLiteral("%1 %2").arg(Nom(Texte(state_.Langue, MsgId::Ligne)), lblCpt->text()));
}

void EditForm::NommeBoutons(Mnemonics& letters) {
  struct Bouton {
    QPushButton* button;
    int caption;
  };
  for (const Bouton& b :
       {Bouton{ButOk, MsgId::EditionOk}, Bouton{ButEsc, MsgId::EditionFermer},
        Bouton{ButNew, MsgId::EditionNouveau}, Bouton{ButDupl, MsgId::EditionDupliquer},
        Bouton{cmdNavig[0], MsgId::EditionSuivant}, Bouton{cmdNavig[1], MsgId::EditionPrecedent},
        Bouton{cmdSearch, MsgId::EditionChercher}, Bouton{cmdChangeDatum, MsgId::Changer}}) {
    const std::string caption = Texte(state_.Langue, b.caption);
    b.button->setText(letters.Marque(caption));
    b.button->setAccessibleName(Nom(caption));
    b.button->setToolTip(AvecTouches(Nom(caption), TouchesDe(*b.button)));
  }
  cmdSearch->setToolTip(AvecTouches(
      QString::fromStdString(Texte(state_.Langue, MsgId::AideRepertoire)), TouchesDe(*cmdSearch)));
}

void EditForm::NommeChamps(Mnemonics& letters) {
  struct Legende {
    QLabel* label;
    std::string caption;
  };
  const auto texte = [this](int id) { return Texte(state_.Langue, id); };
  const auto nombre = [](const std::string& stored) {
    std::string caption(Rogne(stored));
    for (std::size_t at = 0; (at = caption.find('&', at)) != std::string::npos; at += 2) {
      caption.insert(at, 1, '&');  // an ampersand of the user's
    }
    return caption + ":";
  };
  const std::vector<Legende> labels = {{LabelPeriode, texte(MsgId::EditionPeriode)},
                                       {LabelDate, texte(MsgId::EditionDate)},
                                       {LabelOriginales, texte(MsgId::EditionOriginales)},
                                       {LabelSysteme, texte(MsgId::EditionSysteme)},
                                       {LabelLatitude, texte(MsgId::EditionLatitude)},
                                       {LabelLongitude, texte(MsgId::EditionLongitude)},
                                       {LabelCh1, nombre(state_.LabelNumeric1)},
                                       {LabelCh2, nombre(state_.LabelNumeric2)},
                                       {LabelSex, texte(MsgId::EditionSexe)},
                                       {LabelGrid, texte(MsgId::EditionChamps)},
                                       {LabelLibre, texte(MsgId::EditionTexteLibre)}};
  std::vector<std::string> captions;
  captions.reserve(labels.size());
  for (const Legende& l : labels) captions.push_back(l.caption);
  const std::vector<QString> marked = letters.MarqueTous(captions);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    QLabel* label = labels[i].label;
    label->setText(marked[i]);
    if (label->buddy() != nullptr && label != LabelOriginales) {
      label->buddy()->setAccessibleName(Nom(captions[i]));
    }
  }
  for (QLabel* label : {LabelCh1, LabelCh2}) {
    const QFontMetrics metrics = label->fontMetrics();
    const int longest = metrics.averageCharWidth() * longestNumberCaption;
    label->setToolTip(Nom(label->text().toStdString()));
    label->setText(
        metrics.elidedText(label->text(), Qt::ElideRight, longest, Qt::TextShowMnemonic));
  }
  LabelDatum->setText(QString::fromStdString(texte(MsgId::EditionDatum)));
  LabelControle->setText(QString::fromStdString(texte(MsgId::EditionControle)));
  Grid->setToolTip(QString::fromStdString(texte(MsgId::AideChamps)));
  ChampLibre->setToolTip(QString::fromStdString(texte(MsgId::AideRemarque)));
  NommeSystemes();
}

void EditForm::NommeSystemes() {
  const std::vector<std::string> names = NomsDesSystemes(state_.Langue);
  for (int i = 0; i < static_cast<int>(names.size()); ++i) {
    const QString name = QString::fromStdString(names[static_cast<std::size_t>(i)]);
    if (i < cmbSystem->count()) {
      cmbSystem->setItemText(i, name);
    } else {
      cmbSystem->addItem(name, EnQt(InfoDe(static_cast<CoordSystem>(i)).code));
    }
  }
  cmbSystem->setMinimumWidth(cmbSystem->sizeHint().width());
}

/// The boxes bear the name of the group and their example, those of angles what they are too.
void EditForm::NommeBoites() {
  const QString group = Nom(Texte(state_.Langue, MsgId::EditionOriginales));
  const bool angles = InfoDe(ecran_.system).content == Content::Angles;
  for (std::size_t i = 0; i < EditBox.size(); ++i) {
    QString name = QStringLiteral("%1: %2").arg(group, LabelBox[i]->text());
    if (angles && i > 0) {
      const int angle = i == 1 ? MsgId::EditionLatitude : MsgId::EditionLongitude;
      name = QStringLiteral("%1, %2").arg(Nom(Texte(state_.Langue, angle)), name);
    }
    EditBox[i]->setAccessibleName(name);
  }
  const bool fixed = ecran_.layout.datumFixed;
  const QString change = Nom(Texte(state_.Langue, MsgId::Changer));
  cmdChangeDatum->setToolTip(
      fixed ? QString::fromStdString(Texte(state_.Langue, MsgId::AideDatumImpose))
            : AvecTouches(change, TouchesDe(*cmdChangeDatum)));
  lblDatum->setAccessibleName(QStringLiteral("%1: %2").arg(
      Nom(Texte(state_.Langue, MsgId::EditionDatum)), lblDatum->text()));
}

void EditForm::NommeValeurs() {
  for (const Valeur& v : {ValeurDMS, ValeurUtmMetrique, ValeurUtmAlpha, ValeurLibre}) {
    v.value->setAccessibleName(QStringLiteral("%1: %2").arg(v.caption->text(), v.value->text()));
    const bool cut = v.value->sizeHint().width() > ValeurDMS.value->minimumWidth();
    v.value->setToolTip(cut ? v.value->text() : QString());
  }
}

}  // namespace talpena
