#include "build/sendtopsp.h"

#include "toolkit/boxes.h"
#include "toolkit/directorylist.h"
#include "toolkit/theme.h"

#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QStorageInfo>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

/// The places where volumes are mounted, "/" first.
QStringList volumes()
{
    QStringList roots;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        roots += volume.rootPath();
    }
    roots.removeDuplicates();
    roots.sort();
    roots.removeAll(QDir::rootPath());
    roots.prepend(QDir::rootPath());
    return roots;
}

/// A volume's current folder: the program's own on the volume where that lies, the root of any other.
QString currentFolderOn(const QString& volume)
{
    const QString current = QDir::currentPath();
    return QStorageInfo(current).rootPath() == volume ? current : volume;
}

} // namespace

sendtopsp::sendtopsp(Workspace& workspace)
    : View(workspace, u"sendtopsp"_s, u"Finalize & save!"_s)
{
    auto* column = new QVBoxLayout(surface());
    column->setContentsMargins(viewMargin, viewMargin, viewMargin, viewMargin);
    column->setSpacing(controlGap);
    column->addWidget(options());
    column->addWidget(folderChooser(), 1);
}

QWidget* sendtopsp::options()
{
    auto* Frame2 = named<QGroupBox>("Frame2"_L1, u"Options"_s, surface());
    auto* Option2 = named<QRadioButton>("Option2"_L1, u"Use LuaPlayer 0.20"_s, Frame2);
    auto* Option1 = named<QRadioButton>("Option1"_L1, u"Don't Use LuaPlayer0.20"_s, Frame2);
    for (QRadioButton* option : {Option2, Option1}) {
        option->setToolTip(u"Not made so far: changes nothing"_s);
    }
    auto* Label1 =
        textLabel("Label1"_L1,
                  u"The integrated LuaPlayer is planned for the PSP version 1.50, 2.71 and 3.xx OE, but "
                  "you can put a LuaPlayer compatible with your Firmware version manually."_s,
                  Frame2);
    Label1->setWordWrap(true);
    auto* column = new QVBoxLayout(Frame2);
    column->addWidget(Option2);
    column->addWidget(Option1);
    column->addWidget(Label1);
    return Frame2;
}

QWidget* sendtopsp::folderChooser()
{
    constexpr QSize listSize(340, 200);
    auto* Frame1 = named<QGroupBox>("Frame1"_L1, u"Choose the folder"_s, surface());
    Drive1 = named<QComboBox>("Drive1"_L1, Frame1);
    Drive1->setAccessibleName(u"Drive"_s);
    Drive1->setToolTip(u"The list below shows the folders of this drive"_s);
    Drive1->addItems(volumes());
    Drive1->setCurrentText(QStorageInfo(QDir::currentPath()).rootPath());
    Dir1 = named<DirectoryList>("Dir1"_L1, Frame1);
    Dir1->setMinimumSize(listSize);
    Dir1->setAccessibleName(u"Folder"_s);
    Dir1->setToolTip(u"Double-click a folder to open it"_s);
    Dir1->setPath(QDir::currentPath());
    auto* column = new QVBoxLayout(Frame1);
    column->addWidget(Drive1);
    column->addWidget(Dir1);
    connect(Drive1, &QComboBox::currentIndexChanged, this, &sendtopsp::Drive1_Change);
    return Frame1;
}

void sendtopsp::Drive1_Change()
{
    const QString drive = Drive1->currentText();
    if (!Dir1->setPath(currentFolderOn(drive))) {
        messageBox(this, drive + u" is not ready."_s);
    }
}
