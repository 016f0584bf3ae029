#include "shell/windows/help_pages.h"

#include <QXmlStreamReader>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace talpena {
namespace {

constexpr int contextLength = 100, contextBefore = 20;  // characters

/// Elements of which each is a line of its own.
bool EstBloc(QStringView element) {
  static constexpr QStringView blocks[] = {u"p",  u"h1", u"h2", u"h3", u"li", u"td",
                                           u"th", u"tr", u"dt", u"dd", u"div"};
  return std::find(std::begin(blocks), std::end(blocks), element) != std::end(blocks);
}

/// Reads one page into the sections of its chapter.
class PageReader {
 public:
  PageReader(const QString& page, const QByteArray& html) : xml_(html) {
    chapter_.page = page;
    chapter_.sections.emplace_back();
  }
  HelpChapter Lit() {
    while (!xml_.atEnd()) {
      const auto token = xml_.readNext();
      if (token == QXmlStreamReader::StartElement) Commence();
      if (token == QXmlStreamReader::EndElement) Finit();
      if (token == QXmlStreamReader::Characters && inBody_) Prend(xml_.text());
    }
    for (HelpSection& section : chapter_.sections) section.text = section.text.trimmed();
    chapter_.sections.front().title = chapter_.title;
    return std::move(chapter_);
  }

 private:
  HelpSection& Section() { return chapter_.sections.back(); }

  void Commence() {
    const auto element = xml_.name();
    if (element == u"body") inBody_ = true;
    if (element == u"h1") heading_ = &chapter_.title;
    if (element != u"h2") return;
    chapter_.sections.push_back({xml_.attributes().value("id"_L1).toString(), {}, {}});
    heading_ = &Section().title;
  }
  void Finit() {
    const auto element = xml_.name();
    if (element == u"h1" || element == u"h2") heading_ = nullptr;
    if (EstBloc(element) && heading_ == nullptr && !Section().text.endsWith(u'\n')) {
      Section().text += u'\n';
    }
  }
  /// Line ends and indents of the source are blanks.
  void Prend(QStringView characters) {
    QString& text = heading_ != nullptr ? *heading_ : Section().text;
    for (const QChar c : characters) {
      const bool blank = c == u' ' || c == u'\n' || c == u'\r' || c == u'\t';
      if (!blank) {
        text += c;
      } else if (!text.isEmpty() && !text.endsWith(u' ') && !text.endsWith(u'\n')) {
        text += u' ';
      }
    }
  }

  QXmlStreamReader xml_;
  HelpChapter chapter_;
  QString* heading_ = nullptr;  ///< that the characters belong to
  bool inBody_ = false;
};

/// Pages of the same folder that a page leads to, each once, in order.
QStringList PagesLiees(const QByteArray& html) {
  QStringList pages;
  QXmlStreamReader xml(html);
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement || xml.name() != u"a") continue;
    const QString page = xml.attributes().value("href"_L1).toString().section(u'#', 0, 0);
    if (!page.isEmpty() && !pages.contains(page)) pages << page;
  }
  return pages;
}

std::vector<QString> MotsPlies(const QString& words) {
  std::vector<QString> folded;
  for (const QString& word : words.simplified().split(u' ', Qt::SkipEmptyParts)) {
    if (QString text = Plie(word).text; !text.isEmpty()) folded.push_back(std::move(text));
  }
  return folded;
}

bool AToutMot(const QString& folded, const std::vector<QString>& words) {
  return std::all_of(words.begin(), words.end(),
                     [&](const QString& word) { return folded.contains(word); });
}

/// What stands around the first word: from the start of its line or a little before it, and cut
/// where words end.
QString Contexte(const QString& text, const QString& words) {
  const auto places = TrouveMots(text, words);
  const qsizetype at = places.empty() ? 0 : places.front().first;
  const qsizetype line = at == 0 ? 0 : text.lastIndexOf(u'\n', at - 1) + 1;
  qsizetype start = line;
  if (at - line > contextBefore) {
    const qsizetype blank = text.indexOf(u' ', at - contextBefore);
    start = blank >= 0 && blank < at ? blank + 1 : at;
  }
  QString context = text.mid(start, contextLength);
  const bool cut = start + context.size() < text.size();
  if (cut && context.contains(u' ')) context.truncate(context.lastIndexOf(u' '));
  context.replace(u'\n', u" · "_s);
  return (start > line ? u"… "_s : QString()) + context.trimmed() + (cut ? u" …"_s : QString());
}

