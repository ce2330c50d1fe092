"""The figures' pixels as text: 18 letters a row, the colours are in people.py."""

FRONT_HEAD = [
    "......ooo.ooo.....",
    "....oohHHohHho....",
    "..oohhhHHHHhhhoo..",
    ".ohhhhHHhhhHHhhho.",
    ".ohhhHhhhhhhhhhho.",
    ".ohhhhhdhhhhhdhho.",
    ".ohhdhhsdhhhdshho.",
    ".ohdssssdhdsssdho.",
    ".ohdsesssssesssho.",
    ".ohsswesssswessho.",
    ".odsseesssseessdo.",
    "..oSssssmmssssSo..",
    "...oSssssssssSo...",
]
FRONT_TORSO = [
    "...ooccccccccoo...",
    "..oRrCccccccCrqo..",
    ".oRrorrCccCrroqqo.",
    ".oRrorRrrrrrqoqqo.",
    ".ossoyyyyyyyyosso.",
]
FRONT_TORSO_STEP = [
    "...ooccccccccoo...",
    "..oRrCccccccCrqo..",
    ".oRrorrCccCrroqqo.",
    ".oRrorRrrrrrqosso.",
    ".oRroyyyyyyyyosso.",
]
FRONT_LEGS = [
    "..oooRrrrrrrqooo..",
    "....oRrrrrrrqo....",
    "....oqqqooqqqo....",
    "....obbboobbBo....",
    "....obbboobbBo....",
    "....okkkookkko....",
    "....oKkkooKkko....",
    "....oooo..oooo....",
]
FRONT_LEGS_STEP = [
    ".ossoRrrrrrrqooo..",
    ".ossoRrrrrrrqo....",
    "..oooqqqooqqqo....",
    "....obbboobbBo....",
    "....obbboobbBo....",
    "....obbbooKkko....",
    "....okkkookkko....",
    "....oKkko.ooo.....",
    "....ooooo.........",
]
BACK_HEAD = [
    "......ooo.ooo.....",
    "....oohHHohHho....",
    "..oohhhHHHHhhhoo..",
    ".ohhhHHHhhhHHhhho.",
    ".ohhHHhhhhhhHHhho.",
    ".ohhHhhhhdhhhhhho.",
    ".ohhhhhhdhhhhhhho.",
    ".ohhhhhhhhhhhdhho.",
    ".ohhhdhhhhhhdhhdo.",
    ".ohdhhdhhhdhhhhdo.",
    ".odhdhhdhdhhhdhdo.",
    "..oddddhhddhdddo..",
    "...oododdddodoo...",
]
BACK_TORSO = [
    "...ooccccccccoo...",
    "..oRrCccccccCrqo..",
    ".oRrorrrrCcrroqqo.",
    ".oRrorRrrrccqoqqo.",
    ".ossoyyyyyccyosso.",
]
BACK_TORSO_STEP = [
    "...ooccccccccoo...",
    "..oRrCccccccCrqo..",
    ".oRrorrrrCcrroqqo.",
    ".oRrorRrrrrcCosso.",
    ".oRroyyyyyyccosso.",
]
SIDE_HEAD = [
    ".....ooo.ooo......",
    "...oohHhohHhoo....",
    "..ohhhHHHHHHhhoo..",
    ".ohhhHHhhhHHhhhho.",
    ".ohhHHhhhhhhhhhho.",
    ".ohhhhhhhhhhhhhho.",
    ".ohhhhhhhhhdhdhho.",
    ".ohhhhhhhhdssdhho.",
    ".ohhhhdhhdsssesso.",
    ".ohhhdSsdssswesso.",
    ".odhhdSsdssseesso.",
    "..odhhddssssssso..",
    "...oddSssssssSo...",
]
SIDE_TORSO = [
    "...oocccccccco....",
    "..occCRrcccrqo....",
    "...ooRrqRrqrqo....",
    "....oRrqRrqrqo....",
    "....oyyqssqyyo....",
]
SIDE_TORSO_FORTH = [
    "..ooocccccccco....",
    ".occcCRrcccrqo....",
    "..oooRrqRrrrqo....",
    "....oRrrqRrrqoo...",
    "....oyyyyqrRsso...",
]
SIDE_TORSO_BACK = [
    "...oocccccccco....",
    "..occCRrcccrqo....",
    "..occqRrqrrrqo....",
    "...oqRrqrrrrqo....",
    "..ossRqyyyyyyo....",
]
SIDE_LEGS = [
    "....oRrqssqrqo....",
    "....oRrrqqrrqo....",
    "....oqqqqqqqqo....",
    ".....obbbbbBo.....",
    ".....obbbbbBo.....",
    ".....okkkkkko.....",
    ".....okkkkKKko....",
    ".....ooooooooo....",
]
SIDE_LEGS_NEAR = [
    "....oRrrrqqsso....",
    "....oRrrrrrqoo....",
    "....oqqqqqqqqo....",
    "....obbbbbbbbo....",
    "...oBBBoobbbbo....",
    "..oBBBo..obbbo....",
    "..okkko..okkkoo...",
    "..okkoo..okkKKko..",
    "...oo....ooooooo..",
]
SIDE_LEGS_FAR = [
    "..ossqrrrrrrqo....",
    "...ooRrrrrrrqo....",
    "....oqqqqqqqqo....",
    "....obbbbbBBBo....",
    "...obbbooBBBBo....",
    "..obbbo..oBBBo....",
    "..okkko..okkkoo...",
    "..okKoo..okkkkko..",
    "...oo....ooooooo..",
]
