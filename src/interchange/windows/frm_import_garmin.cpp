#include "interchange/windows/frm_import_garmin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <memory>
#include <vector>

#include "common/grouped_number.h"
#include "common/msg_id.h"
#include "common/msg_id_import.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum_choice.h"
#include "coords/windows/frm_datum.h"
#include "interchange/import_notes.h"
#include "interchange/imported_lists.h"
#include "interchange/waypoint_commands.h"
#include "interchange/windows/frm_garmin_options.h"
#include "interchange/windows/rehearsal_pane.h"
#include "interchange/windows/waypoint_view.h"
#include "platform/commands.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int buttonImport = 0, buttonCancel = 1, buttonOptions = 2;  // of cmdImportGarmin

// Widths that a column can be seen and taken hold of with, pixels.
constexpr int narrowest = 8, widest = 4000;

constexpr float widthOfNoChoice = 1000;  ///< twips, of the settings without a width

constexpr int charactersShown = 32;  ///< of a column that nobody gave a width
constexpr int pointsShown = 6;
constexpr int headerLines = 5;  ///< the path and what the file says above its waypoints

}  // namespace

frmImportGarmin::frmImportGarmin(CommandContext c, InterchangeState& interchange,
                                 std::string fileName, int type, QWidget* parent)
    : QDialog(parent),
      c_(c),
      interchange_(interchange),
      fichier_(std::move(fileName)),
      type_(type) {
  setObjectName(u"frmImportGarmin"_s);
  setModal(true);
  Construit();
  Dispose();
  AppliqueLangue();
  Relie();
}

/// The list asks for its headings until it is hidden, and they are in a member.
frmImportGarmin::~frmImportGarmin() { QDialog::setVisible(false); }

void frmImportGarmin::Construit() {
  setWindowTitle(u"Garmin Import"_s);
  lblConfirm = Nomme(new QLabel(u"Please confirm all the parameters !"_s, this), u"lblConfirm"_s);
  lblHeader = Nomme(new QLabel(u"File header (for information)"_s, this), u"lblHeader"_s);
  txtHeader = Nomme(new QPlainTextEdit(this), u"txtHeader"_s);
  txtHeader->setReadOnly(true);
  txtHeader->setTabChangesFocus(true);
  txtHeader->setLineWrapMode(QPlainTextEdit::NoWrap);
  lblHeader->setBuddy(txtHeader);
  lblGrid = Nomme(new QLabel(u"Grid system :"_s, this), u"lblGrid"_s);
  cmbGrid = Nomme(new QComboBox(this), u"cmbGrid"_s);
  for (const std::string_view grid : GrillesGarmin) cmbGrid->addItem(EnQt(grid));
  cmbGrid->setCurrentIndex(-1);
  lblGrid->setBuddy(cmbGrid);
  lblTitreDatum = Nomme(new QLabel(u"datum:"_s, this), u"lblTitreDatum"_s);
  lblDatum = Nomme(new QLabel(this), u"lblDatum"_s);
  lblDatum->setTextInteractionFlags(Qt::TextSelectableByMouse);
  cmdChangeDatum = Nomme(new QPushButton(u"&Change"_s, this), u"cmdChangeDatum"_s);
  LV = new WaypointView(this);
  chkAll = Nomme(new QCheckBox(u"Check &all selected lines"_s, this), u"chkAll"_s);
  repetition_ = new RehearsalPane(c_.state, this);
  for (std::size_t i = 0; i < cmdImportGarmin.size(); ++i) {
    cmdImportGarmin[i] = Nomme(new QPushButton(this), NomIndexe("cmdImportGarmin", i));
  }
  cmdImportGarmin[buttonCancel]->setText(u"&Cancel"_s);
  cmdImportGarmin[buttonOptions]->setText(u"O&ptions"_s);
  for (QPushButton* button : {cmdChangeDatum, cmdImportGarmin[buttonOptions]}) {
    button->setAutoDefault(false);
  }
  cmdImportGarmin[buttonImport]->setDefault(true);
}

