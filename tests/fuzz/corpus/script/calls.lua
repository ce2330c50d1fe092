function runev(colonne,ligne,map)
if map == "01" then
    if ligne == 1 and colonne == 1 then
affichertexte("Bonjour")
screen.waitVblankStart(2)
hero.vie = hero.vie - 1
if var[1] == "0" then
var[1] = "on"
end
    end
end
end
