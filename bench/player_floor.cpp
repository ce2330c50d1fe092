// The least player: SDL2 and Lua draw the same scenes from the same pictures, anew at each of sixty frames a
// second. Started in a project's folder with the name of a scene: title, talk (a full map with an open talk
// box), or scroll (a map of which every row changes, and three lines of text).
#include <array>
#include <chrono>
#include <lua.hpp>
#include <SDL.h>
#include <SDL_image.h>
#include <thread>

namespace
{

constexpr std::array pictures = {"images/System/menuprinc.png", "images/System/imgprinc.png",
                                 "images/map01/terrain.png", "images/personnages/hero/face1.png",
                                 "images/System/parler.png"};

constexpr const char* scenes = R"(
function title()
    blit(1, 0, 0, 0, 0, 480, 272)
end

local frames = 0

local function map()
    for y = 0, 7 do
        for x = 0, 16 do
            blit(3, 2 + x * 28, 36 + y * 29, (x + y + frames) % 10 * 28, 0, 28, 29)
        end
    end
end

local function lines()
    for line = 0, 2 do
        for letter = 0, 49 do
            blit(4, 24 + letter * 8, 194 + line * 12, letter % 3 * 8, 8, 8, 8) -- as large as a letter
        end
    end
end

function talk()
    blit(2, 0, 0, 0, 0, 480, 272)
    map()
    blit(4, 114, 123, 0, 0, 28, 29)
    blit(5, 8, 180, 0, 0, 464, 88)
    lines()
end

function scroll()
    frames = frames + 1
    map()
    lines()
end
)";

SDL_Window* window = nullptr;
std::array<SDL_Surface*, pictures.size()> loaded = {};

int blit(lua_State* L)
{
    const auto at = [L](int index) { return static_cast<int>(lua_tointeger(L, index)); };
    const SDL_Rect part{at(4), at(5), at(6), at(7)};
    SDL_Rect place{at(2), at(3), 0, 0};
    SDL_BlitSurface(loaded[static_cast<std::size_t>(at(1) - 1)], &part, SDL_GetWindowSurface(window), &place);
    return 0;
}

void loadPictures()
{
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        SDL_Surface* const decoded = IMG_Load(pictures[i]);
        loaded[i] = SDL_ConvertSurfaceFormat(decoded, SDL_PIXELFORMAT_ARGB8888, 0);
        SDL_FreeSurface(decoded);
    }
}

bool isClosed()
{
    SDL_Event event;
    while (SDL_PollEvent(&event) != 0) {
        if (event.type == SDL_QUIT) {
            return true;
        }
    }
    return false;
}

} // namespace

int main(int /*count*/, char** arguments)
{
    SDL_SetMainReady();
    SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION,
                "0"); // otherwise through OpenGL, at several times the cost
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_Init(SDL_INIT_VIDEO);
    window = SDL_CreateWindow("floor", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, 480, 272, 0);
    loadPictures();
    lua_State* const L = luaL_newstate();
    luaL_openlibs(L);
    lua_register(L, "blit", blit);
    if (luaL_dostring(L, scenes) != 0) {
        return 1;
    }
    constexpr std::chrono::microseconds frame{16667};
    for (auto next = std::chrono::steady_clock::now(); !isClosed(); next += frame) {
        std::this_thread::sleep_until(next);
        lua_getglobal(L, arguments[1]);
        if (lua_pcall(L, 0, 0, 0) != 0) {
            return 1;
        }
        SDL_UpdateWindowSurface(window);
    }
    lua_close(L);
    SDL_Quit();
    return 0;
}
