// The parameter dialogs as widgets: typed, slid, accepted and cancelled with the keyboard, placed over the
// middle of their parent.
#include <memory>

#include <QAbstractSlider>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QPushButton>
#include <QTimer>

#include "dialogs/ui/FilterDialog.h"
#include "dialogs/ui/FormatDialog.h"
#include "dialogs/ui/SliderDialog.h"
#include "tests/gui/support/GuiMain.h"

namespace tembrel::test {

namespace {

template <class Control>
Control* ControlOf(QWidget& dialog, int id) {
  for (Control* control : dialog.findChildren<Control*>()) {
    if (control->property("controlId").toInt() == id) {
      return control;
    }
  }
  return nullptr;
}

QLineEdit& EditOf(QWidget& dialog) {
  return *ControlOf<QLineEdit>(dialog, 102);
}

QAbstractSlider& SliderOf(QWidget& dialog) {
  return *ControlOf<QAbstractSlider>(dialog, 101);
}

QStringList Labels(const QWidget& dialog) {
  QStringList texts;
  for (const QLabel* label : dialog.findChildren<QLabel*>()) {
    texts << label->text().remove('&');
  }
  return texts;
}

QStringList Entries(const QComboBox& list) {
  QStringList texts;
  for (int i = 0; i < list.count(); ++i) {
    texts << list.itemText(i);
  }
  return texts;
}

// Types over everything in the field, key by key.
void TypeInto(QLineEdit& edit, const QString& text) {
  edit.selectAll();
  QTest::keyClicks(&edit, text);
}

class ParameterDialogsTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QWidget> window;

  template <class Dialog>
  void Show(Dialog& dialog) {
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
  }

 private Q_SLOTS:
  void init() {
    window = std::make_unique<QWidget>();
    window->setGeometry(50, 40, 600, 500);
    window->show();
  }

  void TitlesLabelsAndRangesAreThoseOfTheResources() {
    struct Expected {
      SliderDialog* dialog;
      int resource;
      QString title;
      QStringList labels;
      int minimum;
      int maximum;
      QString text;
    };
    CtlScaleDialog amplify(window.get());
    StrengthDialog strength(window.get());
    DurationDialog duration(window.get());
    PitchDialog pitch(window.get());
    for (const Expected& expected :
         {Expected{&amplify, 3737, "Amplify", {"Amplify:", "%"}, 0, 1000, "100"},
          Expected{&strength, 3763, "Filter Strength", {"Strength:", "%"}, 0, 100, "50"},
          Expected{&duration, 2074, "Duration", {"Stretch:", "%"}, 25, 400, "100"},
          Expected{&pitch, 3761, "Pitch", {"Change by", "Semitones"}, 0, 480, "0.0"}}) {
      QCOMPARE(expected.dialog->property("resourceId").toInt(), expected.resource);
      QCOMPARE(expected.dialog->windowTitle(), expected.title);
      QCOMPARE(Labels(*expected.dialog), expected.labels);
      QCOMPARE(SliderOf(*expected.dialog).minimum(), expected.minimum);
      QCOMPARE(SliderOf(*expected.dialog).maximum(), expected.maximum);
      QCOMPARE(EditOf(*expected.dialog).text(), expected.text);
      QCOMPARE(ControlOf<QPushButton>(*expected.dialog, 105)->text(), QString("OK"));
      QCOMPARE(ControlOf<QPushButton>(*expected.dialog, 2)->text(), QString("Cancel"));
    }
    QCOMPARE(amplify.objectName(), QString("CtlScaleDialog"));
  }

  void TypingMovesTheSliderAndSlidingRewritesTheField() {
    CtlScaleDialog dialog(window.get());
    Show(dialog);
    QTest::keyClicks(QApplication::focusWidget(), "250");  // the field has the focus and is selected
    QCOMPARE(SliderOf(dialog).value(), 250);
    QCOMPARE(EditOf(dialog).text(), QString("250"));
    SliderOf(dialog).setFocus();
    QTest::keyClick(&SliderOf(dialog), Qt::Key_Right);
    QCOMPARE(EditOf(dialog).text(), QString("251"));
    SliderOf(dialog).setValue(7);
    QCOMPARE(EditOf(dialog).text(), QString("7"));
    QCOMPARE(dialog.Percent(), 7);
  }

  void ANumberTooLargeBringsTheLastGoodOneBack() {
    CtlScaleDialog dialog(window.get());
    Show(dialog);
    TypeInto(EditOf(dialog), "1200");
    QCOMPARE(EditOf(dialog).text(), QString("120"));
    TypeInto(EditOf(dialog), "-");
    QCOMPARE(EditOf(dialog).text(), QString("120"));
    EditOf(dialog).setText("65636");
    QCOMPARE(EditOf(dialog).text(), QString("65636"));
    QCOMPARE(SliderOf(dialog).value(), 100);
    QCOMPARE(dialog.Percent(), 100);
  }

