-- Entry of the game: runs the events that authors wrote, and tells them which line of which
-- cell is wrong. Loads the other scripts and goes from the title to the game and back until
-- the player of the game quits.
--
-- The scripts keep to what Lua 5.0 and 5.1 have in common, so that a game runs on either.
-- Everything of the engine hangs on one table: the lines of an event live among the same
-- globals, and may call theirs what they like: the scripts keep Lua's own under local names.

jeu = {}

local jeu, string, table, math, io = jeu, string, table, math, io
local type, tostring, tonumber, pcall, error, ipairs = type, tostring, tonumber, pcall, error, ipairs
jeu.globals = _G
local loadText = loadstring

-- ---------------------------------------------------- the cells of ev.lua

local cellHead = "^    if ligne == (%d+) and colonne == (%d+) then$"
local mapHead = '^if map == "(%d+)" then$'
local cellEnd = "    end"

function jeu.cellName(map, row, column)
    return "map " .. map .. ", row " .. row .. ", column " .. column
end

-- The player of a very large game must not think that the script hangs.
local function breathe(number)
    if math.floor(number / 50000) * 50000 == number then
        jeu.display.waitVblankStart()
    end
end

-- Calls visit(name, head, lines, count) for the cells of ev.lua in their order, until one
-- answers true. head: the number of the line above the cell's. lines: the first `count` are
-- the cell's, up to the next head; the table is used again.
function jeu.eachCell(visit)
    local file = io.open("ev.lua", "rb")
    if not file then
        return
    end
    local lines, count, number, head = {}, 0, 0, 0
    local map, name
    for line in file:lines() do
        number = number + 1
        breathe(number)
        line = string.gsub(line, "\r$", "")
        local _, _, nextMap = string.find(line, mapHead)
        local _, _, row, column = string.find(line, cellHead)
        if nextMap or row then
            if name and visit(name, head, lines, count) then
                name = nil
                break
            end
            map = nextMap or map
            name = row and map and jeu.cellName(map, row, column)
            head, count = number, 0
        elseif name then
            count = count + 1
            lines[count] = line
        end
    end
    file:close()
    if name then
        visit(name, head, lines, count)
    end
end

-- The editor's files begin with an empty line, which is not the author's.
local function firstLine(lines)
    return lines[1] and string.find(lines[1], "%S") and 1 or 2
end

-- The author's lines of a cell. A line of theirs may look like the cell's end: the last one
-- counts.
function jeu.textOf(lines, count)
    while count > 0 and lines[count] ~= cellEnd do
        count = count - 1
    end
    return table.concat(lines, "\n", firstLine(lines), count - 1)
end

function jeu.linesOf(text)
    local lines, start = {}, 1
    text = string.gsub(text, "\r", "")
    while true do
        local feed = string.find(text, "\n", start, true)
        table.insert(lines, string.sub(text, start, (feed or 0) - 1))
        if not feed then
            return lines
        end
        start = feed + 1
    end
end

-- ------------------------------------------------------ places in messages

local inFile = "^ev%.lua:(%d+): ?(.*)$"
local inCell = "^(map %d+, row %d+, column %d+):(%d+): ?(.*)$"
local located = {}

-- Another game may run another ev.lua.
function jeu.forgetPlaces()
    located = {}
end

-- The cell and line that stand on a line of ev.lua, as a text; false for a line of no cell.
local function locate(number)
    if located[number] == nil then
        located[number] = false
        jeu.eachCell(function(name, head, lines, count)
            if number > head and number <= head + count then
                located[number] = name .. ", line " .. number - head + 1 - firstLine(lines)
            end
            return number <= head + count
        end)
    end
    return located[number]
end

local function hasPlace(message)
    return string.find(message, inFile) or string.find(message, inCell)
end

-- The place that begins a message, in the author's terms, and the rest; no place if it tells
-- none.
local function splitMessage(message)
    local _, _, number, rest = string.find(message, inFile)
    local place = number and locate(tonumber(number))
    if place then
        return place, rest
    end
    local _, _, name, line, words = string.find(message, inCell)
    if name then
        return name .. ", line " .. line, words
    end
    return nil, message
end

-- The innermost line of an event that runs now, as Lua begins its messages.
local function runningLine()
    for level = 2, 30 do
        local _, position = pcall(error, "", level)
        if hasPlace(position) then
            return position
        end
    end
    return ""
end

-- For an error that just happened: its message, that begins with its place if it has one.
-- lines: those that ran, innermost first; a player without them is still at the error.
function jeu.withPlace(message, lines)
    message = tostring(message)
    local _, _, line = string.find(lines or "", "(ev%.lua:%d+: )")
    local _, _, inner = string.find(lines or "", "(map %d+, row %d+, column %d+:%d+: )")
    return hasPlace(message) and message or (inner or line or runningLine()) .. message
