#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Validates JSON files with python3-jsonschema, and says of each what it found.

usage: validate_json.py SCHEMA FILE...

A schema may refer to the other schemas of its folder by their names. Prints a line for each file:
"valid", or the place and the reason of the worst fault. Fails if a schema is none.
"""

import json
import sys
import warnings
from pathlib import Path

import jsonschema

# Newer releases warn of the resolver that the stable one has.
warnings.simplefilter("ignore", DeprecationWarning)


def validator_of(path):
    schemas = [json.loads(other.read_text(encoding="utf-8"))
               for other in sorted(path.parent.glob("*.schema.json"))]
    for schema in schemas:
        jsonschema.Draft202012Validator.check_schema(schema)
    own = json.loads(path.read_text(encoding="utf-8"))
    store = {schema["$id"]: schema for schema in schemas}
    resolver = jsonschema.RefResolver(own["$id"], own, store=store)
    return jsonschema.Draft202012Validator(own, resolver=resolver)


def verdict(validator, path):
    value = json.loads(Path(path).read_text(encoding="utf-8-sig"))
    fault = jsonschema.exceptions.best_match(validator.iter_errors(value))
    if fault is None:
        return "valid"
    place = "/".join(str(step) for step in fault.absolute_path)
    return f"{place}: {fault.message}".replace("\n", " ")


def main(arguments):
    if len(arguments) < 2:
        sys.exit(__doc__)
    validator = validator_of(Path(arguments[0]))
    for path in arguments[1:]:
        print(verdict(validator, path))


if __name__ == "__main__":
    main(sys.argv[1:])
