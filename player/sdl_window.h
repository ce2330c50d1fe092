#pragma once

#include "player/frame_scaler.h"
#include "player/image.h"
#include "player/sdl_input.h"

#include <memory>
#include <SDL.h>
#include <string>

namespace player
{

/// SDL as long as this object lives.
class SdlVideo
{
public:
    /// Failure: std::runtime_error with SDL's reason.
    SdlVideo();
    SdlVideo(const SdlVideo&) = delete;
    SdlVideo& operator=(const SdlVideo&) = delete;
    ~SdlVideo();
};

/// A window, the keyboard and game controllers. All calls come from the thread that made it.
class SdlWindow
{
public:
    /// title: UTF-8. Failure: std::runtime_error with SDL's reason.
    explicit SdlWindow(const std::string& title);

    /// Takes in what happened since the last call: keys, pads, the window.
    void pumpEvents();

    /// Shows these rows of a 480 x 272 picture, and the others too if the window lost them; alpha is ignored.
    void show(const Image& picture, Rows rows);

    /// True when the window lost what it showed.
    bool isOutdated() const { return outdated_; }

    /// True from the moment somebody asked to close the window.
    bool closeAsked() const { return closeAsked_; }

    /// False where nobody can see or close the window.
    bool hasViewer() const;

    SdlInput& input() { return input_; }

private:
    struct DestroyWindow {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };
    struct FreeSurface {
        void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    };

    void handle(const SDL_Event& event);
    SDL_Surface* drawnSurface();

    SdlVideo video_;
    std::unique_ptr<SDL_Window, DestroyWindow> window_;
    // Stands in where the window's own surface is not made of our pixels.
    std::unique_ptr<SDL_Surface, FreeSurface> staging_;
    SdlInput input_;
    bool outdated_ = true;
    bool closeAsked_ = false;
};

} // namespace player
