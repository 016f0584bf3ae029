#include "interchange/windows/rehearsal_pane.h"

#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "interchange/import_notes.h"
#include "interchange/rehearsal_words.h"
#include "interchange/windows/rehearsal_model.h"
#include "platform/qt/controls.h"

namespace talpena {
namespace {

constexpr qint64 sliceMs = 10, textsEveryMs = 100;
constexpr int linesShown = 6;
constexpr int commentCharacters = 32, commentAtLeast = 14;
/// What a column has room for beside its heading; the fate takes what is left.
constexpr std::array<const char*, RehearsalColumn::Count> samples{
    "999999", "",           "99", "deg +50.41234 +003.92120", "-50.41234", "-150.41234", "99999",
    "99999",  "1998/07/14", ""};

QLabel* Etiquette(QWidget* parent, const QString& name) {
  auto* label = Nomme(new QLabel(parent), name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

}  // namespace

RehearsalPane::RehearsalPane(StoreState& state, QWidget* parent)
    : QWidget(parent),
      state_(state),
      model_(new RehearsalModel(state, this)),
      timer_(new QTimer(this)),
      lblTitreRepetition(Nomme(new QLabel(this), "lblTitreRepetition")),
      lblComptes(Etiquette(this, "lblComptes")),
      lblArret(Etiquette(this, "lblArret")),
      lblConseil(Etiquette(this, "lblConseil")),
      lblNotes(Etiquette(this, "lblNotes")),
      lblSort(Etiquette(this, "lblSort")),
      lstRepetition(Nomme(new QTableView(this), "lstRepetition")),
      cmdProbleme(Nomme(new QPushButton(this), "cmdProbleme")),
      cmdCopier(Nomme(new QPushButton(this), "cmdCopier")) {
  setObjectName("RehearsalPane");
  lblTitreRepetition->setFont(EnGras(font()));
  lblTitreRepetition->setBuddy(lstRepetition);
  lblArret->setFont(EnGras(font()));
  lblConseil->setFont(EnGras(font()));
  ConstruitTable();
  Dispose();
  lstRepetition->viewport()->installEventFilter(this);
  auto* next = new QShortcut(Qt::Key_F8, this);
  connect(next, &QShortcut::activated, this, &RehearsalPane::VaAuProbleme);
  connect(cmdProbleme, &QPushButton::clicked, this, &RehearsalPane::VaAuProbleme);
  connect(cmdCopier, &QPushButton::clicked, this, &RehearsalPane::CopieTout);
  connect(timer_, &QTimer::timeout, this, &RehearsalPane::Travaille);
  AppliqueLangue();
}

RehearsalPane::~RehearsalPane() = default;

void RehearsalPane::ConstruitTable() {
  lstRepetition->setModel(model_);
  lstRepetition->setSelectionBehavior(QAbstractItemView::SelectRows);
  lstRepetition->setTabKeyNavigation(false);
  lstRepetition->setWordWrap(false);
  lstRepetition->setAlternatingRowColors(true);
  lstRepetition->verticalHeader()->hide();
  lstRepetition->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  const int line = fontMetrics().height() + fontMetrics().leading() + 6;
  lstRepetition->verticalHeader()->setDefaultSectionSize(line);
  lstRepetition->setMinimumHeight((linesShown + 1) * line);
  QHeaderView* header = lstRepetition->horizontalHeader();
  header->setHighlightSections(false);
  connect(lstRepetition->verticalScrollBar(), &QScrollBar::valueChanged, this,
          &RehearsalPane::EtendSorts);
  connect(lstRepetition->verticalScrollBar(), &QScrollBar::rangeChanged, this,
          &RehearsalPane::EtendSorts);
  connect(model_, &QAbstractItemModel::rowsInserted, this, &RehearsalPane::EtendSorts);
  connect(lstRepetition->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &RehearsalPane::MontreSort);
  auto* copies = new QShortcut(QKeySequence::Copy, lstRepetition);
  copies->setContext(Qt::WidgetShortcut);
  connect(copies, &QShortcut::activated, this, &RehearsalPane::CopieChoisies);
}

void RehearsalPane::ElargitColonnes() {
  const QFontMetrics metrics(EnGras(lstRepetition->font()));
  const RehearsalCells titles = TitresRepetition(state_);
  const auto largeur = [&](const std::string& text) {
    return metrics.horizontalAdvance(EnQt(text)) + 2 * metrics.averageCharWidth();
  };
  QHeaderView* header = lstRepetition->horizontalHeader();
  int others = 0;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    if (i == RehearsalColumn::Fate || i == RehearsalColumn::Comment) continue;
    const int width = std::max(largeur(samples.at(i)), largeur(titles.at(i)));
    header->resizeSection(static_cast<int>(i), width);
    others += header->sectionSize(static_cast<int>(i));  // 0 when it is hidden
  }
  const int least = std::max(largeur(Texte(state_.Langue, MsgId::SortLoin)),
                             largeur(titles[RehearsalColumn::Fate]));
  // On a small screen the comments give way first.
  const int character = lstRepetition->fontMetrics().averageCharWidth();
  const int fewest =
      std::max(commentAtLeast * character, largeur(titles[RehearsalColumn::Comment]));
  const int wanted = std::max(commentCharacters * character, fewest);
  const int left = lstRepetition->viewport()->width() - others;
  const int comment = std::clamp(left - least, fewest, wanted);
  const int room = left - comment;
  header->resizeSection(static_cast<int>(RehearsalColumn::Fate), std::max(least, room));
  // With large letters the list is scrolled rather than the last heading cut.
  header->setStretchLastSection(room >= least);
  if (room < least) header->resizeSection(static_cast<int>(RehearsalColumn::Comment), comment);
}

bool RehearsalPane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) ElargitColonnes();
  return QWidget::eventFilter(watched, event);
}

