#include "program.h"
#include "toolkit/boxes.h"
#include "toolkit/linelist.h"
#include "toolkit/scrollbar.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

TEST(ScrollBar, KeysGoForwardAndBackAndToTheBounds)
{
    const struct {
        Qt::Key key;
        int from;
        int to;
    } cases[] = {{Qt::Key_Right, 5, 6},    {Qt::Key_Down, 5, 6},   {Qt::Key_Left, 5, 4}, {Qt::Key_Up, 5, 4},
                 {Qt::Key_PageDown, 5, 7}, {Qt::Key_PageUp, 5, 3}, {Qt::Key_Home, 5, 1}, {Qt::Key_End, 5, 9},
                 {Qt::Key_Right, 9, 9},    {Qt::Key_Left, 1, 1},   {Qt::Key_A, 5, 5}};
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        ScrollBar bar(orientation, 1, 9, nullptr);
        bar.setPageStep(2);
        for (const auto& [key, from, to] : cases) {
            bar.setValue(from);
            QTest::keyClick(&bar, key);
            EXPECT_EQ(bar.value(), to) << "key " << key << " from " << from;
        }
    }
}

TEST(ScrollBar, ANewBoundIsNotReportedAndNeverLiesBelowTheLowerOne)
{
    ScrollBar bar(Qt::Horizontal, 1, 9, nullptr);
    bar.setValue(8);
    int changes = 0;
    QObject::connect(&bar, &ScrollBar::valueChanged, &bar, [&changes] { ++changes; });
    bar.setBound(4);
    EXPECT_EQ(bar.value(), 4);
    bar.setBound(0);
    EXPECT_EQ(bar.maximum(), 1);
    EXPECT_EQ(changes, 0);
    bar.setBound(9);
    bar.setValue(2);
    EXPECT_EQ(changes, 1);
}

TEST(LineList, ShowsALongLineShortAndGivesItBackWhole)
{
    LineList list(nullptr);
    const std::string longest(500, '\xE9');
    const std::vector<std::string> given = {longest, longest + "z", std::string("a\0b", 3), ""};
    list.setLines(given);
    QString accents;
    accents.fill(u'é', 500);
    EXPECT_EQ(list.model()->index(0, 0).data(), accents);
    EXPECT_EQ(list.model()->index(1, 0).data(), accents + u'…');
    EXPECT_EQ(list.lines(), given);
}

class Boxes : public Program
{
protected:
    /// Lets a key that is down repeat in the box that opens next, before that is answered.
    void hold(Qt::Key key, const QString& letters) const
    {
        const auto repeat = [key, letters] {
            QWidget* box = QApplication::activeModalWidget();
            ASSERT_NE(box, nullptr);
            QWidget* focused = box->focusWidget();
            QTest::simulateEvent(focused == nullptr ? box : focused, true, key, {}, letters, true);
        };
        QMetaObject::invokeMethod(mainform.get(), repeat, Qt::QueuedConnection);
    }
};

TEST_F(Boxes, AreNotAnsweredByAKeyStillHeld)
{
    for (const auto& [key, letters] :
         {std::pair{Qt::Key_Return, u"\r"_s}, {Qt::Key_Y, u"y"_s}, {Qt::Key_Escape, QString()}}) {
        answers.question("Sure?", Reply::No);
        hold(key, letters);
        EXPECT_FALSE(askYesNo(mainform.get(), u"Sure?"_s));
        answers.allCame();
    }
    hold(Qt::Key_Return, u"\r"_s);
    answers.line("Prompt", "typed");
    EXPECT_EQ(inputBox(mainform.get(), u"Prompt"_s), u"typed"_s);
    hold(Qt::Key_X, u"x"_s); // typing goes on
    answers.box("[Questforge] Prompt <x> (Cancel OK)", Reply::Ok);
    EXPECT_EQ(inputBox(mainform.get(), u"Prompt"_s), u"x"_s);
}

TEST_F(Boxes, AQuestionIsYesOnlyForYes)
{
    for (const auto& [reply, yes] : {std::pair{Reply::Yes, true},
                                     {Reply::No, false},
                                     {Reply::Escape, false},
                                     {Reply::CloseBox, false}}) {
        answers.question("Really?\nTwo lines <b>", reply);
        EXPECT_EQ(askYesNo(mainform.get(), u"Really?\r\nTwo lines <b>"_s), yes);
    }
}

TEST_F(Boxes, AnInputBoxGivesItsLineOnlyWhenConfirmed)
{
    for (const auto& [reply, answer] : {std::pair{Reply::Ok, " typed "},
                                        {Reply::Enter, " typed "},
                                        {Reply::Cancel, ""},
                                        {Reply::Escape, ""},
                                        {Reply::CloseBox, ""}}) {
        answers.line("Prompt", " typed ", reply);
        EXPECT_EQ(inputBox(mainform.get(), u"Prompt"_s).toStdString(), answer);
    }
}

TEST_F(Boxes, AMessageIsClosedByAnyWay)
{
    for (const Reply reply : {Reply::Ok, Reply::Enter, Reply::Escape, Reply::CloseBox}) {
        answers.box("stop [Title] Text (OK)", reply);
        messageBox(mainform.get(), u"Text"_s, BoxIcon::Stop, u"Title"_s);
        answers.allCame();
    }
}
