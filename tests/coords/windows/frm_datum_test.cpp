#include "coords/windows/frm_datum.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "coords/test_catalogue.h"
#include "platform/qt/decimals.h"

namespace talpena {
namespace {

class FrmDatum : public testing::Test {
 protected:
  FrmDatum() {
    state_.Catalogue = test::CatalogueDesSources();
    form_ = std::make_unique<frmDatum>(state_);
    list_ = form_->findChild<QTreeWidget*>("ListView1");
    ok_ = form_->findChild<QPushButton*>("cmdDatum_0");
    cancel_ = form_->findChild<QPushButton*>("cmdDatum_1");
    form_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    list_->setFocus();
  }

  QString Code() const { return list_->currentItem()->text(0); }

  std::vector<QString> Colonne(int column) const {
    std::vector<QString> texts;
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
      texts.push_back(list_->topLevelItem(i)->text(column));
    }
    return texts;
  }

  void CliqueTitre(int column) {
    QHeaderView* header = list_->header();
    const QPoint middle(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
  }

  /// Whether a column stands in order, numbers as numbers and texts without regard to case.
  bool Triee(int column, bool descending) const {
    const auto texts = Colonne(column);
    for (std::size_t i = 1; i < texts.size(); ++i) {
      const QString& first = descending ? texts[i] : texts[i - 1];
      const QString& second = descending ? texts[i - 1] : texts[i];
      const bool ordered = column >= 4 ? first.toDouble() <= second.toDouble()
                                       : first.compare(second, Qt::CaseInsensitive) <= 0;
      if (!ordered) return false;
    }
    return !texts.empty();
  }

  CoordState state_;
  std::unique_ptr<frmDatum> form_;
  QTreeWidget* list_;
  QPushButton* ok_;
  QPushButton* cancel_;
};

TEST_F(FrmDatum, HasTheSevenColumns) {
  const char* const headings[] = {"Code", "Name", "Usage", "Ellipsoid", "dx", "dy", "dz"};
  const char* const keys[] = {"CODE", "NOM", "USAGE", "ELLI", "DX", "DY", "DZ"};
  const int twips[] = {780, 2800, 3000, 1840, 500, 500, 500};
  ASSERT_EQ(list_->columnCount(), 7);
  for (int i = 0; i < 7; ++i) {
    EXPECT_EQ(list_->headerItem()->text(i), headings[i]);
    EXPECT_EQ(list_->headerItem()->data(i, Qt::UserRole), keys[i]);
    EXPECT_GE(list_->columnWidth(i), twips[i] / 15) << headings[i];
    EXPECT_EQ(ColonnesDatums[static_cast<std::size_t>(i)].widthTwips, twips[i]);
  }
  EXPECT_EQ(list_->columnWidth(1), 186);
  EXPECT_EQ(list_->columnWidth(2), 200);
  EXPECT_EQ(list_->columnWidth(3), 122);
}

TEST_F(FrmDatum, TitleAndHeadingsFollowTheLanguage) {
  EXPECT_EQ(form_->windowTitle(), "Datum");
  const std::pair<int, std::array<const char*, 5>> cases[] = {
      {0, {"Datum", "Code", "Nom", "Utilisation", "Ellipsoïde"}},
      {3000, {"Kartendatum", "Code", "Name", "Verwendung", "Ellipsoid"}},
      {4000, {"Datum", "Codice", "Nome", "Impiego", "Ellissoide"}},
      {5000, {"Kaartdatum", "Code", "Naam", "Gebruik", "Ellipsoïde"}}};
  for (const auto& [langue, texts] : cases) {
    SCOPED_TRACE(langue);
    state_.Langue = static_cast<std::int16_t>(langue);
    form_->AppliqueLangue();
    EXPECT_EQ(form_->windowTitle(), texts[0]) << "the geodetic word, where Datum means a date";
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(list_->headerItem()->text(i), texts[static_cast<std::size_t>(i) + 1]);
    }
  }
}

TEST_F(FrmDatum, ShowsEveryDatumInTheOrderOfTheCatalogue) {
  const auto rows = RempliListesDatums(state_.Catalogue);
  ASSERT_EQ(list_->topLevelItemCount(), 250);
  for (int i = 0; i < 250; ++i) {
    for (int k = 0; k < 7; ++k) {
      EXPECT_EQ(list_->topLevelItem(i)->text(k).toStdString(),
                rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)]);
    }
  }
}