  void DurationLeavesATextBeyondItsEndsVisible() {
    DurationDialog dialog(window.get());
    Show(dialog);
    TypeInto(EditOf(dialog), "500");
    QCOMPARE(EditOf(dialog).text(), QString("500"));
    QCOMPARE(SliderOf(dialog).value(), 400);
    QCOMPARE(dialog.Percent(), 400);
  }

  void PitchCutsToATenth() {
    PitchDialog dialog(window.get());
    Show(dialog);
    TypeInto(EditOf(dialog), "-3.25");
    QCOMPARE(EditOf(dialog).text(), QString("-3.25"));
    QCOMPARE(SliderOf(dialog).value(), 207);
    QCOMPARE(dialog.Semitones(), -3.3F);
    TypeInto(EditOf(dialog), "30");
    QCOMPARE(EditOf(dialog).text(), QString("3.0"));
  }

  void EnterAcceptsAndEscapeCancels() {
    for (const bool enter : {true, false}) {
      CtlScaleDialog dialog(window.get());
      Show(dialog);
      TypeInto(EditOf(dialog), "42");
      QTest::keyClick(QApplication::focusWidget(), enter ? Qt::Key_Return : Qt::Key_Escape);
      QVERIFY(!dialog.isVisible());
      QCOMPARE(dialog.result(), static_cast<int>(enter ? QDialog::Accepted : QDialog::Rejected));
      QCOMPARE(dialog.Percent(), 42);
    }
  }

  void TheButtonsAcceptAndCancel() {
    StrengthDialog accepted(window.get());
    Show(accepted);
    ControlOf<QPushButton>(accepted, 105)->click();
    QCOMPARE(accepted.result(), static_cast<int>(QDialog::Accepted));
    StrengthDialog cancelled(window.get());
    Show(cancelled);
    ControlOf<QPushButton>(cancelled, 2)->click();
    QVERIFY(!cancelled.isVisible());
    QCOMPARE(cancelled.result(), static_cast<int>(QDialog::Rejected));
  }

  void TabGoesFromTheFieldOverTheButtonsToTheSliderAndRound() {
    CtlScaleDialog dialog(window.get());
    Show(dialog);
    QList<int> order;
    for (int i = 0; i < 5; ++i) {
      order << QApplication::focusWidget()->property("controlId").toInt();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order, (QList<int>{102, 105, 2, 101, 102}));
  }

  void TabGoesThroughTheListsAndButtonsOfFormatAndFilter() {
    FormatDialog format(window.get(), {44100, 16, 2});
    FilterDialog filter(window.get(), 0, [](int) {});
    struct Expected {
      QDialog* dialog;
      QList<int> order;
    };
    for (const Expected& expected :
         {Expected{&format, {108, 109, 110, 1, 2, 108}}, Expected{&filter, {102, 101, 1, 2, 102}}}) {
      Show(*expected.dialog);
      QList<int> order;
      for (qsizetype i = 0; i < expected.order.size(); ++i) {
        order << QApplication::focusWidget()->property("controlId").toInt();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      }
      QCOMPARE(order, expected.order);
      expected.dialog->close();
    }
  }

  void LettersLeadToTheListsOfFormatAndFilter() {
    FormatDialog format(window.get(), {44100, 16, 2});
    FilterDialog filter(window.get(), 0);
    struct Expected {
      QDialog* dialog;
      Qt::Key letter;
      int control;
    };
    for (const Expected& expected : {Expected{&format, Qt::Key_C, 110}, Expected{&format, Qt::Key_E, 109},
                                     Expected{&format, Qt::Key_R, 108}, Expected{&filter, Qt::Key_P, 102}}) {
      Show(*expected.dialog);
      ControlOf<QPushButton>(*expected.dialog, 2)->setFocus();
      QTest::keyClick(expected.dialog, expected.letter, Qt::AltModifier);
      QCOMPARE(QApplication::focusWidget()->property("controlId").toInt(), expected.control);
      expected.dialog->close();
    }
  }

