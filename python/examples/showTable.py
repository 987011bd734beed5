#!/usr/bin/env python3
"""A table of a show's scenes as CSV, a row for each: showTable.py FOLDER... >show.csv"""
import csv
import sys

import vxscene


def main():
    table = csv.writer(sys.stdout)
    table.writerow(["scene", "jobs", "renderers", "frames", "problem"])
    for scene in vxscene.scan(sys.argv[1:], timeout=60):
        renderers = sorted({job.renderer for job in scene.jobs})
        frames = sorted({job.frames for job in scene.jobs})
        problem = scene.error or ("" if scene.ok else "cut off")
        table.writerow([scene.path, len(scene.jobs), " ".join(renderers), " ".join(frames), problem])


if __name__ == "__main__":
    main()
