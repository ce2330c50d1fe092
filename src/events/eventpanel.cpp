#include "events/eventpanel.h"

#include "events/eventstore.h"
#include "toolkit/boxes.h"
#include "toolkit/linelist.h"
#include "toolkit/text.h"

#include <QLabel>

using namespace Qt::StringLiterals;

EventPanel::EventPanel(EventPanelHost& host, Workspace& workspace, QWidget* parent)
    : QGroupBox(u"Event"_s, parent)
    , host_(host)
    , workspace_(workspace)
{
    setObjectName("Frame6"_L1);
    build();
    connectControls();
}

void EventPanel::openCell(int row, int column)
{
    ln->setText(QString::number(row));
    co->setText(QString::number(column));
    listev->setLines(loadevent(openFile()));
    host_.showPanel(true);
    host_.enablePicture(false);
    listev->setFocus();
}

void EventPanel::Command2_Click()
{
    if (!host_.ownsProject()) {
        messageBox(this, u"Nothing was saved: the project of this map is not open."_s);
        return; // the lines stay, for the time when it is opened again
    }
    host_.enablePicture(true);
    host_.showPanel(false);
    host_.saveEvent(ln->text().toInt(), co->text().toInt(), listev->lines());
}

void EventPanel::Command20_Click()
{
    host_.enablePicture(true);
    host_.showPanel(false);
    host_.setModeMark({});
}

void EventPanel::listev_DblClick()
{
    const int row = listev->selectedRow();
    const QString entry = row < 0 ? QString() : shortened(shown(listev->line(row)));
    if (askYesNo(this, u"Are you sure want to delete this line?\r\n"_s + entry) && row >= 0) {
        listev->removeLine(row);
    }
}

void EventPanel::append(const std::string& line)
{
    listev->appendLine(line);
    listev->scrollToBottom();
}

/// The open cell's file, in the map that the view holds by now; no path while the map's project is not
/// current.
Path EventPanel::openFile() const
{
    return host_.ownsProject() ? eventpath(host_.heldMap(), ln->text().toInt(), co->text().toInt()) : Path();
}
