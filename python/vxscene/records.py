"""What the program vxscene prints of scenes, as classes: made from docs/schema by makeRecords.py.

Texts, units and capacities are those of the program's JSON. A member that the program left out is None, or empty.
"""

from __future__ import annotations

from dataclasses import dataclass
from typing import Any, ClassVar

from .decoding import Members, Record


@dataclass(frozen=True)
class ResolvedValue(Record):
    """Computed value. Texts are cut at 2000 characters.

    node: Path of the node whose parameter it is: the driver, or its camera.
    parameter: Its name, or that of a component: f1.
    expression: As the scene holds it; "keys" for an animated channel.
    stored: What Houdini computed when it last looked; empty where no channel drives the parameter.
    value: What was computed.
    reason: Why there is no value, in plain words.
    """

    node: str
    parameter: str
    expression: str
    stored: str
    value: str | None = None
    reason: str | None = None

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "parameter": ("parameter", None),
        "expression": ("expression", None),
        "stored": ("stored", None),
        "value": ("value", None),
        "reason": ("reason", None),
    }


@dataclass(frozen=True)
class OutputFile(Record):
    """Further output file.

    slot: Place in the record, from 0.
    name: Folder and file name without frame number and extension.
    extension: With its point.
    """

    slot: int
    name: str
    extension: str

    _members: ClassVar[Members] = {
        "slot": ("slot", None),
        "name": ("name", None),
        "extension": ("extension", None),
    }


@dataclass(frozen=True)
class NamedText(Record):
    """Named text.

    name: Compared without regard to case.
    value: At most 3990 characters in all texts of a job together.
    """

    name: str
    value: str

    _members: ClassVar[Members] = {
        "name": ("name", None),
        "value": ("value", None),
    }


