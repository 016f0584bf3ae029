// Size, place, captions and accessibility of the record form.
#include "store/windows/edit_form.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QScrollArea>

#include "common/msg_id.h"
#include "common/string_table.h"
#include "fakes/dark_palette.h"
#include "fakes/dialog_driver.h"
#include "platform/qt/contrast.h"
#include "store/windows/edit_form_machine.h"
#include "store/windows/hint_label.h"

namespace talpena::test {
namespace {

TEST(EditForm, IsShorterWithoutFreeFields) {
  FormMachine with;
  FormMachine without({Rangee("mgr 31 U FR1664", "all/of/it")}, {});
  const int tall = with.Ouvre().height();
  without.Ouvre();
  EXPECT_LT(without.form->height(), tall);
  EXPECT_FALSE(without.Controle<QWidget>("Grid")->isVisible());
  EXPECT_FALSE(without.Controle<QWidget>("LabelGrid")->isVisible());
  EXPECT_EQ(without.Controle<QPlainTextEdit>("ChampLibre")->toPlainText(), "all/of/it");
  without.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_Return);
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre");
}

TEST(EditForm, GridAndRemarkTakeTheExtraHeight) {
  FormMachine m;
  EditForm& form = m.Ouvre();
  const auto height = [&m](const char* name) { return m.Controle<QWidget>(name)->height(); };
  const int grid = height("Grid"), remark = height("ChampLibre"), period = height("ChampPeriode");
  form.resize(form.width(), form.height() + 200);
  FormMachine::Traite();
  EXPECT_GT(height("Grid") + height("ChampLibre"), grid + remark + 190);
  EXPECT_EQ(height("ChampPeriode"), period);
}

TEST(EditForm, KeepsItsPlace) {
  FormMachine m;
  m.settings.values["TLP/EDITFORM/HEIGHT"] = "9000";
  m.settings.values["TLP/EDITFORM/TOP"] = "300";
  EditForm& form = m.Ouvre();
  EXPECT_EQ(form.height(), 600);
  EXPECT_EQ(form.y(), 20);
  form.resize(760, 640);
  form.move(30, 40);
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/HEIGHT"], "9600");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/TOP"], "600");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/WIDTH"], "11400");
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/LEFT"], "450");
}

TEST(EditForm, ASizeThatTheScreenCutIsNotKept) {
  FormMachine m;
  m.settings.values["TLP/EDITFORM/HEIGHT"] = "90000";
  m.settings.values["TLP/EDITFORM/WIDTH"] = "12000";
  EditForm& form = m.Ouvre();
  EXPECT_LT(form.height(), 6000) << "pixels of the screen";
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/HEIGHT"], "90000") << "a larger screen has room for it";
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/WIDTH"], "12000");
  m.Ouvre().resize(810, 500);
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/HEIGHT"], "7500") << "the user's own";
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/WIDTH"], "12150");
}

/// Letters that make the form larger than the screen.
class LargeLetters {
 public:
  LargeLetters() {
    QFont large = before_;
    large.setPointSize(28);
    QApplication::setFont(large);
  }
  LargeLetters(const LargeLetters&) = delete;
  LargeLetters& operator=(const LargeLetters&) = delete;
  ~LargeLetters() { QApplication::setFont(before_); }

 private:
  QFont before_ = QApplication::font();
};

TEST(EditForm, AFormThatNobodyResizedKeepsTheSizeThatItLikes) {
  const LargeLetters letters;
  FormMachine m;
  EditForm& form = m.Ouvre();
  const QSize wanted = form.sizeHint();
  EXPECT_LT(form.height(), wanted.height());
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/HEIGHT"], std::to_string(15 * wanted.height()));
  EXPECT_EQ(m.settings.values["TLP/EDITFORM/WIDTH"], std::to_string(15 * wanted.width()));
}

TEST(EditForm, ControlHasRoomForEveryNotation) {
  FormMachine m;
  m.Ouvre();
  const int systems = m.Controle<QComboBox>("cmbSystem")->count();
  for (int system = 0; system < systems; ++system) {
    SCOPED_TRACE(m.Controle<QComboBox>("cmbSystem")->itemText(system).toStdString());
    Q_EMIT m.Controle<QComboBox>("cmbSystem")->activated(system);
    FormMachine::Traite();
    for (const char* name : {"ValeurDMS", "ValeurUtmMetrique", "ValeurUtmAlpha", "ValeurLibre"}) {
      EXPECT_EQ(m.Controle<QLabel>(name)->toolTip().toStdString(), "") << name;
    }
  }
}

TEST(EditForm, TheValuesOfControlDoNotWidenIt) {
  FormMachine m;
  EditForm& form = m.Ouvre();
  const int width = form.width(), least = form.minimumSizeHint().width();
  const int control = m.Controle<QWidget>("FrameControle")->width();
  const std::string digits(30, '9');
  for (const char* longitude : {"1e300", digits.c_str()}) {
    SCOPED_TRACE(longitude);
    m.Entre("ChampLongitude", longitude);
    EXPECT_EQ(form.width(), width);
    EXPECT_LE(form.minimumSizeHint().width(), least);
    EXPECT_EQ(m.Controle<QWidget>("FrameControle")->width(), control);
  }
  const auto* value = m.Controle<QLabel>("ValeurDMS");
  EXPECT_EQ(value->toolTip(), value->text()) << "what is cut";
}

