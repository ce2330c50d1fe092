-- What lies over the game: the talk box and the menus, of the title and in the game, and the
-- saved game that they offer.

local jeu, string, table, math, io = jeu, string, table, math, io
local type, tostring, tonumber, pcall, ipairs, pairs = type, tostring, tonumber, pcall, ipairs, pairs
local display = jeu.display

-- --------------------------------------------------------- the saved game

-- The file is read, never run: each line holds the name of a table, a key and a value. The
-- last line says that the file is whole.
local saveFile, spareFile = "sauve.txt", "sauve2.txt"
local saveHead, saveEnd = "save 1", "end"

local function escape(text)
    return (string.gsub(text, "[%c \\]", function(char)
        return string.format("\\%03d", string.byte(char))
    end))
end

local function unescape(text)
    return (string.gsub(text, "\\(%d%d%d)", function(code)
        return string.char(math.min(255, tonumber(code)))
    end))
end

local function encode(value)
    if type(value) == "string" then
        return "s:" .. escape(value)
    elseif type(value) == "number" then
        return "n:" .. string.format("%.17g", value)
    elseif type(value) == "boolean" then
        return "b:" .. tostring(value)
    end
end

local function decode(kind, text)
    if kind == "n" then
        return tonumber(text)
    elseif kind == "b" then
        return text == "true"
    end
    return unescape(text)
end

-- One line for each value that a file can hold.
local function tableText(name, content)
    local lines = {}
    for key, value in pairs(content) do
        local left, right = encode(key), encode(value)
        if left and right then
            table.insert(lines, name .. " " .. left .. " " .. right .. "\n")
        end
    end
    return table.concat(lines)
end

local function saveText()
    local place = { map = jeu.map.number, facing = jeu.facing }
    local variables = type(var) == "table" and var or {}
    local body = { x = jeu.place.x, y = jeu.place.y, vie = jeu.life }
    return saveHead .. "\n" .. tableText("place", place) .. tableText("hero", body) .. tableText("hero", hero)
        .. tableText("var", variables) .. saveEnd .. "\n"
end

local function writeSave(path, text)
    local file = io.open(path, "wb")
    if not file then
        return false
    end
    local written = file:write(text)
    local closed = file:close()
    return written and closed
end

-- Writes the game as it stands; false when it could not be written. The spare file goes first:
-- whenever the console is switched off, one of the two is whole.
function jeu.save()
    local text = saveText()
    return writeSave(spareFile, text) and writeSave(saveFile, text)
end

local function readSaveLine(save, line)
    local _, _, name, keyKind, keyText, kind, text =
        string.find(line, "^(%a+) ([nsb]):([^ ]*) ([nsb]):([^ ]*)$")
    if not name or not save[name] then
        return
    end
    local key, value = decode(keyKind, keyText), decode(kind, text)
    if key ~= nil and key == key then
        save[name][key] = value
    end
end

local function parseSave(path)
    local file = io.open(path, "rb")
    if not file then
        return nil
    end
    local save = { place = {}, hero = {}, var = {} }
    local whole, first = false, file:read("*l")
    if first == saveHead then
        for line in file:lines() do
            readSaveLine(save, line)
            whole = line == saveEnd
        end
    end
    file:close()
    local number = save.place.map
    return whole and type(number) == "string" and string.find(number, "^%d+$") and save or nil
end

-- The saved game as tables, or nil when there is none that can be used.
function jeu.readSave()
    for i, path in ipairs({ saveFile, spareFile }) do
        local readable, save = pcall(parseSave, path)
        if readable and save then
            return save
        end
    end
    return nil
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
    for i, line in ipairs(jeu.linesOf(string.gsub(text, "\t", "    "))) do
        addWrapped(lines, line)
    end
    return lines
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
    if text == nil then
        jeu.complain("there is no text to show; a text needs quotes")
        return
    end
    jeu.say(tostring(text))
end

-- Keeps a message for the author; a loop gives the same one only once.
function jeu.tellLater(text)
    if not jeu.messages[text] then
        jeu.messages[text] = true
        table.insert(jeu.messages, text)
    end
end