@dataclass(frozen=True)
class JobRecord(Record):
    """Job. Every field of one job's record, and the jobs it waits for. Texts are cut at the capacities given; a
    capacity counts UTF-16 units.

    app: The application that runs the job; Houdini, or a renderer's own program such as Mantra_StdA.
    app_renderer: The renderer or the kind of export within the application; may be empty.
    app_renderer_version: Empty where the scene does not tell.
    app_type: Left to the host; empty from the plug-in.
    app_version_major: Major version of the application; 0 where it is not known.
    app_version_minor: What follows the major version and its point.
    camera: Path of the camera in the scene; empty where the job has none.
    channel: The take that is rendered; empty for the job of all takes.
    channels: Files that the job writes beside its main output, one for each slot in use.
    color_space: Left to the host; empty from the plug-in.
    custom_data: Named texts of the job, in the record's order. In a resolved load vxWaitsFor lists the places of
        all jobs that are waited for where a record cannot, vxWedge is the path of the wedge that the job is a copy
        for, and vxVariant the number of its variant, from 0.
    image_dir: With its separator at the end. <SceneFolder> stands for the folder of the scene, <Database> for
        sceneDatabaseDir, <Channel> for the take.
    image_extension: With its point.
    image_file_name: File name without folder, frame number and extension.
    image_format_override: Format to write in place of the scene's; empty: none.
    image_height: Pixels; 0: the camera's.
    image_multi: Tiles or parts of the image; 0: it is whole.
    image_padding: Digits of the frame number in the output's file name.
    image_single_output_file: True where one file holds all frames.
    image_stereo_l: What stands for <Stereo> in the names of the left eye's files.
    image_stereo_m: What stands for <Stereo> in the names of the middle view's files.
    image_stereo_r: What stands for <Stereo> in the names of the right eye's files.
    image_width: Pixels; 0: the camera's.
    job_id: A number of 64 bits as decimal digits, as many programs cannot hold it as a JSON number; 0 until the
        host gives one.
    job_kind: 2 from the plug-in.
    layer: Path of the output driver in the scene.
    pnl: Code of one character; 0: none.
    pre_id: The job's number in its scene, from 1 on, in 8 bits: 0 follows 255, and numbers repeat.
    required_licenses: Names of the licences that the job takes.
    scene_database_dir: What <Database> stands for, with its separator at the end.
    scene_name: The file that the job renders: the scene itself, or what an export job writes, with <FN4> for four
        frame digits.
    scene_os: Of the scene: 0 unknown, 1 Windows, 2 Linux, 3 macOS; other numbers are the host's.
    scene_state: Left to the host; empty from the plug-in.
    seq_end: Frame number, may have a fraction; null where the scene's is no finite number.
    seq_frame_set: Frames one by one or in ranges; in place of seqStart to seqEnd where it is not empty.
    seq_start: Frame number, may have a fraction; null where the scene's is no finite number.
    seq_step: Frames from one rendered frame to the next.
    shotgun_id: Left to the host; empty from the plug-in.
    wait_for_pre_ids: Own numbers (preID) of the jobs that have to end first, as the record holds them. Own numbers
        repeat in a long list: waitsFor says which jobs are meant.
    waits_for: Not a field of the record: for each of waitForPreIDs the job that is meant, by its place in the
        scene's "jobs", from 1. It is the nearest job before this one with that own number: one that writes the file
        which this job renders, else one with the same driver and take, else any; null where there is none. A job
        whose customData has vxWaitsFor waits for more jobs than its record can name: then these are all of them.
    frames: Not a field of the record: the frames as the table of jobs shows them, 1001-1100 x2.
    output: Not a field of the record: folder, file name, # for each digit of the frame number, and extension as one
        path, placeholders for folders and the take written out.
    resolved: Not a field of the record: what was computed from expressions for this job. Only there where the scene
        was loaded with --resolve and by the program's own readers; left out of jobs beyond 32 MiB of them.
    """

    app: str
    app_renderer: str
    app_renderer_version: str
    app_type: str
    app_version_major: int
    app_version_minor: str
    camera: str
    channel: str
    channels: tuple[OutputFile, ...]
    color_space: str
    custom_data: tuple[NamedText, ...]
    image_dir: str
    image_extension: str
    image_file_name: str
    image_format_override: str
    image_height: int
    image_multi: int
    image_padding: int
    image_single_output_file: bool
    image_stereo_l: str
    image_stereo_m: str
    image_stereo_r: str
    image_width: int
    job_id: str
    job_kind: int
    layer: str
    pnl: int
    pre_id: int
    required_licenses: str
    scene_database_dir: str
    scene_name: str
    scene_os: int
    scene_state: str
    seq_end: float | None
    seq_frame_set: str
    seq_start: float | None
    seq_step: int
    shotgun_id: str
    wait_for_pre_ids: tuple[int, ...]
    waits_for: tuple[int | None, ...]
    frames: str
    output: str
    resolved: tuple[ResolvedValue, ...] = ()

    _members: ClassVar[Members] = {
        "app": ("app", None),
        "appRenderer": ("app_renderer", None),
        "appRendererVersion": ("app_renderer_version", None),
        "appType": ("app_type", None),
        "appVersionMajor": ("app_version_major", None),
        "appVersionMinor": ("app_version_minor", None),
        "camera": ("camera", None),
        "channel": ("channel", None),
        "channels": ("channels", OutputFile),
        "colorSpace": ("color_space", None),
        "customData": ("custom_data", NamedText),
        "imageDir": ("image_dir", None),
        "imageExtension": ("image_extension", None),
        "imageFileName": ("image_file_name", None),
        "imageFormatOverride": ("image_format_override", None),
        "imageHeight": ("image_height", None),
        "imageMulti": ("image_multi", None),
        "imagePadding": ("image_padding", None),
        "imageSingleOutputFile": ("image_single_output_file", None),
        "imageStereoL": ("image_stereo_l", None),
        "imageStereoM": ("image_stereo_m", None),
        "imageStereoR": ("image_stereo_r", None),
        "imageWidth": ("image_width", None),
        "jobID": ("job_id", None),
        "jobKind": ("job_kind", None),
        "layer": ("layer", None),
        "pnl": ("pnl", None),
        "preID": ("pre_id", None),
        "requiredLicenses": ("required_licenses", None),
        "sceneDatabaseDir": ("scene_database_dir", None),
        "sceneName": ("scene_name", None),
        "sceneOS": ("scene_os", None),
        "sceneState": ("scene_state", None),
        "seqEnd": ("seq_end", None),
        "seqFrameSet": ("seq_frame_set", None),
        "seqStart": ("seq_start", None),
        "seqStep": ("seq_step", None),
        "shotgunID": ("shotgun_id", None),
        "waitForPreIDs": ("wait_for_pre_ids", None),
        "waitsFor": ("waits_for", None),
        "frames": ("frames", None),
        "output": ("output", None),
        "resolved": ("resolved", ResolvedValue),
    }


