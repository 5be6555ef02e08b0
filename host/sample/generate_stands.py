#!/usr/bin/env python3
"""Writes stands.sql: the stands of the sample forest, some five thousand rows of WALDORT.

The forest is the same on every run and every machine: choices come from a small generator of our own and not from
the random module, whose sequences may differ between versions. Standard library only.

Besides well-kept stands the forest has what grown databases have: intermediate levels without a row of their own,
keys with a gap, keys with trailing blanks, keys that came in longer than a dialog allows, doubled keys, a row without
any key, disabled, centrally kept and foreign stands.
"""

import pathlib

MAX_ROWS = 500  # rows of one INSERT; SQL Server takes at most 1000
LEVELS = 6

# Forest offices: key, long name, species that grow there (code, weight), access level by forest district
# (None: common, seen by all), place names of the cadastre.
OFFICES = [
    ("Eifel", "Forstamt Eifel", "BU4 EI3 FI3 DGL2 KI1", [None] * 4, ["Gerolstein", "Kyllburg", "Mürlenbach", "Prüm"]),
    ("Harz", "Forstamt Harz", "FI6 BU2 LÄ1 EB1 AH1", [None] * 5, ["Bad Grund", "Lautenthal", "Schierke", "Sieber"]),
    ("Müritz", "Forstamt Müritz", "KI6 BU2 EI2 BI1 ER1", [1, 2, 3, None], ["Röbel", "Waren", "Federow", "Speck"]),
    ("Rhön", "Forstamt Rhön", "BU6 FI2 ES1 AH1 LÄ1", [None] * 4, ["Gersfeld", "Ehrenberg", "Poppenhausen", "Tann"]),
    ("Söhre", "Forstamt Söhre", "BU4 FI3 DGL2 EI1 LÄ1", [None, None, 8], ["Söhrewald", "Wellerode", "Eiterhagen"]),
    ("Spree", "Forstamt Spreewald", "KI5 ER3 EI2 BI2", [4, 5, 5, None], ["Lübben", "Burg", "Lübbenau", "Schlepzig"]),
    ("Taunus", "Forstamt Taunus", "BU3 EI3 FI3 DGL2 KI1", [None] * 4, ["Königstein", "Schmitten", "Oberems"]),
    ("Wörth", "Forstamt Bienwald", "EI4 KI4 BU2 HBU1 REI1", [6, 7, None], ["Wörth", "Büchelberg", "Schaidt"]),
]
DISTRICTS = ["Mühlbach", "Birkenhain", "Grünau", "Hochwald", "Steinkopf", "Lärchental", "Königsstuhl", "Erlengrund"]
BLOCKS = ["I", "II", "III", "IV", "Höhe", "Süd"]
HILLS = ["Kohlplatte", "Rosskopf", "Hühnerberg", "Wolfsgrund", "Schöne Aussicht", "Dachsbau", "Teufelsmühle",
         "Hirschsprung", "Alte Schanze", "Breiter Weg", "Sauloch", "Fürstenbrunnen", "Eichelkopf", "Weißer Stein",
         "Köhlerplatz", "Langer Rain", "Hölle", "Sonnenhang"]
SPECIES = {"BU": "Buchen", "EI": "Eichen", "FI": "Fichten", "DGL": "Douglasien", "KI": "Kiefern", "LÄ": "Lärchen",
           "EB": "Ebereschen", "AH": "Ahorn", "BI": "Birken", "ER": "Erlen", "ES": "Eschen", "HBU": "Hainbuchen",
           "REI": "Roteichen"}
DISABLED_BLOCK = ("Rhön", "03", "II")  # handed over to a neighbour: closed as a whole


class Choice:
    """A linear congruential generator: small, and the same everywhere."""

    def __init__(self, seed):
        self.state = seed

    def below(self, n):
        self.state = (self.state * 6364136223846793005 + 1442695040888963407) % 2**64
        return (self.state >> 33) % n

    def between(self, low, high):
        return low + self.below(high - low + 1)

    def one_of(self, items):
        return items[self.below(len(items))]


class Stand:
    """One row. Text levels that are not in use are None; area in hectares times 10,000."""

    def __init__(self, key, level, name):
        self.key = key + (None,) * (LEVELS - len(key))
        self.level = level
        self.name = name
        self.area = 0
        self.disabled = self.central = None
        self.species = self.age = self.place = self.parcel = self.part = None


def growth_stage(age):
    for limit, stage in ((10, "Kultur"), (25, "Dickung"), (50, "Stangenholz"), (100, "Baumholz")):
        if age < limit:
            return stage
    return "Altholz"


def weighted(text):
    """'BU4 EI3' -> a list in which each code stands as often as its weight says."""
    codes = []
    for item in text.split():
        code = item.rstrip("0123456789")
        codes += [code] * int(item[len(code):])
    return codes