function jeu.tellMessages()
    local messages = jeu.messages
    jeu.messages = {}
    for i, text in ipairs(messages) do
        jeu.say(text)
    end
end

-- ------------------------------------------------------------------ menus

local function drawEntries(entries, chosen, left, top)
    for i, entry in ipairs(entries) do
        local y = top + (i - 1) * 18
        if i == chosen then
            jeu.print(display, left - 16, y, ">", jeu.gold)
            jeu.print(display, left, y, entry, jeu.gold)
        else
            jeu.print(display, left, y, entry)
        end
    end
end

local function count(list)
    local n = 0
    while list[n + 1] do
        n = n + 1
    end
    return n
end

local function moved(chosen, last)
    if jeu.fresh.up then
        chosen = chosen - 1
    elseif jeu.fresh.down then
        chosen = chosen + 1
    end
    return chosen < 1 and last or chosen > last and 1 or chosen
end

-- Lets the player choose one of `entries`, drawn from (left, top) over what `draw` shows.
-- canLeave: circle and start leave without a choice, which answers nil.
local function choose(entries, draw, left, top, canLeave)
    local chosen, shown = 1, nil
    jeu.readPad()
    repeat
        if chosen ~= shown then
            draw()
            drawEntries(entries, chosen, left, top)
            display.flip()
            shown = chosen
        end
        jeu.nextFrame()
        chosen = moved(chosen, count(entries))
        if canLeave and (jeu.fresh.circle or jeu.fresh.start) then
            return nil
        end
    until jeu.fresh.cross
    return entries[chosen]
end

local function drawTitle()
    display:blit(0, 0, jeu.titlePicture)
    local name = string.sub(jeu.gameName, 1, 56)
    jeu.print(display, 240 - 4 * string.len(name), 40, name, jeu.gold)
end

local function drawGameMenu()
    jeu.drawScene()
    display:blit(120, 56, jeu.menuPicture)
    jeu.print(display, 220, 70, "Pause", jeu.gold)
end

local function tellSaving()
    if jeu.save() then
        jeu.say("The game is saved.")
    else
        jeu.say("The game could not be saved.")
    end
end

function jeu.showGameMenu()
    local choice = choose({ "Resume", "Save", "Back to title" }, drawGameMenu, 200, 108, true)
    if choice == "Save" then
        tellSaving()
    end
    jeu.leaving = choice == "Back to title"
    jeu.drawScene()
    display.flip()
    jeu.nextFrame()
end

-- ------------------------------------------------------------------ title

local function copyInto(target, source)
    for key, value in pairs(source) do
        target[key] = value
    end
end

-- Puts the hero, the variables and the place of a saved game over those of a new one.
local function restore(save)
    local body = save.hero
    jeu.putHero(body.x, body.y)
    local life = tonumber(body.vie)
    jeu.life = life and life == life and life or jeu.life
    body.x, body.y, body.vie = nil, nil, nil
    copyInto(hero, body)
    if type(var) == "table" then
        copyInto(var, save.var)
    end
    if type(jeu.heroPictures[save.place.facing]) == "table" then
        jeu.facing = save.place.facing
    end
end

-- Starts a game: a new one, or `save` when there is one. Opening a map puts the hero on its
-- start, so the saved cell comes after it.
local function startGame(save)
    jeu.reset()
    local missing = jeu.openMap(save and save.place.map or jeu.firstMap, save and save.hero)
    if missing then
        jeu.drawScene = drawTitle
        jeu.say("The game cannot start: " .. missing .. ".")
        return
    end
    if save then
        restore(save)
    end
    jeu.play()
end

local function titleEntries(save)
    if save then
        return { "New game", "Continue", "Quit" }
    end
    return { "New game", "Quit" }
end

-- The whole game, from the first title to "Quit".
function jeu.run()
    jeu.loadSystemPictures()
    jeu.loadPlayPictures()
    jeu.gameName = jeu.setting("Jeu", "nom")
    while true do
        local save = jeu.readSave()
        local choice = choose(titleEntries(save), drawTitle, 208, 190, false)
        if choice == "Quit" then
            return
        end
        startGame(choice == "Continue" and save or nil)
    end
end
