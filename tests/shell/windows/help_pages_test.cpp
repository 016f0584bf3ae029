// The user guide as it ships: whole, the same in both languages, and found by its words.
#include "shell/windows/help_pages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <set>

#include "shell/windows/help_desk.h"

namespace talpena {
namespace {

using namespace Qt::StringLiterals;

struct Language {
  const char* folder;
  const char* file;
};
constexpr std::array languages = {Language{"fr", "TALPENAF.HLP"}, Language{"en", "TALPENAE.HLP"}};

QByteArray Octets(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

HelpBook Guide(const Language& language) {
  const QString path = QString(TALPENA_RUNTIME_DIR) + u'/' + QLatin1String(language.file);
  auto book = HelpBook::Ouvre(Octets(path), QLatin1String(language.folder));
  EXPECT_TRUE(book.has_value()) << path.toStdString();
  return book.value_or(HelpBook());
}

/// What the elements of a page say, as a list of (element, attribute, value).
struct Mention {
  QString page, element, attribute, value;
};

std::vector<Mention> Mentions(const HelpBook& book) {
  std::vector<Mention> all;
  for (const HelpChapter& chapter : book.Chapitres()) {
    QXmlStreamReader xml(book.Fichier(book.Dossier() + u'/' + chapter.page));
    while (!xml.atEnd()) {
      if (xml.readNext() != QXmlStreamReader::StartElement) continue;
      for (const auto& attribute : xml.attributes()) {
        all.push_back({chapter.page, xml.name().toString(), attribute.name().toString(),
                       attribute.value().toString()});
      }
    }
    EXPECT_FALSE(xml.hasError()) << chapter.page.toStdString() << ", line " << xml.lineNumber()
                                 << ": " << xml.errorString().toStdString();
  }
  return all;
}

/// Every place that a link may name: pages, and pages with a section.
std::set<QString> Places(const HelpBook& book) {
  std::set<QString> places;
  for (const HelpChapter& chapter : book.Chapitres()) places.insert(chapter.page);
  for (const Mention& m : Mentions(book)) {
    if (m.attribute == u"id") places.insert(m.page + u'#' + m.value);
  }
  return places;
}

/// The skeleton of a page: its elements without what is read, pictures with their file's name.
QStringList Squelette(const HelpBook& book, const QString& page) {
  QStringList bones;
  QXmlStreamReader xml(book.Fichier(book.Dossier() + u'/' + page));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == u"b" || xml.name() == u"i" || xml.name() == u"code") continue;
    const QString picture = xml.attributes().value("src"_L1).toString().section(u'/', -1);
    QString bone = xml.name().toString();
    for (const char* attribute : {"id", "class", "href"}) {
      bone += u' ' + xml.attributes().value(QLatin1String(attribute)).toString();
    }
    bones << bone + u' ' + picture;
  }
  return bones;
}

TEST(HelpPages, AreWellFormedInBothLanguages) {
  for (const Language& language : languages) {
    SCOPED_TRACE(language.folder);
    const HelpBook book = Guide(language);
    EXPECT_EQ(book.Chapitres().size(), 20U);
    for (const HelpChapter& chapter : book.Chapitres()) {
      SCOPED_TRACE(chapter.page.toStdString());
      EXPECT_FALSE(chapter.title.isEmpty());
      EXPECT_EQ(chapter.sections.size() > 1, chapter.page != u"index.html");
      for (const HelpSection& section : chapter.sections) EXPECT_FALSE(section.title.isEmpty());
    }
    Mentions(book);
  }
}

TEST(HelpPages, HoldEveryFileOfTheirFolder) {
  for (const Language& language : languages) {
    const QDir folder(QString(TALPENA_SOURCE_DIR "/data/help/") + QLatin1String(language.folder));
    const HelpBook book = Guide(language);
    std::set<QString> chapters;
    for (const HelpChapter& chapter : book.Chapitres()) chapters.insert(chapter.page);
    for (const QString& name : folder.entryList({u"*.html"_s})) {
      EXPECT_TRUE(chapters.contains(name)) << name.toStdString() << " is in no contents";
      EXPECT_EQ(book.Fichier(folder.dirName() + u'/' + name), Octets(folder.filePath(name)));
    }
  }
}

TEST(HelpPages, HaveTheSameStructureInBothLanguages) {
  const HelpBook french = Guide(languages[0]), english = Guide(languages[1]);
  ASSERT_EQ(french.Chapitres().size(), english.Chapitres().size());
  for (std::size_t i = 0; i < french.Chapitres().size(); ++i) {
    const HelpChapter &a = french.Chapitres()[i], &b = english.Chapitres()[i];
    SCOPED_TRACE(b.page.toStdString());
    EXPECT_EQ(a.page, b.page);
    ASSERT_EQ(a.sections.size(), b.sections.size());
    for (std::size_t k = 0; k < a.sections.size(); ++k) {
      EXPECT_EQ(a.sections[k].anchor, b.sections[k].anchor);
    }
    const QStringList left = Squelette(french, a.page), right = Squelette(english, b.page);
    ASSERT_EQ(left.size(), right.size());
    for (qsizetype k = 0; k < left.size(); ++k) EXPECT_EQ(left[k], right[k]) << k;
  }
}

// A paragraph that was copied and not translated is the same in both.
TEST(HelpPages, AreTranslated) {
  const HelpBook french = Guide(languages[0]), english = Guide(languages[1]);
  for (std::size_t i = 0; i < french.Chapitres().size(); ++i) {
    const auto &a = french.Chapitres()[i].sections, &b = english.Chapitres()[i].sections;
    for (std::size_t k = 0; k < std::min(a.size(), b.size()); ++k) {
      const QStringList english_lines = b[k].text.split(u'\n');
      for (const QString& line : a[k].text.split(u'\n')) {
        if (line.count(u' ') < 8) continue;  // names, examples
        EXPECT_FALSE(english_lines.contains(line)) << line.toStdString();
      }
      // A text in one language only leaves the other much shorter.
      const double ratio =
          static_cast<double>(a[k].text.size() + 40) / static_cast<double>(b[k].text.size() + 40);
      EXPECT_TRUE(ratio > 0.8 && ratio < 1.6) << b[k].title.toStdString() << ' ' << ratio;
    }
  }
}

TEST(HelpPages, LeadOnlyWhereThereIsSomething) {
  for (const Language& language : languages) {
    SCOPED_TRACE(language.folder);
    const HelpBook book = Guide(language);
    const std::set<QString> places = Places(book);
    const QString base = u"help:/"_s + book.Dossier() + u'/';
    int links = 0;
    for (const Mention& m : Mentions(book)) {
      if (m.attribute != u"href" && m.attribute != u"src") continue;
      SCOPED_TRACE((m.page + u' ' + m.value).toStdString());
      EXPECT_TRUE(QUrl(m.value).isRelative()) << "leads out of the guide";
      if (m.element == u"a") {
        ++links;
        const QString target = m.value.startsWith(u'#') ? m.page + m.value : m.value;
        EXPECT_TRUE(places.contains(target));
      } else {
        const QString path = QUrl(base + m.page).resolved(QUrl(m.value)).path().mid(1);
        EXPECT_FALSE(book.Fichier(path).isEmpty());
      }
    }
    EXPECT_GE(links, 40);
  }
}

TEST(HelpPages, ShowPicturesOfTheirOwnLanguage) {
  for (const Language& language : languages) {
    const HelpBook book = Guide(language);
    int pictures = 0;
    for (const Mention& m : Mentions(book)) {
      EXPECT_FALSE(m.attribute == u"alt" && m.value.isEmpty()) << m.page.toStdString();
      if (m.element != u"img" || m.attribute != u"src") continue;
      ++pictures;
      EXPECT_TRUE(m.value.startsWith(u"../pictures/%1/"_s.arg(book.Dossier())));
    }
    EXPECT_GE(pictures, 8);
    for (const QString& file : book.Fichiers()) {
      EXPECT_LT(book.Fichier(file).size(), 150 * 1024) << file.toStdString();
    }
  }
}

TEST(HelpPages, HaveNoColoursOfTheirOwn) {
  const QRegularExpression colour(u"#[0-9a-f]{3,6}\\b|rgb\\(|bgcolor|color=\"|style=\""_s);
  for (const Language& language : languages) {
    const HelpBook book = Guide(language);
    for (const QString& file : book.Fichiers()) {
      if (file.endsWith(u".png")) continue;
      QString text = QString::fromUtf8(book.Fichier(file));
      text.remove(QRegularExpression(u"href=\"[^\"]*\""_s));
      EXPECT_FALSE(colour.match(text).hasMatch()) << file.toStdString();
    }
  }
}

// Reading a page aloud, a mark after a blank begins a line of its own.
TEST(HelpPages, PutNoBreakBlanksBeforeFrenchMarks) {
  const HelpBook book = Guide(languages[0]);
  const QRegularExpression broken(u" [:;!?»]|« |[^\u00A0\\d][;!?](\\s|$)"_s);
  for (const HelpChapter& chapter : book.Chapitres()) {
    for (const HelpSection& section : chapter.sections) {
      QString text = section.title + u'\n' + section.text;
      text.remove(u"introuvable!"_s);  // the message as it stands in every language
      text.remove(u"Continuer?"_s);
      text.remove(u"Wrong file type!"_s);
      const auto match = broken.match(text);
      EXPECT_FALSE(match.hasMatch())
          << chapter.page.toStdString() << ": "
          << text.mid(std::max<qsizetype>(0, match.capturedStart() - 30), 60).toStdString();
    }
  }
}

TEST(HelpPages, HaveAPlaceForEveryWindow) {
  for (const Language& language : languages) {
    const std::set<QString> places = Places(Guide(language));
    for (const HelpTarget& target : CiblesAide()) {
      EXPECT_TRUE(places.contains(QString::fromStdString(std::string(target.target))))
          << target.window << " leads to " << target.target;
    }
  }
}

/// Names of the windows: classes of this program that are dialogs or windows of their own.
std::set<std::string> Fenetres() {
  const QRegularExpression form(
      u"^class (\\w+)(?: final)? : public (QDialog|QMainWindow|QWidget)\\b"_s,
      QRegularExpression::MultilineOption);
  std::set<std::string> names;
  QDirIterator files(TALPENA_SOURCE_DIR "/src", {u"*.h"_s}, QDir::Files,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    if (!path.contains(u"/windows/")) continue;
    auto found = form.globalMatch(QString::fromUtf8(Octets(path)));
    while (found.hasNext()) {
      const auto match = found.next();
      const QString name = match.captured(1);
      const bool window =
          match.captured(2) != u"QWidget" || name.startsWith(u"frm") || name == u"Start";
      if (window) names.insert(name.toStdString());
    }
  }
  return names;
}

TEST(HelpPages, KnowEveryWindowOfTheProgram) {
  const std::set<std::string> windows = Fenetres();
  EXPECT_GE(windows.size(), 8U);
  for (const std::string& window : windows) {
    const auto targets = CiblesAide();
    EXPECT_TRUE(std::any_of(targets.begin(), targets.end(),
                            [&](const HelpTarget& target) { return target.window == window; }))
        << window << " has no page";
  }
}

TEST(Plie, TakesCaseAccentsAndLigaturesAway) {
  EXPECT_EQ(Plie(u"Édition À CÔTÉ, cœur, Straße, l’eau"_s).text,
            u"edition a cote, coeur, strasse, l'eau");
  EXPECT_TRUE(Plie({}).text.isEmpty());
  EXPECT_EQ(Plie(u"e\u0301te\u0301"_s).text, u"ete");
}

TEST(Plie, RemembersWhereEachCharacterStood) {
  const FoldedText folded = Plie(u"cœ\u0301ur"_s);
  EXPECT_EQ(folded.text, u"coeur");
  EXPECT_EQ(folded.origin, (std::vector<int>{0, 1, 1, 3, 4, 5}));
}

TEST(TrouveMots, GivesPlacesInOrderAndNoneOverAnother) {
  using Places = std::vector<std::pair<int, int>>;
  EXPECT_EQ(TrouveMots(u"L'été d'un datum"_s, u"datum ETE"_s), (Places{{2, 3}, {11, 5}}));
  EXPECT_EQ(TrouveMots(u"aaaa"_s, u"aa"_s), (Places{{0, 2}, {2, 2}}));
  EXPECT_EQ(TrouveMots(u"datum"_s, u"dat atum"_s), (Places{{0, 3}}));
  EXPECT_EQ(TrouveMots(u"un cœur"_s, u"coeur"_s), (Places{{3, 4}}));
  EXPECT_TRUE(TrouveMots(u"abc"_s, u"  "_s).empty());
  EXPECT_TRUE(TrouveMots(u"abc"_s, {}).empty());
}

TEST(HelpSearch, FindsWordsWhateverTheirCaseAndAccents) {
  const HelpBook book = Guide(languages[0]);
  const auto plain = book.Cherche(u"annees charnieres"_s);
  ASSERT_FALSE(plain.empty());
  EXPECT_EQ(plain.front().target, u"periods.html#periods");
  EXPECT_EQ(plain.front().title, u"Les périodes");
  EXPECT_TRUE(plain.front().context.startsWith(u"Périodes et sélection — "));
  EXPECT_TRUE(plain.front().context.contains(u"années charnières"))
      << plain.front().context.toStdString();
  EXPECT_EQ(book.Cherche(u"ANNÉES CHARNIÈRES"_s).size(), plain.size());
}

TEST(HelpSearch, PutsHeadingsFirst) {
  const auto hits = Guide(languages[1]).Cherche(u"erase"_s);
  ASSERT_GT(hits.size(), 1U);
  EXPECT_EQ(hits.front().target, u"table.html#erase");
}

TEST(HelpSearch, WantsEveryWordInOneSection) {
  const HelpBook book = Guide(languages[1]);
  const auto hits = book.Cherche(u"mask slashes"_s);
  ASSERT_EQ(hits.size(), 1U);
  EXPECT_EQ(hits.front().target, u"record.html#date");
  EXPECT_TRUE(book.Cherche(u"mask zebra"_s).empty());
}

TEST(HelpSearch, TellsWhatAChapterDealsWith) {
  const auto hits = Guide(languages[1]).Cherche(u"preferences"_s);
  ASSERT_FALSE(hits.empty());
  EXPECT_EQ(hits.front().target, u"preferences.html");
  EXPECT_EQ(hits.front().title, u"Preferences and languages");
  EXPECT_TRUE(hits.front().context.startsWith(u"The window · Coordinates input mode · "));
}

TEST(HelpSearch, FindsNothingForBlanks) {
  const HelpBook book = Guide(languages[1]);
  EXPECT_TRUE(book.Cherche({}).empty());
  EXPECT_TRUE(book.Cherche(u" \t"_s).empty());
}

TEST(HelpSearch, ShowsWhatStandsAroundTheWord) {
  for (const HelpHit& hit : Guide(languages[1]).Cherche(u"datum"_s)) {
    const bool inTitle = Plie(hit.title).text.contains(u"datum");
    EXPECT_TRUE(inTitle || Plie(hit.context).text.contains(u"datum")) << hit.target.toStdString();
    EXPECT_LE(hit.context.size(), 150) << hit.context.toStdString();
    EXPECT_FALSE(hit.context.contains(u'\n'));
  }
}

TEST(HelpBook, RefusesWhatIsNoGuide) {
  const QByteArray whole = Emballe({{u"en/index.html"_s, "<html><body><h1>x</h1></body></html>"}});
  EXPECT_TRUE(HelpBook::Ouvre(whole, u"en"_s).has_value());
  EXPECT_FALSE(HelpBook::Ouvre(whole, u"fr"_s).has_value());
  EXPECT_FALSE(HelpBook::Ouvre({}, u"en"_s).has_value());
  const QByteArray leadsAstray =
      Emballe({{u"en/index.html"_s, "<html><body><a href='gone.html'>x</a></body></html>"}});
  EXPECT_FALSE(HelpBook::Ouvre(leadsAstray, u"en"_s).has_value());
}

}  // namespace
}  // namespace talpena