  void TheLabelsLetterLeadsToTheField() {
    CtlScaleDialog dialog(window.get());
    Show(dialog);
    SliderOf(dialog).setFocus();
    QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), &EditOf(dialog));
  }

  void EveryDialogStandsOverTheMiddleOfItsParent() {
    CtlScaleDialog amplify(window.get());
    FormatDialog format(window.get(), {44100, 16, 2});
    FilterDialog filter(window.get(), 0);
    for (QDialog* dialog : std::initializer_list<QDialog*>{&amplify, &format, &filter}) {
      Show(*dialog);
      const QPoint distance = dialog->frameGeometry().center() - window->frameGeometry().center();
      QVERIFY(distance.manhattanLength() <= 2);
      dialog->close();
    }
  }

  void WhileADialogRunsTheParentTakesNoInput() {
    QPushButton behind(window.get());
    behind.setGeometry(0, 0, 100, 50);
    behind.show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    behind.setFocus();
    int clicks = 0;
    connect(&behind, &QPushButton::clicked, &behind, [&clicks] { ++clicks; });
    const auto tryBoth = [this] {
      QTest::keyClick(window->windowHandle(), Qt::Key_Space);
      QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, {20, 20});
    };
    tryBoth();
    QCOMPARE(clicks, 2);
    CtlScaleDialog dialog(window.get());
    bool ran = false;
    QTimer::singleShot(0, &dialog, [&] {
      tryBoth();
      ran = dialog.isModal() && QApplication::activeModalWidget() == &dialog;
      dialog.reject();
    });
    QCOMPARE(dialog.exec(), static_cast<int>(QDialog::Rejected));
    QVERIFY(ran);
    QCOMPARE(clicks, 2);
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    tryBoth();
    QCOMPARE(clicks, 4);
  }

  void FormatListsTheEntriesAndSelectsTheSounds() {
    FormatDialog dialog(window.get(), {22050, 8, 2});
    QCOMPARE(dialog.property("resourceId").toInt(), 3762);
    QCOMPARE(dialog.windowTitle(), QString("Format"));
    QCOMPARE(Labels(dialog), (QStringList{"Rate", "Resolution", "Channels"}));
    QCOMPARE(Entries(*ControlOf<QComboBox>(dialog, 108)), (QStringList{"11025 Hz", "22050 Hz", "44100 Hz"}));
    QCOMPARE(Entries(*ControlOf<QComboBox>(dialog, 109)), (QStringList{"8 Bits", "16 Bits"}));
    QCOMPARE(Entries(*ControlOf<QComboBox>(dialog, 110)), (QStringList{"Mono", "Stereo"}));
    QCOMPARE(dialog.Choice(), (FormatChoice{22050, 8, 2}));
    ControlOf<QComboBox>(dialog, 108)->setCurrentIndex(2);
    ControlOf<QComboBox>(dialog, 109)->setCurrentIndex(1);
    ControlOf<QComboBox>(dialog, 110)->setCurrentIndex(0);
    QCOMPARE(dialog.Choice(), (FormatChoice{44100, 16, 1}));
    Show(dialog);
    ControlOf<QPushButton>(dialog, 1)->click();
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
  }

  void FormatSelectsNoRateForOneWithoutEntryAndKeepsIt() {
    FormatDialog dialog(window.get(), {48000, 16, 1});
    QCOMPARE(ControlOf<QComboBox>(dialog, 108)->currentIndex(), -1);
    QCOMPARE(dialog.Choice(), (FormatChoice{48000, 16, 1}));
  }

  void AuditionTellsTheSelectedPresetAndKeepsTheDialogOpen() {
    QList<int> heard;
    FilterDialog dialog(window.get(), 4, [&heard](int preset) { heard << preset; });
    Show(dialog);
    QCOMPARE(QApplication::focusWidget(), ControlOf<QComboBox>(dialog, 102));
    QTest::mouseClick(ControlOf<QPushButton>(dialog, 101), Qt::LeftButton);
    ControlOf<QComboBox>(dialog, 102)->setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    QTest::keyClick(&dialog, Qt::Key_A, Qt::AltModifier);
    QTRY_COMPARE(heard, (QList<int>{4, 5}));
    QVERIFY(dialog.isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Rejected));
    QCOMPARE(heard.size(), 2);
  }

  void FilterListsThePresetsAndWithoutAListenerAuditionsNothing() {
    FilterDialog dialog(window.get(), 4);
    QCOMPARE(dialog.property("resourceId").toInt(), 1004);
    QCOMPARE(dialog.windowTitle(), QString("Filter"));
    QCOMPARE(Entries(*ControlOf<QComboBox>(dialog, 102)),
             (QStringList{"Lift Musical Presence", "Attenuate Musical Presence", "Lift Vocal Presence",
                          "Attenuate Vocal Presence", "Lift Bass", "Attenuate Bass", "Lift Midrange",
                          "Attenuate Midrange", "Lift Treble", "Attenuate Treble"}));
    QCOMPARE(dialog.Preset(), 4);
    QVERIFY(!ControlOf<QPushButton>(dialog, 101)->isEnabled());
    Show(dialog);
    ControlOf<QComboBox>(dialog, 102)->setFocus();
    QTest::keyClick(ControlOf<QComboBox>(dialog, 102), Qt::Key_Down);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(dialog.Preset(), 5);
  }
};

}  // namespace

}  // namespace tembrel::test

TEMBREL_GUI_TEST(tembrel::test::ParameterDialogsTest)

#include "parameter_dialogs_test.moc"