@dataclass(frozen=True)
class FrameRange(Record):
    """Frame range. Of the scene; drivers may have their own.

    start: Frame number.
    end: Frame number.
    step: Frames from one rendered frame to the next.
    stored: False: the scene has no frame range, and this is the default.
    """

    start: float
    end: float
    step: float
    stored: bool

    _members: ClassVar[Members] = {
        "start": ("start", None),
        "end": ("end", None),
        "step": ("step", None),
        "stored": ("stored", None),
    }


@dataclass(frozen=True)
class Variable(Record):
    """Variable.

    name: Without the $.
    value: What it stands for.
    from_: Who gave the value.
    """

    name: str
    value: str
    from_: str

    _members: ClassVar[Members] = {
        "name": ("name", None),
        "value": ("value", None),
        "from": ("from_", None),
    }


@dataclass(frozen=True)
class Camera(Record):
    """Camera.

    node: Path of the node in the scene.
    width: Pixels, as the scene holds them, below 0 too, in 32 bits; 0: no section of that camera was read.
    height: Pixels, as the scene holds them, below 0 too, in 32 bits; 0: no section of that camera was read.
    stereo: True for a pair of eyes.
    drivers: Output drivers that use it.
    """

    node: str
    width: int
    height: int
    stereo: bool
    drivers: tuple[str, ...]

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "width": ("width", None),
        "height": ("height", None),
        "stereo": ("stereo", None),
        "drivers": ("drivers", None),
    }


@dataclass(frozen=True)
class Lop(Record):
    """LOP node.

    node: Path of the node in the scene.
    image: Output path as it stands in the scene; may be empty.
    renderer: Name of the renderer; may be empty.
    drivers: Output drivers that use it.
    """

    node: str
    image: str
    renderer: str
    drivers: tuple[str, ...]

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "image": ("image", None),
        "renderer": ("renderer", None),
        "drivers": ("drivers", None),
    }


@dataclass(frozen=True)
class UsdRenderSettings(Record):
    """USD render settings.

    node: Path of the node in the scene.
    camera: Path of the camera; may be empty.
    image: Output path as it stands in the scene; may be empty.
    archive: True where they make the renderer write a scene description.
    drivers: Output drivers that use it.
    """

    node: str
    camera: str
    image: str
    archive: bool
    drivers: tuple[str, ...]

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "camera": ("camera", None),
        "image": ("image", None),
        "archive": ("archive", None),
        "drivers": ("drivers", None),
    }


@dataclass(frozen=True)
class WedgeChannel(Record):
    """Wedge channel.

    name: As it stands in file names.
    start: Of the first step; null where the scene holds no finite number.
    end: Of the last step; null where the scene holds no finite number.
    steps: Number of values.
    """

    name: str
    start: float | None
    end: float | None
    steps: int

    _members: ClassVar[Members] = {
        "name": ("name", None),
        "start": ("start", None),
        "end": ("end", None),
        "steps": ("steps", None),
    }


@dataclass(frozen=True)
class Wedge(Record):
    """Wedge.

    node: Path of the node in the scene.
    driver: Output driver that it repeats; may be empty.
    variants: Product of the steps of all channels, in 32 bits.
    channels: What it varies.
    """

    node: str
    driver: str
    variants: int
    channels: tuple[WedgeChannel, ...]

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "driver": ("driver", None),
        "variants": ("variants", None),
        "channels": ("channels", WedgeChannel),
    }


@dataclass(frozen=True)
class Facts(Record):
    """Facts. What the scene as a whole holds.

    houdini_version: Empty where the scene does not tell.
    frame_range: Of the scene; drivers may have their own.
    takes: Names, in file order.
    variable_count: Of the scene and of the environment; `variables` holds 1,000 of them at most.
    variables: What names in paths stand for.
    cameras: All that a driver names or that have a section.
    lops: Nodes that render a stage.
    usd_render_settings: Nodes that hold settings for renders of a stage.
    wedges: Nodes that render a driver in variants.
    """

    houdini_version: str
    frame_range: FrameRange
    takes: tuple[str, ...]
    variable_count: int
    variables: tuple[Variable, ...]
    cameras: tuple[Camera, ...]
    lops: tuple[Lop, ...]
    usd_render_settings: tuple[UsdRenderSettings, ...]
    wedges: tuple[Wedge, ...]

    _members: ClassVar[Members] = {
        "houdiniVersion": ("houdini_version", None),
        "frameRange": ("frame_range", FrameRange),
        "takes": ("takes", None),
        "variableCount": ("variable_count", None),
        "variables": ("variables", Variable),
        "cameras": ("cameras", Camera),
        "lops": ("lops", Lop),
        "usdRenderSettings": ("usd_render_settings", UsdRenderSettings),
        "wedges": ("wedges", Wedge),
    }


