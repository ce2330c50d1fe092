#include "app/Mainform.h"
#include "store/store.h"
#include "toolkit/paths.h"
#include "toolkit/theme.h"

#include <QApplication>

int main(int count, char** arguments)
{
    platform::failOversizedWrites();
    QApplication application(count, arguments);
    QApplication::setApplicationDisplayName({});
    dress(application);
    SetAppDir(corePath(QCoreApplication::applicationDirPath()));

    Mainform mainform;
    mainform.show();
    return QApplication::exec();
}
