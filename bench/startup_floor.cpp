// The least program with the tool's skeleton: a main window, a work area, one window in it with a few labels.
#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

int main(int count, char** arguments)
{
    QApplication application(count, arguments);
    QMainWindow window;
    auto* area = new QMdiArea(&window);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout;
    for (const QString& text : {u"Create"_s, u"Open"_s, u"Read"_s}) {
        column->addWidget(new QLabel(text, page));
    }
    page->setLayout(column);
    area->addSubWindow(page);
    window.setCentralWidget(area);
    window.resize(1280, 720); // the tool's opening size: both pay for as many pixels
    window.show();
    return QApplication::exec();
}