/// Waypoints have none.
void RehearsalPane::MontreNombres(bool shown) {
  for (const std::size_t column : {RehearsalColumn::Number1, RehearsalColumn::Number2}) {
    lstRepetition->setColumnHidden(static_cast<int>(column), !shown);
  }
  ElargitColonnes();
}

/// All of the words of the current row, where the list may cut them.
void RehearsalPane::MontreSort() {
  const int row = lstRepetition->currentIndex().row();
  const bool shown = row >= 0 && row < model_->rowCount() && model_->EstProbleme(row);
  MontreTexte(*lblSort, shown ? model_->Cellules(row)[RehearsalColumn::Fate] : "");
}

/// The words of the rows in view go on over the cells beside them that hold nothing.
void RehearsalPane::EtendSorts() {
  lstRepetition->clearSpans();
  const int first = std::max(lstRepetition->rowAt(0), 0);
  const int height = std::max(lstRepetition->rowHeight(first), 1);
  const int last =
      std::min(first + lstRepetition->viewport()->height() / height + 1, model_->rowCount() - 1);
  constexpr auto column = static_cast<int>(RehearsalColumn::Fate);
  for (int row = first; row <= last; ++row) {
    const int columns = model_->ColonnesDuSort(row);
    if (columns > 1) lstRepetition->setSpan(row, column, 1, columns);
  }
}

void RehearsalPane::Dispose() {
  auto* head = new QHBoxLayout;
  head->addWidget(lblTitreRepetition, 1);
  head->addWidget(cmdProbleme);
  head->addWidget(cmdCopier);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(head);
  for (QLabel* label : {lblComptes, lblArret, lblConseil, lblNotes}) layout->addWidget(label);
  layout->addWidget(lstRepetition, 1);
  layout->addWidget(lblSort);
}

void RehearsalPane::AppliqueLangue() {
  const auto texte = [this](int id) { return EnQt(Texte(state_.Langue, id)); };
  lblTitreRepetition->setText(texte(MsgId::Repetition));
  lstRepetition->setAccessibleName(texte(MsgId::Repetition));
  cmdProbleme->setText(texte(MsgId::ProblemeSuivant) + " (F8)");
  cmdCopier->setText(texte(MsgId::RepetitionCopie));
  for (QPushButton* button : {cmdProbleme, cmdCopier}) button->setAccessibleName(button->text());
  model_->AppliqueLangue();
  ElargitColonnes();
  MontreTextes();
  MontreSort();
}

void RehearsalPane::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

void RehearsalPane::Repete(RehearsalPlan plan) {
  Arrete();
  MontreNombres(plan.system.has_value());
  rehearsal_ = std::make_unique<Rehearsal>(state_, state_.document.Entete().DatumFichier,
                                           state_.document.Base(), std::move(plan));
  model_->Montre(rehearsal_.get());
  MontreTextes();
  timer_->start(0);
}

