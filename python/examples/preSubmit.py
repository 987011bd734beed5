#!/usr/bin/env python3
"""Refuses a scene that should not go to the farm: preSubmit.py SCENE

Prints every reason and ends with 1; ends with 0 for a scene that may go. What a studio minds stands in the table.
"""
import sys

import vxscene

# Kinds of warnings that refuse a scene, and what to do about them.
REFUSED = {
    "relativePath": "give the output a full path, or one that begins with $HIP",
    "sameFiles": "give each driver files of its own",
    "undefinedVariable": "define the variable in the scene, or write the path out",
    "otherSystemPath": "use a path that the farm has",
    "framesUnusable": "correct the frame range",
    "sceneCut": "save the scene again",
}


def reasons(scene):
    """Why the scene is refused, a line each."""
    if not scene.jobs:
        yield scene.error or "the scene renders nothing"
    for warning in scene.warnings:
        if warning.code in REFUSED:
            yield f"{warning.node or scene.path}: {warning.text}; {REFUSED[warning.code]}"


def main():
    try:
        found = list(reasons(vxscene.load(sys.argv[1])))
    except vxscene.VxsceneError as error:
        found = [str(error)]
    print("\n".join(found) or f"{sys.argv[1]} may go to the farm")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
