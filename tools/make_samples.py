#!/usr/bin/env python3
"""Writes the bundled sample replays: Windows-1250 text with CR LF line ends."""
import re
from pathlib import Path

SAMPLES = Path(__file__).resolve().parent.parent / "samples"

# Day 19 cannot be a month, so this one reads the same either way.
ALFA = """0;Alfa;2;3;2;3
2004-06-19-08-00-00;create_world;NNBSXN
2004-06-19-08-10-00;create_hq;Karel;les;A0
2004-06-19-08-20-30;create_hq;Jana;louka;C1
2004-06-19-09-05-00;buy;A0;Vosička;4
2004-06-19-09-40-00;attack;A0;B0;4;1;3
"""

# Eight columns, six rows, four players: every action keyword, hours and the protection
# day crossed, a headquarters taken, and a final attack so the world's end is appended.
BATTLE = """0;Bitva u potoka;4;8;6;3
2004-07-03-07-00-00;create_world;NNBNSNNNNBNNXNBNSNNNNSNNNNXNNNBNNNBNNSNNNNNNBNNN
2004-07-03-07-05-12;create_hq;Karel;les;A0
2004-07-03-07-11-40;create_hq;Jana;louka;H5
2004-07-03-07-20-05;create_hq;Petr;les;A5
2004-07-03-07-31-55;create_hq;Eva;louka;H0
2004-07-03-07-45-00;buy;A0;Beruška;10
2004-07-03-07-52-10;buy;H5;Vosička;8
2004-07-03-08-03-30;buy;A5;Chrobák;6
2004-07-03-08-15-00;buy;H0;Komár;20
2004-07-03-08-40-00;attack;A0;B0;5;1;5
2004-07-03-08-55-00;attack;H5;G5;4;1;4
2004-07-03-09-10-20;attack;A5;B5;3;1;3
2004-07-03-09-30-00;attack;H0;G0;10;1;9
2004-07-03-10-02-45;move;A0;B0;3
2004-07-03-10-30-00;attack;B0;B1;4;1;3
2004-07-03-11-15-00;buy;G5;Hovado;5
2004-07-03-11-40-10;convert_gnd;B1;N
2004-07-03-12-20-00;trade;Karel;Petr;50
2004-07-03-13-05-00;attack;G0;F0;5;0;2
2004-07-03-14-00-00;buy;B5;Šváb;3
2004-07-03-15-25-00;retreat;G0;2
2004-07-03-16-10-00;attack;G5;F4;4;1;4
2004-07-03-18-45-00;move;H5;G5;4
2004-07-03-21-00-00;buy;A0;Beruška;12
2004-07-04-06-30-00;attack;A0;A1;6;1;6
2004-07-04-07-20-00;attack;B1;C2;3;1;2
2004-07-04-07-40-00;attack;G5;F5;5;1;4
2004-07-04-08-15-00;attack;F4;E3;3;1;3
2004-07-04-09-00-00;buy;H0;Šváb;4
2004-07-04-09-30-00;convert_gnd;F4;B
2004-07-04-10-10-00;attack;H0;G1;8;1;7
2004-07-04-11-00-00;trade;Jana;Eva;40
2004-07-04-12-00-00;move;A1;B1;4
2004-07-04-12-45-00;attack;C2;D3;2;0;1
2004-07-04-13-30-00;retreat;A0;3
2004-07-04-14-10-00;buy;E3;Vosička;10
2004-07-04-15-00-00;attack;E3;D3;9;1;7
2004-07-04-15-40-00;attack;D3;C3;6;1;5
2004-07-04-16-20-00;attack;B5;C4;3;1;2
2004-07-04-17-00-00;buy;A5;Chrobák;12
2004-07-04-17-30-00;attack;A5;B4;10;1;9
2004-07-04-18-10-00;attack;C3;B3;5;1;4
2004-07-04-18-50-00;attack;B3;A4;3;1;3
2004-07-04-19-30-00;attack;A4;A5;3;1;2
2004-07-04-20-15-00;move;A5;A4;1
2004-07-04-21-00-00;buy;H5;Hovado;10
2004-07-04-22-30-00;attack;H5;G4;9;1;8
2004-07-05-08-00-00;retreat;G4;3
2004-07-05-09-00-00;attack;B1;B2;4;1;3
2004-07-05-09-45-00;attack;A1;A2;2;0;0
2004-07-05-10-30-00;buy;B2;Komár;15
2004-07-05-11-15-00;attack;B2;C3;18;0;1
2004-07-05-12-00-00;attack;G4;F3;4;1;3
"""


def day_first(text: str) -> str:
    """Time stamps read year-day-month; the battle above is written year-month-day for people."""
    return re.sub(r"^(\d{4})-(\d{2})-(\d{2})-", r"\1-\3-\2-", text, flags=re.M)


def write(name: str, text: str) -> None:
    (SAMPLES / name).write_bytes(text.replace("\n", "\r\n").encode("cp1250"))


if __name__ == "__main__":
    SAMPLES.mkdir(exist_ok=True)
    write("alfa.trp", ALFA)
    write("bitva-u-potoka.trp", day_first(BATTLE))
