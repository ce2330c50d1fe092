#include "app/Mainform.h"
#include "store/store.h"
#include "toolkit/paths.h"

#include <QApplication>
#include <QIcon>
#include <QStyleFactory>

using namespace Qt::StringLiterals;

int main(int count, char** arguments)
{
    constexpr int fontPoints = 9;
    platform::failOversizedWrites();
    QApplication application(count, arguments);
    QApplication::setApplicationDisplayName({});
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(QFont(u"Liberation Sans"_s, fontPoints));
    QApplication::setWindowIcon(QIcon(u":/pictures/questforge.png"_s));
    SetAppDir(corePath(QCoreApplication::applicationDirPath()));

    Mainform mainform;
    mainform.show();
    return QApplication::exec();
}
