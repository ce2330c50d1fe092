#include "project/charactereditor.h"

using namespace Qt::StringLiterals;

charactereditor::charactereditor(Workspace& workspace)
    : View(workspace, u"charactereditor"_s, u"Character Editor"_s)
{
    surface()->setMinimumSize(320, 200);
}
