// The card boxes (My Hand, Board) with long texts: the box is filled in one edit, so that its text is laid
// out once, not once per character, and a long text saved in the preferences does not stall the start-up
// (the preferences keep only the first characters of a card text, as many as anything meaningful needs).
#include "app/gui/card_text_box.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>
#include <QTextDocument>
#include <fstream>
#include <memory>

#include "app/gui/form1.h"
#include "app/gui/qt_services.h"
#include "app/model/form1_model.h"
#include "storage/preferences_file.h"
#include "tests/support/recording_services.h"
#include "tests/support/window_session.h"

namespace quillet::gui {
namespace {

// Card text of `cards` cards cycling through the four suits, coloured as the model colours it.
RichTextState CardText(std::size_t cards) {
  static constexpr const char* kCards[] = {"Ac", "Kd", "Qh", "Js", "Tx"};
  RichTextState state;
  for (std::size_t i = 0; i < cards; ++i) state.text += kCards[i % 5];
  RecordingServices services;
  Form1Model(services).ColourCodeRT(state);
  return state;
}

class CardTextBoxTest : public QObject {
  Q_OBJECT

 private slots:
  void aTextIsLaidOutOnceNotOncePerCharacter() {
    CardTextBox box(nullptr);
    int changes = 0;
    connect(box.document(), &QTextDocument::contentsChange, this, [&] { ++changes; });
    box.ShowState(CardText(500));
    // One change empties the box and one fills it; a box filled character by character changed 1,000 times.
    QVERIFY2(changes <= 2, qPrintable(QStringLiteral("%1 changes").arg(changes)));
  }

  void aLongTextKeepsEveryCardsColour() {
    CardTextBox box(nullptr);
    const RichTextState state = CardText(50000);
    box.ShowState(state);
    QCOMPARE(box.Text(), state.text);
    QVERIFY(box.CharColours() == state.charColours);
    QCOMPARE(box.textCursor().position(), static_cast<int>(state.text.size()));
  }

  void aTextShownAgainIsNotRewritten() {
    CardTextBox box(nullptr);
    const RichTextState state = CardText(10);
    box.ShowState(state);
    int changes = 0;
    connect(box.document(), &QTextDocument::contentsChange, this, [&] { ++changes; });
    box.ShowState(state);
    QCOMPARE(changes, 0);
  }

  void aStartUpWithAHundredThousandCharacterTextInThePreferencesComesUpWithTheTextsCut() {
    Session s;
    const std::string myHand(100000, 'A');
    const std::string board = CardText(50000).text;
    {
      std::ofstream prefs(s.dir / "MyPrefs.ini", std::ios::binary);
      prefs << "txtMyHand|" << myHand << "\r\ntxtBoard|" << board << "\r\n";
    }
    QElapsedTimer clock;
    clock.start();
    QVERIFY(s.Start());
    qInfo("the window came up in %lld ms", static_cast<long long>(clock.elapsed()));  // for the record only
    const auto* myHandBox = s.form->findChild<CardTextBox*>(QStringLiteral("txtMyHand"));
    const auto* boardBox = s.form->findChild<CardTextBox*>(QStringLiteral("txtBoard"));
    QVERIFY(myHandBox != nullptr && boardBox != nullptr);
    QCOMPARE(myHandBox->Text(), myHand.substr(0, kLongestMyHandText));
    QCOMPARE(boardBox->Text(), board.substr(0, kLongestBoardText));
    QVERIFY(boardBox->CharColours() == s.model.txtBoard.charColours);
  }
};

}  // namespace
}  // namespace quillet::gui

QTEST_MAIN(quillet::gui::CardTextBoxTest)
#include "card_text_box_test.moc"