TEST_F(FrmDatum, CutsNoNumberAndNoCode) {
  for (const int column : {0, 4, 5, 6}) {
    for (int i = 0; i < list_->topLevelItemCount(); ++i) {
      const QString text = list_->topLevelItem(i)->text(column);
      EXPECT_LE(list_->fontMetrics().horizontalAdvance(text), list_->columnWidth(column)) << column;
    }
  }
}

TEST_F(FrmDatum, TheShiftsHaveRoomToStandPointUnderPoint) {
  for (const int column : {4, 5, 6}) {
    int decimals = 0;
    for (const QString& text : Colonne(column)) {
      decimals = std::max(decimals, NombreDeDecimales(text));
    }
    for (const QString& text : Colonne(column)) {
      QStyleOptionViewItem cell;
      cell.widget = list_;
      cell.fontMetrics = list_->fontMetrics();
      cell.rect = QRect(0, 0, list_->columnWidth(column), 20);
      cell.text = text;
      AligneDecimales(cell, decimals);
      EXPECT_EQ(cell.text, AvecPlaceDesDecimales(text, decimals));
    }
  }
}

TEST_F(FrmDatum, GivesTheSelectedCodeOnOk) {
  EXPECT_TRUE(form_->Selectionne("EUR-M"));
  QTest::mouseClick(ok_, Qt::LeftButton);
  EXPECT_EQ(form_->Resultat(), "EUR-M");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(form_->result(), QDialog::Accepted);
}

TEST_F(FrmDatum, GivesNothingOnCancel) {
  form_->Selectionne("EUR-M");
  QTest::mouseClick(cancel_, Qt::LeftButton);
  EXPECT_EQ(form_->Resultat(), "");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(form_->result(), QDialog::Rejected);
}

TEST_F(FrmDatum, ForgetsAnEarlierChoiceOnCancel) {
  form_->Selectionne("NTF");
  QTest::mouseClick(ok_, Qt::LeftButton);
  EXPECT_EQ(form_->Resultat(), "NTF");
  form_->show();
  QTest::mouseClick(cancel_, Qt::LeftButton);
  EXPECT_EQ(form_->Resultat(), "");
}

TEST_F(FrmDatum, TakesClosingForCancel) {
  form_->Selectionne("EUR-M");
  form_->close();
  EXPECT_EQ(form_->Resultat(), "");
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(form_->result(), QDialog::Rejected);
}

TEST_F(FrmDatum, SelectsByCodeAndBringsItIntoView) {
  ASSERT_TRUE(form_->Selectionne("  ZAN  "));
  EXPECT_EQ(Code(), "ZAN");
  EXPECT_TRUE(list_->currentItem()->isSelected());
  const QRect place = list_->visualItemRect(list_->currentItem());
  EXPECT_TRUE(list_->viewport()->rect().contains(place));
  EXPECT_FALSE(form_->Selectionne("NONE"));
  EXPECT_FALSE(form_->Selectionne(""));
  EXPECT_EQ(Code(), "ZAN");
}

TEST_F(FrmDatum, SortsByAClickAndReversesByASecond) {
  form_->Selectionne("EUR-M");
  for (int column = 0; column < 7; ++column) {
    SCOPED_TRACE(column);
    CliqueTitre(column);
    EXPECT_TRUE(Triee(column, false));
    EXPECT_EQ(list_->header()->sortIndicatorOrder(), Qt::AscendingOrder);
    CliqueTitre(column);
    EXPECT_TRUE(Triee(column, true));
    EXPECT_FALSE(Triee(column, false));
    EXPECT_EQ(list_->header()->sortIndicatorOrder(), Qt::DescendingOrder);
    CliqueTitre(column);
    EXPECT_TRUE(Triee(column, false));
    EXPECT_EQ(list_->header()->sortIndicatorSection(), column);
    EXPECT_EQ(Code(), "EUR-M") << "the selection goes with its row";
  }
}

