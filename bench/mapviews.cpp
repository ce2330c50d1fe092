// The tool with map views open, to be measured from outside: mapviews APPDIR COUNT.
#include "app/Mainform.h"
#include "store/store.h"
#include "toolkit/theme.h"

#include <cstdlib>
#include <QApplication>

int main(int count, char** arguments)
{
    QApplication application(count, arguments);
    if (count != 3) {
        return 2;
    }
    dress(application);
    SetAppDir(arguments[1]);
    SetCurrentProject("demo");
    Mainform window;
    window.show();
    for (int view = 0; view < std::atoi(arguments[2]); ++view) {
        window.openMap(MapNumberText(1 + view % 2));
    }
    return QApplication::exec();
}
