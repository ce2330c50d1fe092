#include "player/sdl_window.h"

#include "player/machine.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace player
{

namespace
{

constexpr Area screenArea{screenWidth, screenHeight};

[[noreturn]] void fail(const char* what)
{
    throw std::runtime_error(std::string(what) + ": " + SDL_GetError());
}

// Twice the picture's size where the desktop has room for it, at which the letters are easy to read and the
// editor beside the window stays in sight; more only where half the desktop holds it.
Area firstSize()
{
    SDL_Rect desktop{0, 0, screenWidth, screenHeight};
    SDL_GetDisplayUsableBounds(0, &desktop);
    const int largest = wholeFactor(screenArea, {desktop.w * 3 / 4, desktop.h * 3 / 4});
    const int beside = wholeFactor(screenArea, {desktop.w / 2, desktop.h / 2});
    const int factor = std::max(std::min(largest, 2), beside);
    return {screenWidth * factor, screenHeight * factor};
}

bool hasOurPixels(const SDL_Surface& surface)
{
    const SDL_PixelFormat& format = *surface.format;
    return format.BytesPerPixel == sizeof(Pixel) && format.Rmask == 0xFF0000U && format.Gmask == 0xFF00U &&
           format.Bmask == 0xFFU;
}

Target targetOf(const SDL_Surface& surface)
{
    const auto pitch = static_cast<std::ptrdiff_t>(surface.pitch / static_cast<int>(sizeof(Pixel)));
    return {static_cast<Pixel*>(surface.pixels), pitch, {surface.w, surface.h}};
}

} // namespace

SdlVideo::SdlVideo()
{
    // Otherwise the window's surface is presented through OpenGL, at several times the processor time.
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
    // An interrupt ends the process as any other program's.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetMainReady();
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        fail("no display");
    }
}

SdlVideo::~SdlVideo()
{
    SDL_Quit();
}

SdlWindow::SdlWindow(const std::string& title)
{
    const Area size = firstSize();
    window_.reset(SDL_CreateWindow(title.c_str(), SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, size.width,
                                   size.height, SDL_WINDOW_RESIZABLE));
    if (!window_) {
        fail("no window");
    }
    SDL_SetWindowMinimumSize(window_.get(), screenWidth, screenHeight);
    // Keys are buttons here; an input method would keep some back to make letters of them.
    SDL_StopTextInput();
    input_.startControllers();
}

SDL_Surface* SdlWindow::drawnSurface()
{
    SDL_Surface* const surface = SDL_GetWindowSurface(window_.get());
    if (surface == nullptr || hasOurPixels(*surface)) {
        return surface;
    }
    if (!staging_ || staging_->w != surface->w || staging_->h != surface->h) {
        staging_.reset(
            SDL_CreateRGBSurfaceWithFormat(0, surface->w, surface->h, 32, SDL_PIXELFORMAT_XRGB8888));
    }
    return staging_.get();
}

void SdlWindow::show(const Image& picture, Rows rows)
{
    SDL_Surface* const drawn = drawnSurface();
    if (drawn == nullptr) {
        return;
    }
    const Target target = targetOf(*drawn);
    const Placement place = centred(screenArea, target.size);
    const bool all = std::exchange(outdated_, false);
    if (all) {
        // With the border round the picture.
        SDL_FillRect(drawn, nullptr, 0);
        rows = {0, screenHeight};
    }
    drawEnlarged(picture, rows, target, place);
    const int top = all ? 0 : std::max(place.top + rows.first * place.factor, 0);
    const int bottom =
        all ? target.size.height : std::min(place.top + rows.last * place.factor, target.size.height);
    SDL_Rect band{0, top, target.size.width, bottom - top};
    if (drawn == staging_.get()) {
        SDL_BlitSurface(drawn, &band, SDL_GetWindowSurface(window_.get()), &band);
    }
    SDL_UpdateWindowSurfaceRects(window_.get(), &band, 1);
}

void SdlWindow::pumpEvents()
{
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        handle(event);
    }
}

void SdlWindow::handle(const SDL_Event& event)
{
    if (event.type == SDL_QUIT) {
        closeAsked_ = true;
    } else if (event.type == SDL_WINDOWEVENT) {
        outdated_ = outdated_ || event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED ||
                    event.window.event == SDL_WINDOWEVENT_EXPOSED;
    } else {
        input_.handle(event);
    }
}

bool SdlWindow::hasViewer() const
{
    const std::string_view driver = SDL_GetCurrentVideoDriver();
    return driver != "dummy" && driver != "offscreen";
}

} // namespace player
