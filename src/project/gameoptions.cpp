#include "project/gameoptions.h"

using namespace Qt::StringLiterals;

gameoptions::gameoptions(Workspace& workspace)
    : View(workspace, u"gameoptions"_s, u"Game Options"_s)
{
    surface()->setMinimumSize(320, 200);
}
