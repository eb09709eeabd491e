#pragma once

#include <string>

#include "common/PrivateFolder.h"

namespace tool {

class Log;

// The headless host with the plug-in, for one run of the tool. The plug-in gets a
// configuration folder of its own, so that a run neither depends on the user's
// configuration nor changes it.
class HostSession {
public:
    explicit HostSession(Log& log);
    // Closes the scene and unloads the plug-in.
    ~HostSession();
    HostSession(const HostSession&) = delete;
    HostSession& operator=(const HostSession&) = delete;

    // Loads the plug-in from that path; without one, from beside the program, else from
    // ../lib/vkt. False after a message.
    bool LoadPlugin(const std::string& path);
    // Has the host write its scene, or the selection of it, by the exporter that takes
    // the path's extension. False after a message. True says nothing of the file: an
    // exporter may report success although it could not write.
    bool Export(const std::string& path, bool selectedOnly);

private:
    Log& m_Log;
    PrivateFolder m_Configuration;
};

}  // namespace tool
