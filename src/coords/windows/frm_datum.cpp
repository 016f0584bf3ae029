#include "coords/windows/frm_datum.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "common/msg_id.h"
#include "common/numbers.h"
#include "common/string_table.h"
#include "common/text.h"
#include "coords/datum.h"
#include "platform/qt/decimals.h"
#include "platform/qt/mnemonics.h"
#include "platform/qt/window_place.h"

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int columns = static_cast<int>(ColonnesDatums.size());
constexpr int columnCode = 0, columnFirstShift = 4;  // dx, dy, dz are numbers
constexpr int twipsPerPixel = 15;
constexpr int linesShown = 22;

QString Affiche(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// A datum; shifts compare as numbers, texts without regard to case.
class LigneDatum final : public QTreeWidgetItem {
 public:
  explicit LigneDatum(const DatumListRow& row) {
    for (int i = 0; i < columns; ++i) {
      const std::string& text = row[static_cast<std::size_t>(i)];
      setText(i, Affiche(text));
      if (i < columnFirstShift) {
        setToolTip(i, Affiche(text));  // names may be cut
        continue;
      }
      setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
      setData(i, Qt::UserRole, Val(text));
    }
  }
  bool operator<(const QTreeWidgetItem& other) const override {
    const int column = treeWidget()->header()->sortIndicatorSection();
    if (column >= columnFirstShift) {
      return data(column, Qt::UserRole).toDouble() < other.data(column, Qt::UserRole).toDouble();
    }
    return text(column).compare(other.text(column), Qt::CaseInsensitive) < 0;
  }
};

/// A list in which typing always looks through the codes, whatever cell was clicked last.
class ListeDatums final : public QTreeWidget {
 public:
  using QTreeWidget::QTreeWidget;
  void keyboardSearch(const QString& search) override {
    if (currentItem() != nullptr) setCurrentItem(currentItem(), columnCode);
    QTreeWidget::keyboardSearch(search);
  }
};

}  // namespace

frmDatum::frmDatum(const CoordState& state, QWidget* parent) : QDialog(parent), state_(state) {
  setObjectName("frmDatum");
  setModal(true);
  ConstruitListe();
  for (std::size_t i = 0; i < cmdDatum.size(); ++i) {
    cmdDatum[i] = new QPushButton(this);
    cmdDatum[i]->setObjectName(QString("cmdDatum_%1").arg(i));
  }
  cmdDatum[0]->setDefault(true);
  RempliListe();
  AppliqueLangue();
  ElargitColonnes();
  Dispose();
  Relie();
}

void frmDatum::ConstruitListe() {
  ListView1 = new ListeDatums(this);
  ListView1->setObjectName("ListView1");
  ListView1->setColumnCount(columns);
  ListView1->setRootIsDecorated(false);
  ListView1->setUniformRowHeights(true);
  ListView1->setAlternatingRowColors(true);
  ListView1->setAllColumnsShowFocus(true);
  ListView1->setSelectionMode(QAbstractItemView::SingleSelection);
  QHeaderView* header = ListView1->header();
  header->setSectionsClickable(true);
  header->setStretchLastSection(false);
  for (int i = 0; i < columns; ++i) {
    const DatumListColumn& column = ColonnesDatums[static_cast<std::size_t>(i)];
    QTreeWidgetItem* heading = ListView1->headerItem();
    heading->setData(i, Qt::UserRole, Affiche(column.key));
    heading->setToolTip(i, u"Ctrl+%1"_s.arg(i + 1));
    if (i >= columnFirstShift) heading->setTextAlignment(i, Qt::AlignRight | Qt::AlignVCenter);
  }
}

void frmDatum::RempliListe() {
  QList<QTreeWidgetItem*> items;
  for (const DatumListRow& row : RempliListesDatums(state_.Catalogue)) {
    items << new LigneDatum(row);
  }
  ListView1->addTopLevelItems(items);
  if (!items.isEmpty()) ListView1->setCurrentItem(items.front());
}

/// The shifts of a column stand point under point. Width that they take so.
int frmDatum::AligneDecalages(int column) {
  int decimals = 0;
  for (int row = 0; row < ListView1->topLevelItemCount(); ++row) {
    decimals = std::max(decimals, NombreDeDecimales(ListView1->topLevelItem(row)->text(column)));
  }
  ListView1->setItemDelegateForColumn(column, new DecimalDelegate(decimals, this));
  int width = 0;
  for (int row = 0; row < ListView1->topLevelItemCount(); ++row) {
    QStyleOptionViewItem cell;
    cell.widget = ListView1;
    cell.fontMetrics = ListView1->fontMetrics();
    cell.text = AvecPlaceDesDecimales(ListView1->topLevelItem(row)->text(column), decimals);
    width = std::max(width, LargeurVoulue(cell));
  }
  return width;
}