/// Of a chapter that begins with a heading: what it deals with.
QString Sommaire(const HelpChapter& chapter) {
  QStringList titles;
  for (const HelpSection& section : chapter.sections) {
    if (!section.anchor.isEmpty()) titles << section.title;
  }
  const QString all = titles.join(u" · "_s);
  return all.size() <= contextLength ? all
                                     : all.left(contextLength).section(u" · "_s, 0, -2) + u" …"_s;
}

HelpHit EnTrouvaille(const HelpChapter& chapter, const HelpSection& section, const QString& words) {
  QString context = Contexte(section.text, words);
  if (section.anchor.isEmpty()) {
    return {chapter.page, chapter.title, context.isEmpty() ? Sommaire(chapter) : context};
  }
  return {chapter.page + u'#' + section.anchor, section.title, chapter.title + u" — "_s + context};
}

}  // namespace

FoldedText Plie(const QString& text) {
  FoldedText folded;
  const auto ajoute = [&folded](QChar c, qsizetype at) {
    folded.text += c;
    folded.origin.push_back(static_cast<int>(at));
  };
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] < u'\x80') {
      ajoute(text[i].toLower(), i);
      continue;
    }
    QString parts = QString(text[i]).normalized(QString::NormalizationForm_KD).toCaseFolded();
    parts.replace(u'œ', u"oe"_s).replace(u'æ', u"ae"_s).replace(u'ß', u"ss"_s);
    for (const QChar c : parts.replace(u'’', u'\'')) {
      if (!c.isMark()) ajoute(c, i);
    }
  }
  folded.origin.push_back(static_cast<int>(text.size()));
  return folded;
}

std::vector<std::pair<int, int>> TrouveMots(const QString& text, const QString& words) {
  const FoldedText folded = Plie(text);
  std::vector<std::pair<int, int>> places;
  for (const QString& word : MotsPlies(words)) {
    for (qsizetype at = 0; (at = folded.text.indexOf(word, at)) >= 0; at += word.size()) {
      const int start = folded.origin[static_cast<std::size_t>(at)];
      const int end = folded.origin[static_cast<std::size_t>(at + word.size() - 1)] + 1;
      places.emplace_back(start, end - start);
    }
  }
  std::sort(places.begin(), places.end());
  const auto over = [](const auto& a, const auto& b) { return b.first < a.first + a.second; };
  places.erase(std::unique(places.begin(), places.end(), over), places.end());
  return places;
}

std::optional<HelpBook> HelpBook::Ouvre(const QByteArray& bytes, const QString& folder) {
  auto files = Deballe(bytes);
  if (!files) return std::nullopt;
  HelpBook book;
  book.files_ = std::move(*files);
  book.folder_ = folder;
  const QString contents = u"index.html"_s;
  for (const QString& page :
       QStringList{contents} + PagesLiees(book.Fichier(folder + u'/' + contents))) {
    const QByteArray html = book.Fichier(folder + u'/' + page);
    if (html.isEmpty()) return std::nullopt;
    book.chapters_.push_back(PageReader(page, html).Lit());
  }
  return book;
}

std::vector<HelpHit> HelpBook::Cherche(const QString& words) const {
  const std::vector<QString> wanted = MotsPlies(words);
  std::vector<HelpHit> inHeadings, inTexts;
  if (wanted.empty()) return {};
  for (const HelpChapter& chapter : chapters_) {
    for (const HelpSection& section : chapter.sections) {
      if (AToutMot(Plie(section.title).text, wanted)) {
        inHeadings.push_back(EnTrouvaille(chapter, section, words));
      } else if (AToutMot(Plie(section.title + u'\n' + section.text).text, wanted)) {
        inTexts.push_back(EnTrouvaille(chapter, section, words));
      }
    }
  }
  inHeadings.insert(inHeadings.end(), inTexts.begin(), inTexts.end());
  return inHeadings;
}

}  // namespace talpena
