#!/usr/bin/env python3
"""Validates form files against the form file's JSON Schema.

With files: each must follow the schema. With --refuses and files of JSON lines: each line is a form the
schema must refuse (the shapes the reader refuses). Exits non-zero, naming the file and line, otherwise.
"""
import json
import sys
from pathlib import Path

import jsonschema

SCHEMA = Path(__file__).resolve().parent.parent / "schema" / "qform.schema.json"


def main(args):
    validator = jsonschema.Draft202012Validator(json.loads(SCHEMA.read_text(encoding="utf-8")))
    refuses = args[:1] == ["--refuses"]
    failed = 0
    for name in args[1:] if refuses else args:
        text = Path(name).read_text(encoding="utf-8")
        forms = [(n, line) for n, line in enumerate(text.splitlines(), 1) if line.strip()] if refuses else [(0, text)]
        for number, form in forms:
            where = f"{name}:{number}" if refuses else name
            errors = list(validator.iter_errors(json.loads(form)))
            if refuses and not errors:
                print(f"{where}: the schema takes a form the reader refuses", file=sys.stderr)
                failed += 1
            elif not refuses and errors:
                print(f"{where}: {errors[0].json_path}: {errors[0].message}", file=sys.stderr)
                failed += 1
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
