-- What the game remembers, and the tools that the other scripts share: pictures, buttons,
-- the hero and the events.
--
-- Lines of events use these globals: hero (x, y: the cell, from 1; vie: the life), var,
-- affichertexte, runmap and screen.

local jeu, string, table, math, io, Image, Controls = jeu, string, table, math, io, Image, Controls
local type, tostring, tonumber, error, ipairs, pairs = type, tostring, tonumber, error, ipairs, pairs
local pcall, xpcall, dofile, loadstring, setfenv = pcall, xpcall, dofile, loadstring, setfenv
local setmetatable, rawset, unpack, collectgarbage = setmetatable, rawset, unpack, collectgarbage
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
        local reason = tostring(picture)
        local _, last = string.find(reason, path .. ": ", 1, true)
        error("the picture " .. path .. " cannot be loaded: " .. string.sub(reason, (last or 0) + 1), 0)
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

-- The cell, from 1, on which the hero stands, and the life.
jeu.place = { x = 1, y = 1 }
jeu.life = jeu.startLife

local place = jeu.place
local changed = false

local function wholeNumber(value)
    local number = tonumber(value)
    return number and number == number and math.floor(number)
end

local function nameOf(value)
    return value == nil and "a name without a value" or tostring(value)
end

-- A line after runmap means a cell of the map that comes.
local function setCell(key, last, value)
    local number = wholeNumber(value)
    if not number or number < 1 or number > last then
        jeu.complain("hero." .. key .. " needs a number from 1 to " .. last .. ", not " .. nameOf(value))
    elseif jeu.arrival then
        jeu.arrival[key] = number
    elseif place[key] ~= number then
        place[key] = number
        changed = true
    end
end

local function setLife(value)
    local life = tonumber(value)
    if not life or life ~= life then
        jeu.complain("hero.vie needs a number, not " .. nameOf(value))
    elseif jeu.life ~= life then
        jeu.life = life
        changed = true
    end
end

-- The table of the hero keeps what authors add. Cell and life are looked at as they are set,
-- while the line that does it is known.
local guard = {}

function guard.__index(fields, key)
    if key == "vie" then
        return jeu.life
    end
    return jeu.arrival and jeu.arrival[key] or place[key]
end

function guard.__newindex(fields, key, value)
    if key == "x" then
        setCell(key, jeu.columns, value)
    elseif key == "y" then
        setCell(key, jeu.rows, value)
    elseif key == "vie" then
        setLife(value)
    else
        rawset(fields, key, value)
    end
end

-- An author's line may have put another table in the hero's place: its fields become the
-- hero's. Says whether the hero looks different since the last call.
function jeu.settleHero()
    if hero ~= jeu.hero then
        local given = hero
        hero = jeu.hero
        for key, value in pairs(type(given) == "table" and given or {}) do
            hero[key] = value
        end
    end
    local was = changed
    changed = false
    return was
end

local function within(value, last, before)
    local number = wholeNumber(value)
    return number and math.max(1, math.min(last, number)) or before
end

-- Puts the hero on a cell, or on the nearest one of the map.
function jeu.putHero(x, y)
    place.x = within(x, jeu.columns, place.x)
    place.y = within(y, jeu.rows, place.y)
end

-- ------------------------------------------------------------- the events

-- cells: the lines of each cell by its name, if Lua refuses ev.lua as a whole.
local cells, checked, refused

local function compile(name, text)
    local make, message = loadstring("return function(colonne,ligne,map) " .. text .. "\nend", "=" .. name)
    return make and make(), message
end

-- The cells of ev.lua, nothing for a file without cells, and how many Lua refuses. Some of
-- those are named.
local function findCells()
    local found, wrong, any = {}, 0, false
    jeu.eachCell(function(name, head, lines, count)
        local text = jeu.textOf(lines, count)
        any = true
        if string.find(text, "%S") then
            found[name] = text
            local run, message = compile(name, text)
            wrong = wrong + (run and 0 or 1)
            if not run and wrong <= 3 then
                jeu.tellLater(jeu.describeFault(name, text, message))
            end
        end
    end)
    if wrong > 3 then
        jeu.tellLater("and " .. wrong - 3 .. " more")
    end
    return any and found, wrong
end

local function loadEvents()
    runev, cells, checked, refused = nil, nil, {}, {}
    jeu.forgetPlaces()
    local loaded, message = pcall(dofile, "ev.lua")
    if loaded then
        return
    end
    local wrong
    cells, wrong = findCells()
    if not cells then
        jeu.tellLater("ev.lua has a mistake and is left out: " .. tostring(message))
    elseif wrong == 0 then
        jeu.tellLater("ev.lua is run cell by cell: " .. tostring(message))
    end
end

-- The lines of a cell without the empty first one; nil if it has none.
local function linesOfCell(name, map, row, column)
    if cells then
        return cells[name]
    end
    local file = io.open("ev/map" .. map .. "/ev" .. row .. column, "rb")
    local text = file and string.gsub(file:read("*a") or "", "^\r\n", "")
    if file then
        file:close()
    end
    return text
