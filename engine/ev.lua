-- The events of a new game: none yet. The editor writes this file anew before each test.

function runev(colonne,ligne,map)
end
