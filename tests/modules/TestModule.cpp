// A small plug-in module: an exporter for files of type "tst". What is wrong with its
// variants is chosen when they are compiled.

#include <max.h>

#include <fstream>
#include <stdexcept>
#include <string>

#include "iparamb2.h"

#ifndef TEST_VERSION
#define TEST_VERSION VERSION_3DSMAX
#endif
#ifndef TEST_INITIALIZE
#define TEST_INITIALIZE 1
#endif

namespace {

HINSTANCE g_module = nullptr;

// Writes what it was told, one thing a line.
class TestExport final : public SceneExport {
public:
    int ExtCount() override { return 2; }
    const MCHAR* Ext(int n) override { return n == 0 ? "tst" : "boom"; }
    const MCHAR* LongDesc() override { return "Test file exporter"; }
    const MCHAR* ShortDesc() override { return "Test"; }
    const MCHAR* AuthorName() override { return ""; }
    const MCHAR* CopyrightMessage() override { return ""; }
    const MCHAR* OtherMessage1() override { return ""; }
    const MCHAR* OtherMessage2() override { return ""; }
    unsigned int Version() override { return 100; }
    void ShowAbout(HWND) override {}
    int DoExport(const MCHAR* name, ExpInterface* ei, Interface* i, BOOL suppressPrompts,
                 DWORD options) override
    {
        const std::string path = name;
        if (path.size() > 4 && path.substr(path.size() - 4) == "boom")
            throw std::runtime_error("no such thing");
        std::ofstream out(path);
        out << i->GetRootNode()->NumberOfChildren() << '\n'
            << (ei != nullptr) << '\n'
            << suppressPrompts << '\n'
            << options << '\n'
            << (i == GetCOREInterface()) << '\n'
            << i->GetDir(APP_PLUGCFG_DIR) << '\n';
        OutputDebugString("exported");
        return IMPEXP_SUCCESS;
    }
#ifdef TEST_SELECTION
    BOOL SupportsOptions(int, DWORD) override
    {
        return TRUE;
    }
#endif
};

class TestExportDesc final : public ClassDesc2 {
public:
    int IsPublic() override { return 1; }
    void* Create(BOOL) override { return new TestExport; }
    const MCHAR* ClassName() override { return GetRsrcString(3); }
    SClass_ID SuperClassID() override { return SCENE_EXPORT_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(0x7e57, 0x7e57); }
    const MCHAR* Category() override { return ""; }
    HINSTANCE HInstance() override { return g_module; }
};

}  // namespace

extern "C" {

DllExport const char* ModuleString(unsigned int id)
{
    return id == 1 ? "Test module" : id == 3 ? "TestExport" : nullptr;
}

DllExport int DllMain(HINSTANCE module, DWORD reason, LPVOID)
{
    g_module = reason == DLL_PROCESS_ATTACH ? module : nullptr;
    return TRUE;
}

DllExport const MCHAR* LibDescription()
{
    static char text[256];
    return LoadString(g_module, 1, text, sizeof text) > 0 ? text : nullptr;
}

DllExport int LibNumberClasses()
{
    return 1;
}

DllExport ClassDesc* LibClassDesc(int i)
{
    static TestExportDesc desc;
    return i == 0 ? &desc : nullptr;
}

#ifndef TEST_NO_VERSION
DllExport ULONG LibVersion()
{
    return TEST_VERSION;
}
#endif

DllExport int LibInitialize()
{
    OutputDebugString("started");
    return TEST_INITIALIZE;
}

DllExport int LibShutdown()
{
    OutputDebugString("shut down");
    return 1;
}
}
