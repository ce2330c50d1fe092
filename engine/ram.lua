-- What the game remembers, and the tools that the other scripts share: pictures, buttons,
-- the hero, the talk box and the game's settings.
--
-- Lines of events use these globals: hero (x, y: the cell, from 1; vie: the life), var,
-- affichertexte, runmap and screen.

local jeu = jeu
local display = screen

jeu.display = display
jeu.columns, jeu.rows = 17, 8
jeu.startLife = 100
jeu.firstMap = "01"

jeu.light = Color.new(255, 255, 255)
jeu.gold = Color.new(255, 214, 102)
jeu.dark = Color.new(16, 20, 40)
jeu.red = Color.new(186, 48, 56)

-- ---------------------------------------------------------------- pictures

-- A picture, or an error that names the file: the handheld's own message may not.
function jeu.loadPicture(path)
    local loaded, picture = pcall(Image.load, path)
    if not loaded or not picture then
        error("The picture " .. path .. " cannot be loaded (" .. tostring(picture) .. ")", 0)
    end
    return picture
end

-- Text with a shadow, so that it can be read on any picture.
function jeu.print(picture, x, y, text, color)
    picture:print(x + 1, y + 1, text, jeu.dark)
    picture:print(x, y, text, color or jeu.light)
end

function jeu.loadSystemPictures()
    jeu.titlePicture = jeu.loadPicture("images/System/menuprinc.png")
    jeu.framePicture = jeu.loadPicture("images/System/imgprinc.png")
    jeu.menuPicture = jeu.loadPicture("images/System/menuingame.png")
    jeu.talkPicture = jeu.loadPicture("images/System/parler.png")
end

-- ----------------------------------------------------------------- buttons

local buttons = { "up", "down", "left", "right", "cross", "circle", "start" }

-- held: down at the last reading. fresh: went down since the reading before.
jeu.held = {}
jeu.fresh = {}

-- keep: a fresh press that nothing has answered yet stays fresh. The walk asks for it, since
-- it looks at the buttons only between two cells.
function jeu.readPad(keep)
    local pad = Controls.read()
    local held, fresh = jeu.held, jeu.fresh
    for i, name in ipairs(buttons) do
        local down = pad[name](pad)
        fresh[name] = (down and not held[name]) or (keep and fresh[name])
        held[name] = down
    end
end

function jeu.nextFrame(keep)
    display.waitVblankStart()
    jeu.readPad(keep)
end

-- ---------------------------------------------------------------- the hero

local place = { x = 1, y = 1 }

local function within(value, last, before)
    local number = tonumber(value)
    if not number or number ~= number then
        return before
    end
    return math.max(1, math.min(last, math.floor(number)))
end

-- Lines of events are typed by hand: whatever they left in the hero becomes a cell of the map
-- and a number of life points again, or the value before. Says whether anything changed.
function jeu.settleHero()
    if type(hero) ~= "table" then
        hero = jeu.hero
    end
    jeu.hero = hero
    local x = within(hero.x, jeu.columns, place.x)
    local y = within(hero.y, jeu.rows, place.y)
    local life = tonumber(hero.vie)
    if not life or life ~= life then
        life = jeu.life
    end
    local changed = x ~= place.x or y ~= place.y or life ~= jeu.life
    place.x, place.y, jeu.life = x, y, life
    hero.x, hero.y, hero.vie = x, y, life
    return changed
end

-- Puts the hero on a cell, or on the nearest one of the map.
function jeu.putHero(x, y)
    hero.x, hero.y = x, y
    jeu.settleHero()
end

-- Runs a script of the author's; what is wrong with it is told once the map is on the screen.
local function runAuthorScript(path)
    local ran, message = pcall(dofile, path)
    if not ran then
        jeu.tellLater(path .. " has a mistake and is left out: " .. tostring(message))
    end
end

-- A new game's hero, variables and events.
function jeu.reset()
    hero = { x = 1, y = 1, vie = jeu.startLife }
    jeu.settleHero()
    jeu.facing = "face"
    jeu.nextMap = nil
    jeu.messages = {}
    var = {}
    runAuthorScript("variables.lua")
    runev = nil
    runAuthorScript("ev.lua")
end

-- ------------------------------------------------------------ the talk box

local boxLeft, boxTop = 8, 180
local textLeft, textTop = 24, 194
local lineHeight, lineWidth, linesPerPage = 12, 54, 5

