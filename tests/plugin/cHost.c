// A host in plain C: builds the records by their offsets, opens the plug-in, loads scenes, closes it, and starts anew.
#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

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

enum { layerOffset = 592, infoNameOffset = 18 };

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

/// Writes a scene, loads it, checks code and number of jobs and, when there is one, the last job's driver.
static void loads(void* library, const char* scene, int32_t code, int32_t jobs, const char* driver) {
    char path[] = "/tmp/cHost-XXXXXX";
    const int file = mkstemp(path);
    if (file < 0 || write(file, scene, strlen(scene)) != (ssize_t)strlen(scene)) fail("cannot write a scene");
    close(file);

    sceneNameText name = {0};
    name.length = (uint16_t)strlen(path);
    for (size_t i = 0; i < name.length; ++i) name.units[i] = (uint8_t)path[i];
    jobArray array = {.structureVersion = 1033, .structureMinor = 1, .recordSize = 226968};
    const char* const arguments[] = {"cHost"};
    const submitterSettings settings = {1, arguments};
    loadRecord load = {&name, &array, &settings};

    loadFunction loadScene;
    *(void**)&loadScene = functionOf(library, "pLoadSceneFile");
    const int32_t result = loadScene(&load);
    unlink(path);
    if (result != code || array.count != jobs) {
        fprintf(stderr, "cHost: code %d with %d jobs for %s\n", result, array.count, scene);
        exit(1);
    }
    if (driver != NULL) textIs(array.jobs + (size_t)(jobs - 1) * array.recordSize + layerOffset, driver);
    free(array.jobs);
}

static void describesItself(void* library) {
    infoFunction info;
    *(void**)&info = functionOf(library, "pInfo");
    uint8_t record[722];
    memset(record, 0xFF, sizeof record);
    if (info(record) != 5) fail("an unknown version of the info record was accepted");
    if (info(record) != 1) fail("the info record's own version was refused");
    textIs(record + infoNameOffset, "Houdini");
    for (int i = 4; i < 18; ++i)
        if (record[i] != 0xFF) fail("bytes that belong to the host were written");
}

#define DRIVER(name, image) "out/" name ".parm {\nvm_picture\t[ 0\tlocks=0 ]\t(\t" image "\t)\n}\n"

int main(int count, char** arguments) {
    if (count != 2) fail("usage: cHost PLUGIN");
    void* library = openPlugin(arguments[1]);
    describesItself(library);
    loads(library, DRIVER("mantra1", "/img/a.$F4.exr"), 1, 1, "/out/mantra1");
    loads(library, DRIVER("mantra1", "ip"), 25, 0, NULL);
    loads(library, "", 25, 0, NULL);  // the plug-in still knows of the driver without an output
    if (dlclose(library) != 0) fail(dlerror());

    library = openPlugin(arguments[1]);
    loads(library, "", 1, 0, NULL);
    loads(library, DRIVER("mantra2", "/img/b.exr") DRIVER("mantra3", "/img/c.exr"), 1, 2, "/out/mantra3");
    return dlclose(library);
}
