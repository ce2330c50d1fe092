#include "fence.h"

#include "sights.h"
#include "witness.h"

#include <algorithm>
#include <dlfcn.h>
#include <QApplication>
#include <QThread>
#include <stdexcept>

using Path = Fence::Path;

namespace
{

Fence* watching = nullptr;

/// Failure: false, when nobody tells of writes.
bool listen(WriteListener listener)
{
    using Register = void (*)(WriteListener);
    const auto enter = reinterpret_cast<Register>(::dlsym(RTLD_DEFAULT, "listenToWrites"));
    if (enter != nullptr) {
        enter(listener);
    }
    return enter != nullptr;
}

bool isIn(const Path& path, const Path& folder)
{
    const auto [rest, unused] = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
    return !folder.empty() && rest == folder.end();
}

} // namespace

Fence::Fence(Path appDir, std::function<void(const std::string&)> report)
    : appDir_(std::move(appDir))
    , report_(std::move(report))
{
    watching = this;
    if (!listen(&Fence::judge)) {
        throw std::runtime_error("the witness was not loaded ahead");
    }
}

Fence::~Fence()
{
    listen(nullptr);
    watching = nullptr;
}

void Fence::note()
{
    const Path name = projectToMake();
    const Path folder = appDir_ / "projets" / name;
    std::error_code ignored;
    const bool canBeMade = !name.empty() && !std::filesystem::exists(folder, ignored);
    beingMade_ = canBeMade ? folder : Path(); // one that is there is never made over
}

void Fence::judge(const char* path)
{
    if (!watching->open_ && !watching->allows(Path(path).lexically_normal())) {
        watching->report_(path);
    }
}

bool Fence::isBootScript(const Path& path) const
{
    const std::string name = path.filename().string();
    const bool fits = name == "index.lua" || (name.starts_with(".questforge-") && name.ends_with(".tmp"));
    return fits && path.parent_path() == appDir_;
}

bool Fence::allows(const Path& path) const
{
    const Path projects = appDir_ / "projets";
    if (isIn(path, "/dev") || isBootScript(path) || path == projects) {
        return true;
    }
    if (QThread::currentThread() != qApp->thread()) {
        return false; // the views' own thread alone writes for them
    }
    const Path open = openProject();
    return isIn(path, beingMade_) || (!open.empty() && isIn(path, projects / open));
}
