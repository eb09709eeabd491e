#include "VKT/base/Logger.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <new>

namespace VKT {

namespace {

constexpr std::size_t kMessageBuffer = 1024;  // bytes, with the closing NUL

XLogger* installedLogger = nullptr;

}  // namespace

void XLogger::Log(XLogLevel level, const char* message)
{
    LogString(level, message);
}

void XLogger::LogString(XLogLevel level, const XString& message)
{
    XString line = GetLogPrefix(level);
    line.append(message, 0, kMessageBuffer - 1);
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fflush(stdout);
}

void XLogger::LogFormat(XLogLevel level, const char* format, ...)
{
    char message[kMessageBuffer] = "";
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(message, sizeof message, format, arguments);
    va_end(arguments);
    LogString(level, message);
}

const char* GetLogPrefix(XLogLevel level)
{
    switch (level) {
        case kInfo:
            return "Info : ";
        case kWarning:
            return "Warning : ";
        case kError:
            return "Error : ";
        case kDebug:
            return "Debug : ";
        case kStdOut:
            return "StdOut : ";
    }
    return "";
}

XLogger* GetLogger()
{
    // Never destroyed: destructors of static objects may still log. It takes no memory of the heap,
    // since a module that is unloaded would leave that behind.
    alignas(XLogger) static std::byte memory[sizeof(XLogger)];
    static XLogger* const defaultLogger = new (memory) XLogger;
    return installedLogger ? installedLogger : defaultLogger;
}

void SetLogger(XLogger* logger)
{
    installedLogger = logger;
}

}  // namespace VKT
