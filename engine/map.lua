-- The map on the screen: its files, its picture, the hero's walk on it and its events.

local jeu, string, math, io, Image = jeu, string, math, io, Image
local type, tostring, tonumber, pcall, ipairs, pairs = type, tostring, tonumber, pcall, ipairs, pairs
local collectgarbage = collectgarbage
local display = jeu.display
local place = jeu.place

local tileWidth, tileHeight = 28, 29
local mapLeft, mapTop = 2, 36
local framesPerStep = 14

-- ------------------------------------------------------------------ files

-- Where things stand in a map file: six characters with the hero's start, then nineteen for
-- each row (codes and line end). The block file has the same rows and no head.
local headLength, rowLength = 6, 19
local fileLength = headLength + rowLength * jeu.rows

local function readFile(path)
    local file = io.open(path, "rb")
    if not file then
        return ""
    end
    local text = file:read(fileLength)
    file:close()
    return text or ""
end

local function position(x, y)
    return (y - 1) * rowLength + x
end

local function tileCode(map, x, y)
    local at = headLength + position(x, y)
    return string.sub(map.text, at, at)
end

local function isBlocked(map, x, y)
    local at = position(x, y)
    return string.sub(map.blocks, at, at) == "1"
end

-- Without blanks around. A pattern for the last ones would begin anew at each of a long run.
local function trimmed(text)
    local first = string.find(text, "%S")
    local last = string.len(text)
    while first and string.find(text, "^%s", last) do
        last = last - 1
    end
    return first and string.sub(text, first, last) or ""
end

-- The value of a key of projet.ini, the empty text when there is none, read as the editor does:
-- the first section of a name counts, capitals are small letters, quotes round a value go.
function jeu.setting(section, key)
    local file = io.open("projet.ini", "r")
    if not file then
        return ""
    end
    local inSection, value = false, nil
    for line in file:lines() do
        local _, _, head = string.find(line, "^[\239\187\191]*%s*%[([^%]]*)")
        local equals = string.find(line, "=", 1, true)
        if head and inSection then
            break
        elseif head then
            inSection = string.lower(trimmed(head)) == string.lower(section)
        elseif inSection and equals and not value
            and string.lower(trimmed(string.sub(line, 1, equals - 1))) == string.lower(key) then
            value = string.gsub(trimmed(string.sub(line, equals + 1)), "^([\"'])(.*)%1$", "%2")
        end
    end
    file:close()
    return value or ""
end

function jeu.mapExists(number)
    return type(number) == "string" and string.find(number, "^%d+$") ~= nil
        and readFile("map" .. number .. ".map") ~= ""
end

-- ---------------------------------------------------------------- picture

local background, veil
local veilColors, fadeFrames = {}, 10
local shownLife

-- The pictures that last for the whole game. Those of the screen's size are made once: the
-- handheld has little memory, and collects garbage when it likes.
function jeu.loadPlayPictures()
    background = Image.createEmpty(480, 272)
    veil = Image.createEmpty(480, 272)
    for i = 0, fadeFrames do
        veilColors[i] = Color.new(0, 0, 0, math.floor(255 * i / fadeFrames))
    end
    jeu.heroPictures = { mort = jeu.loadPicture("images/personnages/hero/mort.png") }
    for i, side in ipairs({ "dos", "face", "droite", "gauche" }) do
        jeu.heroPictures[side] = {}
        for step = 1, 3 do
            local path = "images/personnages/hero/" .. side .. step .. ".png"
            jeu.heroPictures[side][step] = jeu.loadPicture(path)
        end
    end
end

-- A code that is no digit, or has no tile in the sheet, leaves its cell empty.
local function paintTile(map, sheet, tiles, x, y)
    local code = tonumber(tileCode(map, x, y))
    if code and code < tiles then
        background:blit(mapLeft + (x - 1) * tileWidth, mapTop + (y - 1) * tileHeight, sheet,
            code * tileWidth, 0, tileWidth, tileHeight)
    end
end

-- Draws the frame and the map once; walking only copies the result.
local function paintMap(map, sheet)
    background:blit(0, 0, jeu.framePicture)
    local tiles = math.floor(sheet:width() / tileWidth)
    for y = 1, jeu.rows do
        for x = 1, jeu.columns do
            paintTile(map, sheet, tiles, x, y)
        end
    end
    shownLife = nil
