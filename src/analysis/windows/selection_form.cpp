#include "analysis/windows/selection_form.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "analysis/condition_history.h"
#include "analysis/windows/condition_edit.h"
#include "common/msg_id.h"
#include "common/string_table.h"
#include "platform/busy.h"
#include "platform/commands.h"
#include "platform/qt/mnemonics.h"

namespace talpena {
namespace {

QString Affiche(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The examples below each other, each a link that bears its number.
QString Conditions() {
  QString lines;
  for (std::size_t i = 0; i < ExemplesDeSelection.size(); ++i) {
    if (i > 0) lines += "<br>";
    lines += QString("<a href=\"%1\">%2</a>")
                 .arg(QString::number(i), Affiche(ExemplesDeSelection[i]).toHtmlEscaped());
  }
  return lines;
}

template <typename Widget>
Widget* Cree(QWidget* parent, const QString& name) {
  auto* widget = new Widget(parent);
  widget->setObjectName(name);
  return widget;
}

}  // namespace

Selection::Selection(StoreState& state, Platform& io, WaitView& attente, QWidget* parent)
    : QDialog(parent), state_(state), io_(io), attente_(attente) {
  setObjectName("Selection");
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  const SelectionForm form = RempliSelection(state_);
  OptSelect.at(static_cast<std::size_t>(form.OptSelect))->setChecked(true);
  ExecuteCommande(state_, io_, {}, [&] { MontreConditions(); });
  TxtSelect->setText(Affiche(form.TxtSelect));
  TxtSelect->setFocus();
  TxtSelect->selectAll();
  Relie();
}

void Selection::Construit() {
  for (std::size_t i = 0; i < OptSelect.size(); ++i) {
    OptSelect[i] = Cree<QRadioButton>(this, QString("OptSelect_%1").arg(i));
  }
  condition_ = new ConditionEdit(Affiche(ColonnesDeSelection).split(QStringLiteral(", ")), this);
  condition_->setObjectName("cmbConditions");
  TxtSelect = condition_->lineEdit();
  TxtSelect->setObjectName("TxtSelect");
  lblColonnes = Cree<QLabel>(this, "lblColonnes");
  lblNoms = Cree<QLabel>(this, "lblNoms");
  lblNoms->setText(Affiche(ColonnesDeSelection));
  lblNoms->setWordWrap(true);
  lblNoms->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblExemples = Cree<QLabel>(this, "lblExemples");
  lblConditions = Cree<QLabel>(this, "lblConditions");
  lblConditions->setText(Conditions());
  lblConditions->setTextInteractionFlags(Qt::LinksAccessibleByMouse |
                                         Qt::LinksAccessibleByKeyboard);
  const QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  for (QWidget* widget : std::initializer_list<QWidget*>{condition_, lblConditions}) {
    QFont font = fixed;
    font.setPointSizeF(this->font().pointSizeF());
    widget->setFont(font);
  }
  for (std::size_t i = 0; i < CmdSelect.size(); ++i) {
    CmdSelect[i] = Cree<QPushButton>(this, QString("CmdSelect_%1").arg(i));
  }
  CmdSelect[0]->setDefault(true);
}

void Selection::Dispose() {
  auto* layout = new QVBoxLayout(this);
  for (QRadioButton* option : OptSelect) layout->addWidget(option);
  layout->addWidget(condition_);
  auto* hints = new QFormLayout;
  hints->setLabelAlignment(Qt::AlignLeft | Qt::AlignTop);
  hints->addRow(lblColonnes, lblNoms);
  hints->addRow(lblExemples, lblConditions);
  layout->addSpacing(fontMetrics().height() / 2);
  layout->addLayout(hints);
  layout->addStretch(1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(CmdSelect[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(CmdSelect[1], QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
  lblNoms->setMinimumWidth(lblNoms->fontMetrics().averageCharWidth() * 64);
}

void Selection::Relie() {
  connect(TxtSelect, &QLineEdit::textEdited, this, [this] { OptSelect[1]->setChecked(true); });
  connect(condition_, &QComboBox::activated, this, [this] { OptSelect[1]->setChecked(true); });
  connect(lblConditions, &QLabel::linkActivated, this, &Selection::PrendExemple);
  for (std::size_t i = 0; i < CmdSelect.size(); ++i) {
    connect(CmdSelect[i], &QPushButton::clicked, this,
            [this, i] { CmdSelect_Click(static_cast<int>(i)); });
  }
}

void Selection::AppliqueLangue() {
  Mnemonics letters;
  const auto nom = [this](int caption) {
    return Affiche(SansMnemonique(Texte(state_.Langue, caption)));
  };
  const auto bouton = [&](QAbstractButton* button, int caption) {
    button->setText(letters.Marque(Texte(state_.Langue, caption)));
    button->setAccessibleName(nom(caption));
  };
  setWindowTitle(nom(MsgId::SelectionFenetre));
  bouton(CmdSelect[1], MsgId::EditionFermer);  // the one that comes with a letter
  bouton(CmdSelect[0], MsgId::BoutonOk);
  bouton(OptSelect[0], MsgId::ToutesLesLignes);
  bouton(OptSelect[1], MsgId::LignesSelonCondition);
  for (QWidget* widget : std::initializer_list<QWidget*>{condition_, TxtSelect}) {
    widget->setAccessibleName(nom(MsgId::LignesSelonCondition));
  }
  lblColonnes->setText(nom(MsgId::ColonnesTitre));
  lblNoms->setAccessibleName(nom(MsgId::ColonnesTitre) + " " + lblNoms->text());
  lblExemples->setText(nom(MsgId::ExemplesTitre));
  lblConditions->setAccessibleName(nom(MsgId::ExemplesTitre));
}

void Selection::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void Selection::MontreConditions() {
  QStringList conditions;
  for (const std::string& condition : ConditionsRetenues(io_.settings)) {
    conditions << Affiche(condition);
  }
  condition_->ChangeConditions(conditions);
}

void Selection::PrendExemple(const QString& link) {
  TxtSelect->setText(Affiche(ExemplesDeSelection.at(link.toUInt())));
  OptSelect[1]->setChecked(true);
  TxtSelect->setFocus();
}

void Selection::CmdSelect_Click(int index) {
  if (index == 1) return reject();
  const SelectionForm form{OptSelect[1]->isChecked() ? 1 : 0, TxtSelect->text().toStdString()};
  bool done = false;
  ExecuteCommande(state_, io_, {}, [&] {
    Busy busy(attente_);
    busy.Annulable();
    done = ValideSelection(state_, io_, form);
  });
  if (done) {
    if (form.OptSelect == 1)
      ExecuteCommande(state_, io_, {}, [&] { RetientCondition(io_.settings, form.TxtSelect); });
    return accept();
  }
  TxtSelect->setFocus();
  TxtSelect->selectAll();
}

}  // namespace talpena
