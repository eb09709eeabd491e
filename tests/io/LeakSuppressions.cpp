// The FBX reader of Assimp 5.2.5 does not free the morph channels it makes.
extern "C" const char* __lsan_default_suppressions();
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:libassimp";
}