@dataclass(frozen=True)
class Section(Record):
    """Section. A node's parameters in the scene file.

    reader: What the section was read as.
    node: Path of the node in the scene.
    type: Of the node, as the scene names it; empty where it does not.
    line: Of the header in the scene file, from 1; 0: not found, as the node has no parameters in the file.
    byte: Of the header in the scene file, from 0.
    has_frames: The node has a frame range, as every driver has; other nodes are only called like one.
    outcome: jobs: it made jobs; kept: it counts for the jobs of others; none: nothing came of it.
    jobs: Numbers of the jobs that it made, from 1; copies for takes and wedges are not among them.
    copies: Numbers of the jobs that were copied from its jobs for takes and wedges.
    code: Word for the reason that nothing came of it; empty where something did.
    text: The outcome in plain words.
    details: Lines such as the parameters that decided.
    resolved: What was computed from expressions of the section; only there where something was.
    """

    reader: str
    node: str
    type: str
    line: int
    byte: int
    has_frames: bool
    outcome: str
    jobs: tuple[int, ...]
    copies: tuple[int, ...]
    code: str
    text: str
    details: tuple[str, ...]
    resolved: tuple[ResolvedValue, ...] = ()

    _members: ClassVar[Members] = {
        "reader": ("reader", None),
        "node": ("node", None),
        "type": ("type", None),
        "line": ("line", None),
        "byte": ("byte", None),
        "hasFrames": ("has_frames", None),
        "outcome": ("outcome", None),
        "jobs": ("jobs", None),
        "copies": ("copies", None),
        "code": ("code", None),
        "text": ("text", None),
        "details": ("details", None),
        "resolved": ("resolved", ResolvedValue),
    }


@dataclass(frozen=True)
class NotRecognised(Record):
    """Node that was not recognised.

    node: Path of the node in the scene.
    type: Of the node, as the scene names it; empty where it does not.
    line: Of the header in the scene file, from 1.
    byte: Of the header in the scene file, from 0.
    code: Word for the reason.
    text: The reason in plain words.
    """

    node: str
    type: str
    line: int
    byte: int
    code: str
    text: str

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "type": ("type", None),
        "line": ("line", None),
        "byte": ("byte", None),
        "code": ("code", None),
        "text": ("text", None),
    }


@dataclass(frozen=True)
class SceneWarning(Record):
    """Warning.

    code: Word for the kind of warning.
    node: Path of the node that it is about; may be empty.
    jobs: Numbers of the jobs that it is about, from 1; may be empty.
    text: The warning in plain words.
    """

    code: str
    node: str
    jobs: tuple[int, ...]
    text: str

    _members: ClassVar[Members] = {
        "code": ("code", None),
        "node": ("node", None),
        "jobs": ("jobs", None),
        "text": ("text", None),
    }


@dataclass(frozen=True)
class Value(Record):
    """Value. One component of a node's parameter.

    node: Path of the node in the scene.
    type: Of the node, with namespace and version; empty where the scene does not tell.
    parameter: Its name.
    channel: Name of the component as expressions use it; empty where the scene does not tell: of parameters with
        several components, none of which a channel drives.
    component: Place in the parameter, from 1.
    expression: Of the channel, or a text that holds variables or expressions in back-quotes; empty: neither.
    language: Of a channel's expression: hscript, python; empty where no channel drives it.
    cached: What Houdini computed when it last looked; null where no channel drives it.
    keys: How many an animated channel has; its expression tells how it leaves the first one.
    value: A literal as it stands, else what was computed; numbers with all their digits.
    reason: Why there is no value, in plain words.
    code: Word for the reason; only there with it.
    """

    node: str
    type: str
    parameter: str
    channel: str
    component: int
    expression: str
    language: str
    cached: str | None
    keys: int | None = None
    value: str | None = None
    reason: str | None = None
    code: str | None = None

    _members: ClassVar[Members] = {
        "node": ("node", None),
        "type": ("type", None),
        "parameter": ("parameter", None),
        "channel": ("channel", None),
        "component": ("component", None),
        "expression": ("expression", None),
        "language": ("language", None),
        "cached": ("cached", None),
        "keys": ("keys", None),
        "value": ("value", None),
        "reason": ("reason", None),
        "code": ("code", None),
    }


