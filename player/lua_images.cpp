#include "player/font.h"
#include "player/lua_call.h"
#include "player/lua_colors.h"
#include "player/lua_screen.h"

#include <memory>

namespace player
{

namespace
{

constexpr ObjectKind imageKind{"Image"};

// What an image object holds; null while it is not made yet.
struct Picture {
    Image* image;
};

Image& imageArgument(lua_State* L, int index)
{
    if (objectAt(L, index, screenKind) != nullptr) {
        return machineOf(L).screen();
    }
    Image* const image = check<Picture>(L, index, imageKind).image;
    luaL_argcheck(L, image != nullptr, index, "the image was not made");
    return *image;
}

int coordinateArgument(lua_State* L, int index)
{
    return coordinate(luaL_checknumber(L, index));
}

int coordinateArgument(lua_State* L, int index, int otherwise)
{
    return lua_isnoneornil(L, index) ? otherwise : coordinateArgument(L, index);
}

// Pushes an image object around what `make` gives. Pixels lie outside Lua's own account, so its collector is
// told how much there is to gain, and is run when the pictures go over their budget.
template <class Make> int pushPicture(lua_State* L, Make make)
{
    Image*& image = static_cast<Picture*>(pushObject(L, imageKind, sizeof(Picture)))->image;
    image = make().release();
    if (image == nullptr) {
        lua_gc(L, LUA_GCCOLLECT, 0);
        image = make().release();
    }
    if (image == nullptr) {
        constexpr auto megabytes = static_cast<int>(Machine::mostPictures >> 20U);
        return luaL_error(L, "the pictures take more than %d MB", megabytes);
    }
    lua_gc(L, LUA_GCSTEP, static_cast<int>(image->bytes() >> 10U));
    return 1;
}

int createEmpty(lua_State* L)
{
    const double width = luaL_checknumber(L, 1);
    const double height = luaL_checknumber(L, 2);
    luaL_argcheck(L, Image::sizeIsAllowed(width, 1), 1, "an image is 1 to 4096 pixels wide");
    luaL_argcheck(L, Image::sizeIsAllowed(1, height), 2, "an image is 1 to 4096 pixels high");
    Machine& machine = machineOf(L);
    return pushPicture(L, [&machine, width, height] {
        return machine.newPicture(static_cast<int>(width), static_cast<int>(height));
    });
}

int loadImage(lua_State* L)
{
    const std::string_view path = checkText(L, 1);
    Machine& machine = machineOf(L);
    return pushPicture(L, [&machine, path] { return machine.loadPicture(path); });
}

int freeImage(lua_State* L)
{
    Image*& image = check<Picture>(L, 1, imageKind).image;
    machineOf(L).dropPicture(image);
    image = nullptr;
    return 0;
}

int blit(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    const int x = coordinateArgument(L, 2);
    const int y = coordinateArgument(L, 3);
    const Image& source = imageArgument(L, 4);
    const Rect part = {coordinateArgument(L, 5, 0), coordinateArgument(L, 6, 0),
                       coordinateArgument(L, 7, source.width()), coordinateArgument(L, 8, source.height())};
    image.blit(x, y, source, part);
    return 0;
}

int clear(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    image.clear(colorArgument(L, 2, transparent));
    return 0;
}

int fillRect(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    const Rect area = {coordinateArgument(L, 2), coordinateArgument(L, 3), coordinateArgument(L, 4),
                       coordinateArgument(L, 5)};
    image.fill(area, colorArgument(L, 6, opaqueBlack));
    return 0;
}

int drawLine(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    const int x0 = coordinateArgument(L, 2);
    const int y0 = coordinateArgument(L, 3);
    const int x1 = coordinateArgument(L, 4);
    const int y1 = coordinateArgument(L, 5);
    image.line(x0, y0, x1, y1, colorArgument(L, 6, opaqueBlack));
    return 0;
}

int print(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    const int x = coordinateArgument(L, 2);
    const int y = coordinateArgument(L, 3);
    const std::string_view text = checkText(L, 4);
    drawText(image, x, y, text, colorArgument(L, 5, opaqueBlack));
    return 0;
}

int pixel(lua_State* L)
{
    Image& image = imageArgument(L, 1);
    const int x = coordinateArgument(L, 2);
    const int y = coordinateArgument(L, 3);
    if (lua_isnoneornil(L, 4)) {
        pushColor(L, image.contains(x, y) ? image.pixel(x, y) : transparent);
        return 1;
    }
    image.setPixel(x, y, colorArgument(L, 4, opaqueBlack));
    return 0;
}

int width(lua_State* L)
{
    lua_pushinteger(L, imageArgument(L, 1).width());
    return 1;
}

int height(lua_State* L)
{
    lua_pushinteger(L, imageArgument(L, 1).height());
    return 1;
}

} // namespace

const luaL_Reg imageMethods[] = {
    {"blit", guarded<blit>},         {"clear", guarded<clear>},   {"fillRect", guarded<fillRect>},
    {"drawLine", guarded<drawLine>}, {"print", guarded<print>},   {"pixel", guarded<pixel>},
    {"width", guarded<width>},       {"height", guarded<height>}, {nullptr, nullptr}};

void openImages(lua_State* L)
{
    lua_newtable(L);
    setFunctions(L, imageMethods);
    defineKind(L, imageKind, guarded<freeImage>, nullptr);
    const luaL_Reg functions[] = {
        {"load", guarded<loadImage>}, {"createEmpty", guarded<createEmpty>}, {nullptr, nullptr}};
    setLibrary(L, "Image", functions);
}

} // namespace player
