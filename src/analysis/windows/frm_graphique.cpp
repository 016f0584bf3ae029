#include "analysis/windows/frm_graphique.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "analysis/analysed_rows.h"
#include "analysis/output_file.h"
#include "analysis/text_table.h"
#include "common/msg_id.h"
#include "common/msg_id_analysis.h"
#include "common/string_table.h"
#include "common/talpena_error.h"
#include "platform/commands.h"
#include "platform/qt/chart/chart_plot.h"
#include "platform/qt/controls.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/qt_canvas.h"
#include "platform/qt/window_place.h"

namespace talpena {
namespace {

constexpr QSize ChartSize(860, 560);
constexpr QSize PageSize(720, 480);  ///< of saved and printed charts, pixels of a screen
constexpr double CopiedDots = 2;     ///< for each of them
constexpr double PrintedDots = 4;

std::string EnOctets(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

frmGraphique::frmGraphique(const SharedState& state, Platform& io, const ChartPicture& picture,
                           std::string folder, QWidget* parent)
    : QDialog(parent), state_(state), io_(io), picture_(picture), folder_(std::move(folder)) {
  setObjectName(QStringLiteral("frmGraphique"));
  setModal(true);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  Construit();
  Dispose();
  Relie();
  AppliqueLangue();
  resize(TailleVisible(ChartSize));
  Graph1->setFocus();
}

void frmGraphique::Construit() {
  Graph1 = Nomme(new ChartPlot(this), QStringLiteral("Graph1"));
  Graph1->Montre(picture_);
  lblPoint = Nomme(new QLabel(this), QStringLiteral("lblPoint"));
  lblRemarque = Nomme(new QLabel(this), QStringLiteral("lblRemarque"));
  lblRemarque->setVisible(picture_.lignes.texte != 0);
  for (QLabel* label : {lblPoint, lblRemarque}) {
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
  }
  const auto bouton = [this](const char* name) {
    auto* button = Nomme(new QPushButton(this), QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
  };
  cmdCopier = bouton("cmdCopier");
  cmdEnregistrer = bouton("cmdEnregistrer");
  cmdNombres = bouton("cmdNombres");
  cmdImprimer = bouton("cmdImprimer");
  cmdFermer = bouton("cmdFermer");
}

void frmGraphique::Dispose() {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(Graph1, 1);
  layout->addWidget(lblPoint);
  layout->addWidget(lblRemarque);
  auto* buttons = new QDialogButtonBox(this);
  for (QPushButton* button : {cmdCopier, cmdEnregistrer, cmdNombres, cmdImprimer}) {
    buttons->addButton(button, QDialogButtonBox::ActionRole);
  }
  buttons->addButton(cmdFermer, QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
}

void frmGraphique::Relie() {
  connect(cmdCopier, &QPushButton::clicked, this, &frmGraphique::cmdCopier_Click);
  connect(cmdEnregistrer, &QPushButton::clicked, this, &frmGraphique::cmdEnregistrer_Click);
  connect(cmdNombres, &QPushButton::clicked, this, &frmGraphique::cmdNombres_Click);
  connect(cmdImprimer, &QPushButton::clicked, this, &frmGraphique::cmdImprimer_Click);
  connect(cmdFermer, &QPushButton::clicked, this, &QDialog::reject);
  connect(Graph1, &ChartPlot::PointChange, this, &frmGraphique::MontrePoint);
  const auto touche = [this](QKeySequence::StandardKey key, QPushButton* button) {
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
  };
  touche(QKeySequence::Copy, cmdCopier);
  touche(QKeySequence::Save, cmdEnregistrer);
  touche(QKeySequence::Print, cmdImprimer);
}

void frmGraphique::AppliqueLangue() {
  const auto texte = [this](int id) { return Texte(state_.Langue, id); };
  const std::string& titre = picture_.graphTitle;
  setWindowTitle(EnQt(titre.empty() ? texte(MsgId::GraphiqueFenetre) : titre));
  Graph1->setAccessibleName(EnQt(texte(MsgId::GraphiqueFenetre)));
  lblRemarque->setText(EnQt(TexteDesLignes(state_.Langue, picture_.lignes)));
  Mnemonics letters;
  const auto bouton = [&](QPushButton* button, int caption) {
    button->setText(letters.Marque(texte(caption)));
    button->setAccessibleName(EnQt(SansMnemonique(texte(caption))));
  };
  bouton(cmdCopier, MsgId::GraphiqueCopier);
  bouton(cmdEnregistrer, MsgId::GraphiqueEnregistrer);
  bouton(cmdNombres, MsgId::GraphiqueNombres);
  bouton(cmdImprimer, MsgId::GraphiqueImprimer);
  bouton(cmdFermer, MsgId::EditionFermer);
  MontrePoint(Graph1->PointCourant());
}

void frmGraphique::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

/// Without a point the line says how to come to one.
void frmGraphique::MontrePoint(int point) {
  const bool empty = picture_.series.empty();
  const int hint = empty ? MsgId::GraphiqueVide : MsgId::GraphiqueClavier;
  lblPoint->setText(EnQt(point == 0 ? Texte(state_.Langue, hint) : TexteDuPoint(picture_, point)));
  Graph1->setAccessibleDescription(lblPoint->text());
}

OfferedFile frmGraphique::Propose(const char* suffix) const {
  return {folder_, windowTitle().toStdString(), suffix};
}

void frmGraphique::cmdCopier_Click() {
  QApplication::clipboard()->setImage(Graph1->EnImage(PageSize, CopiedDots));
}

void frmGraphique::cmdEnregistrer_Click() {
  ExecuteCommande(state_, io_, {}, [this] {
    SauveSous(io_, Texte(state_.Langue, MsgId::FiltreImages), Propose(".png"),
              [this](const std::string& path) {
                const QString suffix = QFileInfo(EnQt(path)).suffix().toLower();
                if (suffix == QLatin1String("svg")) return EnOctets(Graph1->EnSvg(PageSize));
                if (suffix == QLatin1String("pdf")) return EnOctets(Graph1->EnPdf(PageSize));
                if (suffix.isEmpty() || suffix == QLatin1String("png"))
                  return EnOctets(Graph1->EnPng(PageSize));
                throw TalpenaError(ErrorNumber::PathFileAccess, "No such kind of picture: " + path,
                                   {.text = MsgId::FinDeNomInconnue});
              });
  });
}

void frmGraphique::cmdNombres_Click() {
  ExecuteCommande(state_, io_, {}, [this] {
    SauveSous(io_, Texte(state_.Langue, MsgId::FiltreCsv), Propose(".csv"),
              [this](const std::string&) { return AvecVirgules(NombresDe(picture_)); });
  });
}

void frmGraphique::cmdImprimer_Click() {
  ExecuteCommande(state_, io_, {}, [this] {
    io_.dialogues.Imprime();
    Imprime(io_.dialogues.Imprimante());
  });
}

/// Lengthwise, as large as the page allows.
void frmGraphique::Imprime(Printer& printer) {
  printer.ChangeOrientation(true);
  const PageArea area = printer.ZoneImprimable();
  const double scale = std::min(area.width / PageSize.width(), area.height / PageSize.height());
  const double width = PageSize.width() * scale, height = PageSize.height() * scale;
  const auto page = printer.CreeCanevas(PrintedDots);
  if (auto* canvas = dynamic_cast<QtCanvas*>(page.get()); canvas != nullptr) {
    canvas->MontreImage(Graph1->EnImage(PageSize, canvas->Rapport()));
  }
  printer.ImprimePage(*page, {(area.width - width) / 2, (area.height - height) / 2, width, height});
}

}  // namespace talpena