end

-- The bar above the map has three fields: the map's name, the hero's life in up to three
-- digits, and a gauge that is full at the life of a new game.
local function paintBar()
    shownLife = jeu.life
    background:blit(0, 0, jeu.framePicture, 0, 0, 480, mapTop)
    jeu.print(background, 28, 14, jeu.map.name)
    local text = tostring(math.max(0, math.min(999, math.ceil(shownLife))))
    jeu.print(background, 339 - 4 * string.len(text), 14, text)
    local part = math.max(0, math.min(1, shownLife / jeu.startLife))
    background:fillRect(359, 13, math.ceil(101 * part), 10, jeu.red)
end

local function drawHero(offsetX, offsetY, step)
    local picture = jeu.heroPictures[jeu.facing][step]
    if jeu.life <= 0 then
        picture = jeu.heroPictures.mort
    end
    display:blit(mapLeft + (place.x - 1) * tileWidth + offsetX,
        mapTop + (place.y - 1) * tileHeight + offsetY, picture)
end

local function drawMap(offsetX, offsetY, step)
    if jeu.life ~= shownLife then
        paintBar()
    end
    display:blit(0, 0, background)
    drawHero(offsetX, offsetY, step)
end

local function drawStanding()
    drawMap(0, 0, 1)
end

local function showStanding()
    drawStanding()
    display.flip()
end

-- Darkens the map (step 1) or brings it back (step -1).
local function fade(step)
    local dark = step > 0 and 0 or fadeFrames
    for i = 1, fadeFrames do
        dark = dark + step
        veil:clear(veilColors[dark])
        drawStanding()
        display:blit(0, 0, veil)
        display.flip()
        jeu.nextFrame()
    end
end

-- ------------------------------------------------------------ change of map

local function startNumber(map, first)
    return tonumber(string.sub(map.text, first, first + 1)) or 1
end

local function mapName(number)
    local name = jeu.setting("Carte" .. number, "nom")
    return string.sub(name, 1, 32)
end

-- The files of a map and the picture of its tiles; without a map, what is missing.
local function loadMap(number)
    if not jeu.mapExists(number) then
        return nil, 'there is no map "' .. number .. '": map' .. number .. ".map is missing"
    end
    local loaded, sheet = pcall(jeu.loadPicture, "images/map" .. number .. "/terrain.png")
    if not loaded then
        return nil, tostring(sheet)
    end
    local map = { number = number, sheet = sheet, name = mapName(number) }
    map.text = readFile("map" .. number .. ".map")
    map.blocks = readFile("map" .. number .. ".ev")
    return map
end

-- Once per game and map: the editor lets an author start the hero where the game cannot.
local function checkStart(map, x, y)
    if jeu.startsTold[map.number] then
        return
    end
    jeu.startsTold[map.number] = true
    local start = jeu.cellName(map.number, y, x)
    if x ~= place.x or y ~= place.y then
        jeu.tellLater(start .. ": the hero's start lies outside the map")
    elseif isBlocked(map, x, y) then
        jeu.tellLater(start .. ": the hero's start is a blocked cell")
    end
end

-- Makes a loaded map the current one and puts the hero on its start, or where `arrival` says.
local function enterMap(map, arrival)
    jeu.map = map
    jeu.probeEvents(map.number)
    paintMap(map, map.sheet)
    map.sheet = nil
    -- The sheet is done with, and the handheld does not know how large the pictures are that it keeps.
    collectgarbage()
    local x, y = startNumber(map, 1), startNumber(map, 3)
    jeu.putHero(x, y)
    if arrival and (arrival.x or arrival.y) then
        jeu.putHero(arrival.x, arrival.y)
    else
        checkStart(map, x, y)
    end
end

-- Makes a map the current one, as enterMap. What is missing is the answer, and then nothing has
-- changed.
function jeu.openMap(number, arrival)
    local map, missing = loadMap(number)
    if map then
        enterMap(map, arrival)
    end
    return missing
end

