#!/usr/bin/python3
"""Holds upload files, one a line, against the schema of the portal, and against what no schema can say: the order of keys,
figures that follow from others, numbers written plainly.

    portal.py FILE SCHEMA        prints each fault; exit status 1 where there is one, 2 where nothing was read"""

import decimal
import json
import re
import sys

import jsonschema


def plain(text):
    """An amount as the portal reads it: no exponent, at most two decimals, exact."""
    if not re.fullmatch(r"-?(0|[1-9][0-9]*)(\.[0-9]{1,2})?", text):
        raise ValueError(f"{text} is not written plainly")
    return decimal.Decimal(text)


def objects(value, path=""):
    """Every list and object with its path."""
    if isinstance(value, (dict, list)):
        yield path, value
        for key, part in value.items() if isinstance(value, dict) else enumerate(value):
            yield from objects(part, f"{path}/{key}")


def orders(schema):
    """The order of keys, by the set of them that the schema knows together."""
    return [list(part["properties"]) for _, part in objects(schema) if isinstance(part, dict) and "type" in part
            and "properties" in part]


def related(record):
    """Figures that follow from others of the same record."""
    if "itm_det" in record and record["num"] != record["itm_det"]["rt"] * 100 + 1:
        yield "num is not the rate"
    if "net_issue" in record and record["net_issue"] != record["totnum"] - record["cancel"]:
        yield "net_issue is not the rest"
    taxes = [record.get(key, 0) for key in ("camt", "samt")]
    if taxes[0] != taxes[1]:
        yield "camt and samt differ"
    keys = {"inv": ("inum",), "nt": ("nt_num",), "itms": ("num",), "b2b": ("ctin",), "b2cl": ("pos",), "b2cs": ("pos", "rt"),
            "nil": ("sply_ty",), "exp": ("exp_typ",), "hsn_b2b": ("hsn_sc", "uqc", "rt"), "hsn_b2c": ("hsn_sc", "uqc", "rt")}
    for key, names in keys.items():
        rows = [row for row in record.get(key, []) if set(names) <= set(row)] if isinstance(record.get(key), list) else []
        if len({tuple(row[name] for name in names) for row in rows}) < len(rows):
            yield f"{key} has a row twice"
    if any(row["pos"] == record["gstin"][:2] for row in record.get("b2cl", [])):
        yield "b2cl within the state"


def faults(text, schema):
    try:
        document = json.loads(text, parse_float=plain, parse_int=lambda digits: int(plain(digits)))
    except ValueError as error:
        yield f"{error}: {text[:60]}"
        return
    for error in jsonschema.Draft7Validator(schema).iter_errors(document):
        yield f"/{'/'.join(map(str, error.absolute_path))}: {error.message[:200]}"
    known = orders(schema)
    for path, part in objects(document):
        if not part and "hash" in document:
            yield f"{path}: empty"
        if not isinstance(part, dict):
            continue
        if not any([key for key in order if key in part] == list(part) for order in known):
            yield f"{path}: keys in another order: {', '.join(part)}"
        yield from (f"{path}: {fault}" for fault in related(part))


def main():
    with open(sys.argv[2], encoding="utf-8") as file:
        schema = json.load(file, parse_float=decimal.Decimal)
    with open(sys.argv[1], encoding="utf-8") as file:
        found = [list(faults(line, schema)) for line in file]
    for number, one in enumerate(found, 1):
        for fault in one:
            print(f"{number}: {fault}")
    return 2 if not found else 1 if any(found) else 0


sys.exit(main())