TEST(EditForm, APlaceOffTheScreenIsBroughtBack) {
  for (const char* top : {"900000", "-900000", "1E+300"}) {
    FormMachine m;
    m.settings.values["TLP/EDITFORM/HEIGHT"] = "900000";
    m.settings.values["TLP/EDITFORM/TOP"] = top;
    m.settings.values["TLP/EDITFORM/LEFT"] = "900000";
    const EditForm& form = m.Ouvre();
    const QRect screen = form.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(form.pos())) << top;
    EXPECT_LE(form.height(), screen.height()) << top;
    EXPECT_LE(form.x() + form.width(), screen.right() + 1) << top;
  }
}

TEST(EditForm, FollowsTheLanguageAndKeepsWhatWasTyped) {
  FormMachine m;
  m.Ouvre();
  m.PlaceFocus("ChampCh1");
  FormMachine::Tape("42");
  m.PlaceFocus("EditBox_2");
  FormMachine::Tape("FS12");
  m.state.Langue = 3000;
  QEvent change(QEvent::LanguageChange);
  QApplication::sendEvent(m.form.get(), &change);
  FormMachine::Traite();
  EXPECT_EQ(m.form->windowTitle(), "Koordinaten bearbeiten - 1/3[*]");
  EXPECT_EQ(m.Libelle("LabelBox_2"), "Buchstaben+Ostwert+Nordwert (FR1664)");
  EXPECT_EQ(m.Controle<QComboBox>("cmbSystem")->currentText(), "Alphanumerische UTM (MGRS)");
  EXPECT_EQ(SansMnemonique(m.Bouton("ButNew")->text().toStdString()), "Neu");
  EXPECT_EQ(m.Texte("ChampCh1"), "42");
  EXPECT_EQ(m.Texte("EditBox_2"), "FS12");
  EXPECT_TRUE(m.Bouton("ButOk")->isEnabled());
  EXPECT_EQ(FormMachine::Focus(), "EditBox_2");
}

TEST(EditForm, TheHintsSpeakTheNewLanguage) {
  FormMachine m;
  m.Ouvre();
  m.Entre("EditBox_0", "99");
  m.Entre("ChampPeriode", "9");
  const std::string english = m.Libelle("lblAvis_1");
  m.state.Langue = 0;
  m.form->AppliqueLangue();
  EXPECT_NE(m.Libelle("lblAvis_1"), english);
  EXPECT_FALSE(m.Libelle("lblAvis_1").empty());
  EXPECT_EQ(m.Libelle("lblAvis_0"), "La période doit être comprise entre 1 et 3");
}