void frmImportGarmin::Dispose() {
  auto* grid = new QGridLayout;
  grid->addWidget(lblHeader, 0, 0);
  grid->addWidget(txtHeader, 1, 0, 3, 1);
  grid->addWidget(lblGrid, 1, 1);
  grid->addWidget(cmbGrid, 1, 2, 1, 2);
  grid->addWidget(lblTitreDatum, 2, 1);
  grid->addWidget(lblDatum, 2, 2);
  grid->addWidget(cmdChangeDatum, 2, 3);
  grid->setColumnStretch(0, 1);
  txtHeader->setFixedHeight((headerLines + 1) * fontMetrics().lineSpacing());
  auto* points = new QWidget(this);
  auto* column = new QVBoxLayout(points);
  column->setContentsMargins({});
  column->addWidget(LV, 1);
  column->addWidget(chkAll);
  LV->setMinimumHeight(pointsShown * fontMetrics().lineSpacing());
  auto* halves = Nomme(new QSplitter(Qt::Vertical, this), u"halves"_s);
  halves->addWidget(points);
  halves->addWidget(repetition_);
  halves->setChildrenCollapsible(false);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdImportGarmin[buttonImport], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdImportGarmin[buttonCancel], QDialogButtonBox::RejectRole);
  buttons->addButton(cmdImportGarmin[buttonOptions], QDialogButtonBox::ActionRole);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(lblConfirm);
  layout->addLayout(grid);
  layout->addWidget(halves, 1);
  layout->addWidget(buttons);
  resize(TailleVisible({fontMetrics().averageCharWidth() * 180, fontMetrics().height() * 44}));
  LV->setFocus();
}

void frmImportGarmin::Relie() {
  connect(cmdChangeDatum, &QPushButton::clicked, this, &frmImportGarmin::cmdChangeDatum_Click);
  connect(chkAll, &QCheckBox::clicked, this, &frmImportGarmin::chkAll_Click);
  connect(cmbGrid, &QComboBox::currentIndexChanged, this, &frmImportGarmin::Repete);
  connect(&LV->Points(), &WaypointModel::Change, this, &frmImportGarmin::Repete);
  for (std::size_t i = 0; i < cmdImportGarmin.size(); ++i) {
    connect(cmdImportGarmin[i], &QPushButton::clicked, this,
            [this, i] { cmdImportGarmin_Click(static_cast<int>(i)); });
  }
}

void frmImportGarmin::Charge() {
  text_ = ChargeImportGarmin(c_.state, c_.io, fichier_, static_cast<std::int16_t>(type_), options_);
  txtHeader->setPlainText(EnQt(text_.header));
  if (text_.grid) cmbGrid->setCurrentIndex(*text_.grid);
  lblDatum->setText(EnQt(text_.datum));
  LV->Points().Montre(text_);
  if (LV->Points().rowCount() > 0) LV->setCurrentIndex(LV->Points().index(0, 0));
  ExecuteCommande(c_.state, c_.io, {}, [this] { MontreLargeurs(); });
  deja_ = EstDejaImportee(interchange_, c_.document(), text_.file);
  if (deja_) cmdImportGarmin[buttonCancel]->setFocus();  // Enter would give the rows once more
  Repete();
}

/// Shows anew what OK would do: the settings then give the options.
void frmImportGarmin::Repete() {
  ExecuteCommande(c_.state, c_.io, {}, [this] { ChargeOptions(c_.io.settings, aVenir_); });
  MontreNotes();
  if (text_.captions.empty()) return repetition_->Arrete();
  RehearsalPlan plan;
  plan.ouvre = [this, choice = Choix()] {
    return std::make_unique<MapSourceReader>(text_, choice, aVenir_, c_.document().Entete());
  };
  repetition_->Repete(std::move(plan));
}

/// The widths of the settings; a column that has none there has room for its heading and for what
/// stands in its first lines, as long as that is not very long.
void frmImportGarmin::MontreLargeurs() {
  QHeaderView* header = LV->header();
  header->setMinimumSectionSize(narrowest);
  for (int i = 0; i < header->count(); ++i) {
    const float stored = LargeurColonneGarmin(c_.io.settings, i + 1);
    const int width = std::clamp(EnPixels(stored), narrowest, widest);
    const bool chosen = stored != widthOfNoChoice;
    header->resizeSection(i, chosen ? width : std::max(width, LargeurLisible(i)));
  }
}

int frmImportGarmin::LargeurLisible(int column) const {
  const QAbstractItemView& list = *LV;
  const int longest = fontMetrics().averageCharWidth() * charactersShown;
  return std::max(LV->header()->sectionSizeHint(column),
                  std::min(list.sizeHintForColumn(column), longest));
}

void frmImportGarmin::SauveLargeurs() {
  std::vector<float> widths;
  widths.reserve(static_cast<std::size_t>(LV->header()->count()));
  for (int i = 0; i < LV->header()->count(); ++i) {
    widths.push_back(EnTwips(LV->header()->sectionSize(i)));
  }
  if (!widths.empty()) SauveLargeursGarmin(c_.io.settings, widths);
}

