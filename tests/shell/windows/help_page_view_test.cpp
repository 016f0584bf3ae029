// The page of the guide on show: what its text document makes of the pages that ship.
#include "shell/windows/help_page_view.h"

#include <gtest/gtest.h>

#include <QAbstractTextDocumentLayout>
#include <QFile>
#include <QTextBlock>
#include <string>
#include <utility>

namespace talpena {
namespace {

using namespace Qt::StringLiterals;

HelpBook Guide(const QString& language, const QString& file) {
  QFile bytes(QString(TALPENA_RUNTIME_DIR) + u'/' + file);
  EXPECT_TRUE(bytes.open(QIODevice::ReadOnly)) << file.toStdString();
  return HelpBook::Ouvre(bytes.readAll(), language).value_or(HelpBook());
}

/// The first paragraph of a page that has text and no line on show.
QString Perdu(const QTextDocument& page) {
  page.documentLayout()->documentSize();  // laid out to its end
  for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
    if (block.text().trimmed().isEmpty()) continue;
    if (block.layout()->lineCount() == 0 || block.layout()->boundingRect().height() < 5) {
      return block.text();
    }
  }
  return {};
}

// Long pages are laid out bit by bit; pictures and other widths come in between.
TEST(HelpPageView, ShowsEveryParagraphOfTheGuide) {
  for (const auto& [language, file] :
       {std::pair{u"fr"_s, u"TALPENAF.HLP"_s}, std::pair{u"en"_s, u"TALPENAE.HLP"_s}}) {
    const HelpBook book = Guide(language, file);
    HelpPageView view;
    view.ChangeGuide(&book);
    view.show();
    for (const HelpChapter& chapter : book.Chapitres()) {
      for (const int width : {500, 760, 1100}) {
        SCOPED_TRACE((language + u'/' + chapter.page).toStdString() + ' ' + std::to_string(width));
        view.resize(width, 700);
        view.Montre(chapter.page);
        EXPECT_EQ(Perdu(*view.document()).toStdString(), "");
      }
    }
  }
}

}  // namespace
}  // namespace talpena
