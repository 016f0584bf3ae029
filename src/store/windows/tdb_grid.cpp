#include "store/windows/tdb_grid.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyledItemDelegate>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/commands.h"
#include "platform/qt/decimals.h"
#include "store/windows/grid_colours.h"
#include "store/windows/grid_model.h"

namespace talpena {
namespace {

constexpr float twipsPerPixel = 15;

/// What a column of default width has at least room for.
constexpr std::array<const char*, Column::GridCount> typicalTexts = {
    "00",         "-00.00000", "-000.00000", "00000",
    "00000",      "MM",        "NAS-C",      "deg +00.00000 +000.00000",
    "0000/00/00", ""};

constexpr int columnLatitude = Column::LATITUDE - Column::FirstInGrid;
constexpr int columnLongitude = Column::LONGITUDE - Column::FirstInGrid;
constexpr int pointDecimals = 5;  ///< as files keep them

/// Left and right of a text, pixels.
constexpr int cellMargins = 14;

int HauteurTitre(const QFontMetrics& metrics, const QString& heading, int width) {
  return metrics.boundingRect(QRect(0, 0, width, 1000), Qt::AlignCenter | Qt::TextWordWrap, heading)
      .height();
}

class GridDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  // A line of the toolkit's own cuts longer texts, and would store them cut.
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
      line->setMaxLength(std::numeric_limits<int>::max());
    }
    return editor;
  }

  // Another window, a menu or a box over the editor is no end of the edit.
  bool eventFilter(QObject* editor, QEvent* event) override {
    if (event->type() == QEvent::FocusOut) {
      const auto reason = static_cast<QFocusEvent*>(event)->reason();
      if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
          reason == Qt::MenuBarFocusReason) {
        return false;
      }
    }
    return QStyledItemDelegate::eventFilter(editor, event);
  }

  // The style's own grid lines take the window's colour, which is harsh on a light grid in a dark
  // desktop; these are a shade of the grid's.
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    QColor line = option.palette.color(QPalette::Text);
    line.setAlphaF(0.2F);
    painter->setPen(line);
    painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
    painter->drawLine(option.rect.bottomLeft(), option.rect.bottomRight() - QPoint(1, 0));
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() == columnLatitude || index.column() == columnLongitude) {
      AligneDecimales(*option, pointDecimals);
    }
    const auto* view = qobject_cast<const QTableView*>(option->widget);
    if (view == nullptr || index.row() != view->currentIndex().row()) return;
    // The current row is tinted, so that it is found again on a wide screen.
    QColor tint = option->palette.color(QPalette::Highlight);
    tint.setAlphaF(0.16F);
    option->backgroundBrush = tint;
  }
};

}  // namespace

RowHeader::RowHeader(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
  setSectionsClickable(true);
  setHighlightSections(true);
}

void RowHeader::mousePressEvent(QMouseEvent* event) {
  const int row = logicalIndexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || row < 0) return;
  lastRow_ = row;
  Q_EMIT LigneCliquee(row, event->modifiers());
}

void RowHeader::mouseMoveEvent(QMouseEvent* event) {
  const int row = logicalIndexAt(event->position().toPoint());
  if (lastRow_ < 0 || row < 0 || row == lastRow_) return;
  lastRow_ = row;
  Q_EMIT LigneCliquee(row, Qt::ShiftModifier);
}

void RowHeader::mouseReleaseEvent(QMouseEvent*) { lastRow_ = -1; }

TDBGrid::TDBGrid(StoreState& state, Platform& io, QWidget* parent)
    : QTableView(parent),
      state_(state),
      io_(io),
      model_(new GridModel(state, this)),
      background_(state.CouleurFondGrille) {
  setObjectName(QStringLiteral("TDBGrid1"));
  auto* rows = new RowHeader(this);
  setVerticalHeader(rows);
  setModel(model_);
  setItemDelegate(new GridDelegate(this));
  setEditTriggers(EditKeyPressed | AnyKeyPressed);  // a double click asks for the record editor
  setSelectionMode(ExtendedSelection);
  setWordWrap(false);
  setShowGrid(false);
  setHorizontalScrollMode(ScrollPerPixel);
  rows->setSectionResizeMode(QHeaderView::Fixed);
  rows->setDefaultSectionSize(fontMetrics().height() + 8);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setTextElideMode(Qt::ElideNone);
  horizontalHeader()->setDefaultAlignment(
      Qt::Alignment::fromInt(int{Qt::AlignCenter} | int{Qt::TextWordWrap}));
  horizontalHeader()->setMinimumSectionSize(12);
  connect(rows, &RowHeader::LigneCliquee, this, &TDBGrid::ChoisitLigne);
  RelieTitres();
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column) {
    if (sizing_) return;
    sizedByUser_.at(static_cast<std::size_t>(column)) = true;
    EtireDerniere();
  });
  observed_ = state_.document.Observe([this](Changes changes) { SuitDocument(changes); });
  AppliqueCouleurs();
}

void TDBGrid::InitTDBgrid() {
  model_->ChangeTitres(TitresColonnes(state_));
  AppliqueLargeurs();
}

