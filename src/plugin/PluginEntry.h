#pragma once

#include <max.h>
// The umbrella header leaves this out.
#include <iparamb2.h>

namespace VKTMax {

// Describes the exporter to the host.
class VKTMaxExporterClassDesc final : public ClassDesc2 {
public:
    int IsPublic() override { return TRUE; }
    void* Create(BOOL loading) override;
    const MCHAR* ClassName() override;
    SClass_ID SuperClassID() override { return SCENE_EXPORT_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(0x876628ED, 0x39833063); }
    const MCHAR* Category() override;
    const MCHAR* InternalName() override { return "VKTMaxExporter"; }
    HINSTANCE HInstance() override;
};

// What the functions that the host looks for in a module answer; the module itself only
// exports them. The script interface and the importer are not there yet: one class.

// Null when the module or its string is not known.
const char* DescribePlugin();
int CountPluginClasses();
// Null for a number that is none.
ClassDesc* FindPluginClass(int i);
// Registers the library's node types. May be called again.
bool StartPlugin();
bool StopPlugin();

}  // namespace VKTMax
