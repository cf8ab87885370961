#!/usr/bin/env python3
"""What a user would otherwise write: the example order form's rules over a CSV file, with the csv module
and regular expressions. Prints one line per broken value and a count at the end."""
import csv
import datetime
import re
import sys

NAME = re.compile(r"[A-Za-z '\-.\u0080-\uffff]{1,40}")
CODE = re.compile(r"[A-Z][A-Z]-[0-9]{4}")
ORDER = re.compile(r"[0-9]{6}")
DATE = re.compile(r"([0-9]{1,2})/([0-9]{1,2})/([0-9]{2,4})")
TIME = re.compile(r"([0-9]{1,2}):([0-9]{2})(?::([0-9]{2}))? ?(AM|PM)?", re.IGNORECASE)
INTEGER = re.compile(r"[+-]?[0-9]+")
DECIMAL = re.compile(r"[+-]?[0-9]+(?:\.([0-9]*))?")
GROUPED = re.compile(r"[+-]?[0-9]{1,3}(?:,[0-9]{3})*(?:\.([0-9]*))?")
SCIENTIFIC = re.compile(r"[+-]?[0-9]+(?:\.[0-9]*)?(?:[eE][+-]?[0-9]+)?")
LOWER = re.compile(r"[a-z]{0,12}")
PHONE = re.compile(r"[0-9 +\-()]{0,20}")
FIRST_DAY = datetime.date(2020, 1, 1)
LAST_DAY = datetime.date(2099, 12, 31)


def name(v):
    return bool(NAME.fullmatch(v)) and all(w[:1] == w[:1].upper() for w in v.split(" "))


def date(v):
    m = DATE.fullmatch(v)
    if not m:
        return False
    year = int(m[3])
    year = year + (2000 if year < 30 else 1900) if year < 100 else year
    try:
        day = datetime.date(year, int(m[1]), int(m[2]))
    except ValueError:
        return False
    return FIRST_DAY <= day <= LAST_DAY


def time(v):
    if v == "":
        return True
    m = TIME.fullmatch(v)
    if not m:
        return False
    hour, minute, second = int(m[1]), int(m[2]), int(m[3] or 0)
    if m[4]:
        if hour > 12:
            return False
        hour = hour % 12 + (12 if m[4].upper() == "PM" else 0)
    if hour > 23 or minute > 59 or second > 59:
        return False
    return 8 * 3600 <= hour * 3600 + minute * 60 + second <= 18 * 3600


def number(pattern, v, low=None, high=None, decimals=None, positive=False, negative=False, nonzero=False):
    m = pattern.fullmatch(v)
    if not m:
        return False
    x = float(v.replace(",", ""))
    if decimals is not None and m.lastindex and m[1] and len(m[1]) > decimals:
        return False
    return not ((low is not None and x < low) or (high is not None and x > high) or (positive and x < 0)
                or (negative and x > 0) or (nonzero and x == 0))


CHECKS = {
    "CustomerName": lambda v: v != "" and name(v),
    "CustomerCode": lambda v: bool(CODE.fullmatch(v)),
    "OrderNumber": lambda v: bool(ORDER.fullmatch(v)),
    "OrderDate": date,
    "DeliveryTime": time,
    "Quantity": lambda v: number(INTEGER, v, 1, 500, positive=True) and abs(int(v)) < 32768,
    "Discount": lambda v: number(DECIMAL, v, 0, 100, decimals=2),
    "UnitPrice": lambda v: number(GROUPED, v, decimals=2, positive=True, nonzero=True),
    "Weight": lambda v: v == "" or number(DECIMAL, v, None, 1000, decimals=3, positive=True),
    "ScaleFactor": lambda v: v == "" or (number(SCIENTIFIC, v) and float(v) not in (0.0, 1.0)),
    "Adjustment": lambda v: v == "" or number(DECIMAL, v, decimals=2, negative=True),
    "Reference": lambda v: bool(LOWER.fullmatch(v)),
    "Phone": lambda v: bool(PHONE.fullmatch(v)),
    "Notes": lambda v: len(v) <= 80 and "<" not in v and ">" not in v,
}


def main():
    broken = values = 0
    with open(sys.argv[1], newline="", encoding="utf-8-sig") as data:
        rows = csv.reader(data)
        header = next(rows)
        checks = [(i, column, CHECKS[column]) for i, column in enumerate(header) if column in CHECKS]
        out = sys.stdout
        for number_, row in enumerate(rows, 1):
            for i, column, check in checks:
                values += 1
                if not check(row[i]):
                    broken += 1
                    out.write(f"row {number_}, {column} {row[i]!r}\n")
    print(f"{values} values: {broken} broken")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main())
