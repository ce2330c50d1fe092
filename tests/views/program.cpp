#include "program.h"

#include "toolkit/directorylist.h"
#include "toolkit/paths.h"
#include "toolkit/scrollbar.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace
{

constexpr int tileWidth = 28;
constexpr int tileHeight = 29;
constexpr int twips = 15; // to the pixel

QString tileFile(const TemporaryAppDir& app, const std::string& tileset, int number)
{
    const std::string folder = "data/images/terrains/terrain" + tileset;
    return qtPath(app.at(folder + "/terrain0" + std::to_string(number) + ".JPG"));
}

} // namespace

Program::Program()
{
    mainform->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(mainform.get()));
}

void Program::TearDown()
{
    settle();
    answers.allCame();
}

std::vector<QWidget*> Program::views(const char* name) const
{
    std::vector<QWidget*> found;
    for (const QMdiSubWindow* window : control<QMdiArea>(*mainform, "WorkArea").subWindowList()) {
        if (window->widget()->objectName() == QLatin1StringView(name)) {
            found.push_back(window->widget());
        }
    }
    return found;
}

QWidget* Program::findView(const char* name) const
{
    const std::vector<QWidget*> found = views(name);
    return found.empty() ? nullptr : found.back();
}

QWidget& Program::view(const char* name) const
{
    if (QWidget* found = findView(name)) {
        return *found;
    }
    throw std::runtime_error(std::string("no view ") + name);
}

bool Program::isShown(const char* name) const
{
    return findView(name) != nullptr && view(name).isVisible();
}

void Program::openProject(const std::string& name) const
{
    mainform->showOpenp();
    control<DirectoryList>(view("openp"), "Dir1").setPath(qtPath(app.at("projets/" + name)));
    click(view("openp"), "Command1");
    settle();
}

void Program::closePanel(Reply reply)
{
    answers.question("Quitter Questforge ?", reply);
    view("Controlpanel").parentWidget()->close();
    settle();
    answers.allCame();
}

void Program::chooseEntry(int index) const
{
    click(view("Controlpanel"), ("Label9_" + std::to_string(index)).c_str());
    settle();
}

void Program::activate(QWidget& someView) const
{
    auto* window = qobject_cast<QMdiSubWindow*>(someView.parentWidget());
    control<QMdiArea>(*mainform, "WorkArea").setActiveSubWindow(window);
    settle();
}

void Program::addTiles(const std::string& tileset, int count) const
{
    app.addTileset(tileset, std::to_string(count));
    for (int number = 1; number <= count; ++number) {
        QImage picture(tileWidth, tileHeight, QImage::Format_RGB32);
        picture.fill(QColor::fromHsv((37 * number + 111 * std::stoi(tileset)) % 360, 255, 90));
        picture.save(tileFile(app, tileset, number), "JPG", 100);
    }
}

QImage Program::tile(const std::string& tileset, int number) const
{
    return QImage(tileFile(app, tileset, number)).convertToFormat(QImage::Format_RGB32);
}

std::string text(const QWidget& within, const char* name)
{
    const auto& found = control(within, name);
    const QVariant title = found.property("title");
    return (title.isValid() ? title : found.property("text")).toString().toStdString();
}

void setText(const QWidget& within, const char* name, const std::string& text)
{
    control(within, name).setProperty("text", QString::fromStdString(text));
}

void click(QWidget& control)
{
    if (!control.isVisible()) {
        throw std::runtime_error("a click on what cannot be seen: " + control.objectName().toStdString());
    }
    QTest::mouseClick(&control, Qt::LeftButton);
}

void keys(QWidget& control, std::initializer_list<Qt::Key> pressed)
{
    for (const Qt::Key key : pressed) {
        QTest::keyClick(&control, key);
    }
}

void moveBar(const QWidget& within, const char* name, int value)
{
    control<ScrollBar>(within, name).setValue(value);
}

std::vector<std::string> lines(const QWidget& within, const char* name)
{
    const QAbstractItemModel& model = *control<QListView>(within, name).model();
    std::vector<std::string> result;
    for (int row = 0; row < model.rowCount(); ++row) {
        result.push_back(model.index(row, 0).data().toString().toStdString());
    }
    return result;
}

void clickLine(const QWidget& within, const char* name, int row)
{
    auto& list = control<QListView>(within, name);
    const QModelIndex line = list.model()->index(row, 0);
    list.scrollTo(line);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(line).center());
}

void doubleClickLine(const QWidget& within, const char* name, int row)
{
    clickLine(within, name, row);
    auto& list = control<QListView>(within, name);
    const QRect place = list.visualRect(list.model()->index(row, 0));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place.center());
}

void pressCell(const QWidget& editor, int row, int column)
{
    const QPoint middle((column - 1) * tileWidth + tileWidth / 2, (row - 1) * tileHeight + tileHeight / 4);
    QTest::mouseClick(&control(editor, "CarteImg"), Qt::LeftButton, {}, middle);
}

void pressGrid(const QWidget& editor, int x, int y)
{
    QTest::mousePress(&control(editor, "CarteImg"), Qt::LeftButton, {}, {x / twips, y / twips});
}

void awaitRedraw(const QWidget& editor)
{
    const QSignalSpy ticks(editor.findChild<QTimer*>("Timer1"_L1), &QTimer::timeout);
    EXPECT_TRUE(QTest::qWaitFor([&ticks] { return !ticks.isEmpty(); }));
}

QImage cell(const QWidget& editor, int row, int column)
{
    const QRect place((column - 1) * tileWidth, (row - 1) * tileHeight, tileWidth, tileHeight);
    return control(editor, "CarteImg").grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

void settle()
{
    QTest::qWait(1);
}

std::string grid(std::initializer_list<Dot> dots, char rest)
{
    std::string rows;
    for (int row = 1; row <= 8; ++row) {
        rows += std::string(17, rest) + "\r\n";
    }
    for (const Dot& dot : dots) {
        rows[static_cast<std::size_t>((dot.row - 1) * 19 + dot.column - 1)] = dot.code;
    }
    return rows;
}

std::string savedMap(const std::string& start, const std::string& rows)
{
    return start + "\r\n" + savedBlocks(rows);
}

std::string savedBlocks(const std::string& rows)
{
    return rows + "\r\n\r\n";
}
