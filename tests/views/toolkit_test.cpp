#include "program.h"
#include "toolkit/boxes.h"
#include "toolkit/scrollbar.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

TEST(ScrollBar, KeysGoForwardAndBackAndToTheBounds)
{
    ScrollBar bar(Qt::Horizontal, 1, 9, nullptr);
    bar.setPageStep(2);
    const std::pair<Qt::Key, int> cases[] = {{Qt::Key_Right, 6}, {Qt::Key_Down, 6},     {Qt::Key_Left, 4},
                                             {Qt::Key_Up, 4},    {Qt::Key_PageDown, 7}, {Qt::Key_PageUp, 3},
                                             {Qt::Key_Home, 1},  {Qt::Key_End, 9}};
    for (const auto& [key, to] : cases) {
        bar.setValue(5);
        keys(bar, {key});
        EXPECT_EQ(bar.value(), to) << "key " << key;
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
    for (const Reply reply : {Reply::Yes, Reply::No, Reply::Escape}) {
        answers.question("Really?\nTwo lines <b>", reply);
        EXPECT_EQ(askYesNo(mainform.get(), u"Really?\r\nTwo lines <b>"_s), reply == Reply::Yes);
    }
}
