#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/app/ModuleFile.h"
#include "host/core/ClassDirectory.h"

namespace maxhost {

// A loaded plug-in module whose classes stand in a directory. Its end takes them out,
// shuts the module down and unloads it.
class Module {
public:
    // Null when the file can't be loaded, exports not what a plug-in must, was built for
    // another release, refuses to start, or brings a class that is there already.
    // `error` then names the file and the reason.
    static std::unique_ptr<Module> Load(const std::string& path, ClassDirectory& classes, std::string& error);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    const std::string& GetPath() const { return m_Path; }
    const std::string& GetDescription() const { return m_Description; }
    const std::vector<ClassDesc*>& GetClasses() const { return m_Classes; }

private:
    Module(const std::string& path, ClassDirectory& directory, std::string& error);
    bool Start(std::string& error);
    bool Register(std::string& error);

    std::string m_Path;
    ClassDirectory& m_Directory;
    ModuleFile m_File;
    std::string m_Description;
    std::vector<ClassDesc*> m_Classes;
    bool m_Started = false;
};

}  // namespace maxhost
