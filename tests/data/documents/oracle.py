#!/usr/bin/env python3
"""Writes oracle.tsv: figures of documents worked out with exact fractions, to hold the C++ integer code against.

    ./oracle.py > oracle.tsv

One document a line, columns separated by tabs: supply, currency, round-off, lines, figures of the lines, totals, groups by
rate, groups by HSN code and rate. Inside a column, records end in ";" and fields are separated by ",".
"""
import random
from fractions import Fraction

EXPONENT = {"INR": 2, "EUR": 2, "JPY": 0, "KWD": 3}
SUPPLIES = ["intraState", "interState", "exportLUT", "exportWithIGST", "sezLUT", "sezWithIGST", "simple", "noTax"]
RATES = [0, 25, 300, 500, 1200, 1800, 2800, 4000, 2100, 1]
CODES = ["", "998391", "9983", "997212", "Ä1"]
dice = random.Random(20260401)


def rounded(value):
    """To the nearest integer, halves away from zero."""
    whole, rest = divmod(abs(value), 1)
    whole += rest >= Fraction(1, 2)
    return int(whole) if value >= 0 else -int(whole)


def tax(taxable, rate, supply):
    """CGST, SGST, IGST, other."""
    if supply in ("exportLUT", "sezLUT", "noTax"):
        return [0, 0, 0, 0]
    if supply == "intraState":
        half = rounded(taxable * Fraction(rate, 2) / 10000)
        return [half, half, 0, 0]
    whole = rounded(taxable * Fraction(rate, 10000))
    return [0, 0, 0, whole] if supply == "simple" else [0, 0, whole, 0]


def figures(line, supply):
    """Gross, discount, taxable, then the tax."""
    quantity, price, discount, rate, _, _ = line
    gross = rounded(Fraction(quantity, 1000) * price)
    off = rounded(gross * Fraction(discount, 10000))
    return [gross, off, gross - off] + tax(gross - off, rate, supply)


def added(rows):
    return [sum(column) for column in zip(*rows)]


def column(records):
    return "".join(",".join(map(str, record)) + ";" for record in records)


def line():
    quantity = dice.choice([0, 1, 1000, 1500, 2333, 12500, dice.randint(1, 10**5), dice.randint(1, 10**8)])
    price = dice.choice([0, 1, 333, 12345, 99999, dice.randint(1, 10**4), dice.randint(1, 10**9)])
    discount = dice.choice([0, 0, 0, 1000, 750, 3333, 10000, dice.randint(0, 10000)])
    return quantity, price, discount, dice.choice(RATES), dice.choice(CODES), dice.choice(["", "hrs", "day"])


def document():
    supply, currency, rounds = dice.choice(SUPPLIES), dice.choice(list(EXPONENT)), dice.random() < 0.6
    lines = [line() for _ in range(dice.choice([0, 1, 1, 2, 3, 4, 6, 9]))]
    results = [figures(one, supply) for one in lines]
    gross, off, taxable, *taxes = added(results) if lines else [0] * 7
    exact = taxable + sum(taxes)
    unit = 10 ** EXPONENT[currency] if rounds else 1
    total = rounded(Fraction(exact, unit)) * unit
    by_rate, by_code = {}, {}
    for one, result in zip(lines, results):
        quantity, _, _, rate, code, name = one
        by_rate.setdefault(rate, []).append(result[2:])
        by_code.setdefault((code.encode(), rate), []).append((quantity, name, result[2:]))
    rates = [[rate] + added(rows) for rate, rows in sorted(by_rate.items())]
    codes = [[code.decode(), rate, sum(row[0] for row in rows), rows[0][1]] + added(row[2] for row in rows)
             for (code, rate), rows in sorted(by_code.items())]
    totals = [gross, off, taxable, *taxes, total - exact, total]
    print(supply, currency, int(rounds), *map(column, (lines, results, [totals], rates, codes)), sep="\t")


for _ in range(300):
    document()
