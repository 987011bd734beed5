// A library without the plug-in's entry points.
extern "C" int somethingElse();
extern "C" int somethingElse() {
    return 0;
}
