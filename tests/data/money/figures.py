#!/usr/bin/env python3
"""Writes figures.tsv: money figures worked out with Python's decimal module, to hold the C++ integer code against.

    ./figures.py > figures.tsv

Each line: operation, arguments, expected result, separated by tabs. Amounts are minor units.
"""
import random
from decimal import ROUND_HALF_EVEN, ROUND_HALF_UP, Decimal, getcontext

getcontext().prec = 80
LOW, HIGH = -(2**63), 2**63 - 1
EXPONENTS = {"INR": 2, "USD": 2, "JPY": 0, "KWD": 3, "EUR": 2}
SYMBOLS = {"INR": "₹", "USD": "$", "JPY": "¥", "KWD": "KD ", "EUR": "€"}
dice = random.Random(20260401)


def whole(value, rounding=ROUND_HALF_UP):
    """ROUND_HALF_UP of the decimal module rounds halves away from zero."""
    return int(Decimal(value).quantize(Decimal(1), rounding=rounding))


def number(bits):
    return dice.choice((-1, 1)) * dice.getrandbits(dice.randint(1, bits))


def row(*columns):
    print("\t".join(str(column) for column in columns))


def mul_div():
    corners = [LOW, LOW + 1, -3, -1, 0, 1, 2, 5, HIGH - 1, HIGH]
    triples = [(a, b, c) for a in corners for b in corners for c in corners if c]
    triples += [(number(63), number(63), number(63) or 1) for _ in range(300)]
    for a, b, c in dice.sample(triples[:-300], 150) + triples[-300:]:
        result = whole(Decimal(a) * b / c)
        if LOW <= result <= HIGH:
            row("mulDiv", a, b, c, result)


def percent_and_round():
    for _ in range(60):
        amount, rate = number(50), dice.choice((25, 250, 300, 500, 1200, 1800, 2800, 4000))
        row("percent", amount, rate, whole(Decimal(amount) * rate / 10000))
        row("roundToWhole", amount, 100, whole(Decimal(amount) / 100) * 100)
        row("roundToWhole", amount, 1000, whole(Decimal(amount) / 1000) * 1000)


def convert():
    for _ in range(120):
        amount, rate = number(45), dice.randint(1, 200_000_000)
        home, foreign = dice.sample(sorted(EXPONENTS), 2)
        value = Decimal(amount).scaleb(-EXPONENTS[foreign]) * Decimal(rate).scaleb(-6)
        row("convert", amount, foreign, home, rate, whole(value.scaleb(EXPONENTS[home])))


def grouped(digits, first, further):
    head, tail = digits[:-first], digits[-first:]
    groups = []
    while head:
        groups.insert(0, head[-further:])
        head = head[:-further]
    return ",".join(groups + [tail])


def string():
    for _ in range(120):
        code = dice.choice(sorted(EXPONENTS))
        exponent = EXPONENTS[code]
        minor = dice.choice((number(63), number(30), number(12) * 10**exponent + 10**exponent // 2, LOW))
        sign = "−" if minor < 0 else ""
        value = Decimal(abs(minor)).scaleb(-exponent)
        further = 2 if code == "INR" else 3
        units, _, decimals = f"{value:f}".partition(".")
        full = grouped(units, 3, further) + ("." + decimals if decimals else "")
        row("string", minor, code, sign + SYMBOLS[code] + full)
        row("stringWhole", minor, code, sign + grouped(str(whole(value, ROUND_HALF_EVEN)), 3, further))


def short_texts():
    for operation, places in (("quantity", 3), ("rate", 2), ("fxRate", 6)):
        for value in [0, 1, -1, 10**places, 25 * 10 ** (places - 1), HIGH, LOW] + [number(40) for _ in range(20)]:
            text = f"{Decimal(value).scaleb(-places):f}".rstrip("0").rstrip(".")
            row(operation, value, text + ("%" if operation == "rate" else ""))


def parse():
    for _ in range(120):
        code = dice.choice(sorted(EXPONENTS))
        places = dice.randint(0, 9)
        value = Decimal(abs(number(40))).scaleb(-places)
        row("parse", f"{value:f}" + ("." if places == 0 else ""), code, whole(value.scaleb(EXPONENTS[code])))
        row("parseQuantity", f"{value:f}", whole(value.scaleb(3)))
        row("parseFXRate", f"{value:f}", whole(value.scaleb(6)))


for make in (mul_div, percent_and_round, convert, string, short_texts, parse):
    make()
