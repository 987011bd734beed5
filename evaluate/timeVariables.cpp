// Frame, time and range as variables.
#include "evaluate/timeVariables.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vxV {

namespace {

using _number = std::optional<double>;

/// A frame that is off a whole one by less than this is that one: frames are stored as seconds.
constexpr double frameNoise = 1e-4;

_number firstFrame(const _clock& clock) {
    if (!clock.fps || !clock.globalRange) return {};
    return std::round(clock.globalRange->first * *clock.fps + 1);
}

_number lastFrame(const _clock& clock) {
    if (!clock.fps || !clock.globalRange) return {};
    return std::round(clock.globalRange->last * *clock.fps);
}

_number beginOfLastFrame(const _clock& clock) {
    if (!clock.fps || !clock.globalRange) return {};
    return clock.globalRange->last - 1 / *clock.fps;
}

_number frameCount(const _clock& clock) {
    const _number first = firstFrame(clock);
    const _number last = lastFrame(clock);
    if (!first || !last) return {};
    return *last - *first + 1;
}

/// The frame where it is a whole one; how others are rounded is not certain.
_number wholeFrame(const _clock& clock) {
    return clock.frame && std::floor(*clock.frame) == *clock.frame ? clock.frame : _number();
}

constexpr std::array variables{
    _timeVariable{"F", true, wholeFrame},
    _timeVariable{"FF", true, [](const _clock& c) { return c.frame; }},
    _timeVariable{"T", true, [](const _clock& c) { return c.time(); }},
    _timeVariable{"FPS", false, [](const _clock& c) { return c.fps; }},
    _timeVariable{"FSTART", false, firstFrame},
    _timeVariable{"FEND", false, lastFrame},
    _timeVariable{"TSTART", false,
                  [](const _clock& c) { return c.globalRange ? _number(c.globalRange->first) : _number(); }},
    _timeVariable{"TEND", false, beginOfLastFrame},
    _timeVariable{"NFRAMES", false, frameCount},
    _timeVariable{"RFSTART", false,
                  [](const _clock& c) { return c.playbackRange ? _number(c.playbackRange->first) : _number(); }},
    _timeVariable{"RFEND", false,
                  [](const _clock& c) { return c.playbackRange ? _number(c.playbackRange->last) : _number(); }},
};

_number inBothRanges(_number global, _number playedBack) {
    return global == playedBack ? global : _number();
}

_number rangeStart(const _clock& clock) {
    return inBothRanges(firstFrame(clock), clock.playbackRange ? _number(clock.playbackRange->first) : _number());
}

_number rangeEnd(const _clock& clock) {
    return inBothRanges(lastFrame(clock), clock.playbackRange ? _number(clock.playbackRange->last) : _number());
}

_number rangeStep(const _clock& clock) {
    return clock.playbackStep;
}

constexpr std::array timeOptions{
    _timeVariable{"fps", false, [](const _clock& c) { return c.fps; }},
    _timeVariable{"fstart", false, rangeStart},
    _timeVariable{"fend", false, rangeEnd},
    _timeVariable{"finc", false, rangeStep},
    _timeVariable{"ropstart", false, rangeStart},
    _timeVariable{"ropend", false, rangeEnd},
    _timeVariable{"ropinc", false, rangeStep},
};

/// Set for each point, primitive, copy, step or pixel.
constexpr std::array<std::string_view, 63> cookingVariables{
    "AGE",     "ALPHA", "BBX",  "BBY",   "BBZ",    "C",      "CA",   "CB",       "CBP",     "CDEPTH", "CEX",
    "CEY",     "CEZ",   "CG",   "CPIXA", "CR",     "CREASE", "CWP",  "CY",       "CYCLE",   "DIST",   "DOPNET",
    "GCX",     "GCY",   "GCZ",  "I",     "ID",     "IT",     "ITER", "LIFE",     "MAPU",    "MAPV",   "MAPW",
    "N",       "NCY",   "NPT",  "NPR",   "NPRIM",  "NSEG",   "NX",   "NY",       "NZ",      "OBJ",    "OBJID",
    "OBJNAME", "PR",    "PRIM", "PT",    "PRX",    "SF",     "SFPS", "SIMFRAME", "SIMTIME", "ST",     "TIMESTEP",
    "TX",      "TY",    "TZ",   "V",     "WEIGHT", "XMIN",   "YMIN", "ZMIN",
};

}  // namespace

std::optional<double> _clock::time() const {
    if (!fps || !frame) return {};
    return (*frame - 1) / *fps;
}

std::optional<double> _clock::frameAt(double seconds) const {
    if (!fps) return {};
    const double exact = seconds * *fps + 1;
    const double whole = std::round(exact);
    return std::fabs(exact - whole) < frameNoise ? whole : exact;
}

const _timeVariable* timeVariableNamed(std::string_view name) {
    const auto row = std::find_if(variables.begin(), variables.end(), [&](const auto& v) { return v.name == name; });
    return row != variables.end() ? &*row : nullptr;
}

std::optional<double> timeOption(std::string_view name, const _clock& clock) {
    const auto* const row =
        std::find_if(timeOptions.begin(), timeOptions.end(), [&](const auto& v) { return v.name == name; });
    return row != timeOptions.end() ? row->value(clock) : std::nullopt;
}

bool isCookingVariable(std::string_view name) {
    return std::find(cookingVariables.begin(), cookingVariables.end(), name) != cookingVariables.end();
}

}  // namespace vxV
