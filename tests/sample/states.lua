-- Goes through every state that the game in the folder `project` can get into, by its own events, and
-- answers the first state from which the ending cannot be reached any more; the empty text when there is
-- none. Ways that cost life do not count: the hero may be down to the last point.

local function content(name)
    local file = assert(io.open(project .. "/" .. name, "rb"))
    local text = file:read("*a")
    file:close()
    return text
end

local maps = setmetatable({}, { __index = function(maps, number)
    local x, y = string.match(content("map" .. number .. ".map"), "^(%d%d)(%d%d)")
    maps[number] = { x = tonumber(x), y = tonumber(y), blocks = content("map" .. number .. ".ev") }
    return maps[number]
end })

local function isOnMap(x, y)
    return x >= 1 and x <= 17 and y >= 1 and y <= 8
end

local function isFree(map, x, y)
    local at = (y - 1) * 19 + x
    return isOnMap(x, y) and string.sub(maps[map].blocks, at, at) ~= "1"
end

-- The engine, as events see it.
local nextMap
function affichertexte() end
function runmap(map)
    nextMap, hero.x, hero.y = map, nil, nil
end
screen = { waitVblankStart = function() end }
dofile(project .. "/variables.lua")
dofile(project .. "/ev.lua")

local known, order = {}, {}

-- The state of the hero on a cell, or at the start of a map, with the variables as they are.
local function stateAt(map, x, y)
    x, y = x or maps[map].x, y or maps[map].y
    assert(isFree(map, x, y), "the hero stands on a block of map " .. map .. ": " .. x .. "," .. y)
    local key = table.concat({ map, x, y, unpack(var) }, " ")
    if not known[key] then
        known[key] = { map = map, x = x, y = y, var = { unpack(var) }, key = key, ways = {} }
        table.insert(order, known[key])
    end
    return known[key]
end

-- The state after the hero goes to a cell, or touches it where it is blocked; and whether that hurt.
local function after(state, x, y)
    local free = isFree(state.map, x, y)
    var, nextMap = { unpack(state.var) }, nil
    hero = { x = free and x or state.x, y = free and y or state.y, vie = 100 }
    runev(x, y, state.map)
    return stateAt(nextMap or state.map, hero.x, hero.y), hero.vie < 100
end

stateAt("01")
local explored = 0
while order[explored + 1] do
    explored = explored + 1
    local state = order[explored]
    for _, way in ipairs({ { 0, -1 }, { 0, 1 }, { -1, 0 }, { 1, 0 } }) do
        local x, y = state.x + way[1], state.y + way[2]
        if isOnMap(x, y) then
            local reached, hurt = after(state, x, y)
            state.ways[reached] = state.ways[reached] or not hurt
        end
    end
end

-- Back from the ending.
local function leads(state)
    for reached, harmless in pairs(state.ways) do
        if harmless and reached.leads then
            return true
        end
    end
    return state.var[1] == "5"
end

repeat
    local grown = false
    for i = #order, 1, -1 do
        local state = order[i]
        if not state.leads and leads(state) then
            state.leads, grown = true, true
        end
    end
until not grown

for _, state in ipairs(order) do
    if not state.leads then
        return state.key
    end
end
return ""