void TDBGrid::Fige(bool fixed) {
  model_->Fige(fixed);
  if (!fixed) QTimer::singleShot(0, model_, &GridModel::RelitManquants);
}

// Reading a row for a cell is work that beats; see Attente.
void TDBGrid::paintEvent(QPaintEvent* event) {
  ++painted_;
  QTableView::paintEvent(event);
  --painted_;
}

void TDBGrid::AppliqueCouleurs() { ChangeFond(state_.CouleurFondGrille); }

void TDBGrid::ChangeFond(std::uint32_t stored) {
  background_ = stored;
  const GridColours shown = CouleursDeGrille(state_, stored, QApplication::palette());
  QPalette colours = palette();
  colours.setColor(QPalette::Base, shown.background);
  colours.setColor(QPalette::Text, shown.text);
  setPalette(colours);
}

int TDBGrid::LargeurVoulue(int column) const {
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  int widest = fontMetrics().horizontalAdvance(
      QLatin1String(typicalTexts.at(static_cast<std::size_t>(column))));
  const QString heading = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  for (const QString& word : heading.split(QLatin1Char(' '))) {
    widest = std::max(widest, metrics.horizontalAdvance(word));
  }
  while (HauteurTitre(metrics, heading, widest) > 2 * metrics.lineSpacing()) {
    widest += metrics.averageCharWidth();
  }
  return widest + cellMargins;
}

void TDBGrid::AppliqueLargeurs() {
  static const SettingsState defaults;
  sizing_ = true;
  const QFontMetrics metrics = horizontalHeader()->fontMetrics();
  int height = metrics.height();
  for (int column = 0; column < Column::GridCount; ++column) {
    const auto i = static_cast<std::size_t>(column);
    if (sizedByUser_.at(i)) continue;
    const float twips = state_.LargeurColonnes.at(i);
    int width = static_cast<int>(std::lround(twips / twipsPerPixel));
    // A width nobody chose gives way to a heading or a font that needs more room.
    if (twips == defaults.LargeurColonnes.at(i)) width = std::max(width, LargeurVoulue(column));
    setColumnWidth(column, std::max(width, 1));
    const QString heading = model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    height = std::max(height, HauteurTitre(metrics, heading, columnWidth(column) - cellMargins));
  }
  horizontalHeader()->setFixedHeight(std::min(height, 2 * metrics.lineSpacing()) + 10);
  sizing_ = false;
  EtireDerniere();
}

void TDBGrid::ReleveLargeurs() {
  for (int column = 0; column < Column::GridCount; ++column) {
    const auto i = static_cast<std::size_t>(column);
    if (!sizedByUser_.at(i)) continue;
    state_.LargeurColonnes.at(i) = static_cast<float>(columnWidth(column)) * twipsPerPixel;
  }
}

// The free text takes what the window has left over.
void TDBGrid::EtireDerniere() {
  constexpr int last = Column::GridCount - 1;
  if (sizedByUser_.at(last)) return;
  const int left = viewport()->width() - columnViewportPosition(last) - horizontalOffset();
  const int own = std::max(static_cast<int>(state_.LargeurColonnes.at(last) / twipsPerPixel),
                           LargeurVoulue(last));
  sizing_ = true;
  setColumnWidth(last, std::max(left, own));
  sizing_ = false;
}

void TDBGrid::SuitDocument(Changes changes) {
  if (changes.Touche(Aspect::Rows)) {
    OublieChoix();
    following_ = true;
    model_->Recharge();
    following_ = false;
    SuitPosition();
  } else if (changes.Touche(Aspect::Values)) {
    model_->RafraichitValeurs();
  }
  if (changes.Touche(Aspect::Position)) SuitPosition();
}

void TDBGrid::SuitPosition() {
  if (following_ || !state_.document.Data1.EstLie()) return;
  const auto row = static_cast<int>(state_.document.Data1.recordset().AbsolutePosition());
  if (row < 0 || row >= model_->rowCount() || row == currentIndex().row()) return;
  following_ = true;
  executeDelayedItemsLayout();  // it scrolls to rows that just came, too
  // Whatever keys brought Data1 here: one cell is chosen, and nothing besides.
  selectionModel()->setCurrentIndex(model_->index(row, column_),
                                    QItemSelectionModel::ClearAndSelect);
  following_ = false;
}

void TDBGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid()) column_ = current.column();
  if (current.row() != previous.row()) {
    for (const int row : {previous.row(), current.row()}) {  // the tint of the current row
      if (row < 0) continue;
      viewport()->update(0, rowViewportPosition(row), viewport()->width(), rowHeight(row));
    }
  }
  if (following_ || !current.isValid() || current.row() == previous.row()) return;
  following_ = true;
  ExecuteCommande(state_, io_, {}, [&] {
    state_.document.Data1.recordset().SetAbsolutePosition(current.row());
    state_.document.Data1.SignalePosition();
  });
  following_ = false;
}

void TDBGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  EtireDerniere();
}

void TDBGrid::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange) {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
  }
  if (event->type() == QEvent::PaletteChange) ChangeFond(background_);
}

}  // namespace talpena
