#!/usr/bin/env python3
"""Keeps the jobs of all scenes in a database and prints what changed since the last run: nightlyScan.py DATABASE FOLDER...

Prints a line for each job that came, went or changed: "+", "-" or "~", scene, driver and take. Scenes that failed keep
the jobs that they had, and are told as "!".
"""
import json
import sqlite3
import sys
from dataclasses import asdict

import vxscene

TABLE = """CREATE TABLE IF NOT EXISTS jobs (
    scene TEXT, driver TEXT, take TEXT, place INTEGER, renderer TEXT, frames TEXT, output TEXT, record TEXT,
    PRIMARY KEY (scene, driver, take, place))"""


def keyed(jobs):
    """The jobs by driver, take and, of several with the same, their place among these."""
    found = {}
    for job in jobs:
        place = 0
        while (job.driver, job.take, place) in found:
            place += 1
        found[job.driver, job.take, place] = job
    return found


def update(database, scene):
    """Puts a scene's jobs in the place of those that the database has. Yields what changed as (mark, driver, take)."""
    rows = database.execute("SELECT driver, take, place, record FROM jobs WHERE scene = ?", [scene.path])
    old = {(driver, take, place): record for driver, take, place, record in rows}
    jobs = keyed(scene.jobs)
    new = {key: json.dumps(asdict(job), sort_keys=True) for key, job in jobs.items()}
    for key in sorted(old.keys() | new.keys()):
        if old.get(key) != new.get(key):
            yield ("-" if key not in new else "~" if key in old else "+"), key[0], key[1]
    database.execute("DELETE FROM jobs WHERE scene = ?", [scene.path])
    for key, job in jobs.items():
        row = [scene.path, *key, job.renderer, job.frames, job.output, new[key]]
        database.execute("INSERT INTO jobs VALUES (?, ?, ?, ?, ?, ?, ?, ?)", row)


def main():
    database = sqlite3.connect(sys.argv[1])
    database.execute(TABLE)
    for scene in vxscene.scan(sys.argv[2:], timeout=60):
        if not scene.ok:
            print("!", scene.path, scene.error or "cut off")
            continue
        with database:  # a scene is in it as a whole, or as it was
            for change in update(database, scene):
                print(change[0], scene.path, *change[1:])


if __name__ == "__main__":
    main()