def grow(choice):
    """The well-kept forest: every stand with all the levels above it."""
    stands = []

    def add(key, level, name):
        stands.append(Stand(key, level, name))
        return stands[-1]

    def plant(stand, species, places):
        code = choice.one_of(species)
        age = choice.between(1, 180 if code in ("BU", "EI") else 120)
        stand.species, stand.age = code, age
        stand.name = stand.name or f"{SPECIES[code]}-{growth_stage(age)}"
        stand.area = choice.between(1500, 98000)
        stand.place = choice.one_of(places)
        number = choice.between(1, 240)
        stand.parcel = f"{number}/{choice.between(1, 12)}" if choice.below(2) else str(number)
        stand.part = choice.one_of(["A", "B", "C"]) if choice.below(6) == 0 else None

    for office, office_name, species_text, district_levels, places in OFFICES:
        species = weighted(species_text)
        top = add((office,), None, office_name)
        top.central = 1
        compartment = 0
        for d, level in enumerate(district_levels):
            district = (office, f"{d + 1:02}")
            add(district, level, "Revier " + DISTRICTS[(d + len(office)) % len(DISTRICTS)])
            for block in BLOCKS[:choice.between(2, 4)] if d % 2 == 0 else BLOCKS[-choice.between(2, 4):]:
                add(district + (block,), level, f"Distrikt {block} {choice.one_of(HILLS)}")
                for _ in range(choice.between(4, 9)):
                    compartment += 1
                    place = district + (block, str(compartment))
                    row = add(place, level, choice.one_of(HILLS))
                    if choice.below(12) == 0:  # a compartment that is one stand
                        plant(row, species, places)
                        continue
                    for sub in "abcd"[:choice.between(1, 3)]:
                        row = add(place + (sub,), level, None)
                        if choice.below(8) == 0:
                            plant(row, species, places)
                            continue
                        row.name = f"Unterabteilung {compartment} {sub}"
                        for number in range(choice.between(2, 4)):
                            plant(add(place + (sub, str(number)), level, None), species, places)
    return stands


def weather(stands, choice):
    """Gives the forest the irregularities of a grown database."""
    kept = []
    for stand in stands:
        depth = sum(part is not None for part in stand.key)
        leaf = stand.species is not None
        if not leaf and stand.level is None and depth in (3, 4, 5) and choice.below(45) == 0:
            continue  # a level above others that has no row of its own
        if stand.key[:3] == DISABLED_BLOCK or leaf and choice.below(50) == 0:
            stand.disabled = 1
        elif choice.below(10) == 0:
            stand.disabled = 0  # NULL and 0 both mean in use
        if leaf and choice.below(70) == 0:
            stand.central = 1
        if leaf and choice.below(60) == 0:
            stand.name = None
        if leaf and stand.key[5] is not None and choice.below(220) == 0:
            stand.key = stand.key[:5] + (stand.key[5] + "  ",)
        kept.append(stand)
        if leaf and choice.below(400) == 0:  # a key that was entered twice
            twin = Stand(tuple(p for p in stand.key if p is not None), stand.level, (stand.name or "") + " (doppelt)")
            kept.append(twin)
    for number in range(1, 13):  # keys with a gap: a block or compartment, but no forest district
        office = OFFICES[number % len(OFFICES)][0]
        gap = Stand((office, None, "VI", str(900 + number)), None, "Restfläche ohne Revier")
        gap.area = 1000 * number
        kept.append(gap)
    kept.append(Stand((), None, "Nicht zugeordnet"))
    kept.append(Stand(("Harz", "Stiftungswald Heilig-Geist-Spital"), None, "Stiftungswald"))
    kept.append(Stand(("Harz", " 9"), None, "Revier mit führendem Leerzeichen"))
    return kept


def sum_areas(stands):
    """The area of a level is that of the stands below it."""
    total = {}
    for stand in stands:
        if stand.species is not None and not stand.disabled:
            depth = sum(part is not None for part in stand.key)
            for n in range(1, depth):
                total[stand.key[:n]] = total.get(stand.key[:n], 0) + stand.area
    for stand in stands:
        if stand.species is None and stand.area == 0:
            key = tuple(part for part in stand.key if part is not None)
            stand.area = total.get(key, 0)


def text(value):
    return "NULL" if value is None else "N'" + value.replace("'", "''") + "'"


def number(value):
    return "NULL" if value is None else str(value)


def area(value):
    return f"{value // 10000}.{value % 10000:04}"


def row(stand):
    values = [text(part) for part in stand.key]
    values += [number(stand.level), number(stand.disabled), number(stand.central), text(stand.name), area(stand.area)]
    if stand.species is not None:
        values += [text(stand.species), number(stand.age), text(stand.place), text(stand.parcel), text(stand.part)]
    return "(" + ",".join(values) + ")"


def inserts(stands, columns):
    for start in range(0, len(stands), MAX_ROWS):
        yield f"INSERT INTO WALDORT ({columns}) VALUES"
        yield ",\n".join(row(stand) for stand in stands[start:start + MAX_ROWS])
        yield "GO"


def main():
    choice = Choice(20240117)
    stands = weather(grow(choice), choice)
    sum_areas(stands)
    columns = "WO1,WO2,WO3,WO4,WO5,WO6,ID_ACCESS_LEVELS,DISABLE,ZENTRALE,LANGNAME,FLAECHE"
    lines = ["-- The stands of the sample forest. Written by generate_stands.py: change that, not this.",
             "-- First the levels above the stands, then the stands."]
    lines += inserts([stand for stand in stands if stand.species is None], columns)
    lines += inserts([stand for stand in stands if stand.species is not None],
                     columns + ",HAUPT_HA,AL_TER,GEMARKUNG,FLURSTUECK,PARZELLE")
    target = pathlib.Path(__file__).with_name("stands.sql")
    target.write_text("\n".join(lines) + "\n", encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main()