/// The widths of the table of columns, and more where a number or a heading would be cut.
void frmDatum::ElargitColonnes() {
  QHeaderView* header = ListView1->header();
  for (int i = 0; i < columns; ++i) {
    int width = ColonnesDatums[static_cast<std::size_t>(i)].widthTwips / twipsPerPixel;
    if (i == columnCode || i >= columnFirstShift) {
      ListView1->resizeColumnToContents(i);
      width = std::max(width, header->sectionSize(i));
    }
    if (i >= columnFirstShift) width = std::max(width, AligneDecalages(i));
    header->resizeSection(i, width);
  }
}

void frmDatum::Dispose() {
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(ListView1, 1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(cmdDatum[0], QDialogButtonBox::AcceptRole);
  buttons->addButton(cmdDatum[1], QDialogButtonBox::RejectRole);
  layout->addWidget(buttons);
  const QMargins margins = layout->contentsMargins();
  const QSize wanted(
      ListView1->header()->length() + ListView1->verticalScrollBar()->sizeHint().width() +
          2 * ListView1->frameWidth() + margins.left() + margins.right(),
      linesShown * ListView1->sizeHintForRow(0) + buttons->sizeHint().height() +
          ListView1->header()->sizeHint().height() + margins.top() + margins.bottom());
  resize(TailleVisible(wanted));
}

void frmDatum::Relie() {
  connect(ListView1->header(), &QHeaderView::sectionClicked, this,
          &frmDatum::ListView1_ColumnClick);
  for (int i = 0; i < columns; ++i) {
    const QKeySequence keys(static_cast<int>(Qt::CTRL) | (static_cast<int>(Qt::Key_1) + i));
    connect(new QShortcut(keys, this), &QShortcut::activated, this,
            [this, i] { ListView1_ColumnClick(i); });
  }
  connect(ListView1, &QTreeWidget::itemDoubleClicked, this, [this] { cmdDatum_Click(0); });
  for (int i = 0; i < static_cast<int>(cmdDatum.size()); ++i) {
    connect(cmdDatum[static_cast<std::size_t>(i)], &QPushButton::clicked, this,
            [this, i] { cmdDatum_Click(i); });
  }
}

void frmDatum::AppliqueLangue() {
  setWindowTitle(Affiche(Texte(state_.Langue, MsgId::Datum)));
  ListView1->setAccessibleName(windowTitle());
  for (int i = 0; i < columns; ++i) {
    const DatumListColumn& column = ColonnesDatums[static_cast<std::size_t>(i)];
    ListView1->headerItem()->setText(i, column.heading != 0
                                            ? Affiche(Texte(state_.Langue, column.heading))
                                            : Affiche(column.symbol));
  }
  constexpr std::array<int, 2> captions{MsgId::Ok, MsgId::Annuler};
  Mnemonics letters;
  for (std::size_t i = 0; i < cmdDatum.size(); ++i) {
    const std::string text = Texte(state_.Langue, captions[i]);
    cmdDatum[i]->setText(letters.Marque(text));
    cmdDatum[i]->setAccessibleName(Affiche(SansMnemonique(text)));
  }
}

void frmDatum::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) AppliqueLangue();
}

bool frmDatum::Selectionne(std::string_view code) {
  const auto found = ListView1->findItems(Affiche(Rogne(code)),
                                          Qt::MatchExactly | Qt::MatchCaseSensitive, columnCode);
  if (found.isEmpty()) return false;
  ListView1->setCurrentItem(found.front(), columnCode);
  ListView1->scrollToItem(found.front(), QAbstractItemView::PositionAtCenter);
  return true;
}

void frmDatum::ListView1_ColumnClick(int column) {
  descendant_ = column == colonneTri_ && !descendant_;
  colonneTri_ = column;
  ListView1->header()->setSortIndicatorShown(true);
  ListView1->sortItems(column, descendant_ ? Qt::DescendingOrder : Qt::AscendingOrder);
  if (ListView1->currentItem() != nullptr) ListView1->scrollToItem(ListView1->currentItem());
}

void frmDatum::cmdDatum_Click(int index) {
  if (index == 1 || ListView1->currentItem() == nullptr) {
    reject();
    return;
  }
  resultat_ = ListView1->currentItem()->text(columnCode).toStdString();
  accept();
}

void frmDatum::reject() {
  resultat_.clear();
  QDialog::reject();
}

}  // namespace talpena
