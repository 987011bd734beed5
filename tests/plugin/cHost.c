// A host in plain C that knows the records by their golden offsets alone: opens the plug-in, loads scenes, closes it,
// and starts anew.
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "recordOffsets.h"

enum { firstUnit = 4, layer = JobBasics_noSettings_noPaths_layer };

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

static void put(uint8_t* field, const void* value, size_t size) {
    memcpy(field, value, size);
}

static void bytesAre(const uint8_t* field, const void* expected, size_t size, const char* what) {
    if (memcmp(field, expected, size) != 0) fail(what);
}

/// A text of 16-bit characters with its length and its end, as it stands in a record.
static size_t putText(uint8_t* field, const char* text) {
    const uint16_t length = (uint16_t)strlen(text);
    put(field, &length, sizeof length);
    for (size_t i = 0; i <= length; ++i) put(field + firstUnit + 2 * i, (uint16_t[]){(uint8_t)text[i]}, 2);
    return firstUnit + 2u * (length + 1u);
}

static void textIs(const uint8_t* field, const char* expected) {
    uint8_t text[2006] = {0};
    const size_t size = putText(text, expected);
    bytesAre(field, text, 2, expected);
    bytesAre(field + firstUnit, text + firstUnit, size - firstUnit, expected);
}

/// Loads a scene and checks code and number of jobs. @return their records, to be freed
static uint8_t* jobsOf(void* library, const char* path, int32_t code, int32_t jobs) {
    _Alignas(2) uint8_t name[1006] = {0};
    putText(name, path);
    _Alignas(8) uint8_t array[JobBasicsArray_size] = {0};
    put(array + JobBasicsArray_structureVersion, (uint16_t[]){1033, 1}, 4);
    put(array + JobBasicsArray_recordSize, (uint32_t[]){JobBasics_largePath_size}, 4);
    _Alignas(8) uint8_t settings[submitterSettings_size] = {1};
    const char* const arguments[] = {"cHost"};
    put(settings + submitterSettings_arguments, (const void*[]){arguments}, sizeof(void*));
    _Alignas(8) uint8_t load[dataPARS_LoadSceneFile_size];
    put(load + dataPARS_LoadSceneFile_sceneFileName, (const void*[]){name}, sizeof(void*));
    put(load + dataPARS_LoadSceneFile_jobArray, (const void*[]){array}, sizeof(void*));
    put(load + dataPARS_LoadSceneFile_settings, (const void*[]){settings}, sizeof(void*));

    int32_t (*loadScene)(uint8_t*);
    *(void**)&loadScene = functionOf(library, "pLoadSceneFile");
    if (loadScene(load) != code) fail("another result code");
    bytesAre(array + JobBasicsArray_count, &jobs, sizeof jobs, "number of jobs");
    uint8_t* records;
    memcpy(&records, array + JobBasicsArray_jobs, sizeof records);
    return records;
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
    if (driver != NULL) textIs(fieldOf(records, jobs - 1, layer), driver);
    free(records);
}

static void loadsExample(void* library, const char* path) {
    enum { settings = JobBasics_largePath_sceneSettings, slots = JobBasics_largePath_channels };
    uint8_t* const jobs = jobsOf(library, path, 1, 18);
    textIs(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_camera), "/obj/cam1");
    textIs(fieldOf(jobs, 1, JobBasics_largePath_imageExtension), ".exr");
    textIs(fieldOf(jobs, 3, slots + channelSlot_size + channelSlot_extension), ".exr");
    bytesAre(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_imageWidth), (uint16_t[]){1280, 720}, 4, "image size");
    bytesAre(fieldOf(jobs, 1, JobBasics_noSettings_noPaths_waitForPreIDs), (uint8_t[]){1}, 1, "wait list");
    bytesAre(fieldOf(jobs, 17, settings + JobSettingsScene_seqStart), (double[]){1001, 1100}, 16, "frame range");
    bytesAre(fieldOf(jobs, 17, settings + JobSettingsScene_seqStep), (uint16_t[]){25}, 2, "frame step");
    free(jobs);
}

static void describesItself(void* library) {
    uint8_t (*info)(uint8_t*);
    *(void**)&info = functionOf(library, "pInfo");
    _Alignas(2) uint8_t record[dataPARS_PluginInfo_size];
    memset(record, 0xFF, sizeof record);
    if (info(record) != 5) fail("an unknown version of the info record was accepted");
    bytesAre(record + dataPARS_PluginInfo_structureVersion, (uint16_t[]){0xB005, 1}, 4, "version and kind");
    for (int i = dataPARS_PluginInfo_flag; i < dataPARS_PluginInfo_size; ++i)
        if (record[i] != 0xFF) fail("a host of another version was told more");
    if (info(record) != 1) fail("the info record's own version was refused");
    textIs(record + dataPARS_PluginInfo_appName, "Houdini");
    textIs(record + dataPARS_PluginInfo_hostLibraryVersion, " 8.4.00");
    textIs(record + dataPARS_PluginInfo_fileFilter, "*.hip;*.hipnc;*.hiplc;");
    bytesAre(record + dataPARS_PluginInfo_flag, (uint8_t[]){0, 0xFF}, 2, "flag");
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
    loadsExample(library, arguments[2]);
    return dlclose(library);
}
