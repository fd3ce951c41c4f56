#!/usr/bin/python3
"""Runs zrt against the SQLite engine and validates every JSON document it
prints and every line of every report it writes against docs/schema.

Usage: check_json_schemas.py ZRT SQLITE_DBO_EXTENSION SCHEMA_FOLDER
"""
import json
import os
import pathlib
import sqlite3
import subprocess
import sys
import tempfile
import xml.etree.ElementTree

from jsonschema import Draft202012Validator, RefResolver


def validator(folder, name):
    path = pathlib.Path(folder, f"{name}.schema.json").resolve()
    schema = json.loads(path.read_text())
    Draft202012Validator.check_schema(schema)
    return Draft202012Validator(schema, resolver=RefResolver(path.as_uri(), schema),
                                format_checker=Draft202012Validator.FORMAT_CHECKER)


def faults(validator, document, where):
    return [f"{where}: {'/'.join(map(str, error.absolute_path))}: {error.message}"
            for error in validator.iter_errors(document)]


def report_faults(validator, path):
    if not path.exists():
        return [f"{path.name}: not written"]
    lines = [json.loads(line) for line in path.read_text().splitlines()]
    kinds = [line.get("type") for line in lines]
    found = [] if kinds and kinds[0] == "header" and kinds[-1] == "summary" and \
        set(kinds[1:-1]) <= {"statement"} else [f"{path.name}: lines of types {kinds} out of order"]
    for number, line in enumerate(lines, 1):
        found += faults(validator, line, f"{path.name} line {number}")
    return found


def fleet_faults(index, report_line, parent):
    """The invocation's folder under parent: index.json, every report, junit.xml."""
    folders = [path for path in parent.iterdir() if path.is_dir()]
    if len(folders) != 1:
        return [f"{parent.name}: {len(folders)} invocation folders"]
    found = faults(index, json.loads(pathlib.Path(folders[0], "index.json").read_text()), f"{parent.name}/index.json")
    for report in sorted(folders[0].glob("*.jsonl")):
        found += report_faults(report_line, report)
    xml.etree.ElementTree.parse(pathlib.Path(folders[0], "junit.xml"))
    return found