TEST(EditForm, AnUnchangedFormStaysUnchangedInAnotherLanguage) {
  FormMachine m;
  m.Ouvre();
  m.state.Langue = 5000;
  m.form->AppliqueLangue();
  EXPECT_FALSE(m.Bouton("ButOk")->isEnabled());
  FormMachine::Touche(Qt::Key_Escape);
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

TEST(EditForm, NamesEveryControlThatTheKeysReach) {
  FormMachine m;
  m.Ouvre();
  for (const int system : {2, 8}) {
    Q_EMIT m.Controle<QComboBox>("cmbSystem")->activated(system);
    FormMachine::Traite();
    for (QWidget* child : m.form->findChildren<QWidget*>()) {
      if (child->focusPolicy() == Qt::NoFocus || !child->isVisibleTo(m.form.get())) continue;
      if (child->objectName().startsWith(QLatin1String("qt_"))) continue;
      const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(child);
      ASSERT_NE(face, nullptr);
      EXPECT_FALSE(face->text(QAccessible::Name).isEmpty()) << child->objectName().toStdString();
    }
  }
  EXPECT_EQ(m.Champ("EditBox_2")->accessibleName(), "Original coordinates: G3 or G336 or G33643");
}

TEST(EditForm, TheBoxesOfAnglesSayWhichAngle) {
  FormMachine m;
  m.Ouvre();
  for (const int system : {0, 1, 4}) {
    SCOPED_TRACE(system);
    Q_EMIT m.Controle<QComboBox>("cmbSystem")->activated(system);
    FormMachine::Traite();
    EXPECT_TRUE(m.Champ("EditBox_1")->accessibleName().startsWith("Latitude, "));
    EXPECT_TRUE(m.Champ("EditBox_2")->accessibleName().startsWith("Longitude, "));
    EXPECT_TRUE(m.Champ("EditBox_2")
                    ->accessibleName()
                    .contains(QString::fromStdString(m.Libelle("LabelBox_2"))));
  }
}

/// The part of a control that was painted anew.
class PaintedPart final : public QObject {
 public:
  explicit PaintedPart(QWidget& widget) : QObject(&widget) { widget.installEventFilter(this); }
  QRegion region;

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

TEST(EditForm, AHintIsLegibleInLightAndInDark) {
  for (const QPalette& palette :
       {QApplication::palette(), test::PaletteSombre(), QPalette(QColor(0x70, 0x70, 0x70))}) {
    EXPECT_GE(Contraste(HintLabel::Couleur(palette), palette.color(QPalette::Window)),
              ContrasteLisible);
  }
}

TEST(EditForm, TheSignOfAHintComesAndGoesWithItsText) {
  FormMachine m;
  m.Ouvre();
  auto* hint = m.Controle<HintLabel>("lblAvis_1");
  auto* painted = new PaintedPart(*hint);
  const QRect sign(0, 0, hint->fontMetrics().height() / 2, hint->height());
  for (const char* text : {"A hint", ""}) {
    painted->region = {};
    hint->Montre(QLatin1String(text));
    FormMachine::Traite();
    EXPECT_TRUE(painted->region.contains(sign)) << "text: " << text;
  }
}

TEST(EditForm, GivesEveryLabelAndButtonALetterOfItsOwn) {
  for (const int langue : {0, 1000, 3000, 4000, 5000}) {
    SCOPED_TRACE(langue);
    FormMachine m;
    m.state.Langue = static_cast<std::int16_t>(langue);
    m.Ouvre();
    std::map<QString, std::string> owners;
    const auto take = [&owners](const QString& text, const QString& name) {
      const QString letter = QKeySequence::mnemonic(text).toString();
      EXPECT_FALSE(letter.isEmpty()) << name.toStdString();
      const auto [owner, isNew] = owners.try_emplace(letter, name.toStdString());
      EXPECT_TRUE(isNew) << name.toStdString() << " and " << owner->second;
    };
    for (const QPushButton* button : m.form->findChildren<QPushButton*>()) {
      take(button->text(), button->objectName());
    }
    for (const char* name :
         {"LabelPeriode", "LabelDate", "LabelOriginales", "LabelSysteme", "LabelLatitude",
          "LabelLongitude", "LabelCh1", "LabelCh2", "LabelSex", "LabelGrid", "LabelLibre"}) {
      const auto* label = m.Controle<QLabel>(name);
      take(label->text(), label->objectName());
      EXPECT_NE(label->buddy(), nullptr) << name;
    }
  }
}

TEST(EditForm, AnUnknownDatumIsToldOnce) {
  FormMachine m({{"QQQ-Q", "deg +50.1 +4.2", "50.1", "4.2", ""}});
  m.Ouvre();
  EXPECT_EQ(m.Boites(), Lines{"QQQ-Q\rThis datum is absent from the available datums!"});
  EXPECT_EQ(m.Libelle("lblDatum"), "WGS84");
  m.form->AppliqueLangue();
  EXPECT_TRUE(m.dialogues.boxes.empty());
}

// What a screen of 1280 x 720 has beside the title, as it is and with everything half as large
// again.
TEST(EditForm, KeepsItsButtonsInSightOnSmallScreens) {
  for (const QSize room : {QSize(1280, 690), QSize(853, 450)}) {
    for (const int langue : {0, 1000, 3000, 4000, 5000}) {
      SCOPED_TRACE(std::to_string(langue) + ", width " + std::to_string(room.width()));
      FormMachine m({Rangee()}, std::vector<std::string>(11, "Label"));
      m.state.Langue = static_cast<std::int16_t>(langue);
      EditForm& form = m.Ouvre();
      EXPECT_LE(form.minimumSizeHint().width(), room.width());
      EXPECT_LE(form.minimumSizeHint().height(), room.height());
      form.resize(room);
      FormMachine::Traite();
      for (const QPushButton* button : {m.Bouton("ButOk"), m.Bouton("ButNew"), m.Bouton("ButDupl"),
                                        m.Bouton("ButEsc"), m.Bouton("cmdNavig_0")}) {
        EXPECT_TRUE(form.rect().contains(button->geometry())) << button->objectName().toStdString();
      }
      const auto* area = m.Controle<QScrollArea>("Defilement");
      EXPECT_LE(area->widget()->width(), area->viewport()->width()) << "no scrolling sideways";
    }
  }
}

TEST(EditForm, FitsASmallScreenAndScrolls) {
  FormMachine m;
  EditForm& form = m.Ouvre();
  EXPECT_LE(form.minimumSizeHint().width(), 1024);
  EXPECT_LE(form.minimumSizeHint().height(), 768);
  form.resize(form.minimumSizeHint());
  FormMachine::Traite();
  m.PlaceFocus("ChampSex");
  FormMachine::Touche(Qt::Key_Return);
  FormMachine::Touche(Qt::Key_Tab);
  FormMachine::Touche(Qt::Key_Tab);  // over two free fields
  EXPECT_EQ(FormMachine::Focus(), "ChampLibre");
  const auto* area = m.Controle<QScrollArea>("Defilement");
  const auto* remark = m.Controle<QWidget>("ChampLibre");
  EXPECT_TRUE(area->viewport()->rect().intersects(
      QRect(remark->mapTo(area->viewport(), QPoint(0, 0)), remark->size())));
}

}  // namespace
}  // namespace talpena::test