void frmImportGarmin::AppliqueLangue() {
  const auto nom = [this](int id) { return EnQt(SansMnemonique(Texte(c_.state.Langue, id))); };
  LV->setAccessibleName(nom(MsgId::PointsDuFichier));
  cmdImportGarmin[buttonImport]->setText(
      Mnemonics().Marque(Texte(c_.state.Langue, MsgId::BoutonOk)));
  for (QPushButton* button : cmdImportGarmin) {
    button->setAccessibleName(button->text().remove(u'&'));
  }
  MontreNotes();
}

void frmImportGarmin::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

/// What rows on this grid and datum will not have, or will have without anybody asking for it.
void frmImportGarmin::MontreNotes() {
  const std::string datum = lblDatum->text().toStdString();
  std::vector<std::string> notes = {datum.empty() ? Texte(c_.state.Langue, MsgId::GarminSansDatum)
                                                  : NoteDuDatum(c_.state, datum)};
  if (cmbGrid->currentIndex() == GarminGrid::Utm) {
    notes.push_back(Texte(c_.state.Langue, MsgId::PositionsUtmNonLues));
  }
  if (!text_.captions.empty()) {
    notes.push_back(Texte(c_.state.Langue, MsgId::PointsSansNombres));
    std::ranges::move(AvisMapSource(c_.state.Langue, text_, cmbGrid->currentIndex(), aVenir_),
                      std::back_inserter(notes));
  }
  if (deja_) notes.insert(notes.begin(), Texte(c_.state.Langue, MsgId::PointsDejaImportes));
  if (entres_ > 0) {
    notes.insert(notes.begin(), Remplace(Texte(c_.state.Langue, MsgId::PointsEntres), "%1",
                                         NombreGroupe(c_.state.Langue, entres_)));
  }
  repetition_->MontreNotes(notes);
}

/// What was not asked for is not told as left out.
MapSourceChoice frmImportGarmin::Choix() const {
  MapSourceChoice choice{cmbGrid->currentIndex(), lblDatum->text().toStdString(), {}};
  std::ranges::copy_if(LV->Points().Choix(), std::back_inserter(choice.items),
                       &WaypointChoice::checked);
  return choice;
}

/// The datum of the rows to come; that of the gazetteer stays.
void frmImportGarmin::cmdChangeDatum_Click() {
  frmDatum chooser(c_.state, this);
  const std::string label = lblDatum->text().toStdString();
  chooser.Selectionne(CodeDuLabel(label));
  chooser.exec();
  const DatumChoisi chosen = ChoisitDatum(c_.state, c_.io, label, chooser.Resultat());
  if (chosen.label == label) return;
  lblDatum->setText(EnQt(chosen.label));
  Repete();
}

void frmImportGarmin::chkAll_Click() { LV->CocheChoisies(chkAll->isChecked()); }

void frmImportGarmin::cmdImportGarmin_Click(int index) {
  bool loaded = false;
  ExecuteCommande(c_.state, c_.io, {}, [&] {
    ChargeOptions(c_.io.settings, options_);
    loaded = true;
  });
  if (index == buttonCancel) return reject();
  if (!loaded) return;
  if (index == buttonOptions) return ChangeOptions();
  Importe();
}

void frmImportGarmin::Importe() {
  if (cmbGrid->currentIndex() < 0) return OffreGrilles();
  if (lblDatum->text().isEmpty()) return cmdChangeDatum_Click();
  repetition_->Arrete();
  const MapSourceOutcome outcome = ImportMapSource(c_, interchange_, text_, Choix(), options_);
  if (outcome.finished) return accept();
  ResteApresEchec(outcome.added);
}

/// On the waypoint at which it failed; another OK does not take those before it again.
void frmImportGarmin::ResteApresEchec(std::int64_t added) {
  entres_ += added;
  LV->Points().DecochePremiers(added);
  if (const int line = LV->Points().PremierCoche(); line >= 0) {
    LV->setCurrentIndex(LV->Points().index(line, 0));
  }
  LV->setFocus();
  Repete();
}

void frmImportGarmin::OffreGrilles() {
  cmbGrid->setFocus();
  cmbGrid->showPopup();
}

void frmImportGarmin::ChangeOptions() {
  frmGarminOptions(c_.state, c_.io, options_, text_, LV->Points().Choix(), this).exec();
  Repete();
}

void frmImportGarmin::done(int result) {
  ExecuteCommande(c_.state, c_.io, {}, [this] { SauveLargeurs(); });
  QDialog::done(result);
}

}  // namespace talpena
