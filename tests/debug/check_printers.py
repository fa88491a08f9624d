"""Runs inside gdb: stops the program where its values are there, prints what each row of a table names, and compares.

Rows of the table are an expression and, behind ` => `, what gdb shows for it; `[Function]` begins the rows of the function that
calls `Stop` next. Ends gdb with 0, or with 1 where a row differs.
"""

import sys

import gdb


def end(status, message):
    print(message)
    sys.stdout.flush()
    gdb.execute(f"quit {status}")


def shown(expression):
    try:
        return gdb.execute(f"output {expression}", to_string=True)
    except gdb.error as failure:
        return f"error: {failure}"


def main(table):
    for setting in ("confirm off", "width 0", "print elements 16", "disable-randomization off"):
        gdb.execute(f"set {setting}")
    gdb.execute("break Stop", to_string=True)
    gdb.execute("run", to_string=True)
    rows = failures = 0
    with open(table, encoding="utf-8") as lines:
        for line in filter(None, (line.rstrip("\n") for line in lines)):
            if line.startswith("["):
                if rows:
                    gdb.execute("continue", to_string=True)
                gdb.execute("up", to_string=True)
                function = gdb.selected_frame().name()
                if function.split("::")[-1].split("(")[0] != line.strip("[]"):
                    end(1, f"{line}: the program is in {function}")
                continue
            expression, expected = (part.strip() for part in line.split(" => ", 1))
            found = shown(expression)
            rows += 1
            if found != expected:
                failures += 1
                print(f"{expression}\n  expected {expected}\n  shown    {found}")
    end(1 if failures or not rows else 0, f"{rows} rows, {failures} differ")


main(krcore_table)  # set by whoever runs this
