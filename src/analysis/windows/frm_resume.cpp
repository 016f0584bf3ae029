#include "analysis/windows/frm_resume.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>
#include <utility>

#include "analysis/analysed_rows.h"
#include "analysis/output_file.h"
#include "common/msg_id.h"
#include "common/msg_id_analysis.h"
#include "common/string_table.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

constexpr QSize SummarySize(940, 480);
constexpr int FirstNumber = 2;  ///< column, behind the rows and the value

}  // namespace

frmResume::frmResume(const SharedState& state, Platform& io, Summary summary, std::string folder,
                     QWidget* parent)
    : QDialog(parent),
      state_(state),
      io_(io),
      summary_(std::move(summary)),
      folder_(std::move(folder)) {
  setObjectName(QStringLiteral("frmResume"));
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  Construit();
  Dispose();
  Relie();
  AppliqueLangue();
  resize(TailleVisible(SummarySize));
  Grid->setFocus();
}

void frmResume::Construit() {
  Grid = Nomme(new QTableWidget(this), QStringLiteral("Grid"));
  Grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
  Grid->setAlternatingRowColors(true);
  Grid->setTabKeyNavigation(false);
  Grid->verticalHeader()->hide();
  lblRemarque = Nomme(new QLabel(this), QStringLiteral("lblRemarque"));
  lblRemarque->setWordWrap(true);
  cmdCopier = Nomme(new QPushButton(this), QStringLiteral("cmdCopier"));
  cmdNombres = Nomme(new QPushButton(this), QStringLiteral("cmdNombres"));
  cmdFermer = Nomme(new QPushButton(this), QStringLiteral("cmdFermer"));
}

void frmResume::Dispose() {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Grid, 1);
  layout->addWidget(lblRemarque);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdCopier, QDialogButtonBox::ActionRole);
  buttons->addButton(cmdNombres, QDialogButtonBox::ActionRole);
  buttons->addButton(cmdFermer, QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void frmResume::Relie() {
  connect(cmdCopier, &QPushButton::clicked, this, &frmResume::cmdCopier_Click);
  connect(cmdNombres, &QPushButton::clicked, this, &frmResume::cmdNombres_Click);
  connect(cmdFermer, &QPushButton::clicked, this, &QDialog::reject);
  connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, cmdCopier,
          &QPushButton::click);
  connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, cmdNombres,
          &QPushButton::click);
}

void frmResume::AppliqueLangue() {
  const auto texte = [this](int id) { return Texte(state_.Langue, id); };
  setWindowTitle(EnQt(SansMnemonique(texte(MsgId::MenuResume))));
  Grid->setAccessibleName(windowTitle());
  lblRemarque->setText(EnQt(TexteDesLignes(state_.Langue, summary_.lignes)));
  Mnemonics letters;
  const auto bouton = [&](QPushButton* button, int caption) {
    button->setText(letters.Marque(texte(caption)));
    button->setAccessibleName(EnQt(SansMnemonique(texte(caption))));
  };
  bouton(cmdCopier, MsgId::GraphiqueCopier);
  bouton(cmdNombres, MsgId::GraphiqueNombres);
  bouton(cmdFermer, MsgId::EditionFermer);
  RemplitTable();
}

/// The names of the groups stay in the language in which they were counted.
void frmResume::RemplitTable() {
  const TextTable table = TableDuResume(summary_, state_.Langue);
  Grid->setRowCount(static_cast<int>(table.size()) - 1);
  Grid->setColumnCount(static_cast<int>(table.front().size()));
  for (std::size_t line = 0; line < table.size(); ++line) {
    for (std::size_t column = 0; column < table[line].size(); ++column) {
      const int place = static_cast<int>(column);
      auto* item = new QTableWidgetItem(EnQt(table[line][column]));
      if (place >= FirstNumber) item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
      line == 0 ? Grid->setHorizontalHeaderItem(place, item)
                : Grid->setItem(static_cast<int>(line) - 1, place, item);
    }
  }
  Grid->resizeColumnsToContents();
}

void frmResume::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void frmResume::cmdCopier_Click() {
  QApplication::clipboard()->setText(EnQt(AvecTabulations(TableDuResume(summary_, state_.Langue))));
}

void frmResume::cmdNombres_Click() {
  ExecuteCommande(state_, io_, {}, [this] {
    SauveSous(io_, Texte(state_.Langue, MsgId::FiltreCsv),
              {folder_, windowTitle().toStdString(), ".csv"}, [this](const std::string&) {
                return AvecVirgules(TableDuResume(summary_, state_.Langue));
              });
  });
}

}  // namespace talpena
