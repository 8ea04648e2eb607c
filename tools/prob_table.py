"""The built-in emission probability table, read back from src/prediction/prob_table_rows.inc.

    import prob_table
    table = prob_table.load_table()   # table[io][cml], 0..360 each, whole percent

The rows are expanded by the same rule as the program: the rows joined into one
text, cut at each "X", the run tokens u, y, z, w replaced in that order, the
first 359 "_"-ended fields going to CML 1..359 (0 once no "_" is left) and what
remains to CML 360. Row 0 and column 0 stay 0. Python 3, standard library only.
"""

import os
import re

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
INC_PATH = os.path.join(ROOT, "src", "prediction", "prob_table_rows.inc")

# Run tokens in the order the expansion replaces them: token, value, run length.
TOKENS = [("u", 8, 8), ("y", 12, 5), ("z", 20, 4), ("w", 11, 4)]


def read_rows(path=INC_PATH):
    """The 360 packed rows held as string literals in the .inc file."""
    with open(path, encoding="ascii") as f:
        rows = re.findall(r'^\s*"([^"]*)",\s*$', f.read(), re.MULTILINE)
    if len(rows) != 360:
        raise ValueError("%s holds %d rows, not 360" % (path, len(rows)))
    return rows


def leading_number(text):
    """The leading whole number of a field, 0 when it has none."""
    match = re.match(r"\s*(\d+)", text)
    return int(match.group(1)) if match else 0


def expand_rows(rows):
    """Packed rows to a 361 x 361 list of ints, [io][cml]."""
    table = [[0] * 361 for _ in range(361)]
    pool = "".join(rows)
    for r in range(1, 361):
        cut = pool.find("X")
        row, pool = (pool[:cut], pool[cut + 1 :]) if cut >= 0 else (pool, "")
        for token, value, run in TOKENS:
            row = row.replace(token, "_".join([str(value)] * run))
        for c in range(1, 360):
            bar = row.find("_")
            if bar < 0:
                continue  # no field left: the cell stays 0
            table[r][c] = leading_number(row[:bar])
            row = row[bar + 1 :]
        table[r][360] = leading_number(row)
    return table


def load_table(path=INC_PATH):
    """The expanded table: 361 lists of 361 ints, table[io][cml]."""
    return expand_rows(read_rows(path))


if __name__ == "__main__":
    t = load_table()
    print("ProbTable(90,136) =", t[90][136], " (1,1) =", t[1][1], " (12,359) =", t[12][359], " (12,360) =", t[12][360])
