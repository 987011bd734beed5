// A host in plain C that knows the records by their golden offsets alone: opens the plug-in, loads scenes, closes it,
// and starts anew.
#include <dlfcn.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "recordOffsets.h"

typedef struct {
    uint16_t length, untouched, units[501];
} sceneNameText;

typedef struct {
    uint16_t structureVersion, structureMinor;
    uint8_t message[2008];
    uint32_t recordSize;
    int32_t count, allocated;
    uint8_t* jobs;
} jobArray;

typedef struct {
    int32_t argumentCount;
    const char* const* arguments;
} submitterSettings;

typedef struct {
    const sceneNameText* sceneFileName;
    jobArray* jobs;
    const submitterSettings* settings;
} loadRecord;

typedef uint8_t (*infoFunction)(uint8_t*);
typedef int32_t (*loadFunction)(loadRecord*);

#define STANDS(ours, golden) _Static_assert(ours == golden, #golden)
STANDS(offsetof(jobArray, message), JobBasicsArray_message);
STANDS(offsetof(jobArray, recordSize), JobBasicsArray_recordSize);
STANDS(offsetof(jobArray, count), JobBasicsArray_count);
STANDS(offsetof(jobArray, allocated), JobBasicsArray_allocated);
STANDS(offsetof(jobArray, jobs), JobBasicsArray_jobs);
STANDS(sizeof(jobArray), JobBasicsArray_size);
STANDS(offsetof(submitterSettings, arguments), submitterSettings_arguments);
STANDS(sizeof(submitterSettings), submitterSettings_size);
STANDS(offsetof(loadRecord, jobs), dataPARS_LoadSceneFile_jobArray);
STANDS(offsetof(loadRecord, settings), dataPARS_LoadSceneFile_settings);
STANDS(sizeof(loadRecord), dataPARS_LoadSceneFile_size);

static void fail(const char* what) {
    fprintf(stderr, "cHost: %s\n", what);
    exit(1);
}

static void* functionOf(void* library, const char* name) {
    void* const function = dlsym(library, name);
    if (function == NULL) fail(name);
    return function;
}

static void* openPlugin(const char* path) {
    void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == NULL) fail(dlerror());
    return library;
}

static void textIs(const uint8_t* text, const char* expected) {
    uint16_t length, unit;
    memcpy(&length, text, sizeof length);
    if (length != strlen(expected)) fail(expected);
    for (size_t i = 0; i <= length; ++i) {
        memcpy(&unit, text + 4 + 2 * i, sizeof unit);
        if (unit != (uint8_t)expected[i]) fail(expected);
    }
}

static void bytesAre(const uint8_t* field, const void* expected, size_t size, const char* what) {
    if (memcmp(field, expected, size) != 0) fail(what);
}

/// Loads a scene and checks code and number of jobs. @return their records, to be freed
static uint8_t* jobsOf(void* library, const char* path, int32_t code, int32_t jobs) {
    sceneNameText name = {0};
    name.length = (uint16_t)strlen(path);
    for (size_t i = 0; i < name.length; ++i) name.units[i] = (uint8_t)path[i];
    jobArray array = {.structureVersion = 1033, .structureMinor = 1, .recordSize = JobBasics_largePath_size};
    const char* const arguments[] = {"cHost"};
    const submitterSettings settings = {1, arguments};
    loadRecord load = {&name, &array, &settings};

    loadFunction loadScene;
    *(void**)&loadScene = functionOf(library, "pLoadSceneFile");
    const int32_t result = loadScene(&load);
    if (result != code || array.count != jobs) {
        fprintf(stderr, "cHost: code %d with %d jobs for %s\n", result, array.count, path);
        exit(1);
    }
    return array.jobs;
}

static const uint8_t* fieldOf(const uint8_t* jobs, int32_t job, size_t offset) {
    return jobs + (size_t)job * JobBasics_largePath_size + offset;
}

/// Writes a scene, loads it, and checks the last job's driver when there is one.
static void loads(void* library, const char* scene, int32_t code, int32_t jobs, const char* driver) {
    char path[] = "/tmp/cHost-XXXXXX";
    const int file = mkstemp(path);
    if (file < 0 || write(file, scene, strlen(scene)) != (ssize_t)strlen(scene)) fail("cannot write a scene");
    close(file);
    uint8_t* const records = jobsOf(library, path, code, jobs);
    unlink(path);
    if (driver != NULL) textIs(fieldOf(records, jobs - 1, JobBasics_noSettings_noPaths_layer), driver);
    free(records);
}

static void loadsExample(void* library, const char* path) {
    enum { settings = JobBasics_largePath_sceneSettings, slots = JobBasics_largePath_channels };
    uint8_t* const jobs = jobsOf(library, path, 1, 18);
    textIs(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_app), "Mantra_StdA");
    textIs(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_camera), "/obj/cam1");
    textIs(fieldOf(jobs, 1, JobBasics_largePath_imageExtension), ".exr");
    textIs(fieldOf(jobs, 3, slots + channelSlot_size + channelSlot_extension), ".exr");
    const uint16_t size[] = {1280, 720}, step = 25;
    const double range[] = {1001, 1100};
    const uint8_t padding = 4, waitsFor = 1;
    bytesAre(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_imageWidth), size, sizeof size, "image size");
    bytesAre(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_imagePadding), &padding, sizeof padding, "padding");
    bytesAre(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_waitForPreIDs), &waitsFor, sizeof waitsFor, "wait list");
    bytesAre(fieldOf(jobs, 17, settings + JobSettingsScene_seqStart), range, sizeof range, "frame range");
    bytesAre(fieldOf(jobs, 17, settings + JobSettingsScene_seqStep), &step, sizeof step, "frame step");
    free(jobs);
}

static void describesItself(void* library) {
    infoFunction info;
    *(void**)&info = functionOf(library, "pInfo");
    uint8_t record[dataPARS_PluginInfo_size];
    memset(record, 0xFF, sizeof record);
    if (info(record) != 5) fail("an unknown version of the info record was accepted");
    if (info(record) != 1) fail("the info record's own version was refused");
    textIs(record + dataPARS_PluginInfo_appName, "Houdini");
    for (int i = dataPARS_PluginInfo_pluginKind + 2; i < dataPARS_PluginInfo_appName; ++i)
        if (record[i] != 0xFF) fail("bytes that belong to the host were written");
}

#define DRIVER(name, image) "out/" name ".parm {\nvm_picture\t[ 0\tlocks=0 ]\t(\t" image "\t)\n}\n"

int main(int count, char** arguments) {
    if (count != 3) fail("usage: cHost PLUGIN EXAMPLE-SCENE");
    void* library = openPlugin(arguments[1]);
    describesItself(library);
    loads(library, DRIVER("mantra1", "/img/a.$F4.exr"), 1, 1, "/out/mantra1");
    loads(library, DRIVER("mantra1", "ip"), 25, 0, NULL);
    loads(library, "", 25, 0, NULL);  // the plug-in still knows of the driver without an output
    if (dlclose(library) != 0) fail(dlerror());

    library = openPlugin(arguments[1]);
    loads(library, "", 1, 0, NULL);
    loads(library, DRIVER("mantra2", "/img/b.exr") DRIVER("mantra3", "/img/c.exr"), 1, 2, "/out/mantra3");
    if (dlclose(library) != 0) fail(dlerror());

    library = openPlugin(arguments[1]);
    loadsExample(library, arguments[2]);
    return dlclose(library);
}
