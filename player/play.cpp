#include "player/play.h"

#include "player/error_page.h"
#include "player/frame_clock.h"
#include "player/machine.h"
#include "player/script.h"

namespace player
{

namespace
{

bool isDismissed(Host& host)
{
    host.pumpEvents();
    return host.closeAsked() || (host.takeButtons() & (button::start | button::circle)) != 0;
}

void showError(Host& host, Image& screen, const ErrorReport& report)
{
    drawErrorPage(screen, report);
    host.present(screen);
    // A button that is still down from the game does not dismiss the page.
    while (host.hasViewer() && isDismissed(host) && !host.closeAsked()) {
        host.sleepUntil(startOfFrame(frameAt(host.now()) + 1));
    }
    while (host.hasViewer() && !isDismissed(host)) {
        host.sleepUntil(startOfFrame(frameAt(host.now()) + 1));
    }
}

} // namespace

int play(Host& host, const std::filesystem::path& folder, std::string_view script, std::ostream& errors)
{
    Machine machine(host, folder);
    Script game(machine);
    if (game.run(script) != Outcome::Failed) {
        return 0;
    }
    writeError(errors, game.error());
    showError(host, machine.screen(), game.error());
    return 1;
}

} // namespace player