@dataclass(frozen=True)
class Faults(Record):
    """Faults. Frames of files that do not count as there, each by its first fault. With --names-only none but
    absent.

    absent: There is no such file.
    empty: The file has no bytes.
    short: The file has less than a quarter of medianBytes.
    older: The file is older than the scene. Never with --any-age.
    """

    absent: str | None = None
    empty: str | None = None
    short: str | None = None
    older: str | None = None

    _members: ClassVar[Members] = {
        "absent": ("absent", None),
        "empty": ("empty", None),
        "short": ("short", None),
        "older": ("older", None),
    }


@dataclass(frozen=True)
class Disk(Record):
    """Disk. Only with --missing, of known sets: what of the files is there, or why that cannot be told.

    present: Files without a fault.
    faults: Frames of files that do not count as there, each by its first fault. With --names-only none but absent.
    folder_missing: Only where the folder is not there.
    median_bytes: Of the sizes of all files of the set that hold something. Only where there are four or more.
    problem: Why the folder cannot be read, in words.
    """

    present: int | None = None
    faults: Faults | None = None
    folder_missing: bool | None = None
    median_bytes: int | None = None
    problem: str | None = None

    _members: ClassVar[Members] = {
        "present": ("present", None),
        "faults": ("faults", Faults),
        "folderMissing": ("folder_missing", None),
        "medianBytes": ("median_bytes", None),
        "problem": ("problem", None),
    }


@dataclass(frozen=True)
class FileSet(Record):
    """Set of files.

    job: Number of the job in its scene, from 1.
    layer: Path of the output driver in the scene.
    kind: The job's main output, one for each side of a stereo camera; or a file beside it, as of an AOV.
    path: With # for each digit of the frame number. Of an unknown set, what there is of it.
    padding: Least digits of the frame number, filled up with zeros. 0: the name holds no frame number.
    use: A file for each frame, one file that holds all frames, or one that every frame overwrites.
    frames: Whole frames in ascending order, each once: 1001-1040,1042,1050-1100x5. Empty: there are none, or they
        are not known.
    count: How many files there will be. 0: not known.
    unknown: Only where the files are not known: why, in words.
    disk: Only with --missing, of known sets: what of the files is there, or why that cannot be told.
    """

    job: int
    layer: str
    kind: str
    path: str
    padding: int
    use: str
    frames: str
    count: int
    unknown: str | None = None
    disk: Disk | None = None

    _members: ClassVar[Members] = {
        "job": ("job", None),
        "layer": ("layer", None),
        "kind": ("kind", None),
        "path": ("path", None),
        "padding": ("padding", None),
        "use": ("use", None),
        "frames": ("frames", None),
        "count": ("count", None),
        "unknown": ("unknown", None),
        "disk": ("disk", Disk),
    }


@dataclass(frozen=True)
class ChangedField(Record):
    """Changed field.

    name: Name of a member of a job.
    old: As in the job's object.
    new: As in the job's object.
    """

    name: str
    old: Any
    new: Any

    _members: ClassVar[Members] = {
        "name": ("name", None),
        "old": ("old", None),
        "new": ("new", None),
    }


@dataclass(frozen=True)
class ChangedJob(Record):
    """Changed job.

    driver: Path of the output driver in the scene.
    old_number: Number of the job in the old scene, from 1.
    new_number: Number of the job in the new scene, from 1.
    fields: Those that differ. waitForPreIDs differs where another job is meant, even with the same number.
    """

    driver: str
    old_number: int
    new_number: int
    fields: tuple[ChangedField, ...]

    _members: ClassVar[Members] = {
        "driver": ("driver", None),
        "oldNumber": ("old_number", None),
        "newNumber": ("new_number", None),
        "fields": ("fields", ChangedField),
    }
