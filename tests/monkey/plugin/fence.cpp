#include "fence.h"

#include "../../torture/diskcalls.h"
#include "sights.h"

#include <dlfcn.h>
#include <QApplication>
#include <QThread>

using Path = Fence::Path;
using namespace Qt::StringLiterals;

namespace
{

Fence* watching = nullptr;

void listen(WriteListener listener)
{
    reinterpret_cast<decltype(&listenToWrites)>(::dlsym(RTLD_DEFAULT, "listenToWrites"))(listener);
}

bool isBesideProgram(const std::string& name)
{
    return name == "projets" || name == "index.lua" || name.starts_with(".questforge-");
}

} // namespace

Fence::Fence(std::function<void(const std::string&)> report)
    : appDir_(QCoreApplication::applicationDirPath().toStdString())
    , report_(std::move(report))
{
    watching = this;
    listen(&Fence::judge);
}

Fence::~Fence()
{
    listen(nullptr);
}

void Fence::judge(const char* path)
{
    if (!watching->allows(std::filesystem::absolute(path).lexically_normal())) {
        watching->report_(path);
    }
}

bool Fence::allows(const Path& path)
{
    const Path place = path.lexically_relative(appDir_);
    if (path == "/dev/null" || (!place.has_parent_path() && isBesideProgram(place))) {
        return true;
    }
    if (*place.begin() != "projets" || QThread::currentThread() != qApp->thread()) {
        return false; // the views' own thread alone writes for them
    }
    const Path project = *std::next(place.begin());
    const bool makesOne = findView(u"nouvprojet"_s) != nullptr;
    if (makesOne && place.parent_path() == "projets") {
        made_ = project; // what is there already is made by nobody
    }
    return project == openProject() || (makesOne && project == made_);
}
