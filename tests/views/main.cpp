// Runs the tests of the views in an application that looks as the program's does, on no screen unless told
// otherwise.
#include <gtest/gtest.h>
#include <QApplication>
#include <QFont>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    constexpr int fontPoints = 9;
    QApplication application(count, arguments);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(QFont(u"Liberation Sans"_s, fontPoints));
    QApplication::setQuitOnLastWindowClosed(false); // the next test goes on
    return RUN_ALL_TESTS();
}