end

-- Lua takes an ev.lua in which an "end" too many has its "if" further down, and runs lines
-- where they do not belong. Each cell by itself shows the wrong ones and saves the others.
local function separateCells()
    if not cells then
        local found, wrong = findCells()
        cells = wrong > 0 and found or nil
    end
end

local function refuse() error("no line may run") end

local nothing = setmetatable({}, { __index = refuse, __newindex = refuse })

-- Runs the events for no cell of a map. Whatever a line of theirs does then shows that it lies
-- outside its cell.
function jeu.probeEvents(map)
    if type(runev) == "function" and pcall(setfenv, runev, nothing) then
        local isEmpty = pcall(runev, 0, 0, map)
        setfenv(runev, jeu.globals)
        if not isEmpty then
            collectgarbage()
            separateCells()
        end
    end
end

-- What Lua would let pass in a cell that runs for the first time.
local function newSlips(name, map, row, column)
    local text = not checked[name] and linesOfCell(name, map, row, column)
    checked[name] = true
    if not text then
        return {}
    end
    if not compile(name, text) then
        separateCells()
    end
    local slips = {}
    for i, slip in ipairs(jeu.slipsOf(text)) do
        if jeu.isSlip(slip) then
            table.insert(slips, slip)
        end
    end
    return slips
end

-- The function to run for a cell. A cell that Lua refuses says so when it is met first.
local function functionOf(name)
    if not cells then
        return runev
    end
    local run, message = nil, nil
    if cells[name] and not refused[name] then
        run, message = compile(name, cells[name])
        if not run then
            refused[name] = true
            jeu.tellLater(jeu.describeFault(name, cells[name], message))
        end
    end
    return run
end

-- Tells the slips that still are some after the event, but not what failed by itself.
local function tellSlips(slips, name, failure)
    for i, slip in ipairs(slips) do
        local place = name .. ", line " .. slip.line .. ": "
        if jeu.isSlip(slip) and not string.find(failure, place, 1, true) then
            jeu.tellLater(place .. slip.words)
        end
    end
end

-- Runs the event of a cell of the map to its end. A mistake in its lines ends the event, not
-- the game; what is wrong is kept to be told.
function jeu.runLines(map, row, column)
    local name = jeu.cellName(map, row, column)
    jeu.currentCell = name
    local slips, run = newSlips(name, map, row, column), functionOf(name)
    local ran, message = true, nil
    if type(run) == "function" then
        ran, message = xpcall(function() run(column, row, map) end, jeu.withPlace)
    end
    -- Lines that took all memory leave none for the message.
    if not ran then collectgarbage() end
    changed = jeu.settleHero()
    local failure = not ran and jeu.describeError(tostring(message), name)
    tellSlips(slips, name, failure or "")
    if failure then
        jeu.tellLater(failure)
    end
    jeu.currentCell = nil
end

-- ------------------------------------------------------------- a new game

-- Runs what can be run of a script whose lines stand for themselves. Answers whether a wrong
-- line was found and told.
local function runLineByLine(path)
    local file = io.open(path, "rb")
    if not file then
        return false
    end
    local number, told = 0, false
    for line in file:lines() do
        number = number + 1
        local set, message = loadstring(line, "=" .. path)
        if set then
            pcall(set)
        elseif not told then
            told = true
            jeu.tellLater(path .. ", line " .. number .. ": " .. jeu.syntaxWords(line, message))
        end
    end
    file:close()
    return told
end

local function loadVariables()
    var = {}
    local ran, message = pcall(dofile, "variables.lua")
    if not ran and not runLineByLine("variables.lua") then
        jeu.tellLater("variables.lua has a mistake: " .. tostring(message))
    end
end

-- A new game's hero, variables and events.
function jeu.reset()
    jeu.messages = {}
    hero = setmetatable({}, guard)
    jeu.hero = hero
    jeu.putHero(1, 1)
    jeu.life = jeu.startLife
    jeu.facing = "face"
    jeu.nextMap, jeu.arrival = nil, nil
    jeu.startsTold = {}
    loadVariables()
    loadEvents()
end

-- --------------------------------------------------------- waits of events

-- An event that changes the hero and then waits wants the change to be seen meanwhile, so
-- its `screen` draws the game before it waits. Everything else goes to the real screen.
local eventScreen = {}

function eventScreen.waitVblankStart(frames, count)
    if frames == eventScreen then
        frames = count
    end
    if frames ~= nil and not tonumber(frames) then
        jeu.complain("a pause needs a number of frames, not " .. tostring(frames))
        return
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
    local function call(first, a, b, c, d, e, f, g)
        if first == screenOfEvents then
            first = display
        end
        return member(unpack({ first, a, b, c, d, e, f, g }))
    end
    rawset(screenOfEvents, name, call)
    return call
end

screen = setmetatable(eventScreen, { __index = relay })