void RehearsalPane::Arrete() {
  timer_->stop();
  model_->Montre(nullptr);
  rehearsal_.reset();
  MontreTextes();
  MontreSort();
}

void RehearsalPane::MontreNotes(const std::vector<std::string>& notes) {
  notes_.clear();
  for (const std::string& note : notes) notes_ += (notes_.empty() ? "" : "\n") + note;
  MontreTextes();
}

bool RehearsalPane::EstFinie() const { return rehearsal_ && !timer_->isActive(); }

std::int64_t RehearsalPane::Entrent() const { return rehearsal_ ? rehearsal_->Comptes().enter : 0; }

void RehearsalPane::Travaille() {
  QElapsedTimer slice;
  slice.start();
  const bool more = rehearsal_->Travaille([&] { return slice.elapsed() < sliceMs; });
  if (!more) timer_->stop();
  model_->Suit();
  if (!more || !sinceTexts_.isValid() || sinceTexts_.elapsed() >= textsEveryMs) MontreTextes();
  Q_EMIT Avance();
}

/// A label without a text takes no room.
void RehearsalPane::MontreTexte(QLabel& label, const std::string& text) {
  const QString shown = EnQt(text);
  if (label.text() != shown) label.setText(shown);
  label.setVisible(!text.empty());
}

void RehearsalPane::MontreTextes() {
  sinceTexts_.start();
  const std::int16_t langue = state_.Langue;
  std::string notes = notes_, ends, hint;
  if (rehearsal_ && rehearsal_->SansFiche() != 0) ends = Texte(langue, rehearsal_->SansFiche());
  if (rehearsal_ && rehearsal_->Arret()) {
    ends = ArretEnMots(langue, *rehearsal_->Arret(), rehearsal_->Comptes().enter);
  }
  if (rehearsal_ && rehearsal_->LigneCoupee() != 0) {
    ends += (ends.empty() ? "" : "\n") + NoteDeCoupe(langue, rehearsal_->LigneCoupee());
  }
  if (rehearsal_ && rehearsal_->Conseil()) hint = ConseilEnMots(langue, *rehearsal_->Conseil());
  if (rehearsal_ && state_.document.Entete().DatumFichier == 0) {
    notes += (notes.empty() ? "" : "\n") + Texte(langue, MsgId::RepetitionSansDatum);
  }
  MontreTexte(*lblComptes, rehearsal_ ? ComptesEnMots(langue, *rehearsal_)
                                      : Texte(langue, MsgId::RepetitionSansFichier));
  MontreTexte(*lblArret, ends);
  MontreTexte(*lblConseil, hint);
  MontreTexte(*lblNotes, notes);
  cmdProbleme->setEnabled(model_->ProchainProbleme(0) >= 0);
  cmdCopier->setEnabled(rehearsal_ != nullptr);
}

void RehearsalPane::VaAuProbleme() {
  const QModelIndex current = lstRepetition->currentIndex();
  const int row = model_->ProchainProbleme(current.isValid() ? current.row() + 1 : 0);
  if (row < 0) return;
  lstRepetition->setFocus();
  lstRepetition->selectRow(row);
  lstRepetition->scrollTo(model_->index(row, 0), QAbstractItemView::PositionAtCenter);
}

QString RehearsalPane::LignesEnTexte(int first, int last) const {
  std::string text;
  for (int row = first; row <= last; ++row) text += EnLigne(model_->Cellules(row)) + "\n";
  return EnQt(text);
}

void RehearsalPane::CopieTout() {
  QString text;
  for (const QLabel* label : {lblComptes, lblArret, lblConseil, lblNotes}) {
    if (!label->text().isEmpty()) text += label->text() + "\n";
  }
  text += EnQt(EnLigne(TitresRepetition(state_))) + "\n";
  QApplication::clipboard()->setText(text + LignesEnTexte(0, model_->rowCount() - 1));
}

void RehearsalPane::CopieChoisies() {
  QItemSelection chosen = lstRepetition->selectionModel()->selection();
  std::ranges::sort(chosen, {}, &QItemSelectionRange::top);
  QString text;
  for (const QItemSelectionRange& rows : chosen) {
    text += LignesEnTexte(rows.top(), rows.bottom());
  }
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

}  // namespace talpena
