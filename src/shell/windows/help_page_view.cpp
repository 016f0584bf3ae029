#include "shell/windows/help_page_view.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>
#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

const auto scheme = u"help:/"_s;
constexpr int pageMargin = 20, headingGap = 10;
constexpr int zoomLimit = 12;

struct ColourName {
  const char* name;
  QPalette::ColorRole role;
};
// clang-format off
constexpr std::array colourNames = {
    ColourName{"window", QPalette::Window},
    ColourName{"base", QPalette::Base},
    ColourName{"alternate-base", QPalette::AlternateBase},
    ColourName{"text", QPalette::Text},
    ColourName{"placeholder-text", QPalette::PlaceholderText},
    ColourName{"mid", QPalette::Mid},
    ColourName{"link", QPalette::Link},
    ColourName{"highlight", QPalette::Highlight},
};
// clang-format on

QPalette PaletteDePapier() {
  QPalette paper(QColor(0xF0, 0xF0, 0xF0));
  paper.setColor(QPalette::AlternateBase, QColor(0xF4, 0xF4, 0xF4));
  return paper;
}

/// A style sheet with the colours of a palette in place of their names, palette(link).
QString AvecCouleurs(const QByteArray& style, const QPalette& palette) {
  QString text = QString::fromUtf8(style);
  for (const ColourName& colour : colourNames) {
    text.replace(u"palette(%1)"_s.arg(QLatin1String(colour.name)),
                 palette.color(colour.role).name());
  }
  return text;
}

/// A path in the guide: "help:/fr/table.html#find" is "fr/table.html".
QString Chemin(const QUrl& url) { return url.path().mid(1); }

}  // namespace

HelpPageView::HelpPageView(QWidget* parent) : QTextBrowser(parent) {
  setOpenExternalLinks(false);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);  // pictures keep their width from page to page
  document()->setDocumentMargin(pageMargin);
  connect(this, &QTextBrowser::sourceChanged, this, [this] {
    RemetImages();
    VaAuTitre();
    place_ = -1;
    Marque();
  });
}

void HelpPageView::ChangeGuide(const HelpBook* book) {
  book_ = book;
  document()->clear();
  if (book_ == nullptr || source().isEmpty()) return;
  const QUrl before = source();
  clearHistory();
  Montre(Cible());
  if (source() == before) reload();
}

void HelpPageView::Montre(const QString& target) {
  if (book_ == nullptr) return;
  const QString page = target.isEmpty() ? u"index.html"_s : target;
  setSource(QUrl(scheme + book_->Dossier() + u'/' + page));
}

QString HelpPageView::Cible() const {
  const QString page = source().path().section(u'/', -1);
  return source().hasFragment() ? page + u'#' + source().fragment() : page;
}

void HelpPageView::Recharge() {
  if (book_ == nullptr || source().isEmpty()) return;
  const int top = verticalScrollBar()->value();
  const int place = place_;
  reload();
  place_ = std::min(place, NombreDePlaces() - 1);
  Marque();
  verticalScrollBar()->setValue(top);
}

QVariant HelpPageView::loadResource(int type, const QUrl& name) {
  if (book_ == nullptr) return {};
  const QUrl url = name.isRelative() ? source().resolved(name) : name;
  const QByteArray bytes = book_->Fichier(Chemin(url));
  if (type == QTextDocument::StyleSheetResource) return AvecCouleurs(bytes, palette());
  if (type != QTextDocument::ImageResource) return bytes;
  const QImage image = QImage::fromData(bytes);
  const qreal ratio = devicePixelRatioF();
  imageWidth_ = LargeurImages();
  if (image.width() <= imageWidth_) return image;
  QImage fitted = image.scaledToWidth(qRound(imageWidth_ * ratio), Qt::SmoothTransformation);
  fitted.setDevicePixelRatio(ratio);
  return fitted;
}

int HelpPageView::LargeurImages() const {
  return std::max(200, viewport()->width() - 2 * pageMargin);
}