TEST_F(FrmDatum, StartsAscendingOnAnotherColumn) {
  CliqueTitre(0);
  CliqueTitre(0);
  CliqueTitre(4);
  EXPECT_TRUE(Triee(4, false));
  CliqueTitre(0);
  EXPECT_TRUE(Triee(0, false));
}

TEST_F(FrmDatum, SortsByTheKeyboard) {
  for (int column = 0; column < 7; ++column) {
    SCOPED_TRACE(column);
    const auto key = static_cast<Qt::Key>(Qt::Key_1 + column);
    QTest::keyClick(list_, key, Qt::ControlModifier);
    EXPECT_TRUE(Triee(column, false));
    QTest::keyClick(list_, key, Qt::ControlModifier);
    EXPECT_TRUE(Triee(column, true));
  }
}

TEST_F(FrmDatum, JumpsToATypedCode) {
  QTest::keyClicks(list_, "eur-t");
  EXPECT_EQ(Code(), "EUR-T");
}

TEST_F(FrmDatum, JumpsToATypedCodeAfterAClickInAnotherColumn) {
  QTreeWidgetItem* first = list_->topLevelItem(0);
  const QRect cell = list_->visualRect(list_->model()->index(0, 2));
  QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, cell.center());
  EXPECT_EQ(list_->currentItem(), first);
  QTest::keyClicks(list_, "wgs84");
  EXPECT_EQ(Code(), "WGS84");
}

TEST_F(FrmDatum, TakesEnterForOkAndEscapeForCancel) {
  form_->Selectionne("BEL72");
  QTest::keyClick(list_, Qt::Key_Return);
  EXPECT_EQ(form_->Resultat(), "BEL72");
  EXPECT_FALSE(form_->isVisible());
  form_->show();
  QTest::keyClick(list_, Qt::Key_Escape);
  EXPECT_EQ(form_->Resultat(), "");
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmDatum, TakesADoubleClickForOk) {
  form_->Selectionne("MER");
  const QPoint place = list_->visualItemRect(list_->currentItem()).center();
  QTest::mouseClick(list_->viewport(), Qt::LeftButton, {}, place);
  QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, place);
  EXPECT_EQ(form_->Resultat(), "MER");
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(FrmDatum, FillsTheWindowAboveTheButtons) {
  for (const QSize size : {QSize(900, 700), QSize(500, 300)}) {
    form_->resize(size);
    QCoreApplication::processEvents();
    const QRect list = list_->geometry();
    const QRect button = ok_->parentWidget()->geometry();
    EXPECT_LT(list.bottom(), button.top());
    EXPECT_LT(button.top() - list.bottom(), 30);
    EXPECT_LT(form_->height() - button.bottom(), 30);
    EXPECT_GT(list.width(), form_->width() - 50);
    EXPECT_LT(list.top(), 30);
  }
}

TEST_F(FrmDatum, SpeaksTheCurrentLanguage) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    state_.Langue = static_cast<std::int16_t>(langue);
    form_->AppliqueLangue();
    EXPECT_EQ(ok_->accessibleName().toStdString(), Texte(state_.Langue, MsgId::Ok));
    EXPECT_EQ(cancel_->text().remove('&').toStdString(), Texte(state_.Langue, MsgId::Annuler));
  }
}

TEST_F(FrmDatum, NamesItsControlsForScreenReaders) {
  EXPECT_EQ(form_->objectName(), "frmDatum");
  for (const QWidget* widget : std::initializer_list<QWidget*>{list_, ok_, cancel_}) {
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
  }
  EXPECT_TRUE(form_->isModal());
}

TEST(FrmDatumEmpty, ActsAsCancelWithoutADatum) {
  const CoordState state;
  frmDatum form(state);
  form.show();
  EXPECT_FALSE(form.Selectionne("EUR-M"));
  QTest::mouseClick(form.findChild<QPushButton*>("cmdDatum_0"), Qt::LeftButton);
  EXPECT_EQ(form.Resultat(), "");
  EXPECT_FALSE(form.isVisible());
}

}  // namespace
}  // namespace talpena
