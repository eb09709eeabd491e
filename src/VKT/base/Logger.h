#pragma once

#include "VKT/base/Types.h"

namespace VKT {

// How much a message matters. The numbers are part of the interface.
enum XLogLevel : i32 { kInfo = 0, kWarning = 1, kError = 2, kDebug = 3, kStdOut = 4 };

// Where all diagnostics of the library go: a failure is a message here and a false or
// an error result, never an exception. A host that wants the messages elsewhere
// overrides `LogString`.
//
// This class itself is the default logger, which writes to standard output.
class XLogger {
public:
    virtual ~XLogger() = default;

    // Gives out a text as it is.
    virtual void Log(XLogLevel level, const char* message);
    // Gives a message out; all others end here. The default writes the level's prefix,
    // such as "Error : ", at most 1023 characters of the message and a line end to
    // standard output, and flushes it.
    virtual void LogString(XLogLevel level, const XString& message);
    // Gives out what printf would print, cut to 1023 characters.
    virtual void LogFormat(XLogLevel level, const char* format, ...);
};

// What the default logger puts in front of a message of this level: "Info : ",
// "Warning : ", "Error : ", "Debug : ", "StdOut : "; nothing for a number without name.
const char* GetLogPrefix(XLogLevel level);

// The logger in use, never null: the default one until another is set.
XLogger* GetLogger();
// Sets the logger in use, or the default one for null. It stays the caller's.
void SetLogger(XLogger* logger);

}  // namespace VKT