/// Puts the pictures of the page in once more, for another width.
void HelpPageView::RemetImages() {
  // A change above the place up to which a long page has been laid out would have all that is below
  // it taken for done: it had no lines. Held by HelpPageView.ShowsEveryParagraphOfTheGuide.
  document()->documentLayout()->documentSize();
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    for (auto it = block.begin(); !it.atEnd(); ++it) {
      const QTextImageFormat format = it.fragment().charFormat().toImageFormat();
      if (!format.isValid()) continue;
      const QUrl url = document()->baseUrl().resolved(QUrl(format.name()));
      document()->addResource(QTextDocument::ImageResource, url,
                              loadResource(QTextDocument::ImageResource, url));
      document()->markContentsDirty(block.position(), block.length());
    }
  }
}

/// The heading that the address names, a little below the upper edge.
void HelpPageView::VaAuTitre() {
  if (!source().hasFragment()) return;
  scrollToAnchor(source().fragment());
  verticalScrollBar()->setValue(verticalScrollBar()->value() - headingGap);
}

void HelpPageView::ChangeMots(const QString& words) {
  words_ = words;
  place_ = -1;
  Marque();
}

void HelpPageView::Marque() {
  places_ = TrouveMots(toPlainText(), words_);
  QList<QTextEdit::ExtraSelection> marks;
  QColor soft = palette().color(QPalette::Highlight);
  soft.setAlphaF(0.3F);
  for (int i = 0; i < NombreDePlaces(); ++i) {
    const auto [start, length] = places_[static_cast<std::size_t>(i)];
    QTextEdit::ExtraSelection mark;
    mark.cursor = QTextCursor(document());
    mark.cursor.setPosition(start);
    mark.cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    mark.format.setBackground(i == place_ ? palette().color(QPalette::Highlight) : soft);
    if (i == place_) mark.format.setForeground(palette().color(QPalette::HighlightedText));
    marks << mark;
  }
  setExtraSelections(marks);
  Q_EMIT PlacesChangees();
}

bool HelpPageView::Avance(int step) {
  const int count = NombreDePlaces();
  if (count == 0) return false;
  place_ = place_ < 0 && step < 0 ? count - 1 : (place_ + step + count) % count;
  Marque();
  QTextCursor cursor(document());
  cursor.setPosition(places_[static_cast<std::size_t>(place_)].first);
  setTextCursor(cursor);
  ensureCursorVisible();
  return true;
}

void HelpPageView::AvanceDepuisLaVue() {
  const int top = cursorForPosition({pageMargin, 0}).position();
  const auto first = std::find_if(places_.begin(), places_.end(),
                                  [top](const auto& place) { return place.first >= top; });
  place_ = first == places_.end() ? -1 : static_cast<int>(first - places_.begin()) - 1;
  Avance(+1);
}

void HelpPageView::ChangeZoom(int steps) {
  const int wanted = std::clamp(steps, -zoomLimit / 3, zoomLimit);
  zoomIn(wanted - zoom_);
  zoom_ = wanted;
}

std::unique_ptr<QTextDocument> HelpPageView::PagePourImpression() const {
  auto page = std::make_unique<QTextDocument>();
  if (book_ == nullptr) return page;
  const QUrl here = source();
  page->setMetaInformation(QTextDocument::DocumentUrl, here.toString());
  for (const QString& file : book_->Fichiers()) {
    const QUrl url(scheme + file);
    if (file.endsWith(".css"_L1)) {
      page->addResource(QTextDocument::StyleSheetResource, url,
                        AvecCouleurs(book_->Fichier(file), PaletteDePapier()));
    } else if (file.endsWith(".png"_L1)) {
      page->addResource(QTextDocument::ImageResource, url, QImage::fromData(book_->Fichier(file)));
    }
  }
  page->setBaseUrl(here);
  page->setHtml(QString::fromUtf8(book_->Fichier(Chemin(here))));
  return page;
}

void HelpPageView::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) Recharge();
}

void HelpPageView::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  if (LargeurImages() != imageWidth_) RemetImages();
}

// Only now is it known how long the lines are.
void HelpPageView::showEvent(QShowEvent* event) {
  QTextBrowser::showEvent(event);
  VaAuTitre();
}

void HelpPageView::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) return QTextBrowser::wheelEvent(event);
  ChangeZoom(zoom_ + (event->angleDelta().y() > 0 ? 1 : -1));
  event->accept();
}

}  // namespace talpena