-- The first piece of `text` that fits one line, and what is left of it. Breaks at a blank; a
-- word longer than the line is cut.
local function splitLine(text)
    if string.len(text) <= lineWidth then
        return text, nil
    end
    for i = lineWidth + 1, 2, -1 do
        if string.sub(text, i, i) == " " then
            local first, last = string.find(text, "^ +", i)
            return string.sub(text, 1, i - 1), string.sub(text, last + 1)
        end
    end
    return string.sub(text, 1, lineWidth), string.sub(text, lineWidth + 1)
end

local function addWrapped(lines, paragraph)
    local rest = paragraph
    while rest do
        local line
        line, rest = splitLine(rest)
        table.insert(lines, line)
        if rest == "" then
            rest = nil
        end
    end
end

-- All lines of a text. Only line feeds and tabs mean something here; other bytes, accented
-- letters among them, go to the screen as they are.
local function wrap(text)
    local lines = {}
    text = string.gsub(string.gsub(text, "\r", ""), "\t", "    ")
    local start = 1
    while true do
        local feed = string.find(text, "\n", start, true)
        addWrapped(lines, string.sub(text, start, (feed or 0) - 1))
        if not feed then
            return lines
        end
        start = feed + 1
    end
end

-- A triangle when another page follows, a square after the last one.
local function drawMark(more)
    for i = 0, 4 do
        local inset = more and i or 0
        display:fillRect(444 + inset, 251 + i, 10 - 2 * inset, 1, jeu.gold)
    end
end

local function drawPage(lines, first, more)
    jeu.drawScene()
    display:blit(boxLeft, boxTop, jeu.talkPicture)
    for i = 0, linesPerPage - 1 do
        if lines[first + i] then
            jeu.print(display, textLeft, textTop + i * lineHeight, lines[first + i])
        end
    end
    drawMark(more)
    display.flip()
end

-- Waits for a press that began after this call.
local function waitForCross()
    jeu.readPad()
    repeat
        jeu.nextFrame()
    until jeu.fresh.cross
    jeu.fresh.cross = false
end

-- Shows a text, page by page, over the game, and waits for cross after each page.
function jeu.say(text)
    local lines = wrap(text)
    local first = 1
    while lines[first] do
        local following = first + linesPerPage
        drawPage(lines, first, lines[following])
        waitForCross()
        first = following
    end
    jeu.drawScene()
    display.flip()
end

function affichertexte(text)
    jeu.settleHero()
    jeu.say(tostring(text))
end

function jeu.tellLater(text)
    table.insert(jeu.messages, text)
end

function jeu.tellMessages()
    while jeu.messages[1] do
        jeu.say(table.remove(jeu.messages, 1))
    end
end

-- --------------------------------------------------------- waits of events

-- An event that changes the hero and then waits wants the change to be seen meanwhile, so
-- its `screen` draws the game before it waits. Everything else goes to the real screen.
local eventScreen = {}

function eventScreen.waitVblankStart(frames, count)
    if frames == eventScreen then
        frames = count
    end
    if jeu.drawScene and jeu.settleHero() then
        jeu.drawScene()
        display.flip()
    end
    display.waitVblankStart(frames or 1)
end

local function relay(screenOfEvents, name)
    local member = display[name]
    if type(member) ~= "function" then
        return member
    end
    return function(first, a, b, c, d, e, f)
        if first == screenOfEvents then
            first = display
        end
        return member(unpack({ first, a, b, c, d, e, f }))
    end
end

screen = setmetatable(eventScreen, { __index = relay })

-- ---------------------------------------------------------- settings file

-- The value of a key of projet.ini, the empty text when there is none. Names of sections and
-- keys are the same in capitals and small letters.
function jeu.setting(section, key)
    local file = io.open("projet.ini", "r")
    if not file then
        return ""
    end
    local inSection, value = false, nil
    for line in file:lines() do
        local _, _, head = string.find(line, "^%s*%[(.-)%]")
        local _, _, name, text = string.find(line, "^%s*(.-)%s*=%s*(.-)%s*$")
        if head then
            inSection = string.lower(head) == string.lower(section)
        elseif inSection and name and string.lower(name) == string.lower(key) then
            value = value or text
        end
    end
    file:close()
    return value or ""
end