end

-- Where the author's line that called the engine stands.
function jeu.here()
    return splitMessage(runningLine()) or jeu.currentCell or "outside the events"
end

-- Tells what is wrong with the line that runs, once the event is over.
function jeu.complain(words)
    jeu.tellLater(jeu.here() .. ": " .. words)
end

-- ------------------------------------------------------------- plain words

local unknownName = 'the name "%1" is unknown; a text needs quotes: "%1"'

-- Messages of both versions of Lua, the more special ones first.
local phrases = {
    { "attempt to call %a+ '(.-)' %(a nil value%)", 'there is no function "%1"' },
    { "attempt to .- global '(.-)' %(a nil value%)", unknownName },
    { "attempt to .- '(%a[%w_]*)' %(a nil value%)", '"%1" has no value' },
    { "attempt to .-a nil value", "a variable on this line has no value" },
    { "attempt to perform arithmetic .-%(?a string value", "a text that is no number is used to calculate" },
    { "attempt to compare .*nil", "a name or variable compared here has no value" },
    { "attempt to compare ", "< and > need two numbers: write tonumber(var[1]) for a variable" },
    { "no frame for .- million steps", "this loop never ends, so the event was stopped" },
    { "stack overflow", "a function calls itself without end" },
    { "unfinished string", "a text has no closing quote" },
    { "no loop to break", 'this "break" is in no loop' },
    { "'=' expected near '(.-)'", 'this is no command (at "%1")' },
    { "unexpected symbol near '<eof>'", "a value is missing at the end" },
    { "unexpected symbol near '(.-)'", 'a value is missing, or "%1" is too much' },
    { "'(.-)' expected.- near '<eof>'", '"%1" is missing at the end' },
    { "'(.-)' expected.- near '(.-)'", '"%1" is missing before "%2"' },
}

function jeu.plainWords(message)
    message = string.gsub(message, "`", "'")
    for i, phrase in ipairs(phrases) do
        if string.find(message, phrase[1]) then
            return (string.gsub(message, phrase[1] .. ".*$", phrase[2]))
        end
    end
    return message
end

-- A message of withPlace() for authors, without the engine's own lines. name: the cell, in case
-- that the message tells no place.
function jeu.describeError(message, name)
    local place, words = splitMessage(message)
    words = string.gsub(words, "^[mr]%a+%.lua:%d+: ", "")
    return (place or name) .. ": " .. (place and jeu.plainWords(words) or words)
end

local function withoutPlace(message)
    local _, _, words = string.find(message, "^.-:%d+: (.*)$")
    return words or message
end

-- What is wrong with a line that Lua refused with `message`.
function jeu.syntaxWords(line, message)
    local _, quotes = string.gsub(string.gsub(line, "\\.", ""), '"', "")
    if quotes > 2 then
        return "a quote inside the text ends it too early"
    elseif string.find(line, "~=") and quotes == 0 and not string.find(message, "<eof>") then
        return 'the value after ~= is wrong; a text needs quotes: ~= "yes"'
    elseif string.find(line, '\\"') and string.find(message, "unfinished string") then
        return "the \\ takes away the quote after it, so the text has no end"
    end
    return jeu.plainWords(withoutPlace(message))
end

-- ------------------------------------------------- the wrong line of a cell

-- How many blocks some lines close and open; nothing if they are wrong in any block. Inside
-- of blocks they are tried in a loop, that allows "break" and that no "end" of theirs closes.
local function blocksOf(text, depth)
    local head = depth > 0 and "repeat " or ""
    local tail = depth > 0 and "\nuntil 1" or ""
    for blocks = 0, 3 do
        for closes = 0, blocks do
            local opens = blocks - closes
            if loadText(head .. string.rep("if 1 then ", closes) .. text
                .. string.rep("\nend", opens) .. tail) then
                return closes, opens
            end
        end
    end
    if loadText("repeat " .. text) then
        return 1, 0
    elseif loadText(text .. "\nuntil 1") then
        return 0, 1
    end
end

-- Why Lua does not take some lines alone, and whether lines that follow may make them whole.
local function refusal(text)
    local _, message = loadText(text .. "\n", "=line")
    return message, message and string.find(message, "<eof>")
end

local longestStatement = 50