-- Asks for another map. The change waits for the end of the event, whose other lines still
-- belong to this map; only where they put the hero is meant for the other one.
function runmap(number)
    if number == nil then
        jeu.complain("runmap needs the number of a map in quotes")
        return
    end
    if type(number) == "number" and number < 10 then
        number = "0" .. number
    end
    jeu.nextMap, jeu.arrival = tostring(number), {}
    jeu.askedAt = jeu.here()
end

local function changeMap(number, arrival)
    local map, missing = loadMap(number)
    if not map then
        jeu.tellLater(jeu.askedAt .. ": " .. missing)
        return
    end
    fade(1)
    enterMap(map, arrival)
    fade(-1)
end

-- ----------------------------------------------------------------- events

-- Runs the event of a cell, tells what was wrong with it and goes to the map it asked for.
local function runEvent(x, y)
    jeu.runLines(jeu.map.number, y, x)
    local number, arrival = jeu.nextMap, jeu.arrival
    jeu.nextMap, jeu.arrival = nil, nil
    if jeu.settleHero() then
        showStanding()
    end
    jeu.tellMessages()
    if number and jeu.life > 0 then
        changeMap(number, arrival)
        jeu.tellMessages()
    end
end

-- ------------------------------------------------------------------- walk

local ways = {
    up = { x = 0, y = -1, side = "dos" },
    down = { x = 0, y = 1, side = "face" },
    left = { x = -1, y = 0, side = "gauche" },
    right = { x = 1, y = 0, side = "droite" },
}
local wayNames = { "up", "down", "left", "right" }
local wanted
local foot = 2

local function isOnMap(x, y)
    return x >= 1 and x <= jeu.columns and y >= 1 and y <= jeu.rows
end

-- The direction to walk: the one pressed last, as long as it is held.
local function chosenWay()
    for i, name in ipairs(wayNames) do
        if jeu.fresh[name] then
            jeu.fresh[name] = false
            wanted = name
        end
    end
    if wanted and jeu.held[wanted] then
        return ways[wanted]
    end
    wanted = nil
    for i, name in ipairs(wayNames) do
        if jeu.held[name] then
            wanted = name
            return ways[name]
        end
    end
end

-- Moves the picture from cell to cell; the feet change sides from step to step.
local function animateStep(way)
    foot = 5 - foot
    for frame = 1, framesPerStep do
        local part = frame / framesPerStep
        local step = part <= 0.5 and foot or 1
        drawMap(math.floor(way.x * tileWidth * part + 0.5), math.floor(way.y * tileHeight * part + 0.5), step)
        display.flip()
        jeu.nextFrame(true)
    end
end

local function walk(way)
    local turned = jeu.facing ~= way.side
    jeu.facing = way.side
    local x, y = place.x + way.x, place.y + way.y
    if isOnMap(x, y) and not isBlocked(jeu.map, x, y) then
        animateStep(way)
        jeu.putHero(x, y)
        runEvent(x, y)
        return
    end
    if turned then
        showStanding()
    end
    jeu.nextFrame()
end

local function facedCell()
    for name, way in pairs(ways) do
        if way.side == jeu.facing then
            return place.x + way.x, place.y + way.y
        end
    end
end

-- Cross in front of a blocked cell runs the event that the hero cannot walk onto.
local function touch()
    local x, y = facedCell()
    if isOnMap(x, y) and isBlocked(jeu.map, x, y) then
        runEvent(x, y)
    end
    jeu.nextFrame()
end

-- ------------------------------------------------------------------- play

local function playFrame()
    local way = chosenWay()
    if jeu.fresh.start then
        jeu.showGameMenu()
    elseif jeu.fresh.cross then
        touch()
    elseif way then
        walk(way)
    else
        jeu.nextFrame()
    end
end

-- Plays the game on the current map until the hero is dead or the player goes back to the
-- title. The picture only changes when something happens, so standing costs next to nothing.
function jeu.play()
    jeu.drawScene = drawStanding
    jeu.leaving = false
    wanted = nil
    showStanding()
    jeu.tellMessages()
    jeu.readPad()
    while not jeu.leaving and jeu.life > 0 do
        playFrame()
    end
    if jeu.life <= 0 then
        showStanding()
        jeu.say("You are dead.")
    end
end
