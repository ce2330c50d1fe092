-- Goes through every state that the game in the folder `project` can get into, by its own events, and
-- answers the states from which the ending cannot be reached any more; the empty text when there are
-- none. Ways that cost life do not count: the hero may be down to the last point.

local function content(name)
    local file = assert(io.open(project .. "/" .. name, "rb"))
    local text = file:read("*a")
    file:close()
    return text
end

local starts, blocks = {}, {}
local function load(map)
    if not starts[map] then
        starts[map], blocks[map] = content("map" .. map .. ".map"), content("map" .. map .. ".ev")
    end
end

local function isFree(map, x, y)
    local at = (y - 1) * 19 + x
    return x >= 1 and x <= 17 and y >= 1 and y <= 8 and string.sub(blocks[map], at, at) ~= "1"
end

local function isOnMap(x, y)
    return x >= 1 and x <= 17 and y >= 1 and y <= 8
end

-- ----------------------------------------------------------- the engine, as events see it

local nextMap

function affichertexte() end
function runmap(map)
    nextMap, hero.x, hero.y = map, nil, nil
end
screen = { waitVblankStart = function() end }

dofile(project .. "/variables.lua")
dofile(project .. "/ev.lua")

-- ------------------------------------------------------------------------------ the states

local function stateOf(map, x, y)
    assert(isFree(map, x, y), "the hero stands on a block of map " .. map .. ": " .. x .. "," .. y)
    return { map = map, x = x, y = y, var = { unpack(var) },
        key = table.concat({ map, x, y, unpack(var) }, " "), from = {} }
end

local function open(map, x, y)
    load(map)
    local start = starts[map]
    return stateOf(map, x or tonumber(string.sub(start, 1, 2)), y or tonumber(string.sub(start, 3, 4)))
end

-- The state after the hero goes to a cell, or touches it where it is blocked; and whether that hurt.
local function after(state, x, y)
    local free = isFree(state.map, x, y)
    var, nextMap = { unpack(state.var) }, nil
    hero = { x = free and x or state.x, y = free and y or state.y, vie = 100 }
    runev(x, y, state.map)
    return open(nextMap or state.map, hero.x, hero.y), hero.vie < 100
end

local known, order = {}, {}
local function note(state)
    if not known[state.key] then
        known[state.key] = state
        table.insert(order, state)
    end
    return known[state.key]
end

local function explore(state)
    for _, way in ipairs({ { 0, -1 }, { 0, 1 }, { -1, 0 }, { 1, 0 } }) do
        local x, y = state.x + way[1], state.y + way[2]
        if isOnMap(x, y) then
            local reached, hurt = after(state, x, y)
            reached = note(reached)
            if not hurt then
                table.insert(reached.from, state)
            end
        end
    end
end

note(open("01"))
local explored = 0
while order[explored + 1] do
    explored = explored + 1
    explore(order[explored])
end

-- ------------------------------------------------------------------- back from the ending

local leading = {}
for _, state in ipairs(order) do
    if state.var[1] == "5" then
        state.leads = true
        table.insert(leading, state)
    end
end
while leading[1] do
    for _, state in ipairs(table.remove(leading).from) do
        if not state.leads then
            state.leads = true
            table.insert(leading, state)
        end
    end
end

local stuck = ""
for _, state in ipairs(order) do
    if not state.leads then
        stuck = stuck .. state.key .. "\n"
    end
end
return stuck
