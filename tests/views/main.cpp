// Runs the tests of the views in an application that looks as the program's does, on no screen unless told
// otherwise.
#include "toolkit/theme.h"

#include <gtest/gtest.h>
#include <QApplication>

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(count, arguments);
    dress(application);
    QApplication::setQuitOnLastWindowClosed(false); // the next test goes on
    return RUN_ALL_TESTS();
}
