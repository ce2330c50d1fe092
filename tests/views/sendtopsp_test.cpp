#include "build/sendtopsp.h"

#include "program.h"
#include "toolkit/directorylist.h"

#include <QComboBox>
#include <QDir>
#include <QRadioButton>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

class Publishing : public Program
{
};

TEST_F(Publishing, OffersOptionsWithoutAPresetAndAFolder)
{
    const sendtopsp form(*mainform);
    EXPECT_EQ(form.windowTitle().toStdString(), "Finalize & save!");
    EXPECT_EQ(text(form, "Frame2"), "Options");
    EXPECT_EQ(text(form, "Frame1"), "Choose the folder");
    EXPECT_EQ(text(form, "Option2"), "Use LuaPlayer 0.20");
    EXPECT_EQ(text(form, "Option1"), "Don't Use LuaPlayer0.20");
    EXPECT_FALSE(control<QRadioButton>(form, "Option1").isChecked());
    EXPECT_FALSE(control<QRadioButton>(form, "Option2").isChecked());
    EXPECT_EQ(
        text(form, "Label1"),
        "The integrated LuaPlayer is planned for the PSP version 1.50, 2.71 and 3.xx OE, but you can put "
        "a LuaPlayer compatible with your Firmware version manually.");
    EXPECT_EQ(control<DirectoryList>(form, "Dir1").path(), QDir::currentPath());
}

TEST_F(Publishing, TheFolderFollowsTheDrive)
{
    sendtopsp form(*mainform);
    form.show();
    auto& drives = control<QComboBox>(form, "Drive1");
    auto& folder = control<DirectoryList>(form, "Dir1");
    const QString ours = QStorageInfo(QDir::currentPath()).rootPath();
    EXPECT_EQ(drives.itemText(0), u"/"_s);
    EXPECT_EQ(drives.currentText(), ours);
    drives.addItems({u"/proc"_s, u"/not/ready"_s});
    drives.setCurrentText(u"/proc"_s);
    EXPECT_EQ(folder.path(), u"/proc"_s);
    answers.message("/not/ready is not ready.");
    drives.setCurrentText(u"/not/ready"_s);
    EXPECT_EQ(folder.path(), u"/proc"_s);
    drives.setCurrentText(ours);
    EXPECT_EQ(folder.path(), QDir::currentPath()); // the program's folder on that drive
}