def main(zrt, dbo, schemas):
    documents = {name: validator(schemas, name) for name in ("run", "check", "list", "index")}
    report_line = validator(schemas, "report-line")
    with tempfile.TemporaryDirectory() as folder:
        database = pathlib.Path(folder, "Quorvex.db")
        odbc = f"DRIVER={{SQLite3}};Database={database};LoadExt={dbo}"
        one = ["--mode", "LOCAL", "--database", str(database), "--odbc", odbc]
        unopened = ["--mode", "LOCAL", "--database", "Quorvex", "--odbc", "DRIVER={No such driver}"]
        # A fleet of the one database, as an earlier invocation left it to do.
        earlier = pathlib.Path(folder, "earlier")
        earlier.mkdir()
        pathlib.Path(earlier, "index.json").write_text(json.dumps({
            "type": "index", "format": 1, "command": "run",
            "servers": [{"server": "", "mode": "LOCAL", "odbc": "given"}],
            "databases": [{"database": "QuorvexSchema", "server": "", "mode": "LOCAL", "outcome": "not done"}]}))
        # A retry lists its servers again: through a DSN (a string's Database is dropped for the listing's
        # master), whose file's sys database (attached by the extension) lists the names.
        dsns = {0: ("QuorvexSchema", database)}
        dsns.update({n: (f"Quorvex{n}", pathlib.Path(folder, f"Quorvex{n}.db")) for n in range(1, 5)})
        pathlib.Path(folder, "odbc.ini").write_text("".join(
            f"[zrtschema{n}]\nDriver=SQLite3\nDatabase={path}\n" for n, (name, path) in dsns.items()))
        for n, (name, path) in dsns.items():
            sqlite3.connect(f"{path}-sys").executescript(
                f"CREATE TABLE databases (name TEXT); INSERT INTO databases VALUES ('{name}');").close()
        dsn = f"DSN=zrtschema0;LoadExt={dbo}"
        retry = ["--retry", str(earlier), "--mode", "LOCAL", "--odbc", dsn, "--report-dir"]
        pathlib.Path(folder, "fleet.toml").write_text(
            '[[server]]\nlabel = "sqlite"\nmode = "LOCAL"\nodbc_env = "ZRT_SCHEMA_ODBC"\n')
        # Name, arguments, exit status, schema of what it prints, report (or fleet folder) it writes.
        rows = [
            ("plan of a new database", ["plan", *one, "--report", "new.jsonl"], 3, "run", "new.jsonl"),
            ("run", ["run", *one, "--report", "run.jsonl", "--junit", "run.xml"], 3, "run", "run.jsonl"),
            ("plan of a database run once", ["plan", *one, "--report", "plan.jsonl"], 3, "run", "plan.jsonl"),
            ("run that could not start", ["run", *unopened, "--report", "none.jsonl"], 4, "run", "none.jsonl"),
            ("check", ["check", *one], 4, "check", None),
            ("check that could not open", ["check", *unopened], 4, "check", None),
            ("list of a server that cannot be reached",
             ["list", "--mode", "LOCAL", "--server", "127.0.0.1,1"], 4, "list", None),
            ("list of a fleet", ["list", "--fleet", "fleet.toml"], 4, "list", None),
            ("run of a fleet", ["run", *retry, "fleet-run"], 3, "index", "fleet-run"),
            ("plan of a fleet", ["plan", *retry, "fleet-plan"], 3, "index", "fleet-plan"),
            ("check of a fleet", ["check", *retry, "fleet-check"], 4, "index", "fleet-check"),
        ]
        # A fleet of four SQLite databases in two shards, each in a folder of its own, then merged.
        sharded, variables = pathlib.Path(folder, "sharded"), {}
        sharded.mkdir()
        for number in range(1, 5):
            variables[f"ZRT_SCHEMA_ODBC{number}"] = f"DSN=zrtschema{number};LoadExt={dbo}"
        pathlib.Path(folder, "sharded.toml").write_text("".join(
            f'[[server]]\nmode = "LOCAL"\nodbc_env = "ZRT_SCHEMA_ODBC{n}"\nlabel = "sqlite{n}"\n' for n in range(1, 5)))
        pathlib.Path(sharded, "index.json").write_text(json.dumps({
            "type": "index", "format": 1, "command": "run",
            "servers": [{"server": "", "mode": "LOCAL", "odbcEnv": f"ZRT_SCHEMA_ODBC{n}"} for n in range(1, 5)],
            "databases": [{"database": f"Quorvex{n}", "server": "", "mode": "LOCAL",
                           "odbcEnv": f"ZRT_SCHEMA_ODBC{n}", "outcome": "not done"} for n in range(1, 5)]}))
        rows += [(f"shard {shard} of a fleet", ["run", "--retry", str(sharded), "--fleet", "sharded.toml", "--shard", shard,
                                                "--report-dir", "shards"], 3, "index", None) for shard in ("1/2", "2/2")]
        found = []
        for name, arguments, status, schema, report in rows:
            ran = subprocess.run([zrt, *arguments, "--json"], cwd=folder, capture_output=True, text=True, timeout=60,
                                 env={**os.environ, "ZRT_SCHEMA_ODBC": odbc, "ODBCINI": str(pathlib.Path(folder, "odbc.ini")),
                                      **variables})
            if ran.returncode != status:
                found.append(f"{name}: exit {ran.returncode}, not {status}: {ran.stderr}")
            try:
                found += faults(documents[schema], json.loads(ran.stdout), name)
            except json.JSONDecodeError as error:
                found.append(f"{name}: not one JSON document ({error}): {ran.stdout!r}")
            if report and schema == "index":
                found += fleet_faults(documents["index"], report_line, pathlib.Path(folder, report))
            elif report:
                found += report_faults(report_line, pathlib.Path(folder, report))
        shards = sorted(str(path) for path in pathlib.Path(folder, "shards").iterdir())
        merged = subprocess.run([zrt, "merge", "--report-dir", "merged", *shards], cwd=folder, capture_output=True,
                                text=True, timeout=60)
        if merged.returncode != 0 or len(shards) != 2:
            found.append(f"merge of {len(shards)} shards: exit {merged.returncode}: {merged.stderr}")
        found += fleet_faults(documents["index"], report_line, pathlib.Path(folder, "merged"))
        xml.etree.ElementTree.parse(pathlib.Path(folder, "run.xml"))
    for fault in found:
        print(fault)
    print(f"{len(rows)} commands checked, {len(found)} faults")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(*(str(pathlib.Path(argument).resolve()) for argument in sys.argv[1:4])))