-- The last line of the statement that begins at line `first`, and its blocks. Without blocks
-- the line is the wrong one.
local function statement(lines, first, depth)
    local text, last = lines[first], first
    local closes, opens = blocksOf(text, depth)
    while not closes do
        local _, isOpen = refusal(text)
        if not isOpen or not lines[last + 1] or last - first > longestStatement then
            local _, wasOpen = refusal(lines[last])
            local isWrong = last > first and not wasOpen and not blocksOf(lines[last], depth)
            return isWrong and last or first
        end
        last = last + 1
        text = text .. "\n" .. lines[last]
        closes, opens = blocksOf(text, depth)
    end
    return last, closes, opens
end

local openers = { ["if"] = true, ["for"] = true, ["while"] = true, ["repeat"] = true, ["do"] = true,
    ["function"] = true }
local middles = { ["else"] = true, ["elseif"] = true }

local function firstWord(line, wanted)
    local first
    string.gsub(line, "%a+", function(word)
        first = first or ((not wanted or wanted[word]) and word)
    end)
    return first or "block"
end

-- The wrong line of a cell that Lua does not take, and what is wrong; nothing if each line
-- seems right.
local function findFault(lines)
    local open, depth, number = {}, 0, 1
    while lines[number] do
        local last, closes, opens = statement(lines, number, depth)
        if not closes then
            return last, jeu.syntaxWords(lines[last], refusal(lines[last]))
        end
        local word = firstWord(lines[number])
        if closes > depth then
            return number, middles[word] and 'this "' .. word .. '" belongs to no if'
                or "this " .. word .. " closes nothing"
        elseif middles[word] then
            closes, opens = closes - 1, opens - 1
        end
        depth = depth - closes
        for i = 1, opens do
            depth = depth + 1
            open[depth] = number
        end
        number = last + 1
    end
    if depth > 0 then
        return open[depth], 'this "' .. firstWord(lines[open[depth]], openers) .. '" has no end'
    end
end

-- The message about a cell that Lua refused with `message`.
function jeu.describeFault(name, text, message)
    local line, words = findFault(jeu.linesOf(text))
    if line then
        return name .. ", line " .. line .. ": " .. words
    end
    return jeu.describeError(message, name)
end

-- ------------------------------------------------------- slips in a cell

local keywords = { ["nil"] = true, ["true"] = true, ["false"] = true, ["not"] = true, ["function"] = true }

-- A line without its comment and with empty texts.
local function codeOf(line)
    line = string.gsub(line, "\\.", "")
    line = string.gsub(line, '"[^"]*"', '""')
    line = string.gsub(line, "'[^']*'", '""')
    return (string.gsub(line, "%-%-.*", ""))
end

-- The names that a cell makes itself.
local function ownNames(lines)
    local names = { colonne = true, ligne = true, map = true }
    for i, line in ipairs(lines) do
        local code = codeOf(line)
        if string.find(code, "local ") or string.find(code, "for ") or string.find(code, "function") then
            string.gsub(code, "[%a_][%w_]*", function(name)
                names[name] = true
            end)
        end
    end
    return names
end

local function addSlip(slips, slip, own)
    local name = string.find(slip.right, "^[%a_][%w_]*$") and not keywords[slip.right] and not own[slip.right]
    local _, _, key = string.find(slip.left, "^var%[(%d+)%]$")
    if name and not string.find(slip.following, "[%(%[:\"{]") then
        slip.words = (string.gsub(slip.right, "^(.*)$", unknownName))
        table.insert(slips, slip)
    elseif key and slip.operator ~= "=" and tonumber(slip.right) then
        slip.key = tonumber(key)
        slip.words = slip.left .. " holds a text, which is never equal to a number: type \""
            .. slip.right .. '" with quotes'
        table.insert(slips, slip)
    end
end

-- Comparisons and changes of variables that Lua takes but that cannot be meant: with a name
-- that nobody gave a value, or of a text with a number.
function jeu.slipsOf(text)
    local lines, slips = jeu.linesOf(text), {}
    local own = ownNames(lines)
    for number, line in ipairs(lines) do
        local code, start = codeOf(line), 1
        while start do
            local _, last, left, operator, right, following =
                string.find(code, "([vh][ae]r[%w_%.%[%]]*)%s*([=~]?=)%s*(%-?[%w_%.]+)%s*(.?)", start)
            if left and (operator ~= "=" or string.find(left, "^var%[")) then
                addSlip(slips, { line = number, left = left, operator = operator, right = right,
                    following = following }, own)
            end
            start = last
        end
    end
    return slips
end

-- Whether a slip is one, as the game's variables are now.
function jeu.isSlip(slip)
    if slip.key then
        return type(var) == "table" and type(var[slip.key]) == "string"
    end
    return jeu.globals[slip.right] == nil
end

dofile("ram.lua")
dofile("map.lua")
dofile("menustart.lua")

jeu.run()
