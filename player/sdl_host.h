#pragma once

#include "player/frame_scaler.h"
#include "player/host.h"
#include "player/image.h"
#include "player/sdl_input.h"

#include <chrono>
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

/// A window, the keyboard and game controllers.
class SdlHost : public Host
{
public:
    /// title: UTF-8. Failure: std::runtime_error with SDL's reason.
    explicit SdlHost(const std::string& title);

    void present(const Image& frame) override;
    void pumpEvents() override;
    bool closeAsked() const override { return closeAsked_; }
    Buttons takeButtons() override { return input_.take(); }
    bool hasViewer() const override;
    Instant now() override;
    void sleepUntil(Instant when) override;

private:
    struct DestroyWindow {
        void operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }
    };
    struct FreeSurface {
        void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    };

    struct Rows {
        int first;
        int last;
    };

    void handle(const SDL_Event& event);
    void askToClose();
    Rows keepChangedRows(const Image& frame);
    void showRows(Rows rows);
    void redraw();
    SDL_Surface* drawnSurface();

    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
    SdlVideo video_;
    std::unique_ptr<SDL_Window, DestroyWindow> window_;
    // Stands in where the window's own surface is not made of our pixels.
    std::unique_ptr<SDL_Surface, FreeSurface> staging_;
    SdlInput input_;
    Image shown_;
    bool outdated_ = true;
    bool closeAsked_ = false;
};

} // namespace player
